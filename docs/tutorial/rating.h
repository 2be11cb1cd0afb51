// The rule of a rating: how many of five stars are given.
#pragma once

#include <cstdint>

namespace obk::tutorial {

class Rating {
public:
    static constexpr int32_t most = 5;

    int32_t stars() const { return stars_; }
    // From 0 to `most`. False, and nothing changed, for any other number and for the one that it has.
    bool setStars(int32_t stars);

private:
    int32_t stars_ = 0;
};

}  // namespace obk::tutorial
