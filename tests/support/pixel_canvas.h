// A canvas of pixels, so that what was painted bit by bit can be compared with what is painted at once.
#pragma once

#include "widgets/canvas.h"

#include <vector>

namespace obk::test {

class PixelCanvas : public Canvas {
public:
    PixelCanvas(Dpi dpi, PixelSize size);

    // What a window system does when a window's content is scrolled; what is uncovered keeps its pixels.
    void scroll(const PixelRect& rect, int32_t x, int32_t y);
    // The first pixel that differs from another canvas of this size; {-1, -1} for none.
    PixelPoint difference(const PixelCanvas& other) const;

    Dpi dpi() const override { return dpi_; }
    void fillRect(const PixelRect& rect, Rgb colour) override;
    void fillPolygon(std::span<const PixelPoint> points, Rgb colour) override;
    void drawText(TextView text, const PixelRect& rect, const TextStyle& style) override;
    void drawPicture(const SharedPicture& picture, const PixelRect& rect) override;
    void drawFocusRect(const PixelRect& rect) override;
    void pushClip(const PixelRect& rect) override { clips_.push_back(clips_.back().intersected(rect)); }
    void popClip() override { clips_.pop_back(); }
    PixelRect clipBounds() const override { return clips_.back(); }

private:
    uint64_t& at(int32_t x, int32_t y) {
        return pixels_[static_cast<size_t>(y) * static_cast<size_t>(size_.width) + static_cast<size_t>(x)];
    }
    // Marks each pixel by what covers it and where in that it lies.
    void stamp(const PixelRect& rect, uint64_t what);

    Dpi dpi_;
    PixelSize size_;
    std::vector<uint64_t> pixels_;
    std::vector<PixelRect> clips_;
};

}  // namespace obk::test
