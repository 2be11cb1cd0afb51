// What a control that drops a panel down keeps of its button and of the mouse over it, as hosts know it.
#pragma once

#include "base/attempt.h"
#include "framework/mouse_arguments.h"
#include "widgets/pop_up_placement.h"

namespace obk {

struct DropDownState {
    bool popupEnabled = true;     // false: the host shows something of its own, told by PopUp
    bool positionDefault = true;  // the panel is tried below first
    bool mouseHeld = false;       // a mouse button is down on the control: no hover tracking
    bool mouseOver = false;
    bool pressed = false;  // since a press on the button that drops down, until its release

    int16_t panelKey = 0;  // went down while the panel was open, which used it

    // Such a key is the panel's until it is released, also when it has closed the panel.
    bool keepsKey(const KeyEvent& event, bool open) const {
        return !open && event.repeated && event.code == panelKey;
    }
    void keyUsed(const KeyEvent& event, bool byPanel) {
        if (!event.repeated) panelKey = byPanel ? event.code : int16_t{0};
    }

    PopUpSide firstSide() const { return positionDefault ? PopUpSide::below : PopUpSide::above; }

    // The end of UserControl_ExitFocus: hosts learn that the focus is lost and, since a mouse button that is
    // still held will not be reported any more, that it is up.
    void leave(const Event<>& FocusLost, const MouseRaised& MouseUp) {
        mouseHeld = false;
        attempt([&] { FocusLost(); });
        MouseArguments nowhere{button::left};
        attempt([&] { nowhere.raise(MouseUp); });
    }
};

}  // namespace obk
