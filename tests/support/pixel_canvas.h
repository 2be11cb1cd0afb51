// A canvas of pixels, so that what was painted bit by bit can be compared with what is painted at once.
#pragma once

#include "widgets/canvas.h"

#include <functional>
#include <vector>

namespace obk::test {

class PixelCanvas : public Canvas {
public:
    PixelCanvas(Dpi dpi, PixelSize size)
        : dpi_(dpi),
          width_(static_cast<size_t>(size.width)),
          pixels_(width_ * static_cast<size_t>(size.height)),
          clips_{{0, 0, size.width, size.height}} {}

    // What a window system does when a window's content is scrolled; what is uncovered keeps its pixels.
    void scroll(const PixelRect& rect, int32_t x, int32_t y) {
        const PixelCanvas before = *this;
        each(rect.moved(x, y).intersected(rect), [&](uint64_t& pixel, int32_t col, int32_t row) {
            pixel = before.pixels_[at(col - x, row - y)];
        });
    }
    // The first pixel that differs from another canvas of this size; {-1, -1} for none.
    PixelPoint difference(const PixelCanvas& other) const {
        for (size_t index = 0; index < pixels_.size(); ++index) {
            if (pixels_[index] != other.pixels_[index])
                return {static_cast<int32_t>(index % width_), static_cast<int32_t>(index / width_)};
        }
        return {-1, -1};
    }

    Dpi dpi() const override { return dpi_; }
    void fillRect(const PixelRect& rect, Rgb colour) override {
        each(rect.intersected(clips_.back()),
             [&](uint64_t& pixel, int32_t, int32_t) { pixel = colour.value; });
    }
    void fillPolygon(std::span<const PixelPoint> points, Rgb colour) override {
        PixelRect box{points[0].x, points[0].y, points[0].x, points[0].y};
        for (const PixelPoint point : points) {
            box.right = std::max(box.right, point.x);
            box.bottom = std::max(box.bottom, point.y);
        }
        stamp(box, colour.value + 7);
    }
    void drawText(TextView text, const PixelRect& rect, const TextStyle& style) override {
        stamp(rect, std::hash<TextView>()(text) + uint64_t{style.colour.value} * 3 +
                        static_cast<uint64_t>(style.horizontal) + static_cast<uint64_t>(style.font.weight));
    }
    void drawPicture(const SharedPicture& picture, const PixelRect& rect) override {
        stamp(rect, reinterpret_cast<uintptr_t>(&picture));
    }
    void drawFocusRect(const PixelRect& rect) override { frameRect(rect, 1, Rgb::of(1, 2, 3)); }
    void pushClip(const PixelRect& rect) override { clips_.push_back(clips_.back().intersected(rect)); }
    void popClip() override { clips_.pop_back(); }
    PixelRect clipBounds() const override { return clips_.back(); }

private:
    size_t at(int32_t x, int32_t y) const { return static_cast<size_t>(y) * width_ + static_cast<size_t>(x); }
    template <typename Change>
    void each(const PixelRect& rect, const Change& change) {
        for (int32_t row = rect.top; row < rect.bottom; ++row) {
            for (int32_t col = rect.left; col < rect.right; ++col) change(pixels_[at(col, row)], col, row);
        }
    }
    // Marks each pixel by what covers it and where in that it lies.
    void stamp(const PixelRect& rect, uint64_t what) {
        each(rect.intersected(clips_.back()), [&](uint64_t& pixel, int32_t col, int32_t row) {
            pixel = (what * 31 + static_cast<uint64_t>(row - rect.top) * 4099 +
                     static_cast<uint64_t>(col - rect.left)) |
                    uint64_t{1} << 63;
        });
    }

    Dpi dpi_;
    size_t width_;
    std::vector<uint64_t> pixels_;
    std::vector<PixelRect> clips_;
};

}  // namespace obk::test
