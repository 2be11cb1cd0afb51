// The wait cursor, for work that may take longer than a person waits without one.
#pragma once

#include "widgets/platform.h"

#include <cstdint>
#include <functional>

namespace obk {

// Lives as long as the work. Told of its progress, it shows the cursor once a second has gone by, and takes
// it back when it goes.
class WaitCursor {
public:
    static constexpr int32_t delay = 1000;  // milliseconds

    // `show` is called with true, later with false, or never; the clock is borrowed.
    WaitCursor(Clock& clock, std::function<void(bool)> show);
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
    ~WaitCursor();

    // Reads the clock: to be called after some thousand small steps, not after each.
    void progress();

private:
    Clock& clock_;
    std::function<void(bool)> show_;
    int32_t start_;
    bool shown_ = false;
};

}  // namespace obk
