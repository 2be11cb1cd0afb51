#include "platform/win32/away_focus.h"

#include "platform/win32/client_window.h"

#include <utility>

namespace obk::win32 {

namespace {

// A hook knows nothing but its thread.
thread_local AwayFocus* current = nullptr;

}  // namespace

bool AwayFocus::keep(const std::shared_ptr<ClientWindow>& window) {
    // Within the application the focus leaves one window for another, or is taken away from an active form.
    if (GetFocus() || GetActiveWindow() || (current && current != this)) return false;
    end();
    hook_ = SetWindowsHookExW(WH_CBT, watch, nullptr, GetCurrentThreadId());
    if (!hook_) return false;
    current = this;
    client_ = window;
    window_ = window->hwnd();
    return true;
}

bool AwayFocus::returnedTo(const ClientWindow& window) {
    if (window_ && window_ == window.hwnd()) {
        end();
        return true;
    }
    leave();
    return false;
}

void AwayFocus::leave() {
    const auto client = client_.lock();
    end();
    if (client) client->focusLeft();
}

void AwayFocus::replaced(HWND before, HWND after) {
    if (!window_ || before != window_) return;
    if (after)
        window_ = after;
    else
        end();
}

void AwayFocus::focusMoves(HWND to) {
    // Windows of ours tell by themselves, once they have the focus.
    if (!to || to == window_ || ClientWindow::isOne(to)) return;
    if (!IsChild(to, window_)) {
        leave();
    } else if (timer_ == 0) {
        // A form that gets the focus back mostly hands it on to where it was.
        timer_ = service_.startTimer(1, [this] {
            service_.stopTimer(std::exchange(timer_, 0));
            if (GetFocus()) leave();
        });
    }
}

void AwayFocus::end() {
    if (hook_) UnhookWindowsHookEx(std::exchange(hook_, nullptr));
    if (timer_ != 0) service_.stopTimer(std::exchange(timer_, 0));
    if (current == this) current = nullptr;
    window_ = nullptr;
    client_.reset();
}

LRESULT CALLBACK AwayFocus::watch(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HCBT_SETFOCUS && current) {
        try {
            current->focusMoves(reinterpret_cast<HWND>(wParam));
        } catch (...) {
            // Nothing may pass through the system's frames.
        }
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace obk::win32
