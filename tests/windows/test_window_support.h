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
    ~TestWindow();
    HWND handle() const { return handle_; }
    HWND addEdit(int y, DWORD style = WS_VISIBLE) const;

private:
    HWND handle_;
};

}  // namespace obk::testing_support
