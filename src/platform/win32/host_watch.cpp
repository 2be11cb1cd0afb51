#include "platform/win32/host_watch.h"

#include <commctrl.h>

#include <utility>

namespace obk::win32 {

void HostWatch::begin(HWND topLevel, std::function<void()> moved) {
    end();
    if (!topLevel || GetWindowThreadProcessId(topLevel, nullptr) != GetCurrentThreadId()) return;
    // A chain of its own, which other watchers of the same window may leave in any order.
    if (!SetWindowSubclass(topLevel, procedure, reinterpret_cast<UINT_PTR>(this),
                           reinterpret_cast<DWORD_PTR>(this)))
        return;
    window_ = topLevel;
    moved_ = std::move(moved);
}

void HostWatch::end() {
    if (window_) RemoveWindowSubclass(window_, procedure, reinterpret_cast<UINT_PTR>(this));
    window_ = nullptr;
    moved_ = nullptr;
}

LRESULT CALLBACK HostWatch::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                      DWORD_PTR reference) {
    auto* self = reinterpret_cast<HostWatch*>(reference);
    bool gone = false;
    switch (message) {
        case WM_WINDOWPOSCHANGED: {
            const auto& change = *reinterpret_cast<const WINDOWPOS*>(lParam);
            constexpr UINT still = SWP_NOMOVE | SWP_NOSIZE;
            gone = (change.flags & still) != still || (change.flags & SWP_HIDEWINDOW) != 0;
            break;
        }
        case WM_ACTIVATEAPP:
            gone = wParam == FALSE;
            break;
        case WM_ENTERSIZEMOVE:
        case WM_DESTROY:
            gone = true;
            break;
        case WM_NCDESTROY:
            self->end();
            break;
        default:
            break;
    }
    // The window's own procedure comes after: whatever it does, it finds the panel closed.
    if (gone) {
        const auto moved = self->moved_;
        try {
            if (moved) moved();
        } catch (...) {
            // Nothing may pass through the system's frames.
        }
    }
    return DefSubclassProc(window, message, wParam, lParam);
}

}  // namespace obk::win32
