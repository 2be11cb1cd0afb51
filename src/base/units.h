// Lengths in twips and pixels, kept apart so that one is never taken for the other.
#pragma once

#include <algorithm>
#include <cmath>
#include <compare>
#include <cstdint>
#include <limits>

namespace obk {

// 1/1440 inch. Layout arithmetic may give fractions; hosts see them rounded.
struct Twips {
    double value = 0;

    friend constexpr Twips operator+(Twips left, Twips right) { return {left.value + right.value}; }
    friend constexpr Twips operator-(Twips left, Twips right) { return {left.value - right.value}; }
    friend constexpr Twips operator*(double factor, Twips length) { return {factor * length.value}; }
    friend constexpr auto operator<=>(Twips, Twips) = default;
};

// Device pixels.
struct Pixels {
    int32_t value = 0;

    friend constexpr Pixels operator+(Pixels left, Pixels right) { return {left.value + right.value}; }
    friend constexpr Pixels operator-(Pixels left, Pixels right) { return {left.value - right.value}; }
    friend constexpr auto operator<=>(Pixels, Pixels) = default;
};

struct TwipsRect {
    Twips left, top, width, height;
    friend bool operator==(const TwipsRect&, const TwipsRect&) = default;
};

struct PixelPoint {
    int32_t x = 0, y = 0;
    friend bool operator==(PixelPoint, PixelPoint) = default;
};

struct PixelSize {
    int32_t width = 0, height = 0;
    friend bool operator==(PixelSize, PixelSize) = default;
};

// Right and bottom are exclusive. An empty rectangle has no width or no height.
struct PixelRect {
    int32_t left = 0, top = 0, right = 0, bottom = 0;

    constexpr int32_t width() const { return right - left; }
    constexpr int32_t height() const { return bottom - top; }
    constexpr bool empty() const { return right <= left || bottom <= top; }
    constexpr bool contains(PixelPoint point) const {
        return point.x >= left && point.x < right && point.y >= top && point.y < bottom;
    }
    constexpr PixelRect intersected(const PixelRect& other) const {
        return {std::max(left, other.left), std::max(top, other.top), std::min(right, other.right),
                std::min(bottom, other.bottom)};
    }
    constexpr PixelRect moved(int32_t x, int32_t y) const {
        return {left + x, top + y, right + x, bottom + y};
    }
    // Its mirror image within another one.
    constexpr PixelRect mirroredIn(const PixelRect& all) const {
        return {all.left + all.right - right, top, all.left + all.right - left, bottom};
    }
    constexpr PixelRect inset(int32_t by) const { return {left + by, top + by, right - by, bottom - by}; }
    friend bool operator==(const PixelRect&, const PixelRect&) = default;
};

// Pixels per inch of one monitor; what turns twips into pixels there.
class Dpi {
public:
    constexpr Dpi() = default;
    // Values below 1 are taken as 96.
    explicit constexpr Dpi(int32_t dotsPerInch) : dotsPerInch_(dotsPerInch < 1 ? 96 : dotsPerInch) {}

    constexpr int32_t dotsPerInch() const { return dotsPerInch_; }
    constexpr Twips twipsPerPixel() const { return {1440.0 / dotsPerInch_}; }
    constexpr Twips toTwips(int32_t pixels) const { return {pixels * 1440.0 / dotsPerInch_}; }
    // To the nearest pixel, halves away from zero; beyond 32 bits the nearest end of the range.
    int32_t toPixels(Twips length) const {
        const double pixels = std::round(length.value * dotsPerInch_ / 1440.0);
        constexpr double limit = 1 << 30;  // leaves room for sums of coordinates
        return static_cast<int32_t>(std::isnan(pixels) ? 0 : std::clamp(pixels, -limit, limit));
    }
    // Edges are rounded, not sizes, so that rectangles that touch in twips touch in pixels.
    PixelRect toPixels(const TwipsRect& rect) const {
        return {toPixels(rect.left), toPixels(rect.top), toPixels(rect.left + rect.width),
                toPixels(rect.top + rect.height)};
    }
    // A length drawn in pixels at 96 DPI (a frame's thickness, an arrow's size), at least one pixel when not
    // 0.
    int32_t scaled(int32_t pixelsAt96) const {
        const auto pixels = static_cast<int32_t>(std::lround(pixelsAt96 * dotsPerInch_ / 96.0));
        return pixelsAt96 > 0 ? std::max(pixels, 1) : pixels;
    }
    friend constexpr bool operator==(Dpi, Dpi) = default;

private:
    int32_t dotsPerInch_ = 96;
};

}  // namespace obk
