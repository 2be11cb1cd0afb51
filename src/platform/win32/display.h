// Monitors (their resolution, the part of each that windows may use) and pixels as the system describes them.
#pragma once

#include "base/units.h"

#include <windows.h>

namespace obk::win32 {

Dpi systemDpi();
// Of the monitor the window is on, as far as its process takes notice of it; the system's where the system
// does not tell them apart.
Dpi windowDpi(HWND window);
// Without task bars; monitors left of or above the first one have negative coordinates.
PixelRect workAreaOf(const PixelRect& place);

// Coordinates are held within what GDI can draw (27 bits).
RECT toRect(const PixelRect& rect);
PixelRect fromRect(const RECT& rect);

// A bitmap of 32-bit pixels, rows from the top.
BITMAPINFO bitmapInfo(PixelSize size);

}  // namespace obk::win32
