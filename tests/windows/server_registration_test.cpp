// What registering writes, and that removing takes back exactly that.
#include "server_support.h"

#include "container/text.h"
#include "server/classes_key.h"
#include "server/system_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

namespace obk {
namespace {

using namespace testing_support;
using Snapshot = std::map<std::wstring, std::wstring>;

void collect(HKEY key, const std::wstring& path, Snapshot& snapshot) {
    if (!path.empty()) snapshot[path + L"\\"] = L"";
    wchar_t name[512];
    for (DWORD at = 0;; ++at) {
        DWORD length = 512, type = 0, size = 0;
        if (RegEnumValueW(key, at, name, &length, nullptr, &type, nullptr, &size) != ERROR_SUCCESS) break;
        std::wstring data(size / sizeof(wchar_t) + 1, L'\0');
        RegQueryValueExW(key, name, nullptr, nullptr, reinterpret_cast<BYTE*>(data.data()), &size);
        data.resize(std::min(data.find(L'\0'), data.size()));
        snapshot[path + L":" + name] = data;
    }
    for (DWORD at = 0;; ++at) {
        DWORD length = 512;
        if (RegEnumKeyExW(key, at, name, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) break;
        HKEY child = nullptr;
        if (RegOpenKeyExW(key, name, 0, KEY_READ, &child) != ERROR_SUCCESS) continue;
        std::wstring below = path + L"\\";
        below += name;
        collect(child, below, snapshot);
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
    std::wstring text;
    const auto tell = [&text](const wchar_t* mark, const Snapshot& some, const Snapshot& others) {
        for (const auto& [key, value] : some) {
            const auto other = others.find(key);
            if (other == others.end() || other->second != value)
                text.append(mark).append(key).append(L" = ").append(value);
        }
    };
    tell(L"\n+ ", after, before);
    tell(L"\n- ", before, after);
    return container::toUtf8(text);
}

struct Scope {
    const char* name;
    HKEY root;
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
    HRESULT install(BOOL add) const {
        using Install = HRESULT(WINAPI*)(BOOL, PCWSTR);
        return reinterpret_cast<Install>(GetProcAddress(server.module(), "DllInstall"))(
            add, GetParam().commandLine);
    }
    static std::wstring digits(const GUID& id) {
        wchar_t text[40];
        StringFromGUID2(id, text, 40);
        return text;
    }
    LoadedServer server;
};

TEST_P(ServerRegistration, WritesEveryClassAndRemovesExactlyThat) {
    const Snapshot machineBefore = classesUnder(HKEY_LOCAL_MACHINE),
                   userBefore = classesUnder(HKEY_CURRENT_USER);
    ASSERT_EQ(install(TRUE), S_OK);
    const Snapshot written = classesUnder(GetParam().root);
    const auto value = [&](const std::wstring& key, const wchar_t* name = L"") {
        const auto found = written.find(L"\\" + key + L":" + name);
        return found == written.end() ? std::wstring(L"(missing)") : found->second;
    };
    TLIBATTR* library = nullptr;
    const auto types = serverTypes();
    ASSERT_EQ(types->GetLibAttr(&library), S_OK);
    const std::wstring libraryId = digits(library->guid);
    types->ReleaseTLibAttr(library);

    for (const std::wstring& name : serverClasses()) {
        const std::string what = container::toUtf8(name);
        CLSID id{};
        const auto control = server.create(name);
        control.query<IPersist>()->GetClassID(&id);
        const std::wstring key = L"CLSID\\" + digits(id);
        const std::wstring versioned = L"OBKCTRLS." + name + L".1";
        EXPECT_EQ(value(L"OBKCTRLS." + name + L"\\CLSID"), digits(id)) << what;
        EXPECT_EQ(value(L"OBKCTRLS." + name + L"\\CurVer"), versioned) << what;
        EXPECT_EQ(value(versioned + L"\\CLSID"), digits(id)) << what;
        EXPECT_EQ(value(key + L"\\ProgID"), versioned) << what;
        EXPECT_EQ(value(key + L"\\VersionIndependentProgID"), L"OBKCTRLS." + name) << what;
        const std::wstring file = value(key + L"\\InprocServer32");
        EXPECT_EQ(_wcsicmp(file.c_str(), serverFile().c_str()), 0) << container::toUtf8(file);
        EXPECT_EQ(value(key + L"\\InprocServer32", L"ThreadingModel"), L"Apartment") << what;
        EXPECT_EQ(value(key + L"\\TypeLib"), libraryId) << what;
        EXPECT_EQ(value(key + L"\\Version"), L"1.0") << what;
        DWORD status = 0;
        control.query<IOleObject>()->GetMiscStatus(DVASPECT_CONTENT, &status);
        EXPECT_EQ(value(key + L"\\MiscStatus\\1"), std::to_wstring(status)) << what;
        EXPECT_TRUE(written.contains(L"\\" + key + L"\\Control\\")) << what;
        EXPECT_TRUE(written.contains(L"\\" + key +
                                     L"\\Implemented Categories\\{40FC6ED4-2438-11CF-A3DB-080036F12502}\\"));
        for (const wchar_t* safe :
             {L"{7DD95801-9882-11CF-9FA9-00AA006C42C4}", L"{7DD95802-9882-11CF-9FA9-00AA006C42C4}"})
            EXPECT_FALSE(written.contains(L"\\" + key + L"\\Implemented Categories\\" + safe + L"\\"))
                << "no scripting";
        // A picture that is really there.
        const std::wstring picture = value(key + L"\\ToolboxBitmap32");
        ASSERT_EQ(picture.rfind(file + L", ", 0), 0u) << container::toUtf8(picture);
        const int resource = _wtoi(picture.c_str() + file.size() + 2);
        const HBITMAP bitmap = LoadBitmapW(server.module(), MAKEINTRESOURCEW(resource));
        BITMAP size{};
        EXPECT_TRUE(GetObjectW(bitmap, sizeof size, &size)) << resource;
        EXPECT_EQ(size.bmWidth, 16) << resource;
        EXPECT_EQ(size.bmHeight, resource ? size.bmHeight : 0);
        DeleteObject(bitmap);
        EXPECT_EQ(value(key + L"\\DefaultIcon"), file + L",-" + std::to_wstring(resource));
        const HANDLE icon = LoadImageW(server.module(), MAKEINTRESOURCEW(resource), IMAGE_ICON, 32, 32, 0);
        ICONINFO large{};
        ASSERT_TRUE(icon && GetIconInfo(static_cast<HICON>(icon), &large)) << resource;
        EXPECT_TRUE(GetObjectW(large.hbmColor, sizeof size, &size));
        EXPECT_EQ(size.bmWidth, 32) << resource;
        DeleteObject(large.hbmColor);
        DeleteObject(large.hbmMask);
        DestroyIcon(static_cast<HICON>(icon));
    }
    const Snapshot& elsewhere = GetParam().root == HKEY_LOCAL_MACHINE ? userBefore : machineBefore;
    const HKEY otherRoot = GetParam().root == HKEY_LOCAL_MACHINE ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
    EXPECT_EQ(differences(elsewhere, classesUnder(otherRoot)), "") << "written where it was not asked for";

    ASSERT_EQ(install(FALSE), S_OK);
    EXPECT_EQ(differences(machineBefore, classesUnder(HKEY_LOCAL_MACHINE)), "");
    EXPECT_EQ(differences(userBefore, classesUnder(HKEY_CURRENT_USER)), "");
}

TEST_P(ServerRegistration, LeavesWhatOthersPutThere) {
    const Snapshot before = classesUnder(GetParam().root);
    ASSERT_EQ(install(TRUE), S_OK);
    ASSERT_EQ(install(TRUE), S_OK) << "twice is as good as once";
    const std::wstring name = L"Software\\Classes\\OBKCTRLS." + serverClasses().front();
    HKEY key = nullptr;
    ASSERT_EQ(RegCreateKeyExW(GetParam().root, (name + L"\\shellex").c_str(), 0, nullptr, 0, KEY_WRITE,
                              nullptr, &key, nullptr),
              ERROR_SUCCESS);
    RegCloseKey(key);
    EXPECT_EQ(install(FALSE), S_OK);
    const std::string left = differences(before, classesUnder(GetParam().root));
    EXPECT_NE(left.find("shellex"), std::string::npos);
    EXPECT_EQ(left.find("CurVer"), std::string::npos) << left;
    RegDeleteKeyW(GetParam().root, (name + L"\\shellex").c_str());
    RegDeleteKeyW(GetParam().root, name.c_str());
    EXPECT_EQ(differences(before, classesUnder(GetParam().root)), "");
    EXPECT_EQ(install(FALSE), S_OK) << "nothing to remove is no failure";
}

INSTANTIATE_TEST_SUITE_P(Scopes, ServerRegistration,
                         testing::Values(Scope{"Machine", HKEY_LOCAL_MACHINE, nullptr},
                                         Scope{"User", HKEY_CURRENT_USER, L"USER"}),
                         [](const auto& scope) { return std::string(scope.param.name); });

#ifdef _WIN64
// The other architecture's server beside this one, in the keys where its programs look. Wine has none of
// those for a user; the rules themselves are proved in tests/library.
TEST(ServerInstall, LivesBesideTheOtherArchitecture) {
    LoadedServer server;
    const auto call = [&](const char* name) {
        return reinterpret_cast<HRESULT(WINAPI*)()>(GetProcAddress(server.module(), name))();
    };
    const std::wstring name = L"OBKCTRLS." + serverClasses().front();
    const auto created = [&] {
        CLSID id{};
        ComPtr<IUnknown> control;
        const HRESULT named = CLSIDFromProgID(name.c_str(), &id);
        return SUCCEEDED(named) ? CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IUnknown),
                                                   control.putVoid())
                                : named;
    };
    server::ClassesKey classes(server::RegistrationScope::machine);
    const auto otherIsThere = [&] {
        const auto id = classes.read(Architecture::x86, Text(server::viewOf(name.c_str())) + u"\\CLSID", {})
                            .value_or(u"");
        return classes.read(Architecture::x86, u"CLSID\\" + id + u"\\InprocServer32", {}) ==
               u"C:\\32\\OBKCTRLS.ocx";
    };
    const Text keysOfOthers[] = {u"CLSID\\another", u"Interface\\another"};
    for (const Text& key : keysOfOthers) classes.createKey(Architecture::x86, key);
    const Snapshot before = classesUnder(HKEY_LOCAL_MACHINE);

    ASSERT_EQ(call("DllRegisterServer"), S_OK);
    ASSERT_TRUE(registerServer(library(), Architecture::x86, u"C:\\32\\OBKCTRLS.ocx", classes));
    EXPECT_EQ(created(), S_OK);
    ASSERT_EQ(call("DllUnregisterServer"), S_OK);
    EXPECT_TRUE(otherIsThere());
    EXPECT_NE(created(), S_OK);
    ASSERT_EQ(call("DllRegisterServer"), S_OK);
    ASSERT_TRUE(unregisterServer(library(), Architecture::x86, classes));
    EXPECT_EQ(created(), S_OK);
    EXPECT_FALSE(otherIsThere());
    ASSERT_EQ(call("DllUnregisterServer"), S_OK);
    EXPECT_EQ(differences(before, classesUnder(HKEY_LOCAL_MACHINE)), "");
    for (const Text& key : keysOfOthers) classes.removeEmptyKey(Architecture::x86, key);
}
#endif

TEST(ServerInstall, RefusesACommandThatItDoesNotKnow) {
    LoadedServer server;
    using Install = HRESULT(WINAPI*)(BOOL, PCWSTR);
    EXPECT_EQ(reinterpret_cast<Install>(GetProcAddress(server.module(), "DllInstall"))(TRUE, L"everyone"),
              E_INVALIDARG);
}

}  // namespace
}  // namespace obk
