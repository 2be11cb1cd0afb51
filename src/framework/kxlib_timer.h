// A polling timer: setting it running blocks the caller until a handler stops it.
#pragma once

#include "base/event.h"
#include "widgets/platform.h"

#include <cstdint>
#include <memory>

namespace obk {

// For the few places that want to wait by polling. Everything that should let the user go on uses Timer
// instead.
class kxlib_TIMER {
public:
    explicit kxlib_TIMER(Clock& clock) : clock_(clock) {}

    bool Enabled() const { return enabled_; }
    // Enabling does not return before `OnTimer`, or something that it calls, has disabled the timer, or 2^31
    // ms of the system's clock cannot be told apart any more.
    void SetEnabled(bool Enabled);
    int32_t Interval() const { return interval_; }  // milliseconds
    // Below 1: the interval becomes 0 and the timer stops. Otherwise an enabled timer polls as above.
    void SetInterval(int32_t Interval);

    Event<> OnTimer;  // a listener may destroy the timer

private:
    void poll();

    Clock& clock_;
    bool enabled_ = false;
    int32_t interval_ = 450;
    int32_t startTick_ = 0;  // 0: the period has not begun
    std::shared_ptr<void> alive_ = std::make_shared<char>();
};

}  // namespace obk
