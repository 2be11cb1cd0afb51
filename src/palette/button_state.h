// How a colour button stands.
#pragma once

#include "base/colour.h"
#include "base/picture.h"
#include "base/text.h"

#include <cstdint>

namespace obk {

// The button, as hosts have set it and as the mouse, the keys and the focus have left it.
struct ButtonState {
    int32_t ButtonType = 1;  // kept, without effect on how the button looks
    Text Caption, ToolTip;
    OleColour BackColor{SystemColour::buttonFace};
    bool BackcolorCustom = false;
    OleColour background{SystemColour::buttonFace};  // BackColor or the system's button face, whichever shows
    OleColour ForeColor{SystemColour::buttonText};
    OleColour caption{SystemColour::buttonText};  // ForeColor or the system's button text, whichever shows
    OleColour ButtonColor;                        // on the button's swatch
    // Pixels of this colour are left out of the pictures.
    OleColour MaskHLightColor{SystemColour::buttonFace};
    PictureRef Picture, PictureDisabled;
    bool PictureVisible = false;
    bool ShowButtonColor = true;
    bool FocusRect = true;
    bool hot = false;   // the mouse is over it
    bool down = false;  // pressed, or its panel is open
    bool focused = false;
};

}  // namespace obk
