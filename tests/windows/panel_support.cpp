#include "panel_support.h"

#include <cwchar>
#include <string_view>
#include <utility>

namespace obk::testing_support {

namespace {

// The panel is the only tool window that belongs to the form and is no tool tip.
BOOL CALLBACK findPanel(HWND window, LPARAM found) {
    wchar_t className[64]{};
    GetClassNameW(window, className, 64);
    if (GetWindow(window, GW_OWNER) && IsWindowVisible(window) &&
        (GetWindowLongW(window, GWL_EXSTYLE) & WS_EX_TOOLWINDOW) && !wcsstr(className, L"tooltips"))
        *reinterpret_cast<HWND*>(found) = window;
    return TRUE;
}

BOOL CALLBACK addToolTip(HWND window, LPARAM tips) {
    wchar_t className[64]{};
    GetClassNameW(window, className, 64);
    if (IsWindowVisible(window) && std::wstring_view(className) == L"tooltips_class32")
        reinterpret_cast<std::vector<HWND>*>(tips)->push_back(window);
    return TRUE;
}

void sendKey(WORD code) {
    INPUT inputs[2]{};
    for (INPUT& input : inputs) {
        input.type = INPUT_KEYBOARD;
        input.ki.wVk = code;
        input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(code, MAPVK_VK_TO_VSC));
    }
    inputs[1].ki.dwFlags = KEYEVENTF_KEYUP;
    SendInput(2, inputs, sizeof(INPUT));
}

}  // namespace

RECT windowRect(HWND window) {
    RECT rect{};
    GetWindowRect(window, &rect);
    return rect;
}

HWND openPanel() {
    HWND found = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), findPanel, reinterpret_cast<LPARAM>(&found));
    return found;
}

std::vector<HWND> shownToolTips() {
    std::vector<HWND> tips;
    EnumThreadWindows(GetCurrentThreadId(), addToolTip, reinterpret_cast<LPARAM>(&tips));
    return tips;
}

bool keepsFocusFromPanel(HWND panel, HWND focus) {
    const auto kept = [focus] {
        return GetFocus() == focus && GetActiveWindow() == GetAncestor(focus, GA_ROOT) &&
               GetForegroundWindow() == GetAncestor(focus, GA_ROOT);
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

MenuKeys* MenuKeys::current_ = nullptr;

MenuKeys::MenuKeys(std::initializer_list<std::vector<WORD>> keys) : keys_(keys) {
    current_ = this;
    timer_ = SetTimer(nullptr, 0, 50, tick);
}

MenuKeys::~MenuKeys() {
    KillTimer(nullptr, timer_);
    current_ = nullptr;
}

void CALLBACK MenuKeys::tick(HWND, UINT, UINT_PTR, DWORD) {
    if (current_) current_->answer();
}

void MenuKeys::answer() {
    const HWND menu = FindWindowW(L"#32768", nullptr);
    if (!menu || !IsWindowVisible(menu)) {
        last_ = nullptr;
        return;
    }
    if (menu == last_) {
        // The next menu may well have the handle of the one before.
        if (static_cast<size_t>(seen_) > keys_.size()) sendKey(VK_ESCAPE);
        return;
    }
    last_ = menu;
    place_ = windowRect(menu);
    const auto number = static_cast<size_t>(seen_++);
    if (number >= keys_.size()) {
        sendKey(VK_ESCAPE);
        return;
    }
    for (const WORD code : keys_[number]) sendKey(code);
}

ChooserAnswer* ChooserAnswer::current_ = nullptr;

ChooserAnswer::ChooserAnswer(std::optional<COLORREF> colour, std::function<void()> first)
    : colour_(colour), first_(std::move(first)), timer_(SetTimer(nullptr, 0, 50, tick)) {
    current_ = this;
}

ChooserAnswer::~ChooserAnswer() {
    KillTimer(nullptr, timer_);
    current_ = nullptr;
}

void ChooserAnswer::tick(HWND, UINT, UINT_PTR, DWORD) {
    const HWND dialog = FindWindowW(L"#32770", L"Custom");
    if (!current_ || !dialog || !IsWindowVisible(dialog)) return;
    ++current_->seen_;
    if (const auto first = std::exchange(current_->first_, nullptr)) first();
    if (current_->colour_) {
        constexpr int redField = 706;  // COLOR_RED; green and blue follow
        SetDlgItemInt(dialog, redField, GetRValue(*current_->colour_), FALSE);
        SetDlgItemInt(dialog, redField + 1, GetGValue(*current_->colour_), FALSE);
        SetDlgItemInt(dialog, redField + 2, GetBValue(*current_->colour_), FALSE);
    }
    PostMessageW(dialog, WM_COMMAND, current_->colour_ ? IDOK : IDCANCEL, 0);
}

}  // namespace obk::testing_support
