// Hosts that nobody here wrote: the system's script host and its container of windows, and activation by
// manifest.
#include "server_support.h"

#include "container/text.h"
#include "container/type_members.h"

#include "container/message_loop.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace obk {
namespace {

using namespace testing_support;

std::wstring windowsPath(const std::string& path) {
    std::wstring result = L"Z:" + container::fromUtf8(path);
    std::replace(result.begin(), result.end(), L'/', L'\\');
    return result;
}

TEST(ServerClients, AScriptUsesEveryControl) {
    const RegisteredServer registered;
    EXPECT_EQ(scriptSays(windowsPath(OBK_REPOSITORY_DIR) + L"\\tests\\windows\\scripts\\client.vbs"), "ok\n");
}

TEST(ServerClients, TheSystemsContainerShowsEveryControl) {
    const RegisteredServer registered;
    const HMODULE library = LoadLibraryW(L"atl110.dll");
    ASSERT_TRUE(library);
    using Initialise = BOOL(WINAPI*)();
    using GetControl = HRESULT(WINAPI*)(HWND, IUnknown**);
    ASSERT_TRUE(reinterpret_cast<Initialise>(GetProcAddress(library, "AtlAxWinInit"))());
    const auto getControl = reinterpret_cast<GetControl>(GetProcAddress(library, "AtlAxGetControl"));
    for (const std::wstring& name : serverClasses()) {
        const std::string what = container::toUtf8(name);
        TestWindow window;
        const HWND host =
            CreateWindowExW(0, L"AtlAxWin110", (L"OBKCTRLS." + name).c_str(), WS_CHILD | WS_VISIBLE, 10, 10,
                            160, 40, window.handle(), nullptr, GetModuleHandleW(nullptr), nullptr);
        ASSERT_TRUE(host) << what;
        ComPtr<IUnknown> control;
        ASSERT_EQ(getControl(host, control.put()), S_OK) << what;
        HWND shown = nullptr;
        ASSERT_EQ(control.query<IOleInPlaceObject>()->GetWindow(&shown), S_OK) << what;
        EXPECT_TRUE(IsWindowVisible(shown)) << what;
        EXPECT_EQ(GetParent(shown), host) << what;
        container::MessageLoop loop;
        loop.pumpPending();
        if (name != L"ButtonArrow") {
            MoveWindow(host, 10, 10, 200, 50, TRUE);
            loop.pumpPending();
            RECT area{};
            GetWindowRect(shown, &area);
            EXPECT_EQ(area.right - area.left, 200) << what;
            EXPECT_EQ(area.bottom - area.top, 50) << what;
        }
        control.reset();
        DestroyWindow(host);
        loop.pumpPending();
        EXPECT_FALSE(IsWindow(shown)) << what;
    }
    FreeLibrary(library);
}

}  // namespace
}  // namespace obk
