// Notices what happens to the top-level window that something hangs on.
#pragma once

#include <windows.h>

#include <functional>

namespace obk::win32 {

class HostWatch {
public:
    HostWatch() = default;
    HostWatch(const HostWatch&) = delete;
    HostWatch& operator=(const HostWatch&) = delete;
    ~HostWatch() { end(); }

    using Concerns = bool(UINT message, WPARAM wParam, LPARAM lParam);
    // It moves, changes its size, hides or goes.
    static Concerns moves;
    // The mouse is pressed somewhere in it, or its menu opens.
    static Concerns isPressed;

    // `happened` is called from inside the window's own messages and may end the watch. Another thread's
    // windows cannot be watched.
    void begin(HWND topLevel, Concerns& concerns, std::function<void(UINT message)> happened);
    void end();

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                      DWORD_PTR reference);

    HWND window_ = nullptr;
    Concerns* concerns_ = nullptr;
    std::function<void(UINT message)> happened_;
};

}  // namespace obk::win32
