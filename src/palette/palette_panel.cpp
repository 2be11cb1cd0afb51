#include "palette/palette_panel.h"

#include "base/attempt.h"
#include "framework/kxlib_system.h"
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

PalettePanel::PalettePanel(Control& outer, Container& parent, const PaletteModel& model)
    : Container(parent), model_(model), look_(lookOfSystem(platform())), linCUSTOM(outer, *this) {
    linCUSTOM.setTakesMouse(false);
    layOut();
}

bool PalettePanel::classic() const {
    return look_ == Look::classic && !platform().appearance().highContrast();
}

SystemColour PalettePanel::ground() const {
    return classic() ? SystemColour::buttonFace : SystemColour::window;
}

PixelSize PalettePanel::layOut() {
    const ColourPalette& palette = model_.palette();
    const Dpi scale = palette.scale();
    linCUSTOM.setAmbientBackColour(ground());
    int32_t right = 0;
    int32_t bottom = 0;
    for (const PaletteCell& cell : palette.cells()) {
        right = std::max(right, cell.rect.right);
        bottom = std::max(bottom, cell.rect.bottom);
    }
    stripTop_ = bottom + palette.margin();
    // Narrow palettes are as wide as the caption of the strip.
    const PixelSize caption = platform().appearance().measure(moreColours, FontDescription{}, scale);
    size_ = {std::max(right + palette.margin(), caption.width + 2 * scale.scaled(stripEdgeAt96)),
             stripTop_ + scale.scaled(stripHeightAt96)};
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
    linCUSTOM.move({screen.toTwips(model_.palette().margin()),
                    screen.toTwips(stripTop_),
                    screen.toTwips(size_.width - 2 * model_.palette().margin()),
                    {30}});
    Container::placed();
}

PalettePanel::Spot PalettePanel::spotAt(PixelPoint point) const {
    const int32_t edge = model_.palette().scale().scaled(stripEdgeAt96);
    Spot spot;
    spot.inside = PixelRect{0, 0, size_.width, size_.height}.contains(point);
    if (const PaletteCell* cell = spot.inside ? model_.palette().hitTest(point) : nullptr) spot.cell = *cell;
    spot.belowStripTop = point.y >= stripTop_;
    spot.beyondStripEdge = point.y >= size_.height - edge || point.x >= size_.width - edge || point.x < edge;
    return spot;
}

PixelRect PalettePanel::customRect() const {
    const int32_t edge = model_.palette().scale().scaled(stripEdgeAt96);
    return {edge, stripTop_ + edge, size_.width - edge, size_.height - edge};
}

PixelPoint PalettePanel::walkPoint() const {
    const PixelRect rect = model_.walkCell() ? model_.walkCell()->rect : customRect();
    return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
}

void PalettePanel::showCells(const PixelRect& place) {
    if (model_.walking()) announce(AccessibleEvent::focus);
    const auto& hovered = model_.HoverCell();
    if (Surface* shownOn = surface(); shownOn) {
        // Keys leave no mouse to rest anywhere.
        const auto when = model_.walking() ? ToolTipShown::atOnce : ToolTipShown::whenMouseRests;
        if (!hovered)
            shownOn->setToolTip({}, {});
        else
            attempt([&] { shownOn->setToolTip(hovered->rect, hovered->Name(), when); });
    }
    if (!place.empty()) invalidatePart(outset(place, model_.palette().scale().scaled(2)));
}

void PalettePanel::showStrip() {
    if (model_.walking()) announce(AccessibleEvent::focus);
    if (Surface* shownOn = surface(); shownOn)
        shownOn->setCursor(model_.stripHot() ? Cursor::hand : Cursor::arrow);
    invalidatePart({0, stripTop_, size_.width, size_.height});
}

void PalettePanel::invalidatePart(const PixelRect& rect) {
    const PixelRect own = pixelBounds();
    if (Surface* shownOn = surface())
        shownOn->invalidate(rect.moved(own.left, own.top).intersected(pixelClip()));
}

void PalettePanel::paint(Canvas& canvas, const PixelRect& bounds) {
    const auto colour = [this](SystemColour index) { return systemRgb(platform(), index); };
    canvas.fillRect(bounds, colour(ground()));
    if (classic())
        drawPanelEdges(platform(), canvas, bounds);
    else
        canvas.frameRect(bounds, canvas.dpi().scaled(1), outlineOn(platform(), colour(ground())));
    const PixelPoint origin{bounds.left, bounds.top};
    for (const PaletteCell& cell : model_.palette().cells()) paintCell(canvas, cell, origin);
    paintHoverFrame(canvas, origin);
    paintStrip(canvas, origin);
    const PixelRect at = linCUSTOM.pixelBounds();
    linCUSTOM.paint(canvas, at);
}

