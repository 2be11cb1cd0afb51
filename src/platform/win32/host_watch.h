// Notices when the top-level window that something hangs on moves, changes its size, hides or goes, or
// when the person turns to another application.
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

    // `moved` is called from inside the window's own messages and may end the watch. Another thread's windows
    // cannot be watched.
    void begin(HWND topLevel, std::function<void()> moved);
    void end();

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                      DWORD_PTR reference);

    HWND window_ = nullptr;
    std::function<void()> moved_;
};

}  // namespace obk::win32
