#include "server/registration.h"

#include "library/class_facts.h"
#include "library/library.h"

#include "server/module.h"
#include "server/registry_entries.h"
#include "server/system_text.h"

#include <olectl.h>

namespace obk::server {

namespace {

constexpr wchar_t controlCategory[] = L"{40FC6ED4-2438-11CF-A3DB-080036F12502}";
#ifdef _WIN64
constexpr wchar_t ownSystem[] = L"win64", otherSystem[] = L"win32";
#else
constexpr wchar_t ownSystem[] = L"win32", otherSystem[] = L"win64";
#endif

RegistryEntries classEntries(const ControlTable& table, const std::wstring& file) {
    const std::wstring id = guidText(systemGuid(table.classId));
    const std::wstring key = L"CLSID\\" + id;
    const std::wstring description = toWide(classDescription(table));
    const std::wstring versioned = toWide(versionedProgrammaticId(table));
    RegistryEntries entries;
    entries.add(key, description);
    entries.add(key + L"\\InprocServer32", file);
    entries.add(key + L"\\InprocServer32", L"Apartment", L"ThreadingModel");
    entries.add(key + L"\\ProgID", versioned);
    entries.add(key + L"\\VersionIndependentProgID", toWide(programmaticId(table)));
    entries.add(key + L"\\Control", L"");
    entries.add(key + L"\\MiscStatus", L"0");
    entries.add(key + L"\\MiscStatus\\1", std::to_wstring(miscellaneousStatus(table)));
    if (table.toolboxPicture != 0)
        entries.add(key + L"\\ToolboxBitmap32", file + L", " + std::to_wstring(table.toolboxPicture));
    entries.add(key + L"\\TypeLib", guidText(systemGuid(library().id)));
    entries.add(key + L"\\Version", toWide(libraryVersion(library())));
    entries.add(key + L"\\Verb\\0", L"Edit,0,0");
    entries.add(key + L"\\Verb\\-7", L"&Properties,0,2");  // shown in the container's menu
    entries.add(key + L"\\Implemented Categories\\" + controlCategory, L"");
    entries.add(versioned, description);
    entries.add(versioned + L"\\CLSID", id);
    return entries;
}

// The name without a version belongs to whichever version was registered last.
RegistryEntries currentVersionEntries(const ControlTable& table) {
    const std::wstring name = toWide(programmaticId(table));
    RegistryEntries entries;
    entries.add(name, toWide(classDescription(table)));
    entries.add(name + L"\\CLSID", guidText(systemGuid(table.classId)));
    entries.add(name + L"\\CurVer", toWide(versionedProgrammaticId(table)));
    return entries;
}

constexpr wchar_t dispatchProxy[] = L"{00020420-0000-0000-C000-000000000046}";

std::wstring typeLibraryKey() {
    return L"TypeLib\\" + guidText(systemGuid(library().id));
}

// The system can register a type library itself, for one user not everywhere, and takes back more or less
// than it wrote; so its values are written as all others are.
RegistryEntries fileEntries(const wchar_t* system, const std::wstring& file) {
    RegistryEntries entries;
    entries.add(typeLibraryKey() + L"\\" + toWide(libraryVersion(library())) + L"\\0\\" + system, file);
    return entries;
}

// What the servers of both architectures share.
RegistryEntries typeEntries(const std::wstring& file) {
    const std::wstring version = toWide(libraryVersion(library()));
    const std::wstring key = typeLibraryKey() + L"\\" + version;
    RegistryEntries entries;
    entries.add(key, toWide(library().description));
    entries.add(key + L"\\FLAGS", L"0");
    entries.add(key + L"\\HELPDIR", file.substr(0, file.rfind(L'\\')));
    const auto addInterface = [&](const Guid& id, const std::wstring& name) {
        const std::wstring interfaceKey = L"Interface\\" + guidText(systemGuid(id));
        entries.add(interfaceKey, name);
        entries.add(interfaceKey + L"\\ProxyStubClsid32", dispatchProxy);
        entries.add(interfaceKey + L"\\TypeLib", guidText(systemGuid(library().id)));
        entries.add(interfaceKey + L"\\TypeLib", version, L"Version");
    };
    for (const ControlTable* table : publicControls(library())) {
        addInterface(table->interfaceId, L"_" + toWide(table->name));
        addInterface(table->eventInterfaceId, L"__" + toWide(table->name));
    }
    return entries;
}

}  // namespace

HRESULT registerServer(RegistrationScope scope) {
    const std::wstring file = module::path();
    const ClassesKey classes(scope);
    bool written = fileEntries(ownSystem, file).write(classes) && typeEntries(file).write(classes);
    for (const ControlTable* table : publicControls(library())) {
        written = written && classEntries(*table, file).write(classes) &&
                  currentVersionEntries(*table).write(classes);
    }
    if (written) return S_OK;
    unregisterServer(scope);
    return SELFREG_E_CLASS;
}

HRESULT unregisterServer(RegistrationScope scope) {
    const std::wstring file = module::path();
    const ClassesKey classes(scope);
    bool removed = true;
    for (const ControlTable* table : publicControls(library())) {
        const std::wstring current = classes.text(toWide(programmaticId(*table)) + L"\\CurVer");
        if (current == toWide(versionedProgrammaticId(*table)))
            removed = currentVersionEntries(*table).remove(classes) && removed;
        removed = classEntries(*table, file).remove(classes) && removed;
    }
    removed = fileEntries(ownSystem, file).remove(classes) && removed;
    if (!fileEntries(otherSystem, file).present(classes))
        removed = typeEntries(file).remove(classes) && removed;
    return removed ? S_OK : SELFREG_E_CLASS;
}

}  // namespace obk::server
