// What presses, drags and a walk of the keys choose in the open panel, and what hosts hear of it.
#include "base/attempt.h"
#include "palette/button_palette.h"

namespace obk {

namespace {

int32_t asLong(OleColour colour) {
    return static_cast<int32_t>(colour.value);
}

}  // namespace

void ButtonPalette::panelMouse(const MouseEvent& event) {
    if (!panel_.visible()) return;
    switch (event.kind) {
        case MouseEvent::Kind::down:
        case MouseEvent::Kind::doubleClick:
            panelPress(event.button, event.at);
            break;
        case MouseEvent::Kind::move:
            panelMove(event.button, picDROPDOWNPANEL.spotAt(event.at));
            break;
        case MouseEvent::Kind::up:
            panelRelease(event.at);
            break;
        case MouseEvent::Kind::leave:
            model_.setStripHot(false);
            break;
    }
}

bool ButtonPalette::panelKeyDown(const KeyEvent& event) {
    if (!panel_.visible() || event.shift != 0) return false;
    if (model_.walking() && (event.code == key::enter || event.code == key::space)) {
        const PixelPoint at = picDROPDOWNPANEL.walkPoint();
        panelPress(button::left, at);
        // On the strip the press has already closed the panel.
        if (panel_.visible()) panelRelease(at);
        return true;
    }
    if (!model_.walk(alongReading(event).code)) return false;
    // Like a press on a base colour, so that its shades can be reached.
    if (const auto cell = model_.walkCell()) model_.becomeBase(*cell);
    return true;
}

void ButtonPalette::panelPress(int16_t mouseButton, PixelPoint at) {
    // Where the point lies is settled before any host hears of it: a host may change the palette meanwhile.
    const PalettePanel::Spot spot = picDROPDOWNPANEL.spotAt(at);
    if (spot.inside) {
        // The capture of the opening goes; that of a drag comes, so that a release outside is seen.
        panel_.renewCapture();
        if (spot.cell) {
            panelMove(mouseButton, spot);
            activate(*spot.cell);
            model_.becomeBase(*spot.cell);
        }
    } else {
        HidePopUp();
    }
    if (spot.belowStripTop) {
        HidePopUp();
        if (!spot.beyondStripEdge) chooseCustomColour();
    }
}

void ButtonPalette::panelMove(int16_t mouseButton, const PalettePanel::Spot& spot) {
    const bool leftDown = (mouseButton & button::left) != 0;
    model_.setStripHot(spot.onStrip());
    if (!spot.cell) return;
    if (leftDown) activate(*spot.cell);
    if (panel_.visible()) model_.hover(*spot.cell);
    if (leftDown) model_.becomeBase(*spot.cell);
}

void ButtonPalette::panelRelease(PixelPoint at) {
    const PalettePanel::Spot spot = picDROPDOWNPANEL.spotAt(at);
    HidePopUp();
    if (spot.cell) {
        HidePopUp();
        select(*spot.cell);
    } else if (!spot.inside) {
        select(model_.SelectedCell());
    }
}

void ButtonPalette::activate(const PaletteCell& cell) {
    if (!model_.activate(cell)) return;
    PropertyChanged<&ButtonPalette::ActiveColor>();
    PropertyChanged<&ButtonPalette::ActiveText>();
    int32_t told = asLong(ActiveColor());
    attempt([&] { Change(told); });
}

void ButtonPalette::select(const PaletteCell& cell) {
    const PaletteModel::Selection outcome = model_.select(cell);
    if (outcome == PaletteModel::Selection::unchanged) return;
    announceSurface(AccessibleEvent::value);
    const OleColour colour = selectedColor();
    if (outcome == PaletteModel::Selection::changed) {
        PropertyChanged<&ButtonPalette::selectedColor>();
        PropertyChanged<&ButtonPalette::Text>();
        if (Color() != colour) loadColor(colour);
        attempt([&] { Click(); });
    }
    int32_t told = asLong(colour);
    attempt([&] { Change(told); });
}

void ButtonPalette::chooseCustomColour() {
    const OleColour start = Color();
    const Surface* shownOn = root().surface();
    const NativeWindow owner = shownOn ? shownOn->window() : 0;
    std::optional<Rgb> picked;
    attempt([&] { picked = platform().chooseColour(owner, {root().rgb(start), true, u"Custom"}); });
    // What was cancelled answers the colour it started from, and the host hears of that all the same.
    const OleColour colour = picked ? OleColour(*picked) : start;
    loadColor(colour);  // and not the chosen cell's
    announceSurface(AccessibleEvent::value);
    PropertyChanged<&ButtonPalette::selectedColor>();
    PropertyChanged<&ButtonPalette::Text>();
    int32_t told = asLong(colour);
    attempt([&] { ChangeCustom(told); });
}

}  // namespace obk
