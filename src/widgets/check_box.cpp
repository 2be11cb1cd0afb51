#include "widgets/check_box.h"

#include "base/left_undone.h"
#include "widgets/drawing.h"
#include "widgets/surface.h"

#include <algorithm>

namespace obk {

CheckBox::CheckBox(Container& parent) : Widget(parent) {}

CheckBox::~CheckBox() = default;

bool CheckBox::setValue(int16_t value) {
    if (value != 0 && value != 1) return refuseNumber(value, u"0 or 1");
    checked_ = value == 1;
    ask([&] { peer_->setChecked(checked_); });
    invalidate();
    return true;
}

void CheckBox::setBackColour(OleColour colour) {
    backColour_ = colour;
    showColours();
}

bool CheckBox::hasFocus() const {
    bool focused = false;
    ask([&] { focused = peer_->hasFocus(); });
    return focused;
}

bool CheckBox::takeFocus() {
    if (pixelClip().empty() || !enabled()) return false;
    ask([&] { peer_->focus(); });
    return hasFocus();
}

void CheckBox::paint(Canvas& canvas, const PixelRect& bounds) {
    constexpr int32_t usualSize = 13;  // pixels at 96 DPI, as the system's
    canvas.fillRect(bounds, rgb(backColour_));
    const int32_t line = canvas.dpi().scaled(1);
    const int32_t size = std::min({canvas.dpi().scaled(usualSize), bounds.width(), bounds.height()});
    const int32_t left = bounds.left, top = bounds.top + (bounds.height() - size) / 2;
    const PixelRect square{left, top, left + size, top + size};
    const auto colour = [this](SystemColour index) { return systemRgb(platform(), index); };
    canvas.fillRect(square, colour(enabled() ? SystemColour::window : SystemColour::buttonFace));
    canvas.frameRect(square, line, colour(SystemColour::buttonShadow));
    if (checked_)
        drawCheckMark(canvas, square.inset(line),
                      colour(enabled() ? SystemColour::windowText : SystemColour::greyText));
}

void CheckBox::attach(SurfacePeer& peer) {
    attempt([&] { peer_ = peer.createCheckBox(*this); });
    ask([&] { peer_->setChecked(checked_); });
    showColours();
    placed();
}

void CheckBox::detach() {
    const auto going = std::move(peer_);
}

void CheckBox::placed() {
    // Each step may take the focus away, and who hears of that may close the window.
    ask([&] { peer_->setEnabled(enabled()); });
    ask([&] { peer_->setBounds(pixelBounds(), pixelClip()); });
    ask([&] { peer_->setVisible(!pixelClip().empty()); });
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

void CheckBox::focusGained() {
    if (Surface* shownOn = surface()) shownOn->childFocusGained(*this);
}

void CheckBox::focusLost() {
    if (Surface* shownOn = surface()) shownOn->childFocusLost(*this);
}

KeyRoute CheckBox::preTranslate(const KeyEvent& event) {
    Surface* shownOn = surface();
    return shownOn ? shownOn->preTranslate(event) : KeyRoute::child;
}

bool CheckBox::offerToContainer(const KeyEvent& event) {
    Surface* shownOn = surface();
    return shownOn && shownOn->offerToContainer(event);
}

void CheckBox::checkPressed() {
    setValue(checked_ ? 0 : 1);
    clicked();
}

void CheckBox::showColours() {
    ask([&] { peer_->setColours(rgb(SystemColour::windowText), rgb(backColour_)); });
    invalidate();
}

}  // namespace obk
