// Turns of the wheel in whole notches, also of wheels that report finer ones.
#pragma once

#include "widgets/input.h"

#include <algorithm>

namespace obk {

class WheelNotches {
public:
    static constexpr int32_t notch = 120;

    // Positive away from the user; a turn in the other direction begins anew.
    void turn(int32_t delta) {
        if ((delta > 0) != (rest_ > 0)) rest_ = 0;
        rest_ += std::clamp<int32_t>(delta, INT16_MIN, INT16_MAX);
    }
    // The next whole notch: 1 or -1, and 0 when none is left. One at a time, because what is done for it may
    // turn the wheel again or `forget` the others.
    int32_t take() { return taken(rest_ >= notch ? 1 : rest_ <= -notch ? -1 : 0); }
    int32_t takeAll() { return taken(rest_ / notch); }
    void forget() { rest_ = 0; }

private:
    int32_t taken(int32_t notches) {
        rest_ -= notches * notch;
        return notches;
    }

    int32_t rest_ = 0;
};

}  // namespace obk
