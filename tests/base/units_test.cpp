#include "base/units.h"

#include <gtest/gtest.h>

namespace obk::test {
namespace {

TEST(DpiTest, TwipsBecomeTheNearestPixelHalvesAwayFromZero) {
    struct Row {
        int32_t dpi;
        double twips;
        int32_t pixels;
    };
    constexpr double infinity = std::numeric_limits<double>::infinity();
    constexpr int32_t most = 1 << 30;
    const Row rows[] = {
        {96, 0, 0},     {96, 7.4, 0}, {96, 7.5, 1},      {96, -7.5, -1},       {96, 22.5, 2},
        {96, 1440, 96}, {120, 12, 1}, {120, 18, 2},      {120, 30, 3},         {144, 15, 2},
        {168, 8.57, 1}, {168, 60, 7}, {192, 7.5, 1},     {192, 3.74, 0},       {288, -2.5, -1},
        {0, 15, 1},     {-5, 15, 1},  {96, 1e300, most}, {96, infinity, most},
    };
    for (const Row& row : rows)
        EXPECT_EQ(Dpi(row.dpi).toPixels(Twips{row.twips}), row.pixels) << row.twips << " at " << row.dpi;
    EXPECT_EQ(Dpi(96).toPixels(Twips{-1e300}), -most);
    EXPECT_EQ(Dpi(96).toPixels(Twips{std::numeric_limits<double>::quiet_NaN()}), 0);
}

TEST(DpiTest, PixelsComeBackFromTwipsAtEveryScale) {
    for (int32_t dpi = 72; dpi <= 480; ++dpi) {
        for (const int32_t pixels : {-7, 0, 1, 2, 3, 81, 1023, 32767})
            ASSERT_EQ(Dpi(dpi).toPixels(Dpi(dpi).toTwips(pixels)), pixels) << dpi;
    }
}

TEST(DpiTest, RectanglesThatTouchInTwipsTouchInPixels) {
    for (int32_t dpi = 96; dpi <= 288; dpi += 12) {
        for (double top = 0; top < 300; top += 7) {
            const PixelRect upper = Dpi(dpi).toPixels(TwipsRect{{0}, {top}, {100}, {15}});
            const PixelRect lower = Dpi(dpi).toPixels(TwipsRect{{0}, {top + 15}, {100}, {15}});
            ASSERT_EQ(upper.bottom, lower.top) << top << " at " << dpi;
            ASSERT_GE(upper.height(), 1) << top << " at " << dpi;
        }
    }
}

TEST(DpiTest, ScaledThicknessNeverVanishes) {
    for (const auto& [dpi, thickness, scaled] :
         {std::tuple(96, 1, 1), {144, 1, 2}, {192, 3, 6}, {24, 1, 1}, {192, 0, 0}})
        EXPECT_EQ(Dpi(dpi).scaled(thickness), scaled) << dpi;
}

TEST(PixelRectTest, RightAndBottomAreOutside) {
    const PixelRect rect{2, 3, 10, 8};
    EXPECT_TRUE(rect.contains({2, 3}));
    EXPECT_TRUE(rect.contains({9, 7}));
    EXPECT_FALSE(rect.contains({10, 7}));
    EXPECT_FALSE(rect.contains({9, 8}));
    EXPECT_TRUE(rect.intersected({10, 3, 20, 8}).empty());
    EXPECT_EQ(rect.intersected({5, 0, 20, 5}), (PixelRect{5, 3, 10, 5}));
}

}  // namespace
}  // namespace obk::test
