#include "widgets/check_box.h"

#include "base/left_undone.h"
#include "widgets/drawing.h"
#include "widgets/surface_peer.h"

#include <algorithm>

namespace obk {

CheckBox::CheckBox(Container& parent) : ChildWidget(parent) {}

CheckBox::~CheckBox() = default;

bool CheckBox::setValue(int16_t value) {
    if (value != 0 && value != 1) return refuseNumber(value, u"0 or 1");
    checked_ = value == 1;
    ask([&] { window().setChecked(checked_); });
    invalidate();
    return true;
}

void CheckBox::setBackColour(OleColour colour) {
    backColour_ = colour;
    showColours();
}

void CheckBox::paint(Canvas& canvas, const PixelRect& bounds) {
    constexpr int32_t defaultSize = 13;  // pixels at 96 DPI, as the system's
    canvas.fillRect(bounds, rgb(backColour_));
    const int32_t line = canvas.dpi().scaled(1);
    const int32_t size = std::min({canvas.dpi().scaled(defaultSize), bounds.width(), bounds.height()});
    const int32_t left = bounds.left, top = bounds.top + (bounds.height() - size) / 2;
    const PixelRect square{left, top, left + size, top + size};
    const auto colour = [this](SystemColour index) { return systemRgb(platform(), index); };
    canvas.fillRect(square, colour(enabled() ? SystemColour::window : SystemColour::buttonFace));
    canvas.frameRect(square, line, outlineOn(platform(), colour(SystemColour::window)));
    if (checked_)
        drawCheckMark(canvas, square.inset(line),
                      colour(enabled() ? SystemColour::windowText : SystemColour::greyText));
}

std::unique_ptr<ChildPeer> CheckBox::createPeer(SurfacePeer& surface, const ChildPlacement& placement) {
    return surface.createCheckBox(*this, placement);
}

void CheckBox::windowMade() {
    ask([&] { window().setChecked(checked_); });
}

void CheckBox::mouse(const MouseEvent& event) {
    if (!enabled()) return;
    switch (event.kind) {
        case MouseEvent::Kind::down:
        case MouseEvent::Kind::doubleClick:  // the second press of a quick pair is one like any other
            mousePressed(event);
            break;
        case MouseEvent::Kind::move:
            mouseMoved(event);
            break;
        case MouseEvent::Kind::up:
            mouseReleased(event);
            break;
        case MouseEvent::Kind::leave:
            break;
    }
}

int16_t CheckBox::keyPress(int16_t character) {
    characterTyped(character);
    return character;
}

void CheckBox::checkPressed() {
    setValue(checked_ ? 0 : 1);
    clicked();
}

void CheckBox::showColours() {
    ask([&] { window().setColours(rgb(SystemColour::windowText), rgb(backColour_)); });
    invalidate();
}

AccessibleItem CheckBox::accessible(AccessiblePart) const {
    using Kind = AccessibleAction::Kind;
    AccessibleItem item = itemOf(AccessibleItem::Role::checkBox, {});
    item.set(AccessibleItem::focusable);
    item.set(AccessibleItem::checkable);
    item.set(AccessibleItem::checked, checked_);
    item.allow(Kind::focus, Kind::toggle);
    item.window = nativeWindow();
    return item;
}

void CheckBox::useAccessible(AccessiblePart, const AccessibleAction& action) {
    if (action.kind == AccessibleAction::Kind::toggle)
        checkPressed();
    else
        takeFocus();
}

}  // namespace obk
