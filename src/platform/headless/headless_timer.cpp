#include "platform/headless/headless_timer.h"

#include <algorithm>

namespace obk::headless {

HeadlessTimer::HeadlessTimer(HeadlessPlatform& platform, KeepAlive keepAlive, std::function<void()> tick)
    : platform_(platform), keepAlive_(std::move(keepAlive)), tick_(std::move(tick)) {
    platform_.timers_.push_back(this);
}

HeadlessTimer::~HeadlessTimer() {
    std::erase(platform_.timers_, this);
}

void HeadlessTimer::start(std::chrono::milliseconds interval) {
    interval_ = left_ = std::max(interval, std::chrono::milliseconds(1));
    running_ = true;
}

void HeadlessTimer::tick() {
    left_ = interval_;
    const auto alive = keepAlive_();
    const auto callback = tick_;
    if (alive) callback();
}

}  // namespace obk::headless
