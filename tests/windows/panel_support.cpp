#include "panel_support.h"

#include "person_support.h"

#include <map>

namespace obk::testing_support {

namespace {

BOOL CALLBACK addShown(HWND window, LPARAM windows) {
    if (IsWindowVisible(window)) reinterpret_cast<std::vector<HWND>*>(windows)->push_back(window);
    return TRUE;
}

std::map<UINT_PTR, std::function<void()>> acts;

void CALLBACK act(HWND, UINT, UINT_PTR timer, DWORD) {
    if (const auto found = acts.find(timer); found != acts.end()) found->second();
}

}  // namespace

RECT windowRect(HWND window) {
    RECT rect{};
    GetWindowRect(window, &rect);
    return rect;
}

std::wstring classOf(HWND window) {
    wchar_t name[64]{};
    return {name, static_cast<size_t>(GetClassNameW(window, name, 64))};
}

std::vector<HWND> shownWindows(std::wstring_view className, HWND parent) {
    std::vector<HWND> shown;
    const auto all = reinterpret_cast<LPARAM>(&shown);
    parent ? EnumChildWindows(parent, addShown, all) : EnumThreadWindows(GetCurrentThreadId(), addShown, all);
    if (!className.empty()) std::erase_if(shown, [&](HWND each) { return classOf(each) != className; });
    return shown;
}

// The panel is the only tool window that belongs to the form and is no tool tip.
HWND openPanel() {
    HWND found = nullptr;
    for (const HWND window : shownWindows()) {
        const bool tool = (GetWindowLongW(window, GWL_EXSTYLE) & WS_EX_TOOLWINDOW) != 0;
        if (tool && GetWindow(window, GW_OWNER) && classOf(window) != L"tooltips_class32") found = window;
    }
    return found;
}

bool keepsFocusFromPanel(HWND panel, HWND focus) {
    const HWND form = GetAncestor(focus, GA_ROOT);
    const auto kept = [=] {
        return GetFocus() == focus && GetActiveWindow() == form && GetForegroundWindow() == form;
    };
    bool all = kept();
    SetFocus(panel);
    all &= kept();
    SetActiveWindow(panel);
    all &= kept();
    for (HWND part = GetWindow(panel, GW_CHILD); part; part = GetWindow(part, GW_HWNDNEXT)) {
        SetFocus(part);
        all &= kept();
    }
    return all;
}

Meanwhile::Meanwhile(std::function<void()> what, UINT milliseconds)
    : timer_(SetTimer(nullptr, 0, milliseconds, act)) {
    acts[timer_] = std::move(what);
}

Meanwhile::~Meanwhile() {
    KillTimer(nullptr, timer_);
    acts.erase(timer_);
}

void MenuKeys::answer() {
    const HWND menu = FindWindowW(L"#32768", nullptr);
    if (!menu || !IsWindowVisible(menu)) {
        last_ = nullptr;
        return;
    }
    std::vector<WORD> keys;
    if (menu != last_) {
        last_ = menu;
        place_ = windowRect(menu);
        const auto number = static_cast<size_t>(seen_++);
        if (number < keys_.size()) keys = keys_[number];
    }
    // The menu after the last expected one may well have its handle.
    if (static_cast<size_t>(seen_) > keys_.size()) keys = {VK_ESCAPE};
    for (const WORD code : keys) {
        sendKey(code);
        sendKey(code, KEYEVENTF_KEYUP);
    }
}

void enterColour(HWND chooser, COLORREF colour) {
    constexpr int redField = 706;  // COLOR_RED; green and blue follow
    for (int part = 0; part < 3; ++part)
        SetDlgItemInt(chooser, redField + part, (colour >> (8 * part)) & 0xFF, FALSE);
}

void DialogAnswer::answer() {
    for (const HWND dialog : shownWindows(L"#32770")) {
        ++seen_;
        if (const auto fill = std::exchange(fill_, nullptr)) fill(dialog);
        PostMessageW(dialog, WM_COMMAND, button_, 0);
    }
}

ChooserAnswer::ChooserAnswer(std::optional<COLORREF> colour, std::function<void()> first)
    : DialogAnswer(
          [colour, first = std::move(first)](HWND dialog) {
              if (first) first();
              if (colour) enterColour(dialog, *colour);
          },
          colour ? IDOK : IDCANCEL) {}

}  // namespace obk::testing_support
