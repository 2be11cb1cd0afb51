// What ButtonPalette knows without a widget: how its button stands, which palette it drops down, and which of
// its cells are active, chosen, hovered and walked to.
#pragma once

#include "base/event.h"
#include "framework/drop_down_state.h"
#include "palette/button_state.h"
#include "palette/colour_palette.h"

#include <type_traits>

namespace obk {

class PaletteModel {
public:
    // The button.
    const ButtonState& button() const { return button_; }
    template <typename T>
    void set(T ButtonState::*value, const std::type_identity_t<T>& to) {
        button_.*value = to;
        buttonChanged();
    }
    // A custom BackColor shows from its setting or loading until the first repaint, the button face from then
    // on; one that is not custom the other way round. Both are meant.
    void showBackground(Rgb buttonFace) { setBackground(button_.BackcolorCustom, buttonFace); }
    // A ForeColor shows until the first repaint, too.
    void setForeColor(OleColour colour);
    void repaint(Rgb buttonFace);

    // The mouse over the button and what a click does; plain values, of which no change is told.
    DropDownState drop;
    int16_t LastButton = button::left;  // of the last press on the button
    int16_t LastKeyDown = 0;

    // The palette and its cells. Each is the current one for something else, and changes for itself.
    const ColourPalette& palette() const { return palette_; }
    // Pressed or dragged over last.
    const PaletteCell& ActiveCell() const { return activeCell_; }
    // The chosen one. Its colour may be one from elsewhere; the swatch nearest to that lends it the rest.
    const PaletteCell& SelectedCell() const { return selectedCell_; }
    // Under the mouse, or walked to: it has the frame.
    const std::optional<PaletteCell>& HoverCell() const { return hoverCell_; }
    // Whose shades the block of a shade palette holds.
    const PaletteCell& BaseCell() const { return baseCell_; }

    // Another palette, of which the swatch nearest to a colour becomes the chosen one.
    void setPalette(enQUILLPalette palette, Rgb colour);
    // The scale of all places in the panel.
    void setScale(Dpi dpi);
    // A host's colour, for the button and for the chosen cell; the cell's name stays.
    void setColor(OleColour colour);
    // A colour from a form, and what it is on the screen: the nearest swatch stands for it.
    void loadSelected(OleColour colour, Rgb onScreen);
    // Whether the active colour is another one now.
    bool activate(const PaletteCell& cell);
    enum class Selection {
        unchanged,  // the chosen colour, and no other was active meanwhile
        again,      // the chosen colour, after others were active
        changed,
    };
    Selection select(const PaletteCell& cell);
    void hover(const PaletteCell& cell);
    // Builds the shades of a base cell, unless those of its hue are shown. White after red keeps the shades
    // of red: both have hue 0.
    void becomeBase(const PaletteCell& cell);

    // The custom strip: under the mouse or walked to.
    bool stripHot() const { return stripHot_; }
    void setStripHot(bool hot);

    // A walk of the frame by the keys, begun by Right, Home or End, over the swatches and below them to the
    // strip. False for a key that neither moves it nor begins one.
    bool walk(int16_t keyCode);
    bool walking() const { return walking_; }
    // Nothing on the strip.
    const std::optional<PaletteCell>& walkCell() const { return walkCell_; }
    void endWalk();

    // What looks different now; whoever shows the model listens.
    Event<> buttonChanged, panelChanged, stripChanged;
    Event<const PixelRect&> cellsChanged;  // of the panel, in its pixels
    Event<> shadesChanged;                 // they are those of another base colour

private:
    void setBackground(bool own, Rgb buttonFace) {
        set(&ButtonState::background, own ? button_.BackColor : OleColour(buttonFace));
    }
    void buildShades(PaletteCell base);
    void setHover(const std::optional<PaletteCell>& cell);
    void walkTo(const PaletteCell* cell);

    ButtonState button_;
    ColourPalette palette_{enQUILLPalette::QP24X8};
    PaletteCell activeCell_, selectedCell_, baseCell_;
    std::optional<PaletteCell> hoverCell_, walkCell_;
    bool stripHot_ = false;
    bool walking_ = false;
};

}  // namespace obk
