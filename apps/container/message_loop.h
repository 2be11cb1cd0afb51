// Message loops for windows with controls: keys go to the forms first, then messages are dispatched.
#pragma once

#include <windows.h>

#include <chrono>
#include <functional>
#include <vector>

#include "container/control_form.h"

namespace obk::container {

// Serves any number of forms, which must outlive it or be removed.
class MessageLoop {
public:
    void add(ControlForm& form) { forms_.push_back(&form); }
    void remove(ControlForm& form) { std::erase(forms_, &form); }

    // Asked before the forms; true ends the message. For keys that belong to the whole program.
    std::function<bool(MSG&)> onMessage;

    // Asked after the forms: the program's shortcuts, which go after the keys that controls claim.
    std::function<bool(MSG&)> onUnclaimed;

    // One message: `onMessage`, forms, `onUnclaimed`, dispatch.
    void handle(MSG& message);
    // Until WM_QUIT; answers its exit code.
    int run();
    // All messages that wait now, and those that they cause. False when WM_QUIT came.
    bool pumpPending();
    // Until `done` answers true or the time is over; answers whether it did.
    bool pumpUntil(const std::function<bool()>& done,
                   std::chrono::milliseconds longest = std::chrono::seconds(5));

private:
    std::vector<ControlForm*> forms_;
};

}  // namespace obk::container
