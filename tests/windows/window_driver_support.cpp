#include "window_driver_support.h"

#include "test_window_support.h"

#include <optional>

namespace obk::testing_support {

namespace {

// One for all tests of the process: where there is no window manager, hiding a top-level window takes
// seconds. With SS_NOTIFY the mouse finds it.
HWND sharedHost() {
    static const HWND host =
        CreateWindowExW(0, L"STATIC", L"Host", WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN | SS_NOTIFY, 50, 40,
                        400, 300, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    return host;
}

UINT modifiersOf(int16_t state) {
    return ((state & shift::shift) != 0 ? MOD_SHIFT : 0) | ((state & shift::control) != 0 ? MOD_CONTROL : 0) |
           ((state & shift::alt) != 0 ? MOD_ALT : 0);
}

}  // namespace

bool pumpUntil(const std::function<bool()>& done) {
    return container::MessageLoop().pumpUntil(done);
}

void pumpAll() {
    container::MessageLoop().pumpPending();
}

WindowDriver::WindowDriver() : host_(sharedHost()), platform_(GetModuleHandleW(nullptr)) {
    SetWindowPos(host_, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_SHOWWINDOW);
    // Away from every surface.
    SetCursorPos(600, 500);
    pumpAll();
}

WindowDriver::~WindowDriver() {
    ReleaseCapture();
    pumpAll();
}

void WindowDriver::keyDown(int16_t code, int16_t shift) {
    person_.keyDown(static_cast<WORD>(code), modifiersOf(shift));
}

void WindowDriver::keyUp(int16_t code, int16_t shift) {
    person_.keyUp(static_cast<WORD>(code), modifiersOf(shift));
}

void WindowDriver::mouseMove(SurfacePeer& surface, PixelPoint at) {
    const PixelPoint target = surface.toScreen(at);
    person_.moveTo(nullptr, target.x, target.y);
}

void WindowDriver::mouseDown(int16_t button) {
    person_.press(button == button::right ? MOUSEEVENTF_RIGHTDOWN : MOUSEEVENTF_LEFTDOWN);
}

void WindowDriver::mouseUp(int16_t button) {
    person_.release(button == button::right ? MOUSEEVENTF_RIGHTUP : MOUSEEVENTF_LEFTUP);
}

void WindowDriver::pressTool() {
    const HWND tool = CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE | SS_NOTIFY, 370, 270, 20, 20,
                                      host_, nullptr, GetModuleHandleW(nullptr), nullptr);
    person_.click(tool, 10, 10);
    DestroyWindow(tool);
    pumpAll();
}

// The system's drag runs a loop of its own, which finds both in the queue.
void WindowDriver::letGoAt(SurfacePeer& surface, PixelPoint at) {
    const PixelPoint screen = surface.toScreen(at);
    SetCursorPos(screen.x, screen.y);
    mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
}

void WindowDriver::moveHost() {
    RECT place{};
    GetWindowRect(host_, &place);
    SetWindowPos(host_, nullptr, place.left + 7, place.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    pumpAll();
}

void WindowDriver::askFocus(NativeWindow window) {
    SetFocus(reinterpret_cast<HWND>(window));
    pumpAll();
}

void WindowDriver::leaveApplication() {
    if (!elsewhere_) elsewhere_ = std::make_unique<OtherApplication>();
    elsewhere_->comeToFront();
    EXPECT_TRUE(pumpUntil([] { return !GetActiveWindow() && !GetFocus(); }));
    pumpAll();
}

void WindowDriver::returnToApplication(NativeWindow window) {
    const HWND wanted = window ? reinterpret_cast<HWND>(window) : host_;
    std::optional<FocusHandedOn> back;
    if (window) back.emplace(host_, wanted);
    SetForegroundWindow(host_);
    EXPECT_TRUE(pumpUntil([&] { return GetActiveWindow() == host_ && GetFocus() == wanted; }));
    // What stays with the host is noticed a moment later.
    pass(std::chrono::milliseconds(40));
}

void WindowDriver::takeCaptureAway() {
    SetCapture(host_);
    ReleaseCapture();
    pumpAll();
}

}  // namespace obk::testing_support
