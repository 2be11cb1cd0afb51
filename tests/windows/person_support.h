// Someone at the keyboard and the mouse of a form: real input through the system's queue, delivered by the
// form's loop.
#pragma once

#include <windows.h>

#include <chrono>
#include <functional>
#include <string_view>

#include "container/message_loop.h"

namespace obk::testing_support {

class Person {
public:
    // The loop must outlive the person. The form's window comes to the front and gets the focus.
    Person(container::MessageLoop& loop, HWND form);

    // A key going down and up, with the modifiers held (MOD_SHIFT, MOD_CONTROL, MOD_ALT).
    void key(WORD code, UINT modifiers = 0);
    // Digits, letters and ".".
    void type(std::wstring_view text);
    // Client coordinates of a window.
    void moveTo(HWND window, int x, int y);
    void press(DWORD downFlag = MOUSEEVENTF_LEFTDOWN);
    void release(DWORD upFlag = MOUSEEVENTF_LEFTUP);
    void click(HWND window, int x, int y);
    void rightClick(HWND window, int x, int y);
    void turnWheel(int delta);
    // Whether the condition came true in time.
    bool waitFor(const std::function<bool()>& condition);
    void wait(std::chrono::milliseconds time);

private:
    void send(const INPUT& input, UINT message, UINT otherMessage = 0);
    void sendKey(WORD code, bool down);

    container::MessageLoop& loop_;
};

}  // namespace obk::testing_support
