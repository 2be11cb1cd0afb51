// Creates the objects of one class. There is no licence to ask for.
#pragma once

#include "framework/control_table.h"

#include "server/module.h"

#include <unknwn.h>

namespace obk::server {

class ClassFactory final : public IClassFactory {
public:
    explicit ClassFactory(const ControlTable& table) : table_(table) {}
    ClassFactory(const ClassFactory&) = delete;
    ClassFactory& operator=(const ClassFactory&) = delete;
    virtual ~ClassFactory() = default;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** result) override;
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;

private:
    const module::Presence presence_;
    const ControlTable& table_;
    LONG references_ = 1;
};

}  // namespace obk::server
