// A COM object on its way through the library.
#pragma once

#include "base/opaque_object.h"

#include <windows.h>

#include <unknwn.h>

namespace obk::win32 {

class NativeObject final : public OpaqueObject {
public:
    // Adds a reference of its own; `object` is not null.
    explicit NativeObject(IUnknown& object) : object_(object) { object_.AddRef(); }
    NativeObject(const NativeObject&) = delete;
    NativeObject& operator=(const NativeObject&) = delete;
    ~NativeObject() override { object_.Release(); }

    IUnknown& object() const { return object_; }

private:
    IUnknown& object_;
};

}  // namespace obk::win32
