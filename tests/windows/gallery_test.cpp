// The gallery as a person starts it: a process of its own, beside the server.
#include "container/text.h"
#include "server_support.h"

#include <algorithm>
#include <array>

namespace obk {
namespace {

using namespace testing_support;

class Gallery : public ::testing::Test {
protected:
    void SetUp() override { start(L""); }
    void TearDown() override { end(); }
    void start(const std::wstring& arguments) {
        std::wstring program = serverFile();
        program.replace(program.rfind(L'\\') + 1, std::wstring::npos, L"Gallery.exe");
        std::wstring line = L"\"" + program + L"\" " + arguments;
        STARTUPINFOW start{};
        start.cb = sizeof start;
        ASSERT_TRUE(CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                                   &start, &process))
            << "there is no gallery";
        ASSERT_TRUE(waitFor([this] { return windowOf(nullptr, L"Orbek Controls") || ended(); }));
        window = windowOf(nullptr, L"Orbek Controls");
        ASSERT_TRUE(window) << "it ended with " << exitCode();
        ASSERT_TRUE(waitFor([this] { return windowOf(window, L"Scene") != nullptr; }));
    }
    void end() {
        if (!ended()) TerminateProcess(process.hProcess, 99);
        WaitForSingleObject(process.hProcess, 5000);
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
    // Where the controls of a page show.
    static std::vector<RECT> placesOn(HWND page) {
        std::vector<RECT> places;
        for (HWND each = GetWindow(page, GW_CHILD); each; each = GetWindow(each, GW_HWNDNEXT)) {
            wchar_t name[64] = L"";
            GetClassNameW(each, name, 64);
            RECT area{};
            GetWindowRect(each, &area);
            const bool surface = std::wstring_view(name).starts_with(L"Orbek.Surface");
            MapWindowPoints(nullptr, page, reinterpret_cast<POINT*>(&area), 2);
            if (surface && IsWindowVisible(each) && !IsRectEmpty(&area)) places.push_back(area);
        }
        return places;
    }
    void press(HWND parent, const wchar_t* button) const {
        PostMessageW(windowOf(parent, button), BM_CLICK, 0, 0);
    }
    // Of the next menu, by its letter.
    bool choose(WPARAM letter) const {
        HWND menu = nullptr;
        const auto opened = [&] {
            menu = FindWindowW(L"#32768", nullptr);
            return menu && IsWindowVisible(menu);
        };
        if (!waitFor(opened)) return false;
        PostMessageW(window, WM_KEYDOWN, letter, 1);
        return waitFor([&] { return !IsWindow(menu) || !IsWindowVisible(menu); });
    }
    void showPage(int page) const {
        const HWND list = FindWindowExW(window, nullptr, nullptr, L"Controls");
        const HWND before = windowOf(window, L"Scene");
        SendMessageW(list, LB_SETCURSEL, static_cast<WPARAM>(page), 0);
        PostMessageW(window, WM_COMMAND, MAKEWPARAM(0, LBN_SELCHANGE), reinterpret_cast<LPARAM>(list));
        EXPECT_TRUE(waitFor([&] {
            const HWND scene = windowOf(window, L"Scene");
            return scene && scene != before && !placesOn(scene).empty();
        })) << "page "
            << page;
    }
    static std::wstring clipboard() {
        std::wstring text;
        if (!OpenClipboard(nullptr)) return text;
        if (const HANDLE memory = GetClipboardData(CF_UNICODETEXT)) {
            text = static_cast<const wchar_t*>(GlobalLock(memory));
            GlobalUnlock(memory);
        }
        CloseClipboard();
        return text;
    }
    // Answers the question for a file's name.
    void answer(const std::wstring& path) const {
        HWND dialog = nullptr;
        ASSERT_TRUE(waitFor([&] { return (dialog = GetLastActivePopup(window)) != window; }));
        HWND name = nullptr;
        constexpr int fileName = 0x480, fileNameBox = 0x47C;
        ASSERT_TRUE(waitFor([&] {
            name = GetDlgItem(dialog, fileName);
            if (!name) name = GetDlgItem(dialog, fileNameBox);
            return name && IsWindowVisible(name);
        }));
        SendMessageW(name, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(path.c_str()));
        PostMessageW(dialog, WM_COMMAND, IDOK, reinterpret_cast<LPARAM>(GetDlgItem(dialog, IDOK)));
        ASSERT_TRUE(waitFor([&] { return !IsWindow(dialog); }));
    }

    PROCESS_INFORMATION process{};
    HWND window = nullptr;
};

TEST_F(Gallery, ShowsEveryPageAndEndsWell) {
    ASSERT_TRUE(waitFor([this] { return windowOf(window, L"Controls") != nullptr; }));
    const HWND list = windowOf(window, L"Controls");
    const LRESULT pages = SendMessageW(list, LB_GETCOUNT, 0, 0);
    EXPECT_EQ(static_cast<size_t>(pages), serverClasses().size() + 1)
        << "every control, and a form of one's own";
    HWND before = nullptr;
    for (LRESULT page = 0; page < pages; ++page) {
        if (page > 0) PostMessageW(list, WM_KEYDOWN, VK_DOWN, 1);
        const auto shown = [&] {
            const HWND scene = windowOf(window, L"Scene");
            return scene && scene != before && SendMessageW(list, LB_GETCURSEL, 0, 0) == page &&
                   !placesOn(scene).empty();
        };
        ASSERT_TRUE(waitFor([&] { return shown() || ended(); }) && !ended())
            << "page " << page << ", ended: " << ended() << " with " << exitCode();
        before = windowOf(window, L"Scene");
    }
    PostMessageW(window, WM_CLOSE, 0, 0);
    ASSERT_TRUE(waitFor([this] { return ended(); })) << "it does not close";
    EXPECT_EQ(exitCode(), 0u);
}

TEST_F(Gallery, CopiesCodeThatRuns) {
    const RegisteredServer registered;
    // A number field's page, and the grid's with its rows.
    const std::pair<int, const wchar_t*> cases[] = {{0, L".Max = 50"},
                                                    {5, L".BarHeaderCaptionSet 3, \"Article\""}};
    for (const auto& each : cases) {
        const int page = each.first;
        if (page > 0) showPage(page);
        press(window, L"Copy code\x2026");
        ASSERT_TRUE(choose('B'));
        ASSERT_TRUE(waitFor([&] { return clipboard().find(each.second) != std::wstring::npos; })) << page;
        // Its comments say which controls the form has; here a script makes them.
        std::wstring code = clipboard(), controls;
        for (size_t at = 0; (at = code.find(L"    ' ", at)) != std::wstring::npos; ++at) {
            const std::wstring rest = code.substr(at + 6);
            const size_t colon = rest.find(L": ");
            controls += L"Set " + rest.substr(0, colon) + L" = CreateObject(\"" +
                        rest.substr(colon + 2, rest.find(L" at ") - colon - 2) + L"\")\r\n";
        }
        // Not every script host has ChrW.
        for (size_t at = 0; (at = code.find(L"ChrW(", at)) != std::wstring::npos;) code.erase(at + 3, 1);
        const std::wstring script = temporaryFile(L"gallery_code.vbs");
        container::writeFile(script,
                             container::toUtf8(controls + code + L"Form_Load\r\nWScript.Echo \"ok\"\r\n"));
        EXPECT_EQ(scriptSays(script), "ok\n") << container::toUtf8(controls + code);
        DeleteFileW(script.c_str());
    }
    press(window, L"Copy code\x2026");
    ASSERT_TRUE(choose('P'));
    EXPECT_TRUE(waitFor([] { return clipboard().find(L" := TGridEdit.Create;") != std::wstring::npos; }));
    press(window, L"Copy code\x2026");
    ASSERT_TRUE(choose('C'));
    EXPECT_TRUE(waitFor([] { return clipboard().find(L" = new AxGridEdit {") != std::wstring::npos; }));
}

TEST_F(Gallery, FindsMembersByWhatTheyDo) {
    const HWND field = FindWindowExW(window, nullptr, L"EDIT", nullptr);
    const HWND found = FindWindowExW(window, nullptr, nullptr, L"Found");
    for (const char letter : std::string("sort rows"))
        PostMessageW(field, WM_CHAR, static_cast<WPARAM>(letter), 1);
    EXPECT_TRUE(waitFor([&] {
        std::array<wchar_t, 256> first{};
        return IsWindowVisible(found) &&
               SendMessageW(found, LB_GETTEXT, 0, reinterpret_cast<LPARAM>(first.data())) != LB_ERR &&
               first.data() == std::wstring_view(L"GridColSort, method of GridEdit");
    }));
    PostMessageW(field, WM_KEYDOWN, VK_DOWN, 1);
    const HWND list = FindWindowExW(window, nullptr, nullptr, L"Controls");
    EXPECT_TRUE(waitFor([&] { return SendMessageW(list, LB_GETCURSEL, 0, 0) == 5; })) << "the grid's page";
}

TEST_F(Gallery, ShowsItsPagesAsItIsAskedTo) {
    const HWND scene = windowOf(window, L"Scene");
    RECT area{};
    GetClientRect(scene, &area);
    const auto before = placesOn(scene);
    press(window, L"View\x2026");
    ASSERT_TRUE(choose('R'));
    const auto mirrored = [&] {
        const auto now = placesOn(scene);
        return now.size() == before.size() && now.front().right == area.right - before.front().left;
    };
    EXPECT_TRUE(waitFor(mirrored));
    press(window, L"View\x2026");
    ASSERT_TRUE(choose('C'));
    EXPECT_TRUE(waitFor([&] { return windowOf(window, L"Scene") && windowOf(window, L"Scene") != scene; }))
        << "made anew in the other look";
    EXPECT_TRUE(waitFor([&] {
        const HWND now = windowOf(window, L"Scene");
        return now && placesOn(now).size() == before.size();
    }));
}

TEST_F(Gallery, KeepsAFormOfOnesOwn) {
    showPage(static_cast<int>(serverClasses().size()));
    const HWND scene = windowOf(window, L"Scene");
    const size_t before = placesOn(scene).size();
    press(scene, L"Add\x2026");
    ASSERT_TRUE(choose('L'));
    ASSERT_TRUE(waitFor([&] { return placesOn(scene).size() == before + 1; }));
    // The first control is dragged by its middle.
    const RECT from = placesOn(scene).front();
    const LONG x = (from.left + from.right) / 2, y = (from.top + from.bottom) / 2;
    PostMessageW(scene, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
    PostMessageW(scene, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(x + 160, y - 40));
    PostMessageW(scene, WM_LBUTTONUP, 0, MAKELPARAM(x + 160, y - 40));
    ASSERT_TRUE(waitFor([&] { return !EqualRect(&from, &placesOn(scene).front()); }));
    const auto places = placesOn(scene);
    const std::wstring file = temporaryFile(L"own.form");
    press(window, L"Save\x2026");
    answer(file);
    ASSERT_TRUE(waitFor([&] { return GetFileAttributesW(file.c_str()) != INVALID_FILE_ATTRIBUTES; }));
    end();
    start(L"--form \"" + file + L"\"");
    const auto asBefore = [&] {
        const HWND page = windowOf(window, L"Scene");
        const auto now = page ? placesOn(page) : std::vector<RECT>();
        return now.size() == places.size() &&
               std::equal(now.begin(), now.end(), places.begin(),
                          [](const RECT& one, const RECT& other) { return EqualRect(&one, &other) != 0; });
    };
    EXPECT_TRUE(waitFor(asBefore));
    DeleteFileW(file.c_str());
}

}  // namespace
}  // namespace obk
