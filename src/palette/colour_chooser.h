// Choosing a colour in the open panel: presses, drags, a walk of the keys.
#pragma once

#include "base/event.h"
#include "framework/pop_up_panel.h"
#include "palette/palette_choice.h"
#include "palette/palette_panel.h"

namespace obk {

// Neither shows the panel nor hides it: that is the button's.
class ColourChooser {
public:
    // Both are borrowed.
    ColourChooser(PopUpPanel& panel, PalettePanel& swatches);

    const PaletteChoice& choice() const { return choice_; }
    // Another palette, of which the swatch nearest to a colour becomes the chosen one.
    void setPalette(enQUILLPalette palette, Rgb colour);
    // A colour from elsewhere, and what it is on the screen: the nearest swatch stands for it.
    void choose(OleColour colour, Rgb onScreen);
    // A colour that no swatch need have; the swatch stays.
    void setColour(OleColour colour);
    // Marks the chosen swatch where it has the very colour.
    void showChoice();

    // In pixels of the panel, or of the screen around it.
    void mouse(const MouseEvent& event);
    // Whether the key was the panel's.
    bool keyDown(const KeyEvent& event);

    Event<> closing;  // whoever listens hides the panel
    Event<> activeChanged;
    Event<PaletteChoice::Outcome> chosen;  // not told of `nothing`
    Event<> moreColoursAsked;

private:
    void press(int16_t mouseButton, PixelPoint at);
    void move(int16_t mouseButton, PixelPoint at);
    void release(PixelPoint at);
    void activate(const PaletteCell& cell);
    void select(const PaletteCell& cell, OleColour colour);

    PopUpPanel& panel_;
    PalettePanel& swatches_;
    PaletteChoice choice_;
};

}  // namespace obk
