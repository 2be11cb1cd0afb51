// A COM object on its way through the library.
#pragma once

#include "base/opaque_object.h"

#include "com/com_ptr.h"

namespace obk::win32 {

class NativeObject final : public OpaqueObject {
public:
    explicit NativeObject(ComPtr<IUnknown> object) : object_(std::move(object)) {}

    const ComPtr<IUnknown>& object() const { return object_; }

private:
    const ComPtr<IUnknown> object_;
};

}  // namespace obk::win32
