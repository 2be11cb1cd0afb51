#include "server/object_identity.h"

namespace obk::server {

HRESULT ObjectIdentity::Inner::QueryInterface(REFIID iid, void** result) {
    if (!result) return E_POINTER;
    IUnknown* found = iid == __uuidof(IUnknown) ? this : object_.find(iid);
    *result = found;
    if (!found) return E_NOINTERFACE;
    found->AddRef();  // through the interface, which counts where it belongs
    return S_OK;
}

void ObjectIdentity::end() {
    // What is released on the way out may count us once more; that must not end us twice.
    references_ = 1u << 30;
    delete this;
}

}  // namespace obk::server
