// Resolution and fonts of windows, on systems with and without per-monitor scaling.
#pragma once

#include <windows.h>

namespace obk::container {

// Pixels per inch of the system, and of the monitor that a window is on (the system's where
// windows are not scaled one by one).
int systemDpi();
int windowDpi(HWND window);

// The font of the system's messages and menus for a resolution.
LOGFONTW messageLogFont(int dpi);

// 1/100 mm, the unit of extents, from pixels and back; rounded to the nearest.
SIZE himetricFromPixels(SIZE pixels, int dpi);
SIZE pixelsFromHimetric(SIZE himetric, int dpi);

inline SIZE sizeOf(const RECT& rectangle) {
    return {rectangle.right - rectangle.left, rectangle.bottom - rectangle.top};
}

}  // namespace obk::container
