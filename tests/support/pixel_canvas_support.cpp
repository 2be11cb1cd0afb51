#include "support/pixel_canvas.h"

#include <functional>

namespace obk::test {

PixelCanvas::PixelCanvas(Dpi dpi, PixelSize size)
    : dpi_(dpi),
      size_(size),
      pixels_(static_cast<size_t>(size.width) * static_cast<size_t>(size.height)),
      clips_{{0, 0, size.width, size.height}} {}

void PixelCanvas::scroll(const PixelRect& rect, int32_t x, int32_t y) {
    PixelCanvas before = *this;
    const PixelRect kept = rect.moved(x, y).intersected(rect);
    for (int32_t row = kept.top; row < kept.bottom; ++row) {
        for (int32_t col = kept.left; col < kept.right; ++col) at(col, row) = before.at(col - x, row - y);
    }
}

PixelPoint PixelCanvas::difference(const PixelCanvas& other) const {
    for (size_t index = 0; index < pixels_.size(); ++index) {
        const auto width = static_cast<size_t>(size_.width);
        if (pixels_[index] != other.pixels_[index])
            return {static_cast<int32_t>(index % width), static_cast<int32_t>(index / width)};
    }
    return {-1, -1};
}

void PixelCanvas::fillRect(const PixelRect& rect, Rgb colour) {
    const PixelRect shown = rect.intersected(clips_.back());
    for (int32_t row = shown.top; row < shown.bottom; ++row) {
        for (int32_t col = shown.left; col < shown.right; ++col) at(col, row) = colour.value;
    }
}

void PixelCanvas::stamp(const PixelRect& rect, uint64_t what) {
    const PixelRect shown = rect.intersected(clips_.back());
    for (int32_t row = shown.top; row < shown.bottom; ++row) {
        for (int32_t col = shown.left; col < shown.right; ++col)
            at(col, row) = (what * 31 + static_cast<uint64_t>(row - rect.top) * 4099 +
                            static_cast<uint64_t>(col - rect.left)) |
                           uint64_t{1} << 63;
    }
}

void PixelCanvas::fillPolygon(std::span<const PixelPoint> points, Rgb colour) {
    PixelRect box{points[0].x, points[0].y, points[0].x, points[0].y};
    for (const PixelPoint point : points) {
        box.right = std::max(box.right, point.x);
        box.bottom = std::max(box.bottom, point.y);
    }
    stamp(box, colour.value + 7);
}

void PixelCanvas::drawText(TextView text, const PixelRect& rect, const TextStyle& style) {
    stamp(rect, std::hash<TextView>()(text) + uint64_t{style.colour.value} * 3 +
                    static_cast<uint64_t>(style.horizontal) + static_cast<uint64_t>(style.font.weight));
}

void PixelCanvas::drawPicture(const SharedPicture& picture, const PixelRect& rect) {
    stamp(rect, reinterpret_cast<uintptr_t>(&picture));
}

void PixelCanvas::drawFocusRect(const PixelRect& rect) {
    frameRect(rect, 1, Rgb::of(1, 2, 3));
}

}  // namespace obk::test
