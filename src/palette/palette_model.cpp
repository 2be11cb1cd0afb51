#include "palette/palette_model.h"

namespace obk {

namespace {

// The next swatch in the direction of a key, or the farthest. Base cells and shades stand on the same rows,
// so it is the nearest one that is level with this one. Null at the end of a row or column.
const PaletteCell* neighbour(const ColourPalette& palette, const PaletteCell& from, int16_t keyCode) {
    const bool along = keyCode == key::left || keyCode == key::right;
    const bool forward = keyCode == key::right || keyCode == key::down || keyCode == key::pageDown;
    const bool farthest = keyCode == key::pageUp || keyCode == key::pageDown;
    const PaletteCell* best = nullptr;
    int32_t bestDistance = 0;
    for (const PaletteCell& cell : palette.cells()) {
        const bool level = along ? cell.rect.top == from.rect.top : cell.rect.left == from.rect.left;
        const int32_t apart = along ? cell.rect.left - from.rect.left : cell.rect.top - from.rect.top;
        const int32_t distance = forward ? apart : -apart;
        if (!level || distance <= 0) continue;
        if (!best || (farthest ? distance > bestDistance : distance < bestDistance)) {
            best = &cell;
            bestDistance = distance;
        }
    }
    return best;
}

}  // namespace

void PaletteModel::setPalette(enQUILLPalette palette, Rgb colour) {
    ColourPalette built(palette);
    built.setScale(palette_.scale());
    const PaletteCell base = built.baseCell(colour);
    built.buildShades(base);
    palette_ = std::move(built);
    if (palette_.geometry().ShadeMode) baseCell_ = base;
    selectedCell_ = palette_.nearestCell(colour);
    endWalk();
    panelChanged();
}

void PaletteModel::setScale(Dpi dpi) {
    palette_.setScale(dpi);
    for (const PaletteCell& cell : palette_.cells()) {
        if (cell.standsFor(selectedCell_)) selectedCell_.rect = cell.rect;
        for (std::optional<PaletteCell>* shown : {&hoverCell_, &walkCell_}) {
            if (*shown && cell.standsFor(**shown)) (*shown)->rect = cell.rect;
        }
    }
}

void PaletteModel::setColor(OleColour colour) {
    selectedCell_.Color = colour;
    set(&ButtonState::ButtonColor, colour);
    panelChanged();
}

void PaletteModel::loadSelected(OleColour colour, Rgb onScreen) {
    buildShades(palette_.baseCell(onScreen));
    selectedCell_ = palette_.nearestCell(onScreen);
    selectedCell_.Color = colour;
    panelChanged();
}

bool PaletteModel::activate(const PaletteCell& cell) {
    if (cell.Color == activeCell_.Color) return false;
    activeCell_ = cell;
    return true;
}

PaletteModel::Selection PaletteModel::select(const PaletteCell& cell) {
    if (cell.Color == selectedCell_.Color)
        return cell.Color == activeCell_.Color ? Selection::unchanged : Selection::again;
    selectedCell_ = cell;
    panelChanged();
    return Selection::changed;
}

void PaletteModel::hover(const PaletteCell& cell) {
    if (hoverCell_ != cell) setHover(cell);
}

void PaletteModel::setHover(const std::optional<PaletteCell>& cell) {
    const PixelRect before = hoverCell_ ? hoverCell_->rect : PixelRect{};
    hoverCell_ = cell;
    cellsChanged(before);
    if (cell) cellsChanged(cell->rect);
}

void PaletteModel::becomeBase(const PaletteCell& cell) {
    if (cell.isBase && cell.hls.hue != baseCell_.hls.hue) buildShades(cell);
}

void PaletteModel::buildShades(PaletteCell base) {
    if (!palette_.geometry().ShadeMode) return;
    palette_.buildShades(base);
    baseCell_ = base;
    const auto block = palette_.shadeCells();
    const PixelRect first = block.front().rect, last = block.back().rect;
    cellsChanged({first.left, first.top, last.right, last.bottom});
    shadesChanged();
}

void PaletteModel::setStripHot(bool hot) {
    if (hot == stripHot_) return;
    stripHot_ = hot;
    stripChanged();
}

bool PaletteModel::walk(int16_t keyCode) {
    const PaletteCell& first = palette_.baseCells().front();
    const PaletteCell& last = palette_.cells().back();
    const bool back = keyCode == key::left || keyCode == key::up || keyCode == key::pageUp;
    const bool on = keyCode == key::right || keyCode == key::down || keyCode == key::pageDown;
    if (keyCode == key::home || keyCode == key::end) {
        walking_ = true;
        walkTo(keyCode == key::home ? &first : &last);
    } else if (!walking_) {
        if (keyCode != key::right) return false;
        walking_ = true;
        // Where the chosen swatch stands; at the first one for a colour that no swatch has.
        const bool ownColour = selectedCell_.Color == rgbFromHls(selectedCell_.hls);
        const PaletteCell* start =
            ownColour ? palette_.hitTest({selectedCell_.rect.left, selectedCell_.rect.top}) : nullptr;
        walkTo(start ? start : &first);
    } else if (!back && !on) {
        return false;
    } else if (!walkCell_) {
        if (keyCode == key::up || keyCode == key::pageUp) walkTo(&last);
    } else if (const PaletteCell* next = neighbour(palette_, *walkCell_, keyCode)) {
        walkTo(next);
    } else if (keyCode == key::down || keyCode == key::pageDown) {
        walkTo(nullptr);
    }
    return true;
}

void PaletteModel::walkTo(const PaletteCell* cell) {
    walkCell_ = cell ? std::optional(*cell) : std::nullopt;
    setStripHot(!cell);
    setHover(walkCell_);
}

void PaletteModel::endWalk() {
    walking_ = false;
    walkCell_.reset();
    setStripHot(false);
    setHover(std::nullopt);
}

void PaletteModel::setForeColor(OleColour colour) {
    button_.caption = colour;
    set(&ButtonState::ForeColor, colour);
}

void PaletteModel::repaint(Rgb buttonFace) {
    button_.caption = SystemColour::buttonText;
    setBackground(!button_.BackcolorCustom, buttonFace);
}

}  // namespace obk
