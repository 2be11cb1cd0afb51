#include "server/class_factory.h"

#include "server/control_object.h"

namespace obk::server {

ClassFactory::ClassFactory(const ControlTable& table) : ComObject(module::presence()), table_(table) {}

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
