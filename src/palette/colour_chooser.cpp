#include "palette/colour_chooser.h"

namespace obk {

ColourChooser::ColourChooser(PopUpPanel& panel, PalettePanel& swatches)
    : panel_(panel), swatches_(swatches) {}

void ColourChooser::setPalette(enQUILLPalette palette, Rgb colour) {
    swatches_.setPalette(palette);
    swatches_.chooseBaseFor(colour);
    const PaletteCell& nearest = swatches_.palette().nearestCell(colour);
    choice_.setSelected(nearest, nearest.Color);
    showChoice();
}

void ColourChooser::choose(OleColour colour, Rgb onScreen) {
    swatches_.chooseBaseFor(onScreen);
    choice_.setSelected(swatches_.palette().nearestCell(onScreen), colour);
}

void ColourChooser::setColour(OleColour colour) {
    choice_.setColour(colour);
    showChoice();
}

void ColourChooser::showChoice() {
    swatches_.setSelected(choice_.selected(), choice_.selectedIsExact());
}

void ColourChooser::mouse(const MouseEvent& event) {
    if (!panel_.visible()) return;
    switch (event.kind) {
        case MouseEvent::Kind::down:
        case MouseEvent::Kind::doubleClick:
            press(event.button, event.at);
            break;
        case MouseEvent::Kind::move:
            move(event.button, event.at);
            break;
        case MouseEvent::Kind::up:
            release(event.at);
            break;
        case MouseEvent::Kind::leave:
            swatches_.setStripHot(false);
            break;
    }
}

bool ColourChooser::keyDown(const KeyEvent& event) {
    if (!panel_.visible() || event.shift != 0) return false;
    const bool walking = swatches_.walking();
    if (walking && (event.code == key::enter || event.code == key::space)) {
        const PixelPoint at = swatches_.walkPoint();
        press(button::left, at);
        // On the strip the press has already closed the panel.
        if (panel_.visible()) release(at);
        return true;
    }
    const bool begins = event.code == key::right || event.code == key::home || event.code == key::end;
    if ((!walking && !begins) || !swatches_.walk(event.code)) return false;
    // Like a press on a base colour, so that its shades can be reached.
    if (const auto cell = swatches_.walkCell()) swatches_.becomeBase(*cell);
    return true;
}

void ColourChooser::press(int16_t mouseButton, PixelPoint at) {
    // Where the point lies is settled before any host hears of it: a host may change the palette meanwhile.
    const bool inside = swatches_.holds(at);
    const bool onStrip = swatches_.belowStripTop(at);
    const bool beyondEdge = swatches_.beyondStripEdge(at);
    if (inside) {
        // The capture of the opening goes; that of a drag comes, so that a release outside is seen.
        panel_.renewCapture();
        if (const auto cell = swatches_.cellAt(at)) {
            move(mouseButton, at);
            activate(*cell);
            swatches_.becomeBase(*cell);
        }
    } else {
        closing();
    }
    if (onStrip) {
        closing();
        if (!beyondEdge) moreColoursAsked();
    }
}

void ColourChooser::move(int16_t mouseButton, PixelPoint at) {
    const bool leftDown = (mouseButton & button::left) != 0;
    const auto cell = swatches_.cellAt(at);
    swatches_.setStripHot(swatches_.holds(at) && swatches_.belowStripTop(at) &&
                          !swatches_.beyondStripEdge(at));
    if (cell) {
        if (leftDown) activate(*cell);
        if (panel_.visible()) swatches_.hover(*cell);
        if (leftDown) swatches_.becomeBase(*cell);
    }
}

void ColourChooser::release(PixelPoint at) {
    const bool inside = swatches_.holds(at);
    const auto cell = swatches_.cellAt(at);
    closing();
    if (cell) {
        closing();
        select(*cell, cell->Color);
    } else if (!inside) {
        select(choice_.selected(), choice_.colour());
    }
}

void ColourChooser::activate(const PaletteCell& cell) {
    if (choice_.activate(cell)) activeChanged();
}

void ColourChooser::select(const PaletteCell& cell, OleColour colour) {
    const PaletteChoice::Outcome outcome = choice_.select(cell, colour);
    if (outcome == PaletteChoice::Outcome::nothing) return;
    if (outcome == PaletteChoice::Outcome::changed) showChoice();
    chosen(outcome);
}

}  // namespace obk
