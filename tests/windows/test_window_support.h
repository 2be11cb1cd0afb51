// A window to put controls and other fields on.
#pragma once

#include <windows.h>

namespace obk::testing_support {

// A visible top-level window that is destroyed with the object.
class TestWindow {
public:
    TestWindow();
    TestWindow(const TestWindow&) = delete;
    TestWindow& operator=(const TestWindow&) = delete;
    ~TestWindow() { DestroyWindow(handle_); }
    HWND handle() const { return handle_; }
    HWND addEdit(int y, DWORD style = WS_VISIBLE) const;

private:
    HWND handle_;
};

// A form that, while this lives, hands the focus on as soon as it gets it, as dialogs do when they come back.
class FocusHandedOn {
public:
    FocusHandedOn(HWND form, HWND to);
    FocusHandedOn(const FocusHandedOn&) = delete;
    FocusHandedOn& operator=(const FocusHandedOn&) = delete;
    ~FocusHandedOn();

private:
    HWND form_;
};

}  // namespace obk::testing_support
