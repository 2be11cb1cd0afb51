#include "grid/busy_sign.h"

#include "base/attempt.h"

#include <utility>

namespace obk {

BusySign::BusySign(Clock& clock, std::function<void(bool)> show)
    : clock_(clock), show_(std::move(show)), start_(clock.tickCount()) {}

BusySign::~BusySign() {
    if (shown_) attempt([this] { show_(false); });
}

void BusySign::progress() {
    if (shown_) return;
    // The tick count wraps, and so does the difference.
    const uint32_t passed = static_cast<uint32_t>(clock_.tickCount()) - static_cast<uint32_t>(start_);
    if (passed <= static_cast<uint32_t>(patience)) return;
    shown_ = true;
    attempt([this] { show_(true); });
}

}  // namespace obk
