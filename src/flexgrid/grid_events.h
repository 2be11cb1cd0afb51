// What the flexible grid tells the control that it is part of.
#pragma once

#include "base/event.h"
#include "widgets/input.h"

#include <cstdint>
#include <optional>

namespace obk {

// `disturbed`, `scrolled` and `laidOut` also tell of what the host sets, the others of what a person does
// alone.
struct GridEvents {
    // Listeners may set `code` or the character to 0: the grid then does nothing with it.
    Event<KeyEvent&> keyWentDown, keyWentUp;
    Event<int16_t&> characterTyped;
    Event<const MouseEvent&> mousePressed, mouseMoved, mouseReleased;  // before the grid acts
    Event<> clicked, doubleClicked;
    Event<DropEvent&> dropped;
    // The right button or, without a point, the keyboard asks for a menu; listeners say whether one was
    // shown.
    Event<std::optional<PixelPoint>, bool&> menuAsked;
    Event<bool&> leavingCell;  // the current cell is about to be another one, unless a listener says false
    Event<> cellEntered;       // it is another one
    Event<> selectionMoved;
    // Before cells are scrolled, before a person sizes a column, and when a press hits no cell: what stands
    // over a cell has to go.
    Event<> disturbed;
    Event<> scrolled;
    Event<> laidOut;  // cells may stand elsewhere now
    Event<int32_t> columnResized;
};

}  // namespace obk
