// A timer that lives with its widget's control: ticks on the user interface thread, never after it has gone.
#pragma once

#include "base/attempt.h"
#include "base/event.h"
#include "widgets/widget.h"

#include <chrono>
#include <memory>

namespace obk {

class Timer {
public:
    // `owner` is borrowed and outlives the timer; its control is kept alive across each tick.
    explicit Timer(const Widget& owner) : owner_(owner) {}

    // At least 1 ms; starting again begins a new period. Does nothing when the system has no timer to give.
    void start(std::chrono::milliseconds interval) {
        running_ = attempt([&] {
            if (!peer_)
                peer_ = owner_.platform().createTimer([this] { return owner_.keepAlive(); },
                                                      [this] { ticked(); });
            if (peer_) peer_->start(interval);
        });
        running_ = running_ && peer_;
    }
    void stop() {
        if (peer_) attempt([&] { peer_->stop(); });
        running_ = false;
    }
    bool running() const { return running_; }

    Event<> ticked;

private:
    const Widget& owner_;
    std::unique_ptr<TimerPeer> peer_;
    bool running_ = false;
};

}  // namespace obk
