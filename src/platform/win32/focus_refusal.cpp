#include "platform/win32/focus_refusal.h"

#include <algorithm>
#include <vector>

namespace obk::win32 {

namespace {

// Hooks know nothing but their thread.
thread_local std::vector<HWND> refusing;

}  // namespace

void FocusRefusal::begin(HWND topLevel) {
    refusing.push_back(topLevel);
    window_ = topLevel;
    hook_ = SetWindowsHookExW(WH_CBT, decide, nullptr, GetCurrentThreadId());
}

void FocusRefusal::end() {
    if (hook_) UnhookWindowsHookEx(hook_);
    if (window_) std::erase(refusing, window_);
    hook_ = nullptr;
    window_ = nullptr;
}

LRESULT CALLBACK FocusRefusal::decide(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HCBT_SETFOCUS || code == HCBT_ACTIVATE) {
        const HWND wanted = GetAncestor(reinterpret_cast<HWND>(wParam), GA_ROOT);
        if (wanted && std::find(refusing.begin(), refusing.end(), wanted) != refusing.end()) return 1;
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace obk::win32
