// Creates the objects of one class. There is no licence to ask for.
#pragma once

#include "framework/control_table.h"

#include "com/com_object.h"

namespace obk::server {

class ClassFactory final : public ComObject<IClassFactory> {
public:
    explicit ClassFactory(const ControlTable& table);

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** result) override;
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;

private:
    const ControlTable& table_;
};

}  // namespace obk::server
