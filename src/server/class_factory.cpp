#include "server/class_factory.h"

#include "server/module.h"

namespace obk::server {

ClassFactory::ClassFactory(Create create) : ComObject(module::presence()), create_(std::move(create)) {}

HRESULT ClassFactory::CreateInstance(IUnknown* outer, REFIID iid, void** result) {
    return create_(outer, iid, result);
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
