// What registering writes, and that removing takes back exactly that.
#include "server_support.h"

#include "container/text.h"

#include <gtest/gtest.h>

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
        snapshot[path + L":" + name] = data.c_str();
    }
    for (DWORD at = 0;; ++at) {
        DWORD length = 512;
        if (RegEnumKeyExW(key, at, name, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) break;
        HKEY child = nullptr;
        const std::wstring childName = name;
        if (RegOpenKeyExW(key, name, 0, KEY_READ, &child) != ERROR_SUCCESS) continue;
        collect(child, path + L"\\" + childName, snapshot);
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
    for (const auto& [key, value] : after) {
        const auto found = before.find(key);
        if (found == before.end() || found->second != value) text += L"\n+ " + key + L" = " + value;
    }
    for (const auto& [key, value] : before) {
        if (!after.contains(key)) text += L"\n- " + key + L" = " + value;
    }
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

TEST_P(ServerRegistration, ALaterVersionKeepsTheNameWithoutAVersion) {
    ASSERT_EQ(install(TRUE), S_OK);
    const std::wstring name = L"Software\\Classes\\OBKCTRLS." + serverClasses().front();
    const std::wstring later = L"OBKCTRLS." + serverClasses().front() + L".2";
    ASSERT_EQ(RegSetValueW(GetParam().root, (name + L"\\CurVer").c_str(), REG_SZ, later.c_str(), 0),
              ERROR_SUCCESS);
    EXPECT_EQ(install(FALSE), S_OK);
    const Snapshot left = classesUnder(GetParam().root);
    const auto kept = left.find(L"\\OBKCTRLS." + serverClasses().front() + L"\\CurVer:");
    ASSERT_NE(kept, left.end());
    EXPECT_EQ(kept->second, later);
    RegDeleteTreeW(GetParam().root, name.c_str());
}

INSTANTIATE_TEST_SUITE_P(Scopes, ServerRegistration,
                         testing::Values(Scope{"Machine", HKEY_LOCAL_MACHINE, nullptr},
                                         Scope{"User", HKEY_CURRENT_USER, L"USER"}),
                         [](const auto& scope) { return std::string(scope.param.name); });

TEST(ServerInstall, RefusesACommandThatItDoesNotKnow) {
    LoadedServer server;
    using Install = HRESULT(WINAPI*)(BOOL, PCWSTR);
    EXPECT_EQ(reinterpret_cast<Install>(GetProcAddress(server.module(), "DllInstall"))(TRUE, L"everyone"),
              E_INVALIDARG);
}

}  // namespace
}  // namespace obk
