#include "widgets/decoration.h"

#include "base/attempt.h"
#include "base/left_undone.h"
#include "widgets/drawing.h"

namespace obk {

bool Frame::setBorderStyle(int32_t style) {
    if (style != 0 && style != 1) return refuseNumber(style, u"0 or 1");
    borderStyle_ = static_cast<uint8_t>(style);
    invalidate();
    return true;
}

void Frame::setBackColour(OleColour colour) {
    backColour_ = colour;
    invalidate();
}

void Frame::setLook(Look look) {
    look_ = look;
    invalidate();
}

void Frame::setFocused(bool focused) {
    if (focused == focused_) return;
    focused_ = focused;
    invalidate();
}

void Frame::paint(Canvas& canvas, const PixelRect& bounds) {
    canvas.fillRect(bounds, rgb(backColour_));
    if (borderStyle_ == 0) return;
    const auto colour = [this](SystemColour index) { return systemRgb(platform(), index); };
    const int32_t line = canvas.dpi().scaled(1);
    const bool highContrast = platform().appearance().highContrast();
    if (look_ == Look::classic && !highContrast) {
        drawSunkenEdges(platform(), canvas, bounds);
        return;
    }
    // One line; the focus colours it, and high contrast keeps the full colours of the system.
    const Rgb resting = outlineOn(platform(), rgb(backColour_));
    const Rgb idle = enabled() ? resting : mixed(resting, colour(SystemColour::buttonFace), 128);
    canvas.frameRect(bounds, line, focused_ && enabled() ? colour(SystemColour::highlight) : idle);
}

void Label::setCaption(TextView caption) {
    if (caption == caption_ || !attempt([&] { caption_ = caption; })) return;
    announce(AccessibleEvent::name);
    invalidate();
}

void Label::setBackColour(OleColour colour) {
    backColour_ = colour;
    invalidate();
}

void Label::setForeColour(OleColour colour) {
    foreColour_ = colour;
    invalidate();
}

void Label::setAlignment(HorizontalAlignment alignment) {
    alignment_ = alignment;
    invalidate();
}

void Label::paint(Canvas& canvas, const PixelRect& bounds) {
    canvas.fillRect(bounds, rgb(backColour_));
    if (caption_.empty()) return;
    TextStyle style;
    style.font = font_.description();
    style.colour = rgb(enabled() ? foreColour_ : OleColour(SystemColour::greyText));
    style.horizontal = alignment_;
    canvas.drawText(caption_, bounds, style);
}

AccessibleItem Label::accessible(AccessiblePart) const {
    return itemOf(AccessibleItem::Role::staticText, caption_);
}

void ArrowLabel::paint(Canvas& canvas, const PixelRect& bounds) {
    bool usable = true;
    for (const Widget* widget = this; widget; widget = widget->parent()) usable = usable && widget->enabled();
    drawArrow(canvas, bounds, ArrowDirection::down,
              systemRgb(platform(), usable ? SystemColour::buttonText : SystemColour::greyText));
}

void LineShape::setLine(Twips x1, Twips x2, Twips y) {
    // The height is a pixel at 96 DPI; painting takes the thickness in whole pixels from the canvas.
    move({x1, y, x2 - x1, Dpi().twipsPerPixel()});
}

void LineShape::setColour(OleColour colour) {
    colour_ = colour;
    invalidate();
}

void LineShape::paint(Canvas& canvas, const PixelRect& bounds) {
    canvas.fillRect(bounds, rgb(colour_));
}

void ReferenceCombo::setFont(const FontDescription& font) {
    attempt([&] { font_ = font; });
}

}  // namespace obk
