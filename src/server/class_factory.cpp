#include "server/class_factory.h"

#include "server/control_object.h"

namespace obk::server {

HRESULT ClassFactory::QueryInterface(REFIID iid, void** result) {
    if (!result) return E_POINTER;
    const bool known = iid == __uuidof(IUnknown) || iid == __uuidof(IClassFactory);
    *result = known ? static_cast<IClassFactory*>(this) : nullptr;
    if (known) AddRef();
    return known ? S_OK : E_NOINTERFACE;
}

// The system may keep a factory for more than one thread.
ULONG ClassFactory::AddRef() {
    return static_cast<ULONG>(InterlockedIncrement(&references_));
}

ULONG ClassFactory::Release() {
    const LONG left = InterlockedDecrement(&references_);
    if (left == 0) delete this;
    return static_cast<ULONG>(left);
}

HRESULT ClassFactory::CreateInstance(IUnknown* outer, REFIID iid, void** result) {
    return ControlObject::create(table_, outer, iid, result);
}

HRESULT ClassFactory::LockServer(BOOL lock) {
    if (lock) {
        module::lock();
    } else {
        module::unlock();
    }
    return S_OK;
}

}  // namespace obk::server
