#include "widgets/drawing.h"

#include "support/pixel_canvas.h"
#include "widgets/mirrored_canvas.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace obk {
namespace {

class LastPolygon final : public test::PixelCanvas {
public:
    LastPolygon() : PixelCanvas(Dpi(96), {100, 20}) {}
    void fillPolygon(std::span<const PixelPoint> points, Rgb) override {
        corners.assign(points.begin(), points.end());
    }
    std::vector<PixelPoint> corners;
};

TEST(Drawing, ACheckMarkKeepsItsShapeWhereAllElseIsMirrored) {
    LastPolygon straight, turned;
    drawCheckMark(straight, {10, 2, 26, 18}, {});
    MirroredCanvas mirror(turned, {0, 0, 100, 20});
    drawCheckMark(mirror, {74, 2, 90, 18}, {});
    EXPECT_TRUE(std::ranges::equal(straight.corners, turned.corners,
                                   [](PixelPoint left, PixelPoint right) { return left == right; }));
    EXPECT_EQ(straight.corners.size(), 6u);
}

}  // namespace
}  // namespace obk