void PalettePanel::paintCell(Canvas& canvas, const PaletteCell& cell, PixelPoint origin) const {
    const PixelRect rect = cell.rect.moved(origin.x, origin.y);
    const int32_t line = canvas.dpi().scaled(1);
    const Rgb shown = rgb(cell.Color);
    canvas.fillRect(rect, shown);
    // A stronger edge keeps swatches apart from a ground of their own brightness.
    canvas.frameRect(rect, line,
                     shapeOn(systemRgb(platform(), ground()),
                             mixed(shown, systemRgb(platform(), SystemColour::windowText), 205)));
    if (cell != model_.SelectedCell()) return;
    // Dark outside and light inside: seen on every colour.
    canvas.frameRect(outset(rect, line), line, systemRgb(platform(), SystemColour::windowText));
    canvas.frameRect(rect, line, systemRgb(platform(), SystemColour::window));
}

void PalettePanel::paintHoverFrame(Canvas& canvas, PixelPoint origin) const {
    if (!model_.HoverCell()) return;
    // It lies evenly on the edge of its swatch.
    const int32_t line = canvas.dpi().scaled(1);
    canvas.frameRect(outset(model_.HoverCell()->rect.moved(origin.x, origin.y), line), 2 * line,
                     systemRgb(platform(), SystemColour::highlight));
}

void PalettePanel::paintStrip(Canvas& canvas, PixelPoint origin) const {
    TextStyle style;
    style.horizontal = HorizontalAlignment::centre;
    style.colour =
        systemRgb(platform(), model_.stripHot() ? SystemColour::highlight : SystemColour::windowText);
    style.font.underline = model_.stripHot();
    const PixelRect strip{0, stripTop_, size_.width, size_.height};
    canvas.drawText(moreColours, strip.moved(origin.x, origin.y), style);
    if (model_.walking() && !model_.walkCell())
        canvas.drawFocusRect(outset(customRect(), canvas.dpi().scaled(2)).moved(origin.x, origin.y));
}

int32_t PalettePanel::accessibleParts(AccessiblePart of) const {
    return of.whole() ? static_cast<int32_t>(model_.palette().cells().size()) + 1 : 0;
}

// The swatches, then what opens the chooser of more colours.
AccessibleItem PalettePanel::accessible(AccessiblePart part) const {
    using Kind = AccessibleAction::Kind;
    if (part.whole()) return {};
    const PixelRect own = pixelBounds();
    const auto cells = model_.palette().cells();
    const auto at = static_cast<size_t>(part.row);
    if (at >= cells.size()) {
        AccessibleItem item = itemOf(AccessibleItem::Role::button, moreColours);
        item.bounds = customRect().moved(own.left, own.top);
        item.set(AccessibleItem::focusable);
        item.allow(Kind::press);
        return item;
    }
    const PaletteCell& cell = cells[at];
    AccessibleItem item = itemOf(AccessibleItem::Role::listItem, cell.Name());
    item.bounds = cell.rect.moved(own.left, own.top);
    item.position = part.row + 1;
    item.setSize = static_cast<int32_t>(cells.size());
    // Shades may share a name.
    const auto same = [&](const PaletteCell& other) {
        return other.namePrefix == cell.namePrefix && other.baseName == cell.baseName;
    };
    if (std::count_if(cells.begin(), cells.end(), same) > 1) item.name += u", " + decimalText(item.position);
    item.set(AccessibleItem::selectable);
    item.set(AccessibleItem::focusable);
    item.set(AccessibleItem::selected, cell == model_.SelectedCell());
    item.allow(Kind::press, Kind::select);
    return item;
}

AccessibleId PalettePanel::accessibleFocus() {
    const auto cells = model_.palette().cells();
    if (model_.walking() && !model_.walkCell()) return {this, {static_cast<int32_t>(cells.size()), -1}};
    const PaletteCell& marked = model_.walkCell() ? *model_.walkCell() : model_.SelectedCell();
    const auto found = std::find(cells.begin(), cells.end(), marked);
    return found == cells.end() ? AccessibleId{}
                                : AccessibleId{this, {static_cast<int32_t>(found - cells.begin()), -1}};
}

// As a click there.
void PalettePanel::useAccessible(AccessiblePart part, const AccessibleAction&) {
    const auto cells = model_.palette().cells();
    const auto at = static_cast<size_t>(part.row);
    const PixelRect place = at < cells.size() ? cells[at].rect : customRect();
    const PixelPoint middle{(place.left + place.right) / 2, (place.top + place.bottom) / 2};
    announce(AccessibleEvent::invoked, part);
    mouseReported({MouseEvent::Kind::down, button::left, 0, middle});
    mouseReported({MouseEvent::Kind::up, button::left, 0, middle});
}

}  // namespace obk
