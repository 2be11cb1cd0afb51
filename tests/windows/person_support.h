// Someone at the keyboard and the mouse of a form: real input through the system's queue, delivered by the
// form's loop.
#pragma once

#include <windows.h>

#include <array>
#include <chrono>
#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <thread>
#include <utility>

#include "container/message_loop.h"
#include "server_support.h"

namespace obk::testing_support {

// Formats with their contents, byte by byte; nothing empties the clipboard.
void putOnClipboard(std::initializer_list<std::pair<UINT, std::wstring>> contents);

// Into the system's queue, without waiting for it to arrive.
void sendKey(WORD code, DWORD flag = 0);
void sendMouse(DWORD flag, DWORD data = 0);

// A key as if it were held while this lives. Held for real, Alt would open the form's menu when it is let go.
class AsIfHeld {
public:
    explicit AsIfHeld(WORD code);
    AsIfHeld(const AsIfHeld&) = delete;
    AsIfHeld& operator=(const AsIfHeld&) = delete;
    ~AsIfHeld() { SetKeyboardState(before_.data()); }

private:
    std::array<BYTE, 256> before_{};
};

class Person {
public:
    // The loop must outlive the person. The form's window comes to the front and gets the focus.
    Person(container::MessageLoop& loop, HWND form);

    // A key going down and up, with the modifiers held (MOD_SHIFT, MOD_CONTROL, MOD_ALT).
    void key(WORD code, UINT modifiers = 0);
    void keyDown(WORD code, UINT modifiers = 0);
    void keyUp(WORD code, UINT modifiers = 0);
    // A key that repeats before it goes up, all sent at once: what the system knows of keys that are down is
    // the real keyboard's again as soon as a window opens or closes.
    void hold(WORD code, int times);
    // Digits, letters, ".", "-" and ",".
    void type(std::wstring_view text);
    // Client coordinates of a window; null: of the screen.
    void moveTo(HWND window, int x, int y);
    void press(DWORD downFlag = MOUSEEVENTF_LEFTDOWN);
    void release(DWORD upFlag = MOUSEEVENTF_LEFTUP);
    void click(HWND window, int x, int y);
    void rightClick(HWND window, int x, int y);
    void turnWheel(int delta);
    // Drops data that may be copied or moved where the mouse is. What the target has done with it.
    DWORD dropHere(IDataObject* data, DWORD downFlag = MOUSEEVENTF_LEFTDOWN);
    // Whether the condition came true in time.
    bool waitFor(const std::function<bool()>& condition) { return loop_.pumpUntil(condition); }
    void wait(std::chrono::milliseconds time) {
        loop_.pumpUntil([] { return false; }, time);
    }

private:
    // Does it and waits for its message.
    void act(const std::function<void()>& how, const std::function<bool(const MSG&)>& awaited);
    void send(INPUT input, UINT message, UINT otherMessage = 0);
    void pressKey(WORD code);
    void releaseKey(WORD code);

    container::MessageLoop& loop_;
};

// A window of a thread of its own, which is another application to this one's windows.
class OtherApplication {
public:
    OtherApplication();
    ~OtherApplication();
    // The person turns to it. The windows of this thread hear of it with their next messages.
    void comeToFront() const;
    // It has the clipboard open for a while, so that nobody else can open it.
    bool holdClipboard(std::chrono::milliseconds time) const;

private:
    std::thread thread_;
    HWND window_ = nullptr;
};

// A form with one control that shows, another field below it, and someone at the keyboard.
class PersonAtControl : public ::testing::Test {
protected:
    PersonAtControl(const wchar_t* className, const RECT& bounds);

    container::Dispatch object() const { return hosted.object(); }
    HWND face() const { return hosted.site.window(); }
    std::wstring takeEvents() { return hosted.takeEvents(); }
    // What a method answers; -999 for no number.
    long number(const wchar_t* method) const;
    // Alt and a letter in the other field. Whether the form has a use for it.
    bool pressAltInOther(WPARAM letter);
    // Drops the control's panel down and forgets what it told; null when there is none.
    HWND open();

    HostedControl hosted;
    HWND other = nullptr;
    Person person{hosted.loop, hosted.window.handle()};
};

}  // namespace obk::testing_support
