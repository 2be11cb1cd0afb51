// What a window is sent.
#pragma once

#include <windows.h>

namespace obk::win32 {

// One window message on its way.
struct Message {
    HWND window;
    UINT code;
    WPARAM wParam;
    LPARAM lParam;
};

}  // namespace obk::win32
