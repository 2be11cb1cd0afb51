#include "window_driver_support.h"

#include <array>

namespace obk::testing_support {

namespace {

constexpr std::chrono::milliseconds deadline{5000};
constexpr wchar_t hostClass[] = L"OrbekTestHost";

// One for all tests of the process: where there is no window manager, hiding a top-level window takes
// seconds.
HWND sharedHost() {
    static const HWND host = [] {
        WNDCLASSEXW description{};
        description.cbSize = sizeof description;
        description.lpfnWndProc = DefWindowProcW;
        description.hInstance = GetModuleHandleW(nullptr);
        description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
        description.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
        description.lpszClassName = hostClass;
        RegisterClassExW(&description);
        return CreateWindowExW(0, hostClass, L"Host", WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN, 50, 40, 400,
                               300, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    }();
    return host;
}

void sendKey(int16_t code, bool down) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = static_cast<WORD>(code);
    input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(input.ki.wVk, MAPVK_VK_TO_VSC));
    const bool extended = code >= key::pageUp && code <= key::down;
    input.ki.dwFlags = (down ? 0u : KEYEVENTF_KEYUP) | (extended ? KEYEVENTF_EXTENDEDKEY : 0u);
    SendInput(1, &input, sizeof input);
    bool arrived = false;
    pumpUntil([&] { return arrived; },
              [&](const MSG& message) {
                  const bool right = down ? message.message == WM_KEYDOWN || message.message == WM_SYSKEYDOWN
                                          : message.message == WM_KEYUP || message.message == WM_SYSKEYUP;
                  arrived |= right && message.wParam == static_cast<WPARAM>(code);
              });
    pumpAll();
}

struct Modifier {
    int16_t bit;
    int16_t code;
};
constexpr std::array<Modifier, 3> modifiers{
    {{shift::shift, VK_SHIFT}, {shift::control, VK_CONTROL}, {shift::alt, VK_MENU}}};

}  // namespace

bool pumpUntil(const std::function<bool()>& done, const std::function<void(const MSG&)>& seen) {
    const ULONGLONG end = GetTickCount64() + static_cast<ULONGLONG>(deadline.count());
    while (!done()) {
        MSG message{};
        if (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            if (seen) seen(message);
            TranslateMessage(&message);
            DispatchMessageW(&message);
        } else if (GetTickCount64() >= end) {
            return false;
        } else {
            MsgWaitForMultipleObjects(0, nullptr, FALSE, 5, QS_ALLINPUT);
        }
    }
    return true;
}

void pumpAll() {
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

void pumpFor(std::chrono::milliseconds time) {
    const ULONGLONG end = GetTickCount64() + static_cast<ULONGLONG>(time.count());
    pumpUntil([end] { return GetTickCount64() >= end; });
}

WindowDriver::WindowDriver() : host_(sharedHost()), platform_(GetModuleHandleW(nullptr)) {
    SetWindowPos(host_, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_SHOWWINDOW);
    SetForegroundWindow(host_);
    SetFocus(host_);
    // Away from every surface.
    SetCursorPos(600, 500);
    pumpUntil([this] { return GetFocus() == host_; });
    pumpAll();
}

WindowDriver::~WindowDriver() {
    ReleaseCapture();
    pumpAll();
}

void WindowDriver::keyDown(int16_t code, int16_t state) {
    for (const Modifier& modifier : modifiers) {
        if (state & modifier.bit) sendKey(modifier.code, true);
    }
    sendKey(code, true);
}

void WindowDriver::keyUp(int16_t code, int16_t state) {
    sendKey(code, false);
    for (const Modifier& modifier : modifiers) {
        if (state & modifier.bit) sendKey(modifier.code, false);
    }
}

void WindowDriver::mouseMove(SurfacePeer& surface, PixelPoint at) {
    const PixelPoint target = surface.toScreen(at);
    POINT current{};
    GetCursorPos(&current);
    const bool moves = current.x != target.x || current.y != target.y;
    SetCursorPos(target.x, target.y);
    bool arrived = !moves;
    pumpUntil([&] { return arrived; },
              [&](const MSG& message) {
                  arrived |=
                      message.message == WM_MOUSEMOVE && message.pt.x == target.x && message.pt.y == target.y;
              });
    pumpAll();
}

void WindowDriver::press(int16_t button, bool down) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    UINT expected = 0;
    switch (button) {
        case button::right:
            input.mi.dwFlags = down ? MOUSEEVENTF_RIGHTDOWN : MOUSEEVENTF_RIGHTUP;
            expected = down ? WM_RBUTTONDOWN : WM_RBUTTONUP;
            break;
        case button::middle:
            input.mi.dwFlags = down ? MOUSEEVENTF_MIDDLEDOWN : MOUSEEVENTF_MIDDLEUP;
            expected = down ? WM_MBUTTONDOWN : WM_MBUTTONUP;
            break;
        default:
            input.mi.dwFlags = down ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_LEFTUP;
            expected = down ? WM_LBUTTONDOWN : WM_LBUTTONUP;
            break;
    }
    SendInput(1, &input, sizeof input);
    constexpr UINT doubleClickOffset = WM_LBUTTONDBLCLK - WM_LBUTTONDOWN;
    bool arrived = false;
    pumpUntil([&] { return arrived; },
              [&](const MSG& message) {
                  arrived |= message.message == expected ||
                             (down && message.message == expected + doubleClickOffset);
              });
    pumpAll();
}

void WindowDriver::wheel(int32_t delta) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = MOUSEEVENTF_WHEEL;
    input.mi.mouseData = static_cast<DWORD>(delta);
    SendInput(1, &input, sizeof input);
    bool arrived = false;
    pumpUntil([&] { return arrived; },
              [&](const MSG& message) { arrived |= message.message == WM_MOUSEWHEEL; });
    pumpAll();
}

void WindowDriver::focusHost() {
    SetFocus(host_);
    pumpAll();
}

void WindowDriver::askFocus(NativeWindow window) {
    SetFocus(reinterpret_cast<HWND>(window));
    pumpAll();
}

void WindowDriver::takeCaptureAway() {
    SetCapture(host_);
    ReleaseCapture();
    pumpAll();
}

}  // namespace obk::testing_support
