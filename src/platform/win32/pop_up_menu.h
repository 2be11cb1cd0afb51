// Pop-up menus of the system.
#pragma once

#include "widgets/platform.h"

#include <windows.h>

namespace obk::win32 {

// See Platform::chooseFromMenu.
std::optional<size_t> chooseFromMenu(HWND owner, std::span<const MenuItem> items, const PixelRect& beside);

// Whether a menu was open on this thread while some work was done.
bool opensMenu(const std::function<void()>& work);

}  // namespace obk::win32
