// The gallery as a person starts it: a process of its own, beside the server.
#include "container/text.h"
#include "panel_support.h"
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
        const auto starts = [this] { return (window = windowOf(nullptr, L"Orbek Controls")) || ended(); };
        ASSERT_TRUE(waitFor(starts) && window) << "it ended with " << exitCode();
        ASSERT_TRUE(waitFor([this] { return scene() != nullptr; }));
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
    HWND list() const { return FindWindowExW(window, nullptr, nullptr, L"Controls"); }
    LRESULT page() const { return SendMessageW(list(), LB_GETCURSEL, 0, 0); }
    HWND scene() const { return windowOf(window, L"Scene"); }
    // Where the controls of the page show.
    std::vector<RECT> places() const {
        std::vector<RECT> found;
        const HWND page = scene();
        if (!page) return found;
        for (const HWND each : shownWindows({}, page)) {
            RECT area = windowRect(each);
            MapWindowPoints(nullptr, page, reinterpret_cast<POINT*>(&area), 2);
            if (GetParent(each) == page && classOf(each).starts_with(L"Orbek.Surface") && !IsRectEmpty(&area))
                found.push_back(area);
        }
        return found;
    }
    void press(HWND parent, const wchar_t* button) const {
        PostMessageW(windowOf(parent, button), BM_CLICK, 0, 0);
    }
    // In the menu of a button, by its letter.
    void choose(const wchar_t* button, WPARAM letter, HWND parent = nullptr) const {
        press(parent ? parent : window, button);
        HWND menu = nullptr;
        ASSERT_TRUE(
            waitFor([&] { return (menu = FindWindowW(L"#32768", nullptr)) && IsWindowVisible(menu); }));
        PostMessageW(window, WM_KEYDOWN, letter, 1);
        ASSERT_TRUE(waitFor([&] { return !IsWindow(menu) || !IsWindowVisible(menu); }));
    }
    // By the keyboard in the list.
    void goTo(LRESULT wanted) const {
        while (page() < wanted) {
            const HWND before = scene();
            const LRESULT next = page() + 1;
            PostMessageW(list(), WM_KEYDOWN, VK_DOWN, 1);
            const auto shown = [&] {
                return scene() && scene() != before && page() == next && !places().empty();
            };
            ASSERT_TRUE(waitFor([&] { return shown() || ended(); }) && !ended())
                << "page " << next << ", ended with " << exitCode();
        }
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
    static bool waitForCopy(const wchar_t* line) {
        return waitFor([line] { return clipboard().find(line) != std::wstring::npos; });
    }
    // Answers the question for a file's name.
    void answer(const std::wstring& path) const {
        HWND dialog = nullptr, name = nullptr;
        constexpr int fileName = 0x480, fileNameBox = 0x47C;
        ASSERT_TRUE(waitFor([&] {
            dialog = GetLastActivePopup(window);
            name = GetDlgItem(dialog, fileName);
            if (!name) name = GetDlgItem(dialog, fileNameBox);
            return dialog != window && name && IsWindowVisible(name);
        }));
        SendMessageW(name, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(path.c_str()));
        PostMessageW(dialog, WM_COMMAND, IDOK, reinterpret_cast<LPARAM>(GetDlgItem(dialog, IDOK)));
        ASSERT_TRUE(waitFor([&] { return !IsWindow(dialog); }));
    }

    PROCESS_INFORMATION process{};
    HWND window = nullptr;
};

TEST_F(Gallery, ShowsEveryPageAndEndsWell) {
    const LRESULT pages = SendMessageW(list(), LB_GETCOUNT, 0, 0);
    EXPECT_EQ(static_cast<size_t>(pages), serverClasses().size() + 1)
        << "every control, and a form of one's own";
    ASSERT_TRUE(waitFor([this] { return page() == 0 && !places().empty(); }));
    goTo(pages - 1);
    PostMessageW(window, WM_CLOSE, 0, 0);
    ASSERT_TRUE(waitFor([this] { return ended(); })) << "it does not close";
    EXPECT_EQ(exitCode(), 0u);
}

TEST_F(Gallery, CopiesCodeThatRuns) {
    const RegisteredServer registered;
    // A number field's page, and the grid's with its rows.
    for (const auto& [page, line] :
         {std::pair(0, L".Max = 50"), {5, L".BarHeaderCaptionSet 3, \"Article\""}}) {
        goTo(page);
        choose(L"Copy code\x2026", 'B');
        ASSERT_TRUE(waitForCopy(line)) << page;
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
    for (const auto& [letter, line] :
         {std::pair('P', L" := TGridEdit.Create;"), {'C', L" = new AxGridEdit {"}}) {
        choose(L"Copy code\x2026", static_cast<WPARAM>(letter));
        EXPECT_TRUE(waitForCopy(line)) << letter;
    }
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
    EXPECT_TRUE(waitFor([&] { return page() == 5; })) << "the grid's page";
}

TEST_F(Gallery, ShowsItsPagesAsItIsAskedTo) {
    const HWND first = scene();
    RECT area{};
    GetClientRect(first, &area);
    const auto before = places();
    choose(L"View\x2026", 'R');
    EXPECT_TRUE(waitFor([&] {
        const auto now = places();
        return now.size() == before.size() && now.front().right == area.right - before.front().left;
    }));
    choose(L"View\x2026", 'C');
    EXPECT_TRUE(waitFor([&] { return scene() && scene() != first && places().size() == before.size(); }))
        << "made anew in the other look";
}

TEST_F(Gallery, KeepsAFormOfOnesOwn) {
    goTo(static_cast<LRESULT>(serverClasses().size()));
    const size_t before = places().size();
    choose(L"Add\x2026", 'L', scene());
    ASSERT_TRUE(waitFor([&] { return places().size() == before + 1; }));
    // The first control is dragged by its middle.
    const RECT from = places().front();
    const LONG x = (from.left + from.right) / 2, y = (from.top + from.bottom) / 2;
    PostMessageW(scene(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
    PostMessageW(scene(), WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(x + 160, y - 40));
    PostMessageW(scene(), WM_LBUTTONUP, 0, MAKELPARAM(x + 160, y - 40));
    ASSERT_TRUE(waitFor([&] { return !EqualRect(&from, &places().front()); }));
    const auto kept = places();
    const std::wstring file = temporaryFile(L"own.form");
    press(window, L"Save\x2026");
    answer(file);
    ASSERT_TRUE(waitFor([&] { return GetFileAttributesW(file.c_str()) != INVALID_FILE_ATTRIBUTES; }));
    end();
    start(L"--form \"" + file + L"\"");
    const auto same = [](const RECT& one, const RECT& other) { return EqualRect(&one, &other) != 0; };
    EXPECT_TRUE(waitFor([&] { return std::ranges::equal(places(), kept, same); }));
    DeleteFileW(file.c_str());
}

}  // namespace
}  // namespace obk
