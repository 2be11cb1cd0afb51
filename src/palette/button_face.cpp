#include "palette/button_face.h"

#include "framework/kxlib_system.h"
#include "widgets/drawing.h"
#include "widgets/surface.h"

#include <algorithm>

namespace obk {

namespace {

// Pixels at 96 DPI.
constexpr int32_t inset = 4;       // of the content from the button's edge
constexpr int32_t arrowZone = 16;  // at the right edge, with the separator at its left
constexpr int32_t swatchWidth = 12;
constexpr int32_t gap = 2;  // between swatch, picture and caption

}  // namespace

ButtonFace::ButtonFace(Container& parent, const ButtonState& state)
    : Widget(parent), state_(state), look_(lookOfSystem(platform())), font_([this] {
          invalidate();
          fontChanged();
      }) {}

Rgb ButtonFace::colour(SystemColour index) const {
    return systemRgb(platform(), index);
}

Rgb ButtonFace::ground() const {
    const Rgb background = rgb(state_.background);
    if (look_ == Look::classic || !enabled() || platform().appearance().highContrast()) return background;
    if (state_.down) return mixed(colour(SystemColour::highlight), background, 80);
    return state_.hot ? mixed(colour(SystemColour::highlight), background, 30) : background;
}

TwipsRect ButtonFace::arrowPlace(Twips width, Twips height, Twips arrowWidth, Twips arrowHeight) {
    const Twips zone{arrowZone * 15.0};
    return {width - zone + 0.5 * (zone - Twips{30} - arrowWidth), 0.5 * (height - arrowHeight), arrowWidth,
            arrowHeight};
}

bool ButtonFace::takeFocus() {
    Surface* shownOn = surface();
    return shownOn && enabled() && !pixelClip().empty() && shownOn->takeFocus();
}

void ButtonFace::paint(Canvas& canvas, const PixelRect& bounds) {
    const Dpi dpi = canvas.dpi();
    canvas.fillRect(bounds, ground());
    paintEdges(canvas, bounds);
    PixelRect content = bounds.inset(dpi.scaled(inset));
    content.right = bounds.right - dpi.scaled(arrowZone) - dpi.scaled(gap);
    const int32_t shift = look_ == Look::classic && state_.down ? dpi.scaled(1) : 0;
    content = content.moved(shift, shift);
    content = paintSwatch(canvas, content);
    content = paintPicture(canvas, content);
    paintCaption(canvas, content);
    paintSeparator(canvas, bounds);
    if (state_.focused && state_.FocusRect && enabled()) canvas.drawFocusRect(bounds.inset(dpi.scaled(3)));
}

void ButtonFace::paintEdges(Canvas& canvas, const PixelRect& bounds) const {
    const int32_t line = canvas.dpi().scaled(1);
    if (platform().appearance().highContrast()) {
        const bool strong = enabled() && (state_.hot || state_.focused || state_.down);
        canvas.frameRect(bounds, strong ? 2 * line : line,
                         colour(strong      ? SystemColour::highlight
                                : enabled() ? SystemColour::buttonText
                                            : SystemColour::greyText));
        return;
    }
    if (look_ == Look::classic) {
        PixelRect edge = bounds;
        if (state_.focused && enabled()) {
            // The default button of a form: a dark line around it.
            canvas.frameRect(edge, line, colour(SystemColour::windowText));
            edge = edge.inset(line);
        }
        if (state_.down) {
            canvas.frameRect(edge, line, colour(SystemColour::buttonShadow));
            return;
        }
        drawRaisedEdges(platform(), canvas, edge);
        return;
    }
    const Rgb face = rgb(state_.background);
    if (!enabled()) {
        canvas.frameRect(bounds, line, mixed(colour(SystemColour::buttonShadow), face, 110));
    } else if (state_.hot || state_.focused || state_.down) {
        canvas.frameRect(bounds, line, shapeOn(ground(), colour(SystemColour::highlight)));
    } else {
        canvas.frameRect(bounds, line, outlineOn(platform(), face));
    }
}

PixelRect ButtonFace::paintSwatch(Canvas& canvas, const PixelRect& content) const {
    if (!state_.ShowButtonColor || content.empty()) return content;
    const Dpi dpi = canvas.dpi();
    PixelRect swatch = content.inset(dpi.scaled(1));
    swatch.right = swatch.left + dpi.scaled(swatchWidth);
    const Rgb shown = rgb(state_.ButtonColor);
    const Rgb face = ground();
    canvas.fillRect(swatch, enabled() ? shown : mixed(shown, face, 110));
    canvas.frameRect(
        swatch, dpi.scaled(1),
        enabled() ? outlineOn(platform(), face) : mixed(colour(SystemColour::buttonShadow), face, 128));
    PixelRect rest = content;
    rest.left = swatch.right + dpi.scaled(gap);
    return rest;
}

PixelRect ButtonFace::paintPicture(Canvas& canvas, const PixelRect& content) {
    if (!state_.PictureVisible || content.empty()) return content;
    const bool standsIn = !enabled() && !state_.PictureDisabled;
    const PictureRef& source = enabled() || standsIn ? state_.Picture : state_.PictureDisabled;
    if (!source) return content;
    const PictureRef picture = prepared(source, standsIn);
    const Dpi dpi = canvas.dpi();
    PixelSize size = picture->size();
    if (size.width <= 0 || size.height <= 0) size = {16, 16};
    size = {dpi.scaled(std::min(size.width, 4096)), dpi.scaled(std::min(size.height, 4096))};
    if (size.height > content.height()) {
        size.width = std::max(size.width * content.height() / size.height, 1);
        size.height = content.height();
    }
    const int32_t top = content.top + (content.height() - size.height) / 2;
    const PixelRect place{content.left, top, content.left + size.width, top + size.height};
    const CanvasClip clip(canvas, content);
    canvas.drawPicture(*picture, place);
    PixelRect rest = content;
    rest.left = place.right + dpi.scaled(gap);
    return rest;
}

const PictureRef& ButtonFace::prepared(const PictureRef& source, bool grey) {
    const Rgb mask = rgb(state_.MaskHLightColor);
    const Rgb face = grey ? rgb(state_.background) : Rgb();
    if (prepared_.source == source && prepared_.mask == mask && prepared_.ground == face &&
        prepared_.grey == grey)
        return prepared_.picture;
    prepared_ = {source, mask, face, grey, source};
    // A picture that is not made of pixels (a metafile) is drawn as it is.
    std::vector<uint32_t> pixels = source->pixels();
    if (pixels.empty()) return prepared_.picture;
    for (uint32_t& pixel : pixels) {
        const Rgb own = Rgb::of(static_cast<uint8_t>(pixel >> 16), static_cast<uint8_t>(pixel >> 8),
                                static_cast<uint8_t>(pixel));
        const uint32_t alpha = pixel >> 24;
        if (alpha == 255 && own == mask) {
            pixel = 0;
        } else if (grey && alpha > 0) {
            const auto bright =
                static_cast<uint8_t>((own.red() * 77 + own.green() * 150 + own.blue() * 29) >> 8);
            const Rgb pale = mixed(Rgb::of(bright, bright, bright), face, 110);
            const auto part = [alpha](uint8_t channel) { return channel * alpha / 255; };
            pixel = alpha << 24 | part(pale.red()) << 16 | part(pale.green()) << 8 | part(pale.blue());
        }
    }
    prepared_.picture = std::make_shared<SharedPicture>(source->size(), std::move(pixels));
    return prepared_.picture;
}

void ButtonFace::paintSeparator(Canvas& canvas, const PixelRect& bounds) const {
    const Dpi dpi = canvas.dpi();
    const int32_t line = dpi.scaled(1);
    const int32_t left = bounds.right - dpi.scaled(arrowZone) - line;
    const PixelRect dark{left, bounds.top + dpi.scaled(inset), left + line,
                         bounds.bottom - dpi.scaled(inset)};
    canvas.fillRect(dark, enabled() ? outlineOn(platform(), ground()) : colour(SystemColour::greyText));
    if (look_ == Look::classic && !platform().appearance().highContrast())
        canvas.fillRect(dark.moved(line, 0), colour(SystemColour::buttonHighlight));
}

void ButtonFace::paintCaption(Canvas& canvas, const PixelRect& content) const {
    if (content.empty()) return;
    TextStyle style;
    style.font = font_.description();
    style.horizontal = HorizontalAlignment::centre;
    style.showAccessKey = true;
    style.colour = rgb(enabled() ? state_.caption : OleColour(SystemColour::greyText));
    // Blanks that set the caption off are the first to go where there is no room for them.
    const TextView caption = state_.Caption;
    const bool fits =
        platform().appearance().measure(caption, style.font, canvas.dpi()).width <= content.width();
    const TextView shown = fits ? caption : trimmed(caption);
    if (!enabled() && look_ == Look::classic && !platform().appearance().highContrast()) {
        TextStyle light = style;
        light.colour = colour(SystemColour::buttonHighlight);
        canvas.drawText(shown, content.moved(canvas.dpi().scaled(1), canvas.dpi().scaled(1)), light);
    }
    canvas.drawText(shown, content, style);
}

}  // namespace obk
