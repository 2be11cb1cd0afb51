#include "palette/palette_panel.h"

#include "widgets/drawing.h"
#include "widgets/surface.h"

#include <algorithm>

namespace obk {

namespace {

// At 96 DPI. The caption of the strip stands clear of the edges that only close the panel.
constexpr int32_t stripHeightAt96 = 34;
constexpr int32_t stripEdgeAt96 = 10;
constexpr char16_t moreColours[] = u"More colors";

constexpr PixelRect outset(const PixelRect& rect, int32_t by) {
    return rect.inset(-by);
}

}  // namespace

PalettePanel::PalettePanel(Control& outer, Container& parent) : Container(parent), linCUSTOM(outer, *this) {
    linCUSTOM.setTakesMouse(false);
    layOut(Dpi());
}

void PalettePanel::setPalette(enQUILLPalette palette) {
    kind_ = palette;
    palette_ = ColourPalette(palette);
    palette_.setScale(scale_);
    endWalk();
    invalidate();
}

void PalettePanel::becomeBase(const PaletteCell& cell) {
    // White after red keeps the shades of red: both have hue 0, and only the hue counts.
    if (cell.isBase && cell.hls.hue != base_.hls.hue && palette_.geometry().ShadeMode) buildShades(cell);
}

void PalettePanel::chooseBaseFor(Rgb colour) {
    if (palette_.geometry().ShadeMode) buildShades(palette_.baseCell(colour));
}

void PalettePanel::buildShades(const PaletteCell& base) {
    base_ = base;
    palette_.buildShades(base);
    for (const PaletteCell& cell : palette_.shadeCells()) invalidatePart(outset(cell.rect, scale_.scaled(1)));
}

bool PalettePanel::classic() const {
    return look_ == Look::classic && !platform().appearance().highContrast();
}

SystemColour PalettePanel::ground() const {
    return classic() ? SystemColour::buttonFace : SystemColour::window;
}

PixelSize PalettePanel::layOut(Dpi dpi) {
    scale_ = dpi;
    linCUSTOM.setAmbientBackColour(ground());
    palette_.setScale(dpi);
    const auto place = [](std::optional<PaletteCell>& kept, const ColourPalette& palette) {
        if (!kept) return;
        for (const auto& cells : {palette.baseCells(), palette.shadeCells()}) {
            for (const PaletteCell& cell : cells) {
                if (cell.isBase == kept->isBase && cell.hls == kept->hls) kept->rect = cell.rect;
            }
        }
    };
    place(selected_, palette_);
    int32_t right = 0;
    int32_t bottom = 0;
    for (const auto& cells : {palette_.baseCells(), palette_.shadeCells()}) {
        for (const PaletteCell& cell : cells) {
            right = std::max(right, cell.rect.right);
            bottom = std::max(bottom, cell.rect.bottom);
        }
    }
    stripTop_ = bottom + palette_.margin();
    // Narrow palettes are as wide as the caption of the strip.
    const PixelSize caption = platform().appearance().measure(moreColours, FontDescription{}, dpi);
    size_ = {std::max(right + palette_.margin(), caption.width + 2 * dpi.scaled(stripEdgeAt96)),
             stripTop_ + dpi.scaled(stripHeightAt96)};
    placed();
    return size_;
}

void PalettePanel::placed() {
    const TwipsRect own{{0}, {0}, parent()->bounds().width, parent()->bounds().height};
    if (bounds() != own) {
        move(own);  // places once more
        return;
    }
    const Dpi screen = dpi();
    linCUSTOM.move({screen.toTwips(palette_.margin()),
                    screen.toTwips(stripTop_),
                    screen.toTwips(size_.width - 2 * palette_.margin()),
                    {30}});
    Container::placed();
}

bool PalettePanel::holds(PixelPoint point) const {
    return PixelRect{0, 0, size_.width, size_.height}.contains(point);
}

std::optional<PaletteCell> PalettePanel::cellAt(PixelPoint point) const {
    const PaletteCell* cell = holds(point) ? palette_.hitTest(point) : nullptr;
    return cell ? std::optional(*cell) : std::nullopt;
}

bool PalettePanel::beyondStripEdge(PixelPoint point) const {
    const int32_t edge = scale_.scaled(stripEdgeAt96);
    return point.y >= size_.height - edge || point.x >= size_.width - edge || point.x < edge;
}

PixelRect PalettePanel::customRect() const {
    const int32_t edge = scale_.scaled(stripEdgeAt96);
    return {edge, stripTop_ + edge, size_.width - edge, size_.height - edge};
}

void PalettePanel::hover(const PaletteCell& cell) {
    const PixelRect frame{cell.rect.left, cell.rect.top, cell.rect.right + 2, cell.rect.bottom + 2};
    if (Surface* shownOn = surface(); shownOn && shownOn->peer() && !walking_)
        shownOn->peer()->setToolTip(cell.rect, cell.Name());
    if (frame == hoverFrame_) return;
    const PixelRect old = hoverFrame_;
    hoverFrame_ = frame;
    invalidatePart(outset(old, scale_.scaled(2)));
    invalidatePart(outset(frame, scale_.scaled(2)));
}

void PalettePanel::clearHover() {
    if (Surface* shownOn = surface(); shownOn && shownOn->peer()) shownOn->peer()->setToolTip({}, {});
    if (hoverFrame_ == PixelRect{}) return;
    const PixelRect old = hoverFrame_;
    hoverFrame_ = {};
    invalidatePart(outset(old, scale_.scaled(2)));
}

void PalettePanel::setSelected(const PaletteCell& cell, bool shown) {
    selected_ = shown ? std::optional(cell) : std::nullopt;
    invalidate();
}

void PalettePanel::setStripHot(bool hot) {
    if (hot == stripHot_) return;
    stripHot_ = hot;
    if (Surface* shownOn = surface(); shownOn && shownOn->peer())
        shownOn->peer()->setCursor(hot ? Cursor::hand : Cursor::arrow);
    invalidatePart({0, stripTop_, size_.width, size_.height});
}

void PalettePanel::invalidatePart(const PixelRect& rect) {
    const PixelRect own = pixelBounds();
    if (Surface* shownOn = surface(); shownOn && !rect.empty())
        shownOn->invalidate(rect.moved(own.left, own.top).intersected(pixelClip()));
}

const PaletteCell* PalettePanel::neighbour(const PaletteCell& from, int16_t keyCode) const {
    // Base cells and shades stand on the same rows, so the next cell in a direction is the nearest one that
    // is level with this one.
    const bool along = keyCode == key::left || keyCode == key::right;
    const bool forward = keyCode == key::right || keyCode == key::down || keyCode == key::pageDown;
    const bool farthest = keyCode == key::pageUp || keyCode == key::pageDown;
    const PaletteCell* best = nullptr;
    int32_t bestDistance = 0;
    for (const auto& cells : {palette_.baseCells(), palette_.shadeCells()}) {
        for (const PaletteCell& cell : cells) {
            const bool level = along ? cell.rect.top == from.rect.top : cell.rect.left == from.rect.left;
            const int32_t apart = along ? cell.rect.left - from.rect.left : cell.rect.top - from.rect.top;
            const int32_t distance = forward ? apart : -apart;
            if (!level || distance <= 0) continue;
            if (!best || (farthest ? distance > bestDistance : distance < bestDistance)) {
                best = &cell;
                bestDistance = distance;
            }
        }
    }
    return best;
}

void PalettePanel::walkTo(const PaletteCell* cell) {
    setStripHot(cell == nullptr);
    if (!cell) {
        walkCell_.reset();
        clearHover();
        return;
    }
    walkCell_ = *cell;
    hover(*cell);
}

bool PalettePanel::walk(int16_t keyCode) {
    const PaletteCell& first = palette_.baseCells().front();
    const PaletteCell& last =
        palette_.shadeCells().empty() ? palette_.baseCells().back() : palette_.shadeCells().back();
    switch (keyCode) {
        case key::home:
        case key::end:
            walking_ = true;
            walkTo(keyCode == key::home ? &first : &last);
            return true;
        case key::right:
            if (!walking_) {
                walking_ = true;
                const PaletteCell start = selected_.value_or(first);
                const PaletteCell* shown = palette_.hitTest({start.rect.left, start.rect.top});
                walkTo(shown ? shown : &first);
                return true;
            }
            break;
        case key::left:
        case key::up:
        case key::down:
        case key::pageUp:
        case key::pageDown:
            break;
        default:
            return false;
    }
    if (!walking_) return false;
    if (!walkCell_) {  // on the strip
        if (keyCode == key::up || keyCode == key::pageUp) walkTo(&last);
        return true;
    }
    const PaletteCell from = *walkCell_;
    if (const PaletteCell* next = neighbour(from, keyCode))
        walkTo(next);
    else if (keyCode == key::down || keyCode == key::pageDown)
        walkTo(nullptr);
    return true;
}

void PalettePanel::endWalk() {
    walking_ = false;
    walkCell_.reset();
    setStripHot(false);
    clearHover();
}

PixelPoint PalettePanel::walkPoint() const {
    const PixelRect rect = walkCell_ ? walkCell_->rect : customRect();
    return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
}

bool PalettePanel::isSelected(const PaletteCell& cell) const {
    return selected_ && selected_->rect == cell.rect && selected_->Color == cell.Color;
}

void PalettePanel::paint(Canvas& canvas, const PixelRect& bounds) {
    const auto colour = [this](SystemColour index) { return systemRgb(platform(), index); };
    const int32_t line = canvas.dpi().scaled(1);
    canvas.fillRect(bounds, colour(ground()));
    if (classic()) {
        drawPanelEdges(platform(), canvas, bounds);
    } else {
        canvas.frameRect(bounds, line,
                         colour(platform().appearance().highContrast() ? SystemColour::windowText
                                                                       : SystemColour::buttonShadow));
    }
    const PixelPoint origin{bounds.left, bounds.top};
    for (const auto& cells : {palette_.baseCells(), palette_.shadeCells()}) {
        for (const PaletteCell& cell : cells) paintCell(canvas, cell, origin);
    }
    paintFrames(canvas, origin);
    paintStrip(canvas, origin);
    const PixelRect at = linCUSTOM.pixelBounds();
    linCUSTOM.paint(canvas, at);
}

void PalettePanel::paintCell(Canvas& canvas, const PaletteCell& cell, PixelPoint origin) const {
    const PixelRect rect = cell.rect.moved(origin.x, origin.y);
    canvas.fillRect(rect, cell.Color);
    // A slightly darker edge keeps light swatches apart from the ground.
    canvas.frameRect(rect, canvas.dpi().scaled(1), mixed(cell.Color, Rgb{}, 205));
    if (!isSelected(cell)) return;
    // Dark outside and light inside: seen on every colour.
    canvas.frameRect(outset(rect, canvas.dpi().scaled(1)), canvas.dpi().scaled(1),
                     systemRgb(platform(), SystemColour::windowText));
    canvas.frameRect(rect, canvas.dpi().scaled(1), systemRgb(platform(), SystemColour::window));
}

void PalettePanel::paintFrames(Canvas& canvas, PixelPoint origin) const {
    if (hoverFrame_.empty()) return;
    // The frame is two pixels larger than its swatch, and lies evenly around it.
    const int32_t line = canvas.dpi().scaled(1);
    const PixelRect swatch{hoverFrame_.left, hoverFrame_.top, hoverFrame_.right - 2, hoverFrame_.bottom - 2};
    canvas.frameRect(outset(swatch.moved(origin.x, origin.y), line), 2 * line,
                     systemRgb(platform(), SystemColour::highlight));
}

void PalettePanel::paintStrip(Canvas& canvas, PixelPoint origin) const {
    TextStyle style;
    style.horizontal = HorizontalAlignment::centre;
    style.colour = systemRgb(platform(), stripHot_ ? SystemColour::highlight : SystemColour::windowText);
    style.font.underline = stripHot_;
    const PixelRect strip{0, stripTop_, size_.width, size_.height};
    canvas.drawText(moreColours, strip.moved(origin.x, origin.y), style);
    if (walking_ && !walkCell_)
        canvas.drawFocusRect(outset(customRect(), canvas.dpi().scaled(2)).moved(origin.x, origin.y));
}

void PalettePanel::describe(std::vector<AccessibleItem>& items) const {
    const PixelRect own = pixelBounds();
    for (const auto& cells : {palette_.baseCells(), palette_.shadeCells()}) {
        for (const PaletteCell& cell : cells)
            items.push_back({AccessibleItem::Role::listItem,
                             cell.Name(),
                             {},
                             cell.rect.moved(own.left, own.top),
                             true,
                             isSelected(cell)});
    }
    items.push_back(
        {AccessibleItem::Role::button, moreColours, {}, customRect().moved(own.left, own.top), true, false});
}

}  // namespace obk
