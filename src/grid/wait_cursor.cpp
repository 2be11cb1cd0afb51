#include "grid/wait_cursor.h"

#include "base/attempt.h"

#include <utility>

namespace obk {

WaitCursor::WaitCursor(Clock& clock, std::function<void(bool)> show)
    : clock_(clock), show_(std::move(show)), start_(clock.tickCount()) {}

WaitCursor::~WaitCursor() {
    if (shown_) attempt([this] { show_(false); });
}

void WaitCursor::progress() {
    if (shown_) return;
    // The tick count wraps, and so does the difference.
    const uint32_t passed = static_cast<uint32_t>(clock_.tickCount()) - static_cast<uint32_t>(start_);
    if (passed <= static_cast<uint32_t>(delay)) return;
    shown_ = true;
    attempt([this] { show_(true); });
}

}  // namespace obk
