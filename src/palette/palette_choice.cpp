#include "palette/palette_choice.h"

namespace obk {

bool PaletteChoice::activate(const PaletteCell& cell) {
    if (cell.Color == active_.Color) return false;
    active_ = cell;
    return true;
}

void PaletteChoice::setSelected(const PaletteCell& nearest, OleColour colour) {
    selected_ = nearest;
    colour_ = colour;
}

PaletteChoice::Outcome PaletteChoice::select(const PaletteCell& cell, OleColour colour) {
    if (colour != colour_) {
        setSelected(cell, colour);
        return Outcome::changed;
    }
    return OleColour(active_.Color) == colour_ ? Outcome::nothing : Outcome::chosenAgain;
}

}  // namespace obk
