// Hosts that nobody here wrote: the system's script host and its container of windows, and activation by
// manifest.
#include "server_support.h"

#include "container/message_loop.h"
#include "container/text.h"

#include <gtest/gtest.h>

namespace obk {
namespace {

using namespace testing_support;

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
        SCOPED_TRACE(container::toUtf8(name));
        TestWindow window;
        const HWND host =
            CreateWindowExW(0, L"AtlAxWin110", (L"OBKCTRLS." + name).c_str(), WS_CHILD | WS_VISIBLE, 10, 10,
                            160, 40, window.handle(), nullptr, GetModuleHandleW(nullptr), nullptr);
        ASSERT_TRUE(host);
        ComPtr<IUnknown> control;
        ASSERT_EQ(getControl(host, control.put()), S_OK);
        HWND shown = nullptr;
        ASSERT_EQ(control.query<IOleInPlaceObject>()->GetWindow(&shown), S_OK);
        EXPECT_TRUE(IsWindowVisible(shown));
        EXPECT_EQ(GetParent(shown), host);
        container::MessageLoop loop;
        loop.pumpPending();
        if (name != L"ButtonArrow") {
            MoveWindow(host, 10, 10, 200, 50, TRUE);
            loop.pumpPending();
            RECT area{};
            GetWindowRect(shown, &area);
            EXPECT_EQ(std::pair(area.right - area.left, area.bottom - area.top), std::pair(200L, 50L));
        }
        control.reset();
        DestroyWindow(host);
        loop.pumpPending();
        EXPECT_FALSE(IsWindow(shown));
    }
    FreeLibrary(library);
}

}  // namespace
}  // namespace obk
