#include "widgets/scroll_bar.h"

#include "platform/headless/headless_platform.h"
#include "platform/headless/headless_surface.h"
#include "support/accessible_walk.h"
#include "support/quiet_surface_owner.h"
#include "widgets/surface.h"

#include <gtest/gtest.h>

namespace obk::test {
namespace {

using Kind = MouseEvent::Kind;
using Step = ScrollBar::Step;

TEST(ScrollThumb, StandsForItsPlaceAtAnySize) {
    constexpr int64_t huge = int64_t{1} << 50;
    for (const ScrollRange& range : {ScrollRange{100, 10, 45}, ScrollRange{101, 100, 1},
                                     ScrollRange{huge, 600, huge / 3}, ScrollRange{2, 1, 1}}) {
        for (const int32_t track : {13, 100, 1777}) {
            const ScrollThumb thumb = ScrollThumb::on(track, 12, range);
            EXPECT_GE(thumb.end - thumb.first, 12);
            EXPECT_GE(thumb.first, 0);
            EXPECT_LE(thumb.end, track);
            const int32_t room = track - (thumb.end - thumb.first);
            EXPECT_EQ(thumb.positionAt(0, track, range), 0);
            EXPECT_EQ(thumb.positionAt(room, track, range), room == 0 ? 0 : range.last());
            EXPECT_EQ(thumb.positionAt(room + 500, track, range), room == 0 ? 0 : range.last());
            // Where the thumb is, it stands for its position to the pixel.
            ScrollRange again = range;
            again.position = thumb.positionAt(thumb.first, track, range);
            EXPECT_EQ(ScrollThumb::on(track, 12, again), thumb);
        }
    }
    EXPECT_TRUE(ScrollThumb::on(100, 12, {50, 50, 0}).empty());
    EXPECT_TRUE(ScrollThumb::on(12, 12, {100, 10, 0}).empty());
}

// A vertical bar of 17 x 134 pixels: arrows of 17, a track of 100, a thumb of 20 for 100 lines of which 20
// show.
class ScrollBarTest : public testing::Test, protected QuietSurfaceOwner {
protected:
    ScrollBarTest() {
        root.move({{0}, {0}, {1500}, {2010}});
        bar.move({{0}, {0}, {255}, {2010}});
        bar.setRange({100, 20, 0});
        EXPECT_TRUE(surface.open({SurfacePlacement::Kind::control, 1000, {0, 0, 100, 134}}));
    }

    headless::HeadlessSurface& peer() { return *platform.surface(surface.window()); }
    // The position that a step leads to.
    int64_t mouse(Kind kind, PixelPoint at) {
        platform.mouse(surface.window(), {kind, 1, 0, at});
        return bar.range().position;
    }
    int64_t pass(int milliseconds) {
        platform.advance(std::chrono::milliseconds(milliseconds));
        return bar.range().position;
    }

    headless::HeadlessPlatform platform;
    Container root{platform, [] { return std::make_shared<int>(0); }};
    Surface surface{root, *this};
    ScrollBar bar{root, ScrollBar::Direction::vertical};
    Connection steps = bar.stepped.connect([this](Step step) {
        constexpr int64_t by[] = {-1, 1, -20, 20};
        bar.setRange({100, 20, bar.range().position + by[static_cast<int>(step)]});
    });
    Connection drags = bar.dragged.connect([this](int64_t to) { bar.setRange({100, 20, to}); });
};

TEST_F(ScrollBarTest, ArrowsStepAndRepeatWhileTheMouseIsOnThem) {
    EXPECT_EQ(mouse(Kind::down, {8, 130}), 1);
    EXPECT_EQ(pass(499), 1);
    EXPECT_EQ(pass(101), 4);
    mouse(Kind::move, {50, 130});
    EXPECT_EQ(pass(500), 4) << "beside it nothing steps";
    mouse(Kind::move, {8, 130});
    EXPECT_EQ(pass(50), 5);
    mouse(Kind::up, {8, 130});
    EXPECT_EQ(pass(1000), 5);
    mouse(Kind::down, {8, 3});
    mouse(Kind::up, {8, 3});
    EXPECT_EQ(mouse(Kind::doubleClick, {8, 3}), 3) << "each press of a quick pair";
}

TEST_F(ScrollBarTest, PagesEndWhereTheThumbMeetsTheMouse) {
    mouse(Kind::down, {8, 80});
    EXPECT_EQ(pass(5000), 60);
    mouse(Kind::up, {8, 80});
    EXPECT_EQ(mouse(Kind::down, {8, 20}), 40);
    platform.stealCapture();
    EXPECT_EQ(pass(5000), 40);
}

TEST_F(ScrollBarTest, TheThumbIsDraggedByWhereItWasGrippedAndTakenBackFarAway) {
    mouse(Kind::down, {8, 27});
    EXPECT_EQ(mouse(Kind::move, {8, 67}), 40);
    EXPECT_EQ(mouse(Kind::move, {17 + 149, 500}), 80) << "beyond the end it is at the end";
    EXPECT_EQ(mouse(Kind::move, {17 + 150, 500}), 0) << "too far beside it";
    mouse(Kind::move, {8, 37});
    mouse(Kind::up, {8, 37});
    EXPECT_EQ(mouse(Kind::move, {8, 90}), 10);
}

TEST_F(ScrollBarTest, WithoutAnythingToScrollThereIsNoThumb) {
    bar.setRange({20, 20, 0});
    peer().paint();
    bar.setRange({20, 30, 5});
    EXPECT_EQ(bar.range().position, 0);
    EXPECT_TRUE(peer().invalid().empty()) << "nothing looks otherwise";
    EXPECT_EQ(mouse(Kind::down, {8, 60}), 0);
    for (const AccessibleItem& item : partsOf(peer(), AccessibleItem::Role::button))
        EXPECT_TRUE(item.is(AccessibleItem::disabled));
}

}  // namespace
}  // namespace obk::test
