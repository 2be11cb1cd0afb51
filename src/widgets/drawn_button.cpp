#include "widgets/drawn_button.h"

#include "base/attempt.h"
#include "widgets/surface.h"

#include <utility>

namespace obk {

DrawnButton::DrawnButton(Container& parent, Face face) : Widget(parent), face_(std::move(face)) {}

void DrawnButton::setLook(Look look) {
    look_ = look;
    invalidate();
}

// Answers the colour of what stands on the face.
Rgb DrawnButton::paintFace(Canvas& canvas, const PixelRect& bounds) const {
    const auto colour = [this](SystemColour index) { return systemRgb(platform(), index); };
    const bool highContrast = platform().appearance().highContrast();
    const bool down = held_ && inside_;
    const bool hot = enabled() && inside_ && !held_;
    const int32_t line = canvas.dpi().scaled(1);
    const Rgb face = colour(SystemColour::buttonFace);
    const Rgb accent = colour(SystemColour::highlight);
    const Rgb text = colour(enabled() ? SystemColour::buttonText : SystemColour::greyText);
    if (highContrast) {
        canvas.fillRect(bounds, down || hot ? accent : face);
        canvas.frameRect(bounds, line, colour(SystemColour::windowText));
        return down || hot ? colour(SystemColour::highlightText) : text;
    }
    if (look_ == Look::classic) {
        canvas.fillRect(bounds, face);
        if (down) {
            canvas.frameRect(bounds, line, colour(SystemColour::buttonShadow));
        } else {
            canvas.frameEdges(bounds, line, colour(SystemColour::buttonHighlight),
                              colour(SystemColour::darkShadow3d));
            canvas.frameEdges(bounds.inset(line), line, face, colour(SystemColour::buttonShadow));
        }
        return text;
    }
    canvas.fillRect(bounds, down ? mixed(accent, face, 120) : hot ? mixed(accent, face, 50) : face);
    return text;
}

void DrawnButton::paint(Canvas& canvas, const PixelRect& bounds) {
    const Rgb ink = paintFace(canvas, bounds);
    const bool sinks = held_ && inside_ && look_ == Look::classic;
    const int32_t offset = sinks ? canvas.dpi().scaled(1) : 0;
    const PixelRect content = bounds.moved(offset, offset);
    if (!face_.arrow) {
        TextStyle style;
        style.colour = ink;
        style.horizontal = HorizontalAlignment::centre;
        canvas.drawText(face_.name, content, style);
        return;
    }
    const int32_t apart = canvas.dpi().scaled(6);
    const int32_t first = -(face_.arrows - 1) * apart / 2;
    for (int32_t at = 0; at < face_.arrows; ++at)
        drawArrow(canvas, content.moved(first + at * apart, 0), *face_.arrow, ink);
}

void DrawnButton::mouse(const MouseEvent& event) {
    // A disabled button takes no press; where the mouse is counts again when it is enabled.
    const bool presses = event.kind == MouseEvent::Kind::down || event.kind == MouseEvent::Kind::doubleClick;
    if (presses && !enabled()) return;
    const PixelRect own = pixelBounds();
    const bool inside = PixelRect{0, 0, own.width(), own.height()}.contains(event.at);
    switch (event.kind) {
        case MouseEvent::Kind::down:
        case MouseEvent::Kind::doubleClick:  // the second press of a quick pair
            if (event.button == button::left) press();
            break;
        case MouseEvent::Kind::move:
            hover(inside);
            break;
        case MouseEvent::Kind::up:
            if (event.button == button::left && held_) {
                hover(inside);
                release();
                if (inside) {
                    announce(AccessibleEvent::invoked);
                    clicked();
                }
            }
            break;
        case MouseEvent::Kind::leave:
            hover(false);
            break;
    }
}

void DrawnButton::hover(bool inside) {
    if (inside == inside_) return;
    inside_ = inside;
    if (Surface* shownOn = surface(); shownOn && face_.arrow)
        shownOn->setToolTip(pixelBounds(), inside ? TextView(face_.name) : TextView());
    invalidate();
}

void DrawnButton::press() {
    held_ = true;
    inside_ = true;
    invalidate();
    if (Surface* shownOn = surface()) shownOn->capture(*this);
    pressed();
}

void DrawnButton::release() {
    if (!held_) return;
    held_ = false;
    invalidate();
    if (Surface* shownOn = surface()) shownOn->releaseCapture(*this);
    attempt([&] { released(); });
}

void DrawnButton::detach() {
    release();
    inside_ = false;
}

void DrawnButton::placed() {
    if (std::exchange(toldEnabled_, enabled()) != enabled()) announce(AccessibleEvent::state);
    if (!enabled() || pixelClip().empty()) release();
}

AccessibleItem DrawnButton::accessible(AccessiblePart) const {
    AccessibleItem item = itemOf(AccessibleItem::Role::button, face_.name);
    item.set(AccessibleItem::pressed, held_ && inside_);
    item.set(AccessibleItem::focusable, face_.reachedByKeys);
    item.allow(AccessibleAction::Kind::press);
    return item;
}

void DrawnButton::useAccessible(AccessiblePart, const AccessibleAction&) {
    announce(AccessibleEvent::invoked);
    pressed();
    attempt([&] { released(); });
    clicked();
}

}  // namespace obk
