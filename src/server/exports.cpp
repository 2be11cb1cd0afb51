// The functions by which the system loads, asks and registers the server.
#include "library/class_facts.h"
#include "library/library.h"
#include "library/property_pages.h"

#include "server/class_factory.h"
#include "server/control_object.h"
#include "server/entry_point.h"
#include "server/module.h"
#include "server/property_page.h"
#include "server/registration.h"
#include "server/system_text.h"
#include "server/trace.h"

#include <olectl.h>

using namespace obk;
using namespace obk::server;

extern "C" {

BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH) module::attach(module);
    return TRUE;
}

HRESULT WINAPI DllGetClassObject(REFCLSID classId, REFIID iid, void** result) {
    if (!result) return E_POINTER;
    *result = nullptr;
    return entryPoint([&]() -> HRESULT {
        startTrace();
        for (const ControlTable* table : publicControls(library())) {
            if (systemGuid(table->classId) != classId) continue;
            const ComPtr<ClassFactory> factory(
                new ClassFactory([table](IUnknown* outer, REFIID wanted, void** made) {
                    return ControlObject::create(*table, outer, wanted, made);
                }));
            return factory->QueryInterface(iid, result);
        }
        for (const PropertyPageFacts& page : propertyPages()) {
            if (systemGuid(page.id) != classId) continue;
            const ComPtr<ClassFactory> factory(
                new ClassFactory([&page](IUnknown* outer, REFIID wanted, void** made) {
                    return createPropertyPage(page, outer, wanted, made);
                }));
            return factory->QueryInterface(iid, result);
        }
        return CLASS_E_CLASSNOTAVAILABLE;
    });
}

HRESULT WINAPI DllCanUnloadNow() {
    return module::idle() ? S_OK : S_FALSE;
}

HRESULT WINAPI DllRegisterServer() {
    return entryPoint([] { return registerThisServer(RegistrationScope::machine); });
}

HRESULT WINAPI DllUnregisterServer() {
    return entryPoint([] { return unregisterThisServer(RegistrationScope::machine); });
}

// "user" registers for the present user only, which needs no rights on the machine; nothing means the
// machine.
HRESULT WINAPI DllInstall(BOOL install, PCWSTR commandLine) {
    return entryPoint([&]() -> HRESULT {
        auto scope = RegistrationScope::machine;
        if (commandLine && *commandLine) {
            if (!equalIgnoringCase(viewOf(commandLine), u"user")) return E_INVALIDARG;
            scope = RegistrationScope::user;
        }
        return install ? registerThisServer(scope) : unregisterThisServer(scope);
    });
}

}  // extern "C"
