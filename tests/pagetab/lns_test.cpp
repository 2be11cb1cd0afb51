#include "pagetab/lns.h"

#include "support/control_fixture.h"

namespace obk::test {
namespace {

class LnsTest : public ControlFixture {
protected:
    void SetUp() override { place(lns::memberTable()); }
    // Colours of one column of pixels, from the top.
    std::vector<Rgb> column(int32_t dpi, PixelSize size, int32_t x) {
        headless::RecordingCanvas canvas(Dpi(dpi), {0, 0, size.width, size.height});
        control->draw(canvas, {0, 0, size.width, size.height});
        std::vector<Rgb> colours;
        colours.reserve(static_cast<size_t>(size.height));
        for (int32_t y = 0; y < size.height; ++y) colours.push_back(canvas.colourAt({x, y}));
        return colours;
    }
    static constexpr Rgb shadow = Rgb::of(160, 160, 160), highlight = Rgb::of(255, 255, 255),
                         face = Rgb::of(240, 240, 240);
};

TEST_F(LnsTest, TheLightLineLiesDirectlyBelowTheDarkOneAtEveryScaleAndSize) {
    for (int32_t dpi = 96; dpi <= 288; ++dpi) {
        const auto thickness = [dpi](int32_t line) {
            return static_cast<size_t>(Dpi(dpi).toPixels(Twips{15.0 * line + 15}) -
                                       Dpi(dpi).toPixels(Twips{15.0 * line}));
        };
        std::vector<Rgb> expected(thickness(0), shadow);
        ASSERT_GE(expected.size(), 1u);
        expected.insert(expected.end(), thickness(1), highlight);
        ASSERT_GT(expected.size(), thickness(0));
        expected.resize(12, face);
        for (const int32_t x : {0, 9, 3000})
            EXPECT_EQ(column(dpi, {3001, 12}, x), expected) << "column " << x << " at " << dpi;
        control->setSize({15.0 * dpi}, {1e6});
    }
}

TEST_F(LnsTest, ColorRefreshTintsBothLinesFromTheBaseColour) {
    const auto lines = [this](uint32_t base) {
        static_cast<lns&>(*control).clrLINEBASE = OleColour(base);
        call(u"ColorRefresh");
        const std::vector<Rgb> colours = column(96, {5, 2}, 2);
        return std::pair(colours[0].value, colours[1].value);
    };
    call(u"ColorRefresh");
    EXPECT_EQ(column(96, {5, 2}, 2), (std::vector{Rgb{0}, Rgb{0xA5A5A5}}))
        << "black until a host sets another";
    // Shadow: 150 of the base, then 90 of that and 165 of the base; highlight: 90 of the base, 165 of white.
    EXPECT_EQ(lines(0xFFFFFF), (std::pair{0xDADADAu, 0xFFFFFFu}));
    EXPECT_EQ(lines(0x0000FF), (std::pair{0x0000DAu, 0xA5A5FFu}));
    EXPECT_EQ(lines(0x80000010), (std::pair{0x898989u, 0xDDDDDDu}));
    EXPECT_EQ(lines(0x80000110), (std::pair{0xDADADAu, 0xFFFFFFu}))
        << "a colour that is none counts as white";
}

}  // namespace
}  // namespace obk::test
