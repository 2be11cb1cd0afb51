#include "widgets/drawing.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <numeric>

namespace obk {

void drawArrow(Canvas& canvas, const PixelRect& rect, ArrowDirection direction, Rgb colour) {
    const bool upright = direction == ArrowDirection::up || direction == ArrowDirection::down;
    const int32_t across = upright ? rect.width() : rect.height();
    const int32_t along = upright ? rect.height() : rect.width();
    const int32_t rows = std::min({canvas.dpi().scaled(4), along, across / 2 + across % 2});
    const int32_t middle =
        upright ? std::midpoint(rect.left, rect.right - 1) : std::midpoint(rect.top, rect.bottom - 1);
    const int32_t first = (upright ? rect.top : rect.left) + (along - rows) / 2;
    const bool pointsToEnd = direction == ArrowDirection::down || direction == ArrowDirection::right;
    for (int32_t row = 0; row < rows; ++row) {
        const int32_t half = pointsToEnd ? rows - 1 - row : row;
        const int32_t at = first + row;
        if (upright)
            canvas.fillRect({middle - half, at, middle + half + 1, at + 1}, colour);
        else
            canvas.fillRect({at, middle - half, at + 1, middle + half + 1}, colour);
    }
}

void drawCheckMark(Canvas& canvas, const PixelRect& square, Rgb colour) {
    const int32_t size = square.width();
    if (size <= 0) return;
    constexpr int32_t whole = 16;
    constexpr std::array<PixelPoint, 6> shape{{{2, 8}, {4, 6}, {7, 9}, {12, 3}, {14, 5}, {7, 13}}};
    std::array<PixelPoint, shape.size()> points;
    for (size_t at = 0; at < shape.size(); ++at) {
        // It is the same mark in every reading order.
        const int32_t x = canvas.mirrors() ? whole - shape[at].x : shape[at].x;
        points[at] = {square.left + x * size / whole, square.top + shape[at].y * size / whole};
    }
    canvas.fillPolygon(points, colour);
}

namespace {

// Left and top, then right and bottom, of the outer line and of the inner one.
void drawEdges(Platform& platform, Canvas& canvas, const PixelRect& rect,
               const std::array<SystemColour, 4>& colours) {
    const int32_t line = canvas.dpi().scaled(1);
    const auto colour = [&](size_t at) { return systemRgb(platform, colours[at]); };
    canvas.frameEdges(rect, line, colour(0), colour(1));
    canvas.frameEdges(rect.inset(line), line, colour(2), colour(3));
}

}  // namespace

void drawRaisedEdges(Platform& platform, Canvas& canvas, const PixelRect& rect) {
    drawEdges(platform, canvas, rect,
              {SystemColour::buttonHighlight, SystemColour::darkShadow3d, SystemColour::light3d,
               SystemColour::buttonShadow});
}

void drawSunkenEdges(Platform& platform, Canvas& canvas, const PixelRect& rect) {
    drawEdges(platform, canvas, rect,
              {SystemColour::buttonShadow, SystemColour::buttonHighlight, SystemColour::darkShadow3d,
               SystemColour::light3d});
}

void drawPanelEdges(Platform& platform, Canvas& canvas, const PixelRect& rect) {
    drawEdges(platform, canvas, rect,
              {SystemColour::light3d, SystemColour::darkShadow3d, SystemColour::buttonHighlight,
               SystemColour::buttonShadow});
}

Rgb mixed(Rgb first, Rgb second, int32_t share) {
    const auto channel = [share](uint8_t one, uint8_t other) {
        return static_cast<uint8_t>(mixedChannel(one, other, share));
    };
    return Rgb::of(channel(first.red(), second.red()), channel(first.green(), second.green()),
                   channel(first.blue(), second.blue()));
}

Rgb readableOn(Rgb ground, Rgb wanted) {
    // Of 255: what the eye makes of a colour, and the least difference that text is read by.
    constexpr int32_t enough = 96;
    const auto brightness = [](Rgb colour) {
        return (299 * colour.red() + 587 * colour.green() + 114 * colour.blue()) / 1000;
    };
    const int32_t on = brightness(ground);
    if (std::abs(brightness(wanted) - on) >= enough) return wanted;
    return on < 128 ? Rgb::of(255, 255, 255) : Rgb::of(0, 0, 0);
}

namespace {

// Of 0.008 to 1; a general power would be the only one in the module.
constexpr double fifthRoot(double value) {
    double root = 1;
    for (int step = 0; step < 16; ++step) root -= (root - value / (root * root * root * root)) / 5;
    return root;
}

// As the rules for readable texts have it: from 0 for black to 1 for white.
double luminance(Rgb colour) {
    const auto linear = [](uint8_t channel) {
        const double share = channel / 255.0;
        const double base = (share + 0.055) / 1.055;
        return share <= 0.04045 ? share / 12.92 : base * base * fifthRoot(base * base);  // base to the 2.4
    };
    return 0.2126 * linear(colour.red()) + 0.7152 * linear(colour.green()) + 0.0722 * linear(colour.blue());
}

}  // namespace

Rgb shapeOn(Rgb ground, Rgb wanted) {
    constexpr double enough = 3, offset = 0.05;
    const double on = luminance(ground) + offset;
    const auto seen = [&](Rgb colour) {
        const double own = luminance(colour) + offset;
        return std::max(own, on) / std::min(own, on);
    };
    const Rgb black = Rgb::of(0, 0, 0), white = Rgb::of(255, 255, 255);
    const Rgb strongest = seen(black) > seen(white) ? black : white;
    constexpr int32_t step = 5;
    Rgb shape = wanted;
    for (int32_t share = step; share <= 255 && seen(shape) < enough; share += step)
        shape = mixed(strongest, wanted, share);
    return shape;
}

Rgb outlineOn(Platform& platform, Rgb ground) {
    return platform.appearance().highContrast()
               ? systemRgb(platform, SystemColour::windowText)
               : shapeOn(ground, systemRgb(platform, SystemColour::buttonShadow));
}

Rgb systemRgb(Platform& platform, SystemColour colour) {
    return platform.appearance().systemColour(static_cast<uint8_t>(colour)).value_or(Rgb{});
}

}  // namespace obk
