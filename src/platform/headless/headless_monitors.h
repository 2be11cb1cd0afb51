// The monitors of a desktop in memory.
#pragma once

#include "base/units.h"

#include <optional>
#include <vector>

namespace obk::headless {

class HeadlessMonitors {
public:
    // What windows may use of a monitor, and its scale; that of the system where it has none of its own.
    struct Monitor {
        PixelRect workArea;
        std::optional<Dpi> dpi{};
    };
    // At first there is one, of 1280 by 800 pixels. A panel has the scale of the monitor that it is on, and
    // hears of another one as soon as it is moved there, or only when it is shown.
    enum class ScaleTold { moved, shown };
    // The one that has the most of a rectangle.
    const Monitor& monitorOf(const PixelRect& rect) const;
    ScaleTold scaleTold() const { return scaleTold_; }

protected:
    std::vector<Monitor> monitors_{{{0, 0, 1280, 800}}};
    ScaleTold scaleTold_ = ScaleTold::moved;
};

}  // namespace obk::headless
