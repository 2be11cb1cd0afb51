#include "framework/kxlib_timer.h"

namespace obk {

void kxlib_TIMER::SetEnabled(bool Enabled) {
    enabled_ = Enabled;
    startTick_ = 0;
    poll();
}

void kxlib_TIMER::SetInterval(int32_t Interval) {
    startTick_ = 0;
    if (Interval < 1) {
        interval_ = 0;
        enabled_ = false;
        return;
    }
    interval_ = Interval;
    poll();
}

void kxlib_TIMER::poll() {
    const std::weak_ptr<void> alive = alive_;
    // Blocking and busy on purpose: a handler ends the wait.
    while (!alive.expired() && enabled_) {
        if (startTick_ == 0) startTick_ = clock_.tickCount();
        int32_t elapsed = 0;
        if (__builtin_sub_overflow(clock_.tickCount(), startTick_, &elapsed)) return;
        if (elapsed >= interval_) {
            startTick_ = clock_.tickCount();
            OnTimer();
        }
    }
}

}  // namespace obk
