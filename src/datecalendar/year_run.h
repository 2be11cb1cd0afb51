// Steps when a button is pressed, and again and again, faster and faster, while it is held.
#pragma once

#include "widgets/drawn_button.h"
#include "widgets/timer.h"

#include <algorithm>

namespace obk {

class YearRun {
public:
    // `image` is borrowed, and its presses are this run's.
    explicit YearRun(DrawnButton& image) : image_(image), timer_(image) {
        pressed_ = image.pressed.connect([this] { start(); });
        released_ = image.released.connect([this] { stop(); });
        ticked_ = timer_.ticked.connect([this] { tick(); });
    }

    void stop() { timer_.stop(); }

    Event<> stepped;

private:
    using milliseconds = std::chrono::milliseconds;
    static constexpr milliseconds shortest{40};

    void start() {
        next_ = image_.platform().appearance().metrics().repeatDelay;
        tick();
    }
    void tick() {
        timer_.start(next_);
        next_ = std::max(shortest, next_ * 4 / 5);
        stepped();
    }

    const DrawnButton& image_;
    Timer timer_;
    milliseconds next_{};
    Connection pressed_, released_, ticked_;
};

}  // namespace obk
