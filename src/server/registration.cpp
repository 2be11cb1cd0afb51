#include "server/registration.h"

#include "library/class_facts.h"
#include "library/library.h"

#include "server/module.h"
#include "server/registry_entries.h"
#include "server/system_text.h"

#include <oleauto.h>
#include <olectl.h>

namespace obk::server {

namespace {

constexpr wchar_t controlCategory[] = L"{40FC6ED4-2438-11CF-A3DB-080036F12502}";
#ifdef _WIN64
constexpr SYSKIND ownSystem = SYS_WIN64;
#else
constexpr SYSKIND ownSystem = SYS_WIN32;
#endif

RegistryEntries classEntries(const ControlTable& table, const std::wstring& file) {
    const std::wstring id = guidText(systemGuid(table.classId));
    const std::wstring key = L"CLSID\\" + id;
    const std::wstring description = wideText(classDescription(table));
    const std::wstring versioned = wideText(versionedProgrammaticId(table));
    RegistryEntries entries;
    entries.add(key, description);
    entries.add(key + L"\\InprocServer32", file);
    entries.add(key + L"\\InprocServer32", L"Apartment", L"ThreadingModel");
    entries.add(key + L"\\ProgID", versioned);
    entries.add(key + L"\\VersionIndependentProgID", wideText(programmaticId(table)));
    entries.add(key + L"\\Control", L"");
    entries.add(key + L"\\MiscStatus", L"0");
    entries.add(key + L"\\MiscStatus\\1", std::to_wstring(miscellaneousStatus(table)));
    if (table.toolboxPicture != 0)
        entries.add(key + L"\\ToolboxBitmap32", file + L", " + std::to_wstring(table.toolboxPicture));
    entries.add(key + L"\\TypeLib", guidText(systemGuid(library().id)));
    entries.add(key + L"\\Version", wideText(libraryVersion(library())));
    entries.add(key + L"\\Verb\\0", L"Edit,0,0");
    entries.add(key + L"\\Verb\\-7", L"&Properties,0,2"); // shown in the container's menu
    entries.add(key + L"\\Implemented Categories\\" + controlCategory, L"");
    entries.add(versioned, description);
    entries.add(versioned + L"\\CLSID", id);
    return entries;
}

// The name without a version belongs to whichever version was registered last.
RegistryEntries currentVersionEntries(const ControlTable& table) {
    const std::wstring name = wideText(programmaticId(table));
    RegistryEntries entries;
    entries.add(name, wideText(classDescription(table)));
    entries.add(name + L"\\CLSID", guidText(systemGuid(table.classId)));
    entries.add(name + L"\\CurVer", wideText(versionedProgrammaticId(table)));
    return entries;
}

using RegisterForUser = HRESULT(STDAPICALLTYPE*)(ITypeLib*, OLECHAR*, OLECHAR*);
using UnregisterForUser = HRESULT(STDAPICALLTYPE*)(REFGUID, WORD, WORD, LCID, SYSKIND);

// Functions that not every system has.
template <typename Function>
Function automationFunction(const char* name) {
    const HMODULE automation = GetModuleHandleW(L"oleaut32.dll");
    return automation ? reinterpret_cast<Function>(GetProcAddress(automation, name)) : nullptr;
}

HRESULT registerTypes(RegistrationScope scope, std::wstring file) {
    ComPtr<ITypeLib> types;
    if (const HRESULT loaded = LoadTypeLibEx(file.c_str(), REGKIND_NONE, types.put()); FAILED(loaded)) return loaded;
    if (scope == RegistrationScope::machine) return RegisterTypeLib(types.get(), file.data(), nullptr);
    const auto forUser = automationFunction<RegisterForUser>("RegisterTypeLibForUser");
    return forUser ? forUser(types.get(), file.data(), nullptr) : SELFREG_E_TYPELIB;
}

HRESULT unregisterTypes(RegistrationScope scope) {
    const Library& own = library();
    const GUID id = systemGuid(own.id);
    if (scope == RegistrationScope::machine)
        return UnRegisterTypeLib(id, own.majorVersion, own.minorVersion, LOCALE_NEUTRAL, ownSystem);
    const auto forUser = automationFunction<UnregisterForUser>("UnRegisterTypeLibForUser");
    return forUser ? forUser(id, own.majorVersion, own.minorVersion, LOCALE_NEUTRAL, ownSystem) : SELFREG_E_TYPELIB;
}

}  // namespace

HRESULT registerServer(RegistrationScope scope) {
    const std::wstring file = module::path();
    const ClassesKey classes(scope == RegistrationScope::machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER);
    bool written = true;
    for (const ControlTable* table : publicControls(library())) {
        written = written && classEntries(*table, file).write(classes) && currentVersionEntries(*table).write(classes);
    }
    if (!written) {
        unregisterServer(scope);
        return SELFREG_E_CLASS;
    }
    if (FAILED(registerTypes(scope, file))) {
        unregisterServer(scope);
        return SELFREG_E_TYPELIB;
    }
    return S_OK;
}

HRESULT unregisterServer(RegistrationScope scope) {
    const std::wstring file = module::path();
    const ClassesKey classes(scope == RegistrationScope::machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER);
    bool removed = true;
    for (const ControlTable* table : publicControls(library())) {
        const std::wstring current = classes.text(wideText(programmaticId(*table)) + L"\\CurVer");
        if (current == wideText(versionedProgrammaticId(*table)))
            removed = currentVersionEntries(*table).remove(classes) && removed;
        removed = classEntries(*table, file).remove(classes) && removed;
    }
    const HRESULT types = unregisterTypes(scope);
    if (!removed) return SELFREG_E_CLASS;
    // Nothing to remove is as good as removed.
    return SUCCEEDED(types) || types == TYPE_E_REGISTRYACCESS ? S_OK : SELFREG_E_TYPELIB;
}

}  // namespace obk::server
