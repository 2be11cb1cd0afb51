#include "datecalendar/day_grid.h"

#include "widgets/drawing.h"
#include "widgets/surface.h"

#include <utility>

namespace obk {

void DayGrid::refresh() {
    detach();
    invalidate();
}

int32_t DayGrid::dayAt(PixelPoint point) const {
    const auto cell = cellAt(point, dpi());
    return cell ? month_.layout.dayAt(*cell) : 0;
}

void DayGrid::paint(Canvas& canvas, const PixelRect& bounds) {
    paintWeekdays(canvas, bounds);
    for (int32_t cell = 0; cell < cellCount; ++cell) {
        if (const int32_t day = month_.layout.dayAt(cell))
            paintDay(canvas, canvas.dpi().toPixels(cellBounds(cell)).moved(bounds.left, bounds.top), day);
    }
}

void DayGrid::paintWeekdays(Canvas& canvas, const PixelRect& bounds) const {
    TextStyle style;
    // Quieter than the days, and yet read.
    const Rgb text = systemRgb(platform(), SystemColour::windowText);
    constexpr int32_t share = 160;
    style.colour = platform().appearance().highContrast()
                       ? text
                       : mixed(text, systemRgb(platform(), SystemColour::window), share);
    style.horizontal = HorizontalAlignment::centre;
    std::chrono::weekday weekday = std::chrono::Monday;
    for (int32_t cell = 0; cell < cellColumns; ++cell, ++weekday)
        canvas.drawText(weekdayName(weekday).substr(0, 2),
                        canvas.dpi().toPixels(cellBounds(cell)).moved(bounds.left, bounds.top), style);
}

void DayGrid::paintDay(Canvas& canvas, const PixelRect& cell, int32_t day) const {
    const auto colour = [this](SystemColour index) { return systemRgb(platform(), index); };
    const int32_t line = canvas.dpi().scaled(1);
    const Rgb accent = colour(SystemColour::highlight);
    const Rgb ground = colour(SystemColour::window);
    const bool chosen = day == month_.chosen;
    const bool highContrast = platform().appearance().highContrast();
    Rgb fill = chosen ? accent : ground;
    if (day == hovered_ && !chosen && !highContrast) fill = mixed(accent, ground, 50);
    canvas.fillRect(cell, fill);
    if (day == hovered_ && !chosen && highContrast) canvas.frameRect(cell, line, accent);
    TextStyle style;
    style.colour = colour(chosen ? SystemColour::highlightText : SystemColour::windowText);
    style.horizontal = HorizontalAlignment::centre;
    canvas.drawText(decimalText(day), cell, style);
    if (day != month_.today) return;
    const PixelRect bar{cell.left + 4 * line, cell.bottom - 3 * line, cell.right - 4 * line,
                        cell.bottom - line};
    canvas.fillRect(bar, chosen ? style.colour : accent);
}

void DayGrid::mouse(const MouseEvent& event) {
    const int32_t day = dayAt(event.at);
    switch (event.kind) {
        case MouseEvent::Kind::down:
        case MouseEvent::Kind::doubleClick:
            if (event.button != button::left || day == 0) break;
            pressedDay_ = day;
            if (Surface* shownOn = surface()) shownOn->capture(*this);
            break;
        case MouseEvent::Kind::move:
            hover(day);
            break;
        case MouseEvent::Kind::up: {
            if (event.button != button::left || pressedDay_ == 0) break;
            const bool same = std::exchange(pressedDay_, 0) == day;
            if (Surface* shownOn = surface()) shownOn->releaseCapture(*this);
            if (same) useAccessible({cellColumns + day - 1, -1}, {});
            break;
        }
        case MouseEvent::Kind::leave:
            hover(0);
            break;
    }
}

void DayGrid::hover(int32_t day) {
    if (day == hovered_) return;
    hovered_ = day;
    invalidate();
}

void DayGrid::detach() {
    pressedDay_ = 0;
    hovered_ = 0;
}

// The weekdays, then the days.
int32_t DayGrid::accessibleParts(AccessiblePart of) const {
    return of.whole() ? cellColumns + month_.layout.lngDAYSINMONTH : 0;
}

AccessibleItem DayGrid::accessible(AccessiblePart part) const {
    using Kind = AccessibleAction::Kind;
    const PixelRect own = pixelBounds();
    if (part.whole()) {
        AccessibleItem item = itemOf(AccessibleItem::Role::calendar, u"Days");
        const PixelRect first = dpi().toPixels(cellBounds(0)),
                        last = dpi().toPixels(cellBounds(cellCount - 1));
        item.bounds = PixelRect{first.left, first.top, last.right, last.bottom}.moved(own.left, own.top);
        item.set(AccessibleItem::focusable);
        item.rows = cellRows - 2;
        item.cols = cellColumns;
        return item;
    }
    const bool weekday = part.row < cellColumns;
    const int32_t day = part.row - cellColumns + 1, cell = weekday ? part.row : month_.layout.cellOf(day);
    AccessibleItem item;
    if (weekday) {
        const auto monday = std::chrono::Monday;
        item = itemOf(AccessibleItem::Role::columnHeader, weekdayName(monday + std::chrono::days(part.row)));
    } else {
        item = itemOf(AccessibleItem::Role::listItem, decimalText(day) + u" " + month_.heading);
        if (day == month_.today) item.help = u"today";
        item.row = cell / cellColumns - 1;
        item.position = day;
        item.setSize = month_.layout.lngDAYSINMONTH;
        item.set(AccessibleItem::selectable);
        item.set(AccessibleItem::focusable);
        item.set(AccessibleItem::selected, day == month_.chosen);
        item.allow(Kind::press, Kind::select);
    }
    item.col = cell % cellColumns;
    item.bounds = dpi().toPixels(cellBounds(cell)).moved(own.left, own.top);
    return item;
}

AccessiblePart DayGrid::accessibleCell(int32_t row, int32_t col) const {
    const bool inside = row < cellRows - 2 && col < cellColumns;
    const int32_t day = inside ? month_.layout.dayAt((row + 1) * cellColumns + col) : 0;
    return day == 0 ? AccessiblePart{} : AccessiblePart{cellColumns + day - 1, -1};
}

void DayGrid::useAccessible(AccessiblePart part, const AccessibleAction&) {
    announce(AccessibleEvent::invoked, part);
    clicked(month_.layout.cellOf(part.row - cellColumns + 1));
}

void DayFrame::moveOnto(int32_t cell) {
    const TwipsRect place = cellBounds(cell);
    const Twips outside{1};
    move({place.left - outside, place.top - outside, place.width + 2 * outside, place.height + 2 * outside});
}

void DayFrame::paint(Canvas& canvas, const PixelRect& bounds) {
    const int32_t line = canvas.dpi().scaled(1);
    // Dark outside and light inside: seen on the chosen day's fill as well.
    canvas.frameRect(bounds, line, systemRgb(platform(), SystemColour::windowText));
    canvas.frameRect(bounds.inset(line), line, systemRgb(platform(), SystemColour::window));
}

}  // namespace obk
