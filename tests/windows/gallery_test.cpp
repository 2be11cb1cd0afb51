// The gallery as a person starts it: a process of its own, beside the server.
#include "server_support.h"

namespace obk {
namespace {

using namespace testing_support;

class Gallery : public ::testing::Test {
protected:
    void SetUp() override {
        std::wstring program = serverFile();
        program.replace(program.rfind(L'\\') + 1, std::wstring::npos, L"Gallery.exe");
        STARTUPINFOW start{};
        start.cb = sizeof start;
        ASSERT_TRUE(CreateProcessW(program.c_str(), nullptr, nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                                   &start, &process))
            << "there is no gallery";
        ASSERT_TRUE(waitFor([this] { return windowOf(nullptr, L"Orbek Controls") || ended(); }));
        window = windowOf(nullptr, L"Orbek Controls");
        ASSERT_TRUE(window) << "it ended with " << exitCode();
    }
    void TearDown() override {
        if (!ended()) TerminateProcess(process.hProcess, 99);
        CloseHandle(process.hThread);
        CloseHandle(process.hProcess);
    }

    static bool waitFor(const std::function<bool()>& condition) {
        return container::MessageLoop().pumpUntil(condition, std::chrono::seconds(30));
    }
    bool ended() const { return WaitForSingleObject(process.hProcess, 0) == WAIT_OBJECT_0; }
    DWORD exitCode() const {
        DWORD code = 0;
        GetExitCodeProcess(process.hProcess, &code);
        return code;
    }
    // A visible window of the gallery, among all top-level ones where there is no parent.
    HWND windowOf(HWND parent, const wchar_t* title) const {
        for (HWND each = nullptr; (each = FindWindowExW(parent, each, nullptr, title)) != nullptr;) {
            DWORD owner = 0;
            GetWindowThreadProcessId(each, &owner);
            if (owner == process.dwProcessId && IsWindowVisible(each)) return each;
        }
        return nullptr;
    }
    // How many controls show on a page.
    static int controlsOn(HWND page) {
        int controls = 0;
        for (HWND each = GetWindow(page, GW_CHILD); each; each = GetWindow(each, GW_HWNDNEXT)) {
            wchar_t name[64] = L"";
            GetClassNameW(each, name, 64);
            RECT area{};
            GetWindowRect(each, &area);
            const bool surface = std::wstring_view(name).starts_with(L"Orbek.Surface");
            if (surface && IsWindowVisible(each) && !IsRectEmpty(&area)) ++controls;
        }
        return controls;
    }

    PROCESS_INFORMATION process{};
    HWND window = nullptr;
};

TEST_F(Gallery, ShowsEveryPageAndEndsWell) {
    ASSERT_TRUE(waitFor([this] { return windowOf(window, L"Controls") != nullptr; }));
    const HWND list = windowOf(window, L"Controls");
    const LRESULT pages = SendMessageW(list, LB_GETCOUNT, 0, 0);
    EXPECT_EQ(static_cast<size_t>(pages), serverClasses().size()) << "a page for every control";
    HWND before = nullptr;
    for (LRESULT page = 0; page < pages; ++page) {
        if (page > 0) PostMessageW(list, WM_KEYDOWN, VK_DOWN, 1);
        const auto shown = [&] {
            const HWND scene = windowOf(window, L"Scene");
            return scene && scene != before && SendMessageW(list, LB_GETCURSEL, 0, 0) == page &&
                   controlsOn(scene) > 0;
        };
        ASSERT_TRUE(waitFor([&] { return shown() || ended(); }) && !ended())
            << "page " << page << ", ended: " << ended() << " with " << exitCode();
        before = windowOf(window, L"Scene");
    }
    PostMessageW(window, WM_CLOSE, 0, 0);
    ASSERT_TRUE(waitFor([this] { return ended(); })) << "it does not close";
    EXPECT_EQ(exitCode(), 0u);
}

}  // namespace
}  // namespace obk
