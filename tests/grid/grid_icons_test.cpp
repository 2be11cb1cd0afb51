#include "cellicons/cell_icons.h"
#include "grid_edit_fixture.h"

#include <algorithm>
#include <array>

namespace obk::test {
namespace {

constexpr Rgb green = Rgb::of(0, 200, 0);

uint32_t opaque(Rgb colour) {
    return 0xFF000000u | static_cast<uint32_t>(colour.red()) << 16 |
           static_cast<uint32_t>(colour.green()) << 8 | colour.blue();
}

class GridIconsTest : public GridEditTest {
protected:
    void SetUp() override {
        GridEditTest::SetUp();
        size(3, 3);
        activate({0, 0, 800, 600});
    }
    void setIcon(int32_t col, int32_t row, const char16_t* name) {
        call(u"CellSetIcon", {col, row, Text(name)});
    }
    std::vector<DrawnItem> pictures() {
        std::vector<DrawnItem> items = drawn();
        std::erase_if(items, [](const DrawnItem& item) { return item.kind != DrawnItem::Kind::picture; });
        return items;
    }
};

TEST_F(GridIconsTest, AnIconGoesToItsCellWhichBecomesTheCurrentOne) {
    set(1, 2, u"oak");
    setIcon(2, 1, u"Home - Garden - Tree");
    EXPECT_EQ(current(), std::pair(1, 2));
    ASSERT_EQ(pictures().size(), 1u);
    EXPECT_GE(drawnText(u"oak").rect.left, pictures()[0].rect.right) << "the text stands beside it";
    // A row or column that is not there: the current one stays in its place.
    setIcon(1, -1, u"Home - House");
    EXPECT_EQ(current(), std::pair(1, 1));
    setIcon(3, 0, u"Home - Jar");
    EXPECT_EQ(current(), std::pair(0, 1));
    EXPECT_EQ(pictures().size(), 3u);
}

TEST_F(GridIconsTest, CellsWithOneIconShareItsPictureAndAnUnknownNameIsAnEmptyOne) {
    const char16_t* const names[] = {u"Book - Red", u"Book - Blue", u"Book - Red", u"Book - Blue"};
    for (int32_t at = 0; at < 4; ++at) setIcon(at % 3, at / 3, names[at]);
    setIcon(0, 1, u"book - blue");
    const auto shown = pictures();
    ASSERT_EQ(shown.size(), 4u);
    EXPECT_EQ(shown[0].picture, shown[2].picture);
    EXPECT_NE(shown[0].picture->pixels(), shown[1].picture->pixels());
    const std::vector<uint32_t>& none = shown[3].picture->pixels();
    EXPECT_EQ(std::count(none.begin(), none.end(), opaque(Rgb::of(255, 255, 255))), std::ssize(none));
}

TEST_F(GridIconsTest, TheScreenChoosesTheSizeAtEveryMoment) {
    setIcon(1, 1, u"Book - Blue");
    // 250 % and more have whole multiples of what there is.
    const std::array<int32_t, 3> rows[] = {{96, 16, 16},  {120, 16, 16}, {144, 24, 24}, {168, 24, 24},
                                           {192, 32, 32}, {240, 32, 32}, {288, 24, 48}, {384, 32, 64}};
    for (const auto& [dpi, drawnFor, height] : rows) {
        platform.setDpi(control->window(), Dpi(dpi));
        const auto shown = pictures();
        ASSERT_EQ(shown.size(), 1u) << dpi;
        EXPECT_EQ(shown[0].picture->size(), (PixelSize{drawnFor * 9 / 8, drawnFor})) << dpi;
        EXPECT_EQ(shown[0].rect.width(), height * 9 / 8) << dpi;
        EXPECT_EQ(shown[0].rect.height(), height) << dpi;
    }
}

TEST(IconList, AnIconLiesOverTheGroundBesideAMargin) {
    IconList list;
    EXPECT_EQ(list.count(), 247);
    const TextView key = u"Home - Weather - Sunny";
    const PictureRef picture = list.picture(key, green);
    const auto icon = cell_icons::pixels(cell_icons::indexOf(key).value(), 16);
    ASSERT_EQ(picture->size(), (PixelSize{18, 16}));
    for (size_t at = 0; at < picture->pixels().size(); ++at) {
        const size_t x = at % 18, y = at / 18;
        const uint32_t pixel = x < 2 ? 0 : icon[y * 16 + x - 2];
        const double through = 1 - static_cast<double>(pixel >> 24) / 255;
        for (const int shift : {24, 16, 8, 0}) {
            const auto part = [shift](uint32_t of) { return static_cast<int32_t>((of >> shift) & 0xFF); };
            EXPECT_NEAR(part(picture->pixels()[at]), part(pixel) + part(opaque(green)) * through, 1)
                << x << "," << y;
        }
    }
}

TEST(IconList, AnotherGroundMakesAnotherPictureAndLeavesTheFirst) {
    IconList list;
    const PictureRef first = list.picture(u"Work - Lock", green);
    const std::vector<uint32_t> before = first->pixels();
    EXPECT_EQ(list.picture(u"Work - Lock", green), first);
    const PictureRef other = list.picture(u"Work - Lock", Rgb());
    EXPECT_NE(other->pixels(), before);
    EXPECT_EQ(first->pixels(), before);
}

}  // namespace
}  // namespace obk::test
