#include "palette/button_arrow.h"

#include "support/control_fixture.h"

#include <algorithm>

namespace obk::test {
namespace {

class ButtonArrowTest : public ControlFixture {
protected:
    void SetUp() override {
        place(ButtonArrow::memberTable());
        host.take();
    }
    void expectFixed() const {
        EXPECT_EQ(control->width().value, 185);
        EXPECT_EQ(control->height().value, 210);
    }
};

TEST_F(ButtonArrowTest, AnySizeSnapsBackAtOnceAndAsksTheContainerOnce) {
    expectFixed();
    for (const double size : {0.0, 1.0, 184.0, 5000.0, -100.0, 1e30}) {
        control->setSize({size}, {size});
        EXPECT_EQ(host.take(), Journal{"size 185 210"}) << size;
        expectFixed();
    }
    control->setSize({185}, {210});
    EXPECT_EQ(host.take(), Journal{});
}

TEST_F(ButtonArrowTest, AContainerThatFollowsInPixelsIsNotAskedAgain) {
    activate({0, 0, 12, 14});
    for (int32_t dpi = 96; dpi <= 288; ++dpi) {
        platform.setDpi(control->window(), Dpi(dpi));
        host.onRequestSize = [this, dpi](Twips width, Twips height) {
            control->setBounds({0, 0, Dpi(dpi).toPixels(width), Dpi(dpi).toPixels(height)});
        };
        host.take();
        control->setBounds({0, 0, 300, 300});
        EXPECT_EQ(host.take(), Journal{"size 185 210"}) << dpi;
        expectFixed();
        control->setBounds({0, 0, Dpi(dpi).toPixels(Twips{185}), Dpi(dpi).toPixels(Twips{210})});
        EXPECT_EQ(host.take(), Journal{}) << dpi;
    }
}

TEST_F(ButtonArrowTest, AContainerThatInsistsOnItsOwnSizeIsAskedOnceForEachOfItsSizes) {
    activate({0, 0, 12, 14});
    host.take();
    int nested = 0;
    host.onRequestSize = [&](Twips, Twips) {
        ASSERT_LT(++nested, 10) << "the two sides ask for ever";
        control->setBounds({0, 0, 40 + nested, 40});
    };
    control->setBounds({0, 0, 40, 40});
    expectFixed();
    EXPECT_EQ(host.take(), Journal{"size 185 210"});
    control->setBounds({0, 0, 50, 50});
    EXPECT_EQ(host.take(), Journal{"size 185 210"}) << "a later size is asked about again";
    host.onRequestSize = [this](Twips, Twips) { release(); };
    const auto held = control;  // as every caller does
    held->setBounds({0, 0, 60, 60});
    EXPECT_EQ(platform.windowCount(), 0u) << "it may let go meanwhile";
}

TEST_F(ButtonArrowTest, TheArrowStandsInTheMiddleAndPointsDownAtEveryScale) {
    for (const int32_t dpi : {96, 120, 144, 168, 192, 288}) {
        const PixelRect all{0, 0, Dpi(dpi).toPixels(Twips{185}), Dpi(dpi).toPixels(Twips{210})};
        headless::RecordingCanvas canvas(Dpi(dpi), all);
        control->draw(canvas, all);
        std::vector<int32_t> widths;
        for (int32_t y = 0; y < all.bottom; ++y) {
            std::vector<int32_t> black;
            for (int32_t x = 0; x < all.right; ++x)
                if (canvas.colourAt({x, y}) == Rgb::of(0, 0, 0)) black.push_back(x);
            if (black.empty()) continue;
            widths.push_back(black.back() - black.front() + 1);
            EXPECT_LE(std::abs(black.front() - (all.right - 1 - black.back())), 1)
                << "row " << y << " at " << dpi;
        }
        ASSERT_GE(widths.size(), 3u) << dpi;
        EXPECT_TRUE(std::is_sorted(widths.rbegin(), widths.rend())) << dpi;
        EXPECT_EQ(widths.back(), 1) << dpi;
        EXPECT_GE(widths.front(), all.width() / 3) << dpi;
    }
}

}  // namespace
}  // namespace obk::test
