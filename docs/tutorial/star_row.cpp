#include "tutorial/star_row.h"

#include "widgets/surface.h"

#include <array>

namespace obk::tutorial {

void StarRow::paint(Canvas& canvas, const PixelRect& bounds) {
    for (int32_t star = 1; star <= Rating::most; ++star) {
        const int32_t left = bounds.left + bounds.width() * (star - 1) / Rating::most;
        const int32_t right = bounds.left + bounds.width() * star / Rating::most;
        const int32_t middle = (bounds.top + bounds.bottom) / 2;
        const std::array<PixelPoint, 4> diamond{{{(left + right) / 2, bounds.top},
                                                 {right, middle},
                                                 {(left + right) / 2, bounds.bottom},
                                                 {left, middle}}};
        const bool given = star <= rating_.stars();
        canvas.fillPolygon(diamond, rgb(given ? SystemColour::highlight : SystemColour::buttonShadow));
    }
    if (focused()) canvas.drawFocusRect(bounds);
}

void StarRow::mouse(const MouseEvent& event) {
    if (event.kind != MouseEvent::Kind::down || event.button != button::left || !enabled()) return;
    takeFocus();
    const int32_t width = pixelBounds().width();
    if (width > 0) wanted(event.at.x * Rating::most / width + 1);
}

void StarRow::keyDown(KeyEvent& event) {
    if (event.code == key::right) wanted(rating_.stars() + 1);
    if (event.code == key::left) wanted(rating_.stars() - 1);
}

bool StarRow::takeFocus() {
    Surface* shownOn = surface();
    return shownOn && enabled() && !pixelClip().empty() && shownOn->focus(*this);
}

Widget* StarRow::focused() {
    const Surface* shownOn = surface();
    return shownOn && shownOn->focusedOn(*this) ? this : nullptr;
}

AccessibleItem StarRow::accessible(AccessiblePart) const {
    AccessibleItem item = itemOf(AccessibleItem::Role::graphic, u"Stars");
    item.value = Text(1, static_cast<char16_t>(u'0' + rating_.stars()));
    item.set(AccessibleItem::focusable);
    return item;
}

}  // namespace obk::tutorial
