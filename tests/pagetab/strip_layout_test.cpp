#include "pagetab/strip_layout.h"

#include <gtest/gtest.h>

#include <random>

namespace obk {
namespace {

CaptionSizes captions(std::initializer_list<int32_t> widths) {
    return {widths, 13};
}

// At 96 DPI a caption has 8 pixels of air at each side, a tab is 36 to 240 wide, 2 pixels of margin stand at
// each end of the strip, and the scroll buttons take 34.
TEST(StripLayout, TabsStandSideBySideAsWideAsTheirCaptions) {
    const StripLayout strip(captions({50, 10, 500}), {{600, 25}, Dpi(96), false});
    EXPECT_FALSE(strip.scrolls());
    EXPECT_EQ(strip.tab(1, 1), (PixelRect{2, 2, 68, 22}));
    EXPECT_EQ(strip.tab(2, 1), (PixelRect{68, 2, 104, 22}));
    EXPECT_EQ(strip.tab(3, 1), (PixelRect{104, 2, 344, 22}));
    EXPECT_EQ(strip.tab(4, 1), PixelRect());
    EXPECT_EQ(strip.captionPlace(strip.tab(1, 1)), (PixelRect{10, 2, 60, 22}));
    EXPECT_EQ(strip.page(), (PixelRect{0, 22, 600, 25}));
    // Where there is room a tab is 13 of text high, 4 above and below, 2 for the selected tab.
    EXPECT_EQ(StripLayout(captions({50}), {{200, 100}, Dpi(96), false}).page(), (PixelRect{0, 23, 200, 100}));
    const std::pair<PixelPoint, int32_t> hits[] = {{{1, 5}, 0},   {{2, 5}, 1},   {{67, 21}, 1}, {{68, 0}, 2},
                                                   {{103, 0}, 2}, {{343, 5}, 3}, {{344, 5}, 0}, {{50, 22}, 0},
                                                   {{50, -1}, 0}, {{-5, 5}, 0},  {{700, 5}, 0}};
    for (const auto& [at, tab] : hits) EXPECT_EQ(strip.tabAt(at, 1), tab) << at.x << "," << at.y;
}

TEST(StripLayout, WhereTabsDoNotFitTheyScrollByWholeOnes) {
    // Five tabs of 66 in 200: 162 remain beside the buttons.
    const StripLayout strip(captions({50, 50, 50, 50, 50}), {{200, 25}, Dpi(96), false});
    ASSERT_TRUE(strip.scrolls());
    EXPECT_EQ(strip.buttons(), (PixelRect{166, 2, 200, 22}));
    EXPECT_EQ(strip.view(), (PixelRect{2, 0, 164, 22}));
    EXPECT_EQ(strip.lastShown(1), 3) << "a part of it";
    EXPECT_EQ(strip.furthestFirst(), 4);
    EXPECT_EQ(strip.tabAt({170, 5}, 1), 0) << "a button";
    using Row = std::tuple<int32_t, int32_t, int32_t>;
    for (const auto& [tab, before, after] :
         {Row{1, 1, 1}, Row{2, 1, 1}, Row{3, 1, 2}, Row{5, 1, 4}, Row{2, 4, 2}, Row{1, 4, 1}, Row{4, 3, 3},
          Row{0, 9, 4}, Row{0, -7, 1}, Row{99, 2, 2}})
        EXPECT_EQ(strip.revealing(tab, before), after) << tab << " from " << before;
}

TEST(StripLayout, EveryTabCanBeBroughtWholeIntoAnyViewAndIsHitWhereItStandsAndInTheMirror) {
    std::mt19937 random(11);
    for (int round = 0; round < 300; ++round) {
        CaptionSizes sizes{std::vector<int32_t>(1 + random() % 40), static_cast<int32_t>(random() % 40)};
        for (int32_t& width : sizes.widths) width = static_cast<int32_t>(random() % 500);
        StripSpace space{{static_cast<int32_t>(random() % 800), static_cast<int32_t>(random() % 60)},
                         Dpi(round % 2 ? 96 : 168),
                         false};
        const StripLayout strip(sizes, space);
        space.rightToLeft = true;
        const StripLayout mirror(sizes, space);
        int32_t first = 1;
        for (int step = 0; step < 10; ++step) {
            const auto tab = static_cast<int32_t>(1 + random() % sizes.widths.size());
            first = strip.revealing(tab, first);
            const PixelRect shown = strip.tab(tab, first);
            EXPECT_GE(shown.left, strip.view().left);
            EXPECT_LE(shown.right, std::max(strip.view().right, shown.left));
            EXPECT_EQ(strip.revealing(tab, first), first) << "once is enough";
            EXPECT_GE(strip.lastShown(first), shown.empty() ? 0 : tab);
            const int32_t width = space.size.width;
            const PixelRect mirrored{width - shown.right, shown.top, width - shown.left, shown.bottom};
            EXPECT_EQ(mirror.tab(tab, first), mirrored);
            for (int32_t x : {shown.left, shown.right - 1}) {
                if (shown.empty()) continue;
                EXPECT_EQ(strip.tabAt({x, shown.top}, first), tab);
                EXPECT_EQ(mirror.tabAt({width - 1 - x, shown.bottom - 1}, first), tab);
            }
        }
    }
}

TEST(StripLayout, HugeAndEmptySetsAreLaidOut) {
    const StripLayout none({}, {{200, 25}, Dpi(96), false});
    EXPECT_EQ(none.tabAt({5, 5}, 1), 0);
    EXPECT_EQ(none.revealing(3, 3), 1);
    EXPECT_EQ(none.lastShown(1), 0);
    const StripLayout many({std::vector<int32_t>(2'000'000, INT32_MAX), 13}, {{300, 25}, Dpi(480), false});
    EXPECT_EQ(many.revealing(2'000'000, 1), 2'000'000);
    EXPECT_LT(many.tab(1, 2'000'000).right, 0);
    EXPECT_GT(many.tab(2'000'000, 1).left, 300);
}

}  // namespace
}  // namespace obk
