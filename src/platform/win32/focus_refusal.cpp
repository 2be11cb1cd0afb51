#include "platform/win32/focus_refusal.h"

#include <utility>

namespace obk::win32 {

namespace {

// Hooks know nothing but their thread. The chain owns nothing: what a thread has to take down at its end
// keeps the module loaded until then.
thread_local FocusRefusal* first = nullptr;

}  // namespace

void FocusRefusal::begin(HWND topLevel) {
    window_ = topLevel;
    next_ = std::exchange(first, this);
    hook_ = SetWindowsHookExW(WH_CBT, decide, nullptr, GetCurrentThreadId());
}

void FocusRefusal::end() {
    if (hook_) UnhookWindowsHookEx(std::exchange(hook_, nullptr));
    if (!std::exchange(window_, nullptr)) return;
    FocusRefusal** place = &first;
    while (*place && *place != this) place = &(*place)->next_;
    if (*place) *place = next_;
}

LRESULT CALLBACK FocusRefusal::decide(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HCBT_SETFOCUS || code == HCBT_ACTIVATE) {
        const HWND wanted = GetAncestor(reinterpret_cast<HWND>(wParam), GA_ROOT);
        for (const FocusRefusal* refusal = first; wanted && refusal; refusal = refusal->next_)
            if (refusal->window_ == wanted) return 1;
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace obk::win32
