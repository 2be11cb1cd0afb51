#include "server/registration.h"

#include "server/module.h"
#include "server/system_text.h"

#include <olectl.h>

namespace obk::server {

namespace {

#ifdef _WIN64
constexpr auto ownArchitecture = Architecture::x64;
#else
constexpr auto ownArchitecture = Architecture::x86;
#endif

}  // namespace

HRESULT registerThisServer(RegistrationScope scope) {
    ClassesKey classes(scope);
    if (registerServer(library(), ownArchitecture, Text(viewOf(module::path().c_str())), classes))
        return S_OK;
    unregisterServer(library(), ownArchitecture, classes);
    return SELFREG_E_CLASS;
}

HRESULT unregisterThisServer(RegistrationScope scope) {
    ClassesKey classes(scope);
    return unregisterServer(library(), ownArchitecture, classes) ? S_OK : SELFREG_E_CLASS;
}

}  // namespace obk::server
