// What every window of the port reports to the portable widget that it stands for.
#pragma once

#include "base/text.h"
#include "base/units.h"
#include "widgets/input.h"

#include <cstdint>
#include <memory>
#include <optional>

namespace obk {

// Whatever a client's function does, it may destroy the peer that called it: a peer touches nothing of its
// own after a call without asking whether it still exists, and holds `keepAlive()` for the time of the call.
class PeerClient {
public:
    virtual std::shared_ptr<void> keepAlive() = 0;
    virtual void mouse(const MouseEvent& event) = 0;
    // Whether the wheel was used; otherwise the host gets it.
    virtual bool wheel(const WheelEvent& event) = 0;
    // The right button asks for a menu at a point of the client area, or the menu key does, with none.
    // Whether one was shown; otherwise the window shows its own, or the host gets the wish.
    virtual bool contextMenu(std::optional<PixelPoint>) { return false; }
    // A code of 0 on return discards the key.
    virtual void keyDown(KeyEvent& event) = 0;
    virtual void keyUp(KeyEvent& event) = 0;
    // A typed character; the answer is the one to use instead, 0 discards it.
    virtual int16_t keyPress(int16_t character) = 0;
    virtual void focusGained() = 0;
    virtual void focusLost() = 0;
    // Consulted once for each key message before anything else is done with it.
    virtual KeyRoute preTranslate(const KeyEvent& event) = 0;
    // What screen readers call it; asked when one looks.
    virtual Text accessibleName() { return {}; }
    // Offers a key that the control does not want to the container; whether it was used there.
    virtual bool offerToContainer(const KeyEvent& event) = 0;

protected:
    ~PeerClient() = default;
};

}  // namespace obk
