// The sign that a piece of work takes longer than a person waits without one.
#pragma once

#include "widgets/platform.h"

#include <cstdint>
#include <functional>

namespace obk {

// Lives as long as the work. Told of its progress, it shows the sign once a second has gone by, and takes it
// back when it goes.
class BusySign {
public:
    static constexpr int32_t patience = 1000;  // milliseconds

    // `show` is called with true, later with false, or never; the clock is borrowed.
    BusySign(Clock& clock, std::function<void(bool)> show);
    BusySign(const BusySign&) = delete;
    BusySign& operator=(const BusySign&) = delete;
    ~BusySign();

    // Reads the clock: to be called after some thousand small steps, not after each.
    void progress();

private:
    Clock& clock_;
    std::function<void(bool)> show_;
    int32_t start_;
    bool shown_ = false;
};

}  // namespace obk
