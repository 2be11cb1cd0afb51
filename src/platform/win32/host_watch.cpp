#include "platform/win32/host_watch.h"

#include <commctrl.h>

#include <utility>

namespace obk::win32 {

bool HostWatch::moves(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_WINDOWPOSCHANGED: {
            const auto& change = *reinterpret_cast<const WINDOWPOS*>(lParam);
            constexpr UINT still = SWP_NOMOVE | SWP_NOSIZE;
            return (change.flags & still) != still || (change.flags & SWP_HIDEWINDOW) != 0;
        }
        case WM_ACTIVATEAPP:  // the person turns to another application
            return wParam == FALSE;
        case WM_ENTERSIZEMOVE:
        case WM_DESTROY:
            return true;
        default:
            return false;
    }
}

bool HostWatch::isPressed(UINT message, WPARAM wParam, LPARAM) {
    switch (message) {
        case WM_PARENTNOTIFY:
            return LOWORD(wParam) == WM_LBUTTONDOWN || LOWORD(wParam) == WM_RBUTTONDOWN ||
                   LOWORD(wParam) == WM_MBUTTONDOWN;
        case WM_MOUSEACTIVATE:
        case WM_LBUTTONDOWN:
        case WM_NCLBUTTONDOWN:
        case WM_ENTERMENULOOP:
            return true;
        default:
            return false;
    }
}

void HostWatch::begin(HWND topLevel, Concerns& concerns, std::function<void(UINT message)> happened) {
    end();
    if (!topLevel || GetWindowThreadProcessId(topLevel, nullptr) != GetCurrentThreadId()) return;
    // A chain of its own, which other watchers of the same window may leave in any order.
    if (!SetWindowSubclass(topLevel, procedure, reinterpret_cast<UINT_PTR>(this),
                           reinterpret_cast<DWORD_PTR>(this)))
        return;
    window_ = topLevel;
    concerns_ = &concerns;
    happened_ = std::move(happened);
}

void HostWatch::end() {
    if (window_) RemoveWindowSubclass(window_, procedure, reinterpret_cast<UINT_PTR>(this));
    window_ = nullptr;
    happened_ = nullptr;
}

LRESULT CALLBACK HostWatch::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                      DWORD_PTR reference) {
    auto* self = reinterpret_cast<HostWatch*>(reference);
    const auto happened = self->concerns_(message, wParam, lParam) ? self->happened_ : nullptr;
    if (message == WM_NCDESTROY) self->end();
    // The window's own procedure comes after: whatever it does, it finds the watcher done.
    try {
        if (happened) happened(message);
    } catch (...) {
        // Nothing may pass through the system's frames.
    }
    return DefSubclassProc(window, message, wParam, lParam);
}

}  // namespace obk::win32
