// The mirror image of what is painted: from right to left, while texts and pictures stay as they are.
#pragma once

#include "widgets/canvas.h"

#include <vector>

namespace obk {

class MirroredCanvas final : public Canvas {
public:
    // `canvas` is borrowed; what lies at the left edge of `bounds` is painted at its right one.
    MirroredCanvas(Canvas& canvas, const PixelRect& bounds)
        : canvas_(canvas), edges_(bounds.left + bounds.right) {}

    Dpi dpi() const override { return canvas_.dpi(); }
    bool mirrors() const override { return !canvas_.mirrors(); }
    void fillRect(const PixelRect& rect, Rgb colour) override { canvas_.fillRect(mirrored(rect), colour); }
    void fillPolygon(std::span<const PixelPoint> points, Rgb colour) override {
        std::vector<PixelPoint> own(points.begin(), points.end());
        for (PixelPoint& point : own) point.x = edges_ - point.x;
        canvas_.fillPolygon(own, colour);
    }
    void drawText(TextView text, const PixelRect& rect, const TextStyle& style) override {
        TextStyle own = style;
        own.rightToLeft = !isSignedNumber(text);
        own.horizontal = obk::mirrored(style.horizontal);
        canvas_.drawText(text, mirrored(rect), own);
    }
    void drawPicture(const SharedPicture& picture, const PixelRect& rect) override {
        canvas_.drawPicture(picture, mirrored(rect));
    }
    void drawFocusRect(const PixelRect& rect) override { canvas_.drawFocusRect(mirrored(rect)); }
    void pushClip(const PixelRect& rect) override { canvas_.pushClip(mirrored(rect)); }
    void popClip() override { canvas_.popClip(); }
    PixelRect clipBounds() const override { return mirrored(canvas_.clipBounds()); }

private:
    // Its sign stands before it in every reading order.
    static bool isSignedNumber(TextView text) {
        return text.size() > 1 && TextView(u"+-").find(text[0]) != TextView::npos &&
               text.find_first_not_of(u"0123456789.,", 1) == TextView::npos;
    }
    PixelRect mirrored(const PixelRect& rect) const {
        return {edges_ - rect.right, rect.top, edges_ - rect.left, rect.bottom};
    }

    Canvas& canvas_;
    int32_t edges_;
};

}  // namespace obk
