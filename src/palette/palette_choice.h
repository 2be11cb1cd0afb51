// Which swatch is active and which colour is chosen, and what a further choice changes of that.
#pragma once

#include "base/units.h"
#include "palette/colour_palette.h"

namespace obk {

class PaletteChoice {
public:
    // The swatch pressed or dragged over last with the left button.
    const PaletteCell& active() const { return active_; }
    // Whether its colour is another than that of the one before.
    bool activate(const PaletteCell& cell);

    // The chosen colour, which a host may set to any, and the swatch that stands for it.
    OleColour colour() const { return colour_; }
    void setColour(OleColour colour) { colour_ = colour; }
    const PaletteCell& selected() const { return selected_; }
    bool selectedIsExact() const { return OleColour(selected_.Color) == colour_; }

    // After the palette has changed, or with a colour from elsewhere.
    void setSelected(const PaletteCell& nearest, OleColour colour);

    enum class Outcome {
        nothing,      // the chosen colour, and no other was active meanwhile
        chosenAgain,  // the chosen colour, after others were active
        changed,
    };
    Outcome select(const PaletteCell& cell, OleColour colour);

private:
    PaletteCell active_;
    PaletteCell selected_;
    OleColour colour_;
};

}  // namespace obk
