#include "widgets/spinner.h"

#include "base/left_undone.h"
#include "widgets/drawing.h"
#include "widgets/surface.h"

#include <algorithm>

namespace obk {

Spinner::Spinner(Container& parent)
    : Widget(parent),
      held_(
          *this, [this] { return hovered_; }, HeldPart<Part>::Pace::quickens) {
    acted_ = held_.acted.connect([this](Part part) { step(part); });
}

bool Spinner::setBuddyAlignment(int32_t alignment) {
    if (alignment != 0 && alignment != 1) return refuseNumber(alignment, u"0 or 1");
    buddyAlignment_ = static_cast<uint8_t>(alignment);
    invalidate();
    return true;
}

void Spinner::setLook(Look look) {
    look_ = look;
    invalidate();
}

void Spinner::setEnds(bool up, bool down) {
    if (up == upEnds_ && down == downEnds_) return;
    upEnds_ = up;
    downEnds_ = down;
    invalidate();
}

PixelRect Spinner::partRect(Part part, const PixelRect& bounds, Dpi dpi) const {
    const int32_t width = std::min(dpi.toPixels(buttonWidth), bounds.width());
    PixelRect rect = bounds;
    if (buddyAlignment_ == 0)
        rect.left = rect.right - width;
    else
        rect.right = rect.left + width;
    const int32_t middle = rect.top + rect.height() / 2;
    (part == Part::up ? rect.bottom : rect.top) = middle;
    return rect;
}

std::optional<Spinner::Part> Spinner::partAt(PixelPoint point) const {
    const PixelRect own = pixelBounds();
    for (const Part part : {Part::up, Part::down}) {
        if (partRect(part, {0, 0, own.width(), own.height()}, dpi()).contains(point)) return part;
    }
    return std::nullopt;
}

void Spinner::paint(Canvas& canvas, const PixelRect& bounds) {
    paintPart(canvas, bounds, Part::up);
    paintPart(canvas, bounds, Part::down);
}

void Spinner::paintPart(Canvas& canvas, const PixelRect& bounds, Part part) const {
    const auto colour = [this](SystemColour index) { return systemRgb(platform(), index); };
    const PixelRect rect = partRect(part, bounds, canvas.dpi());
    const bool down = held_.part() == part && hovered_ == part;
    const bool leads = enabled() && !(part == Part::up ? upEnds_ : downEnds_);
    const bool hot = leads && !held_.part() && hovered_ == part;
    const bool highContrast = platform().appearance().highContrast();
    const int32_t line = canvas.dpi().scaled(1);
    Rgb arrow = colour(leads ? SystemColour::buttonText : SystemColour::greyText);
    PixelRect arrowRect = rect.inset(line);

    if (look_ == Look::classic && !highContrast) {
        canvas.fillRect(rect, colour(SystemColour::buttonFace));
        if (down) {
            canvas.frameRect(rect, line, colour(SystemColour::buttonShadow));
            arrowRect = arrowRect.moved(line, line);
        } else {
            canvas.frameEdges(rect, line, colour(SystemColour::buttonHighlight),
                              colour(SystemColour::darkShadow3d));
            canvas.frameEdges(rect.inset(line), line, colour(SystemColour::buttonFace),
                              colour(SystemColour::buttonShadow));
        }
    } else {
        const Rgb face = colour(SystemColour::buttonFace);
        const Rgb accent = colour(SystemColour::highlight);
        Rgb fill = leads ? face : mixed(face, colour(SystemColour::window), 128);
        if (down)
            fill = highContrast ? accent : mixed(accent, face, 120);
        else if (hot)
            fill = highContrast ? accent : mixed(accent, face, 50);
        if (highContrast && (down || hot)) arrow = colour(SystemColour::highlightText);
        PixelRect inner = rect;
        // A gap towards the field and between the two buttons parts them without a line of their own.
        if (buddyAlignment_ == 0)
            inner.left += line;
        else
            inner.right -= line;
        if (part == Part::down) inner.top += line;
        canvas.fillRect(inner, fill);
        if (highContrast) canvas.frameRect(inner, line, colour(SystemColour::windowText));
        arrowRect = inner.inset(line);
    }
    drawArrow(canvas, arrowRect, part == Part::up ? ArrowDirection::up : ArrowDirection::down, arrow);
}

void Spinner::mouse(const MouseEvent& event) {
    if (!enabled()) return;
    const std::optional<Part> part = partAt(event.at);
    switch (event.kind) {
        case MouseEvent::Kind::down:
        case MouseEvent::Kind::doubleClick:  // the second press of a quick pair is one like any other
            mousePressed(event);
            // The host may have taken the control away meanwhile.
            if (event.button == button::left && part && surface() && enabled()) press(*part);
            break;
        case MouseEvent::Kind::move:
            if (hovered_ != part) {
                hovered_ = part;
                invalidate();
            }
            break;
        case MouseEvent::Kind::up:
            if (event.button == button::left) held_.release();
            break;
        case MouseEvent::Kind::leave:
            hovered_.reset();
            invalidate();
            break;
    }
}

bool Spinner::wheel(const WheelEvent& event) {
    if (!allowArrowKeys_ || !enabled() || event.horizontal) return false;
    wheel_.turn(event.delta);
    // A listener may turn the wheel again, disable the spinner or take the wheel from it between two notches.
    while (const int32_t notch = wheel_.take()) {
        step(notch > 0 ? Part::up : Part::down);
        if (!allowArrowKeys_ || !enabled()) wheel_.forget();
    }
    return true;
}

void Spinner::press(Part part) {
    hovered_ = part;
    held_.press(part);
}

void Spinner::step(Part part) {
    if (part == Part::up)
        increased();
    else
        decreased();
}

void Spinner::detach() {
    held_.release();
    hovered_.reset();
}

void Spinner::placed() {
    if (held_.lost()) held_.release();
}

// The buttons are parts of the field that they step.
AccessibleItem Spinner::accessible(AccessiblePart part) const {
    if (part.whole()) return {};
    const Part which = part.row == 0 ? Part::up : Part::down;
    AccessibleItem item = itemOf(AccessibleItem::Role::button, which == Part::up ? u"More" : u"Less");
    item.bounds = partRect(which, pixelBounds(), dpi());
    item.set(AccessibleItem::pressed, held_.part() == which);
    item.allow(AccessibleAction::Kind::press);
    return item;
}

void Spinner::useAccessible(AccessiblePart part, const AccessibleAction&) {
    announce(AccessibleEvent::invoked, part);
    step(part.row == 0 ? Part::up : Part::down);
}

}  // namespace obk
