// Two monitors of different scale, as far as one screen can stand for them: windows of this process whose
// middle is right of a line have another DPI.
#pragma once

#include <windows.h>

namespace obk::testing_support {

class TwoScales {
public:
    // The system tells a top-level window of its new DPI while it is moved, or after it is shown.
    enum class Tells { moved, shown };
    TwoScales(int line, UINT rightDpi, Tells tells);
    TwoScales(const TwoScales&) = delete;
    TwoScales& operator=(const TwoScales&) = delete;
    ~TwoScales();

    // The line goes elsewhere, as when somebody changes a monitor's scale; windows are told.
    void move(int line);

private:
    static UINT WINAPI dpiOf(HWND window);
    static LRESULT CALLBACK watch(int code, WPARAM wParam, LPARAM lParam);

    HHOOK hook_;
    BYTE original_[16]{};
};

}  // namespace obk::testing_support
