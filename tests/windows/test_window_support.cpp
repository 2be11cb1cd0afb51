#include "test_window_support.h"

#include <commctrl.h>

namespace obk::testing_support {

namespace {

LRESULT CALLBACK handFocusOn(HWND form, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR to) {
    const LRESULT result = DefSubclassProc(form, message, wParam, lParam);
    if (message == WM_SETFOCUS) SetFocus(reinterpret_cast<HWND>(to));
    return result;
}

}  // namespace

FocusHandedOn::FocusHandedOn(HWND form, HWND to) : form_(form) {
    SetWindowSubclass(form_, handFocusOn, 1, reinterpret_cast<DWORD_PTR>(to));
}

FocusHandedOn::~FocusHandedOn() {
    RemoveWindowSubclass(form_, handFocusOn, 1);
}

// Without a caption and shown without activation, no window manager has to answer before it is there.
TestWindow::TestWindow()
    : handle_(CreateWindowExW(0, L"STATIC", L"container test", WS_POPUP, 20, 20, 400, 300, nullptr, nullptr,
                              GetModuleHandleW(nullptr), nullptr)) {
    ShowWindow(handle_, SW_SHOWNOACTIVATE);
}

HWND TestWindow::addEdit(int y, DWORD style) const {
    return CreateWindowExW(0, L"EDIT", L"edit", style | WS_CHILD, 10, y, 100, 20, handle_, nullptr, nullptr,
                           nullptr);
}

}  // namespace obk::testing_support
