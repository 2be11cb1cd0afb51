// Drives real windows with real input: keys and mouse through the system's input queue, messages through a
// loop.
#pragma once

#include "../port/port_driver.h"
#include "container/message_loop.h"
#include "person_support.h"
#include "platform/win32/win32_platform.h"

#include <gtest/gtest.h>

#include <windows.h>

namespace obk::testing_support {

// Runs the message loop until `done`, at most a few seconds; whether it became true.
bool pumpUntil(const std::function<bool()>& done);
// Delivers everything that is under way.
void pumpAll();

class WindowDriver final : public port::PortDriver {
public:
    WindowDriver();
    WindowDriver(const WindowDriver&) = delete;
    WindowDriver& operator=(const WindowDriver&) = delete;
    ~WindowDriver() override;

    win32::Win32Platform& platform() override { return platform_; }
    NativeWindow host() override { return reinterpret_cast<NativeWindow>(host_); }
    HWND hostWindow() const { return host_; }
    void keyDown(int16_t code, int16_t shift) override;
    void keyUp(int16_t code, int16_t shift) override;
    void mouseMove(SurfacePeer& surface, PixelPoint at) override;
    void mouseDown(int16_t button) override;
    void mouseUp(int16_t button) override;
    void wheel(int32_t delta) override { person_.turnWheel(delta); }
    void pressTool() override;
    void moveHost() override;
    void askFocus(NativeWindow window) override;
    void leaveApplication() override;
    void returnToApplication(NativeWindow window) override;
    void takeCaptureAway() override;
    void letGoAt(SurfacePeer& surface, PixelPoint at) override;
    void pass(std::chrono::milliseconds time) override { person_.wait(time); }
    void settle() override { pumpAll(); }

private:
    HWND host_;
    win32::Win32Platform platform_;
    container::MessageLoop loop_;
    Person person_{loop_, host_};
    std::unique_ptr<OtherApplication> elsewhere_;  // made when a test needs one
};

}  // namespace obk::testing_support
