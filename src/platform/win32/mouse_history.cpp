#include "platform/win32/mouse_history.h"

#include <windowsx.h>

#include <cstdlib>
#include <utility>

namespace obk::win32 {

namespace {

// Of the message that is being handled, on the screen.
POINT messagePosition() {
    const DWORD position = GetMessagePos();
    return {GET_X_LPARAM(position), GET_Y_LPARAM(position)};
}

}  // namespace

bool MouseHistory::moved(HWND window, WPARAM keys, LPARAM position) {
    POINT now{GET_X_LPARAM(position), GET_Y_LPARAM(position)};
    ClientToScreen(window, &now);
    const POINT before = std::exchange(at_, now);
    return now.x != before.x || now.y != before.y || (keys & (MK_LBUTTON | MK_RBUTTON)) != 0;
}

void MouseHistory::pressed() {
    press_ = Press{GetMessageTime(), messagePosition()};
}

bool MouseHistory::pressedTwice() {
    const auto first = std::exchange(press_, std::nullopt);
    if (!first) return false;
    const POINT now = messagePosition();
    // The time starts anew every 49 days.
    const DWORD elapsed = static_cast<DWORD>(GetMessageTime()) - static_cast<DWORD>(first->time);
    return elapsed <= GetDoubleClickTime() &&
           std::abs(now.x - first->at.x) <= GetSystemMetrics(SM_CXDOUBLECLK) / 2 &&
           std::abs(now.y - first->at.y) <= GetSystemMetrics(SM_CYDOUBLECLK) / 2;
}

}  // namespace obk::win32
