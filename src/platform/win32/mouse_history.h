// What the mouse did last over a window, as far as later messages mean something else because of it.
#pragma once

#include <windows.h>

#include <optional>

namespace obk::win32 {

class MouseHistory {
public:
    // Where the mouse is when the window is shown beneath it.
    void windowShown() { GetCursorPos(&at_); }
    // Whether a WM_MOUSEMOVE is one: the system also sends it to a window that comes beneath a resting mouse.
    bool moved(HWND window, WPARAM keys, LPARAM position);
    // The left button has gone down, in the message that is being handled.
    void pressed();
    // Whether the press in the message that is being handled is the second of a double click; it is no first
    // one then.
    bool pressedTwice();

private:
    struct Press {
        LONG time;
        POINT at;  // on the screen
    };
    std::optional<Press> press_;
    POINT at_{};  // on the screen
};

}  // namespace obk::win32
