// Keeps the focus and the activation out of a top-level window and all inside it, whoever asks for them.
#pragma once

#include <windows.h>

namespace obk::win32 {

class FocusRefusal {
public:
    FocusRefusal() = default;
    FocusRefusal(const FocusRefusal&) = delete;
    FocusRefusal& operator=(const FocusRefusal&) = delete;
    ~FocusRefusal() { end(); }

    // Once, on the window's own thread.
    void begin(HWND topLevel);
    void end();

private:
    static LRESULT CALLBACK decide(int code, WPARAM wParam, LPARAM lParam);

    FocusRefusal* next_ = nullptr;  // of this thread, while it refuses
    HWND window_ = nullptr;
    HHOOK hook_ = nullptr;
};

}  // namespace obk::win32
