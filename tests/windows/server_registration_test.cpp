// What registering writes, and that removing takes back exactly that.
#include "server_support.h"

#include "container/text.h"
#include "library/class_facts.h"
#include "server/classes_key.h"
#include "server/system_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <set>

namespace obk {
namespace {

using namespace testing_support;
// Keys, each with a backslash behind it, and "KEY:NAME = value".
using Snapshot = std::set<std::wstring>;

void collect(HKEY key, const std::wstring& path, Snapshot& snapshot) {
    if (!path.empty()) snapshot.insert(path + L"\\");
    wchar_t name[512];
    for (DWORD at = 0;; ++at) {
        DWORD length = 512, size = 0;
        if (RegEnumValueW(key, at, name, &length, nullptr, nullptr, nullptr, &size) != ERROR_SUCCESS) break;
        std::wstring data(size / sizeof(wchar_t) + 1, L'\0');
        RegQueryValueExW(key, name, nullptr, nullptr, reinterpret_cast<BYTE*>(data.data()), &size);
        snapshot.insert(path + L":" + CharUpperW(name) + L" = " + data.substr(0, data.find(L'\0')));
    }
    for (DWORD at = 0;; ++at) {
        DWORD length = 512;
        if (RegEnumKeyExW(key, at, name, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) break;
        HKEY child = nullptr;
        if (RegOpenKeyExW(key, name, 0, KEY_READ, &child) != ERROR_SUCCESS) continue;
        collect(child, path + L"\\" + CharUpperW(name), snapshot);
        RegCloseKey(child);
    }
}

Snapshot classesUnder(HKEY root) {
    Snapshot snapshot;
    HKEY classes = nullptr;
    if (RegOpenKeyExW(root, L"Software\\Classes", 0, KEY_READ, &classes) == ERROR_SUCCESS) {
        collect(classes, L"", snapshot);
        RegCloseKey(classes);
    }
    return snapshot;
}

std::string differences(const Snapshot& before, const Snapshot& after) {
    std::vector<std::wstring> changed;
    std::set_symmetric_difference(before.begin(), before.end(), after.begin(), after.end(),
                                  std::back_inserter(changed));
    std::string text;
    for (const std::wstring& line : changed)
        text += (after.contains(line) ? "\n+ " : "\n- ") + container::toUtf8(line);
    return text;
}

// What registering writes where nothing of it is there yet, and the keys above it.
Snapshot expectedEntries() {
    constexpr Architecture own = sizeof(void*) == 8 ? Architecture::x64 : Architecture::x86;
    const RegistryEntries entries =
        registryEntries(library(), own, Text(server::viewOf(serverFile().c_str())));
    Snapshot expected;
    for (const auto* list : {&entries.own, &entries.shared}) {
        for (const RegistryEntry& entry : *list) {
            const std::wstring key = server::toWide(u"\\" + upperAscii(entry.key));
            for (size_t end = 0; end != std::wstring::npos;) {
                end = key.find(L'\\', end + 1);
                expected.insert(key.substr(0, end) + L"\\");
            }
            if (!entry.name.empty() || !entry.text.empty())
                expected.insert(key + L":" + server::toWide(upperAscii(entry.name) + u" = " + entry.text));
        }
    }
    return expected;
}

struct Scope {
    const char* name;
    HKEY root, otherRoot;
    const wchar_t* commandLine;
};

class ServerRegistration : public testing::TestWithParam<Scope> {
protected:
    // A user who has logged in once has classes of his own; a new Wine prefix has none yet.
    ServerRegistration() {
        HKEY classes = nullptr;
        RegCreateKeyW(HKEY_CURRENT_USER, L"Software\\Classes", &classes);
        RegCloseKey(classes);
    }
    ~ServerRegistration() override { install(FALSE); }
    HRESULT install(BOOL add) const { return server.call("DllInstall", add, GetParam().commandLine); }
    LoadedServer server;
};

// The entries themselves are compared with packaging/registry.tsv in tests/library.
TEST_P(ServerRegistration, WritesWhatTheTablesSayAndRemovesExactlyThat) {
    const HKEY root = GetParam().root;
    const Snapshot before = classesUnder(root), elsewhere = classesUnder(GetParam().otherRoot);
    ASSERT_EQ(install(TRUE), S_OK);
    Snapshot expected = expectedEntries();
    expected.insert(before.begin(), before.end());
    // What a system of two architectures shows to the other one's programs follows from that.
    const auto own = [](Snapshot all) {
        std::erase_if(all, [](const auto& line) { return line.starts_with(L"\\WOW6432NODE\\"); });
        return all;
    };
    EXPECT_EQ(differences(own(expected), own(classesUnder(root))), "");
    ASSERT_EQ(install(TRUE), S_OK) << "twice is as good as once";
    EXPECT_EQ(differences(elsewhere, classesUnder(GetParam().otherRoot)), "") << "nobody asked for that";
    // What others put there stays, and what it needs.
    const Text key = upperAscii(programmaticId(*publicControls(library()).front()));
    const std::wstring name = server::toWide(key), theirs = name + L"\\SHELLEX";
    HKEY made = nullptr;
    ASSERT_EQ(RegCreateKeyW(root, (L"Software\\Classes\\" + theirs).c_str(), &made), ERROR_SUCCESS);
    RegCloseKey(made);
    ASSERT_EQ(install(FALSE), S_OK);
    Snapshot left = before;
    left.insert({L"\\" + name + L"\\", L"\\" + theirs + L"\\"});
    EXPECT_EQ(differences(left, classesUnder(root)), "");
    EXPECT_EQ(RegDeleteTreeW(root, (L"Software\\Classes\\" + name).c_str()), ERROR_SUCCESS);
    EXPECT_EQ(install(FALSE), S_OK) << "nothing to remove is no failure";
    EXPECT_EQ(differences(before, classesUnder(root)), "");
}

TEST(ServerPictures, EveryClassHasThoseThatAreRegistered) {
    const LoadedServer server;
    for (const ControlTable* table : publicControls(library())) {
        const std::string what = toUtf8(table->name);
        const auto number = MAKEINTRESOURCEW(table->toolboxPicture);
        const HBITMAP bitmap = LoadBitmapW(server.module(), number);
        const auto icon = static_cast<HICON>(LoadImageW(server.module(), number, IMAGE_ICON, 32, 32, 0));
        BITMAP size{};
        ICONINFO large{};
        EXPECT_TRUE(GetObjectW(bitmap, sizeof size, &size)) << what;
        EXPECT_EQ(size.bmWidth, 16) << what;
        ASSERT_TRUE(icon && GetIconInfo(icon, &large)) << what;
        EXPECT_TRUE(GetObjectW(large.hbmColor, sizeof size, &size));
        EXPECT_EQ(size.bmWidth, 32) << what;
        for (const HGDIOBJ object : {HGDIOBJ{bitmap}, HGDIOBJ{large.hbmColor}, HGDIOBJ{large.hbmMask}})
            DeleteObject(object);
        DestroyIcon(icon);
    }
}

INSTANTIATE_TEST_SUITE_P(Scopes, ServerRegistration,
                         testing::Values(Scope{"Machine", HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER, nullptr},
                                         Scope{"User", HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE, L"USER"}),
                         [](const auto& scope) { return std::string(scope.param.name); });

#ifdef _WIN64
// The other architecture's server beside this one, in the keys where its programs look. Wine has none of
// those for a user; the rules themselves are proved in tests/library.
TEST(ServerInstall, LivesBesideTheOtherArchitecture) {
    const LoadedServer server;
    const ControlTable& table = *publicControls(library()).front();
    const auto created = [&] {
        CLSID id{};
        ComPtr<IUnknown> control;
        const HRESULT named = CLSIDFromProgID(server::toWide(programmaticId(table)).c_str(), &id);
        return SUCCEEDED(named) && CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IUnknown),
                                                    control.putVoid()) == S_OK;
    };
    server::ClassesKey classes(server::RegistrationScope::machine);
    const Text otherFile = u"C:\\32\\OBKCTRLS.ocx";
    const auto otherIsThere = [&] {
        const Text key = u"CLSID\\{" + guidDigits(table.classId) + u"}\\InprocServer32";
        return classes.read(Architecture::x86, key, {}) == otherFile;
    };
    const Text keysOfOthers[] = {u"CLSID\\another", u"Interface\\another"};
    for (const Text& key : keysOfOthers) classes.createKey(Architecture::x86, key);
    const Snapshot before = classesUnder(HKEY_LOCAL_MACHINE);

    ASSERT_EQ(server.call("DllRegisterServer"), S_OK);
    ASSERT_TRUE(registerServer(library(), Architecture::x86, otherFile, classes));
    EXPECT_TRUE(created() && otherIsThere());
    ASSERT_EQ(server.call("DllUnregisterServer"), S_OK);
    EXPECT_TRUE(!created() && otherIsThere());
    ASSERT_EQ(server.call("DllRegisterServer"), S_OK);
    ASSERT_TRUE(unregisterServer(library(), Architecture::x86, classes));
    EXPECT_TRUE(created() && !otherIsThere());
    ASSERT_EQ(server.call("DllUnregisterServer"), S_OK);
    EXPECT_EQ(differences(before, classesUnder(HKEY_LOCAL_MACHINE)), "");
    for (const Text& key : keysOfOthers) classes.removeEmptyKey(Architecture::x86, key);
}
#endif

TEST(ServerInstall, RefusesACommandThatItDoesNotKnow) {
    EXPECT_EQ(LoadedServer().call("DllInstall", TRUE, L"everyone"), E_INVALIDARG);
}

}  // namespace
}  // namespace obk
