#include "pagetab/tab_painter.h"

#include "widgets/drawing.h"

namespace obk {

TabPainter::TabPainter(Canvas& canvas, Platform& platform, Look look, const TabColours& colours)
    : canvas_(canvas),
      platform_(platform),
      look_(look),
      highContrast_(platform.appearance().highContrast()),
      colours_(colours),
      line_(canvas.dpi().scaled(1)) {
    // A person who asked for strong colours gets the system's, whatever the host has chosen.
    if (highContrast_) colours_.page = colours_.tab = colours_.strip = colour(SystemColour::buttonFace);
}

Rgb TabPainter::colour(SystemColour index) const {
    return systemRgb(platform_, index);
}

void TabPainter::page(const PixelRect& rect) {
    canvas_.fillRect(rect, colours_.page);
    const bool classic = look_ == Look::classic && !highContrast_;
    const Rgb lit = highContrast_ ? colour(SystemColour::buttonText)
                    : classic     ? colour(SystemColour::buttonHighlight)
                                  : outlineOn(platform_, colours_.page);
    const Rgb dark = classic ? colour(SystemColour::darkShadow3d) : lit;
    const int32_t edgeAlone = 4 * line_;
    if (rect.height() > edgeAlone)
        canvas_.frameEdges(rect, line_, lit, dark);
    else
        canvas_.fillRect({rect.left, rect.top, rect.right, rect.top + line_}, lit);
}

void TabPainter::tab(const TabFace& face) {
    PixelRect rect = face.rect;
    if (face.selected) {
        // Above its neighbours on three sides, and over the page's upper line.
        rect = {rect.left - 2 * line_, rect.top - 2 * line_, rect.right + 2 * line_, rect.bottom + line_};
    }
    const Rgb ink = highContrast_            ? contrastTab(rect, face)
                    : look_ == Look::classic ? classicTab(rect, face)
                                             : flatTab(rect, face);
    caption(face, ink);
    if (face.focused) {
        const PixelRect inner = rect.inset(3 * line_);
        canvas_.drawFocusRect({inner.left, inner.top, inner.right, face.rect.bottom - line_});
    }
}

Rgb TabPainter::flatTab(const PixelRect& rect, const TabFace& face) {
    const Rgb accent = colour(SystemColour::highlight);
    const Rgb ground = face.selected ? colours_.page : colours_.tab;
    const bool hot = face.hovered && face.enabled;
    // One column wider: the next tab's left line stands on this one's right line, and is not drawn twice.
    const PixelRect whole{rect.left, rect.top, rect.right + line_, rect.bottom};
    // The selected tab keeps the page's colour, so that no edge parts the two.
    canvas_.fillRect(whole, hot && !face.selected ? mixed(accent, ground, 50) : ground);
    openFrame(whole, outlineOn(platform_, ground), line_);
    if (face.selected && face.enabled)
        canvas_.fillRect({whole.left, whole.top, whole.right, whole.top + (hot ? 4 : 2) * line_}, accent);
    return face.enabled ? colours_.text : colour(SystemColour::greyText);
}

Rgb TabPainter::classicTab(const PixelRect& rect, const TabFace& face) {
    const auto [left, top, right, bottom] = rect;
    const int32_t l = line_;
    const Rgb ground = face.selected ? colours_.page : colours_.tab;
    const Rgb lit = colour(SystemColour::buttonHighlight);
    const Rgb shadow = colour(SystemColour::buttonShadow);
    const Rgb dark = colour(SystemColour::darkShadow3d);
    // Corners cut by one step, in whole lines.
    canvas_.fillRect({left + l, top + l, right - l, bottom}, ground);
    canvas_.fillRect({left, top + 2 * l, left + l, bottom}, lit);
    canvas_.fillRect({left + l, top + l, left + 2 * l, top + 2 * l}, lit);
    canvas_.fillRect({left + 2 * l, top, right - 2 * l, top + l}, lit);
    canvas_.fillRect({right - 2 * l, top + l, right - l, top + 2 * l}, dark);
    canvas_.fillRect({right - l, top + 2 * l, right, bottom}, dark);
    canvas_.fillRect({right - 2 * l, top + 2 * l, right - l, bottom}, shadow);
    if (!face.enabled) return colour(SystemColour::greyText);
    // Not the colour for hot texts: schemes have one that cannot be read on the face of buttons.
    return face.hovered ? colour(SystemColour::highlight) : colours_.text;
}

Rgb TabPainter::contrastTab(const PixelRect& rect, const TabFace& face) {
    const bool filled = face.selected && face.enabled;
    const Rgb accent = colour(SystemColour::highlight);
    canvas_.fillRect(rect, filled ? accent : colours_.tab);
    const bool hot = face.hovered && face.enabled;
    const Rgb strong = filled ? colour(SystemColour::highlightText) : accent;
    openFrame(rect, hot ? strong : colour(SystemColour::buttonText), hot ? 2 * line_ : line_);
    if (!face.enabled) return colour(SystemColour::greyText);
    return colour(filled ? SystemColour::highlightText : SystemColour::buttonText);
}

void TabPainter::openFrame(const PixelRect& rect, Rgb ink, int32_t thickness) {
    const CanvasClip open(canvas_, rect);
    canvas_.frameRect({rect.left, rect.top, rect.right, rect.bottom + thickness}, thickness, ink);
}

void TabPainter::caption(const TabFace& face, Rgb ink) {
    TextStyle style;
    style.font = face.font;
    style.colour = ink;
    style.horizontal = HorizontalAlignment::centre;
    style.showAccessKey = true;
    style.rightToLeft = face.rightToLeft;
    // Letters may reach a little beyond the width that the system measures: slanted ones, and some fonts' at
    // some sizes.
    const PixelRect& measured = face.caption;
    const PixelRect grown{measured.left - 4 * line_, measured.top, measured.right + 4 * line_,
                          measured.bottom};
    const PixelRect place = face.selected ? grown.moved(0, -line_) : grown;
    if (!face.enabled && look_ == Look::classic && !highContrast_) {
        TextStyle light = style;
        light.colour = colour(SystemColour::buttonHighlight);
        canvas_.drawText(face.text, place.moved(line_, line_), light);
    }
    canvas_.drawText(face.text, place, style);
}

}  // namespace obk
