// A timer in the time that a test lets pass.
#pragma once

#include "platform/headless/headless_platform.h"

#include <chrono>
#include <functional>

namespace obk::headless {

class HeadlessTimer : public TimerPeer {
public:
    HeadlessTimer(HeadlessPlatform& platform, KeepAlive keepAlive, std::function<void()> tick);
    ~HeadlessTimer() override;

    void start(std::chrono::milliseconds interval) override;
    void stop() override { running_ = false; }

    bool running() const { return running_; }
    std::chrono::milliseconds left() const { return left_; }
    void pass(std::chrono::milliseconds time) { left_ -= time; }
    // Calls back and begins the next period; may destroy the timer.
    void tick();

private:
    HeadlessPlatform& platform_;
    KeepAlive keepAlive_;
    std::function<void()> tick_;
    std::chrono::milliseconds interval_{1};
    std::chrono::milliseconds left_{1};
    bool running_ = false;
};

}  // namespace obk::headless
