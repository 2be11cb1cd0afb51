#include "datecalendar/calendar_icon.h"

#include "widgets/drawing.h"

namespace obk {

void CalendarIcon::setBackColour(OleColour colour) {
    backColour_ = colour;
    invalidate();
}

void CalendarIcon::setPressed(bool pressed) {
    if (pressed == pressed_) return;
    pressed_ = pressed;
    invalidate();
}

void CalendarIcon::paint(Canvas& canvas, const PixelRect& bounds) {
    const auto colour = [this](SystemColour index) { return systemRgb(platform(), index); };
    const bool highContrast = platform().appearance().highContrast();
    const bool lit = enabled() && (pressed_ || hot_);
    const Rgb accent = colour(SystemColour::highlight);
    const Rgb face = rgb(backColour_);
    canvas.fillRect(bounds, !lit ? face : highContrast ? accent : mixed(accent, face, pressed_ ? 120 : 50));
    const Rgb ink = colour(!enabled()            ? SystemColour::greyText
                           : lit && highContrast ? SystemColour::highlightText
                                                 : SystemColour::buttonText);
    // A sheet with a head, two rings and two rows of days: 11 by 11 pixels at 96 DPI.
    const int32_t line = canvas.dpi().scaled(1);
    const int32_t side = 11 * line;
    const PixelPoint at{bounds.left + (bounds.width() - side) / 2, bounds.top + (bounds.height() - side) / 2};
    const auto part = [&](int32_t left, int32_t top, int32_t width, int32_t height) {
        return PixelRect{at.x + left * line, at.y + top * line, at.x + (left + width) * line,
                         at.y + (top + height) * line};
    };
    canvas.fillRect(part(0, 1, 11, 10), colour(SystemColour::window));
    canvas.frameRect(part(0, 1, 11, 10), line, ink);
    canvas.fillRect(part(0, 1, 11, 3), ink);
    for (const int32_t ring : {2, 7}) canvas.fillRect(part(ring, 0, 2, 2), ink);
    const Rgb day = lit && highContrast ? colour(SystemColour::windowText) : ink;
    for (const int32_t row : {5, 8}) {
        for (const int32_t column : {2, 5, 8}) canvas.fillRect(part(column, row, 1, 1), day);
    }
}

void CalendarIcon::mouse(const MouseEvent& event) {
    const bool hot = event.kind != MouseEvent::Kind::leave;
    if (hot != hot_) {
        hot_ = hot;
        invalidate();
    }
    mouseReported(event);
}

bool CalendarIcon::contextMenu(std::optional<PixelPoint> at) {
    bool shown = false;
    menuAsked(at, shown);
    return shown;
}

AccessibleItem CalendarIcon::accessible(AccessiblePart) const {
    AccessibleItem item = itemOf(AccessibleItem::Role::button, u"Open the calendar");
    item.set(AccessibleItem::pressed, pressed_);
    item.allow(AccessibleAction::Kind::press);
    return item;
}

void CalendarIcon::useAccessible(AccessiblePart, const AccessibleAction&) {
    announce(AccessibleEvent::invoked);
    asked();
}

}  // namespace obk
