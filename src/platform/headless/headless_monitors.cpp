#include "platform/headless/headless_monitors.h"

#include <algorithm>
#include <cstdint>

namespace obk::headless {

const HeadlessMonitors::Monitor& HeadlessMonitors::monitorOf(const PixelRect& rect) const {
    const auto shown = [&rect](const Monitor& monitor) {
        const PixelRect part = rect.intersected(monitor.workArea);
        return part.empty() ? int64_t{0} : static_cast<int64_t>(part.width()) * part.height();
    };
    return *std::max_element(
        monitors_.begin(), monitors_.end(),
        [&shown](const Monitor& left, const Monitor& right) { return shown(left) < shown(right); });
}

}  // namespace obk::headless
