#include "palette/colour_palette.h"

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <sstream>
#include <string>

namespace obk::test {
namespace {

// The palettes once more, in another form than the code has them and worked out with whole-number fractions.

// numerator / denominator to the nearest integer, ties to even.
int64_t rounded(int64_t numerator, int64_t denominator) {
    int64_t whole = numerator / denominator;
    int64_t rest = numerator % denominator;
    if (rest < 0) {
        rest += denominator;
        --whole;
    }
    if (2 * rest > denominator || (2 * rest == denominator && whole % 2 != 0)) ++whole;
    return whole;
}

uint8_t scaledChannel(int64_t value) {
    return static_cast<uint8_t>(std::min<int64_t>(std::max<int64_t>(rounded(value * 256, 240), 0), 255));
}

int64_t ramp(int64_t m1, int64_t m2, int64_t hue) {
    hue = (hue + 480) % 240;
    if (hue < 40) return rounded(m1 * 40 + (m2 - m1) * hue, 40);
    if (hue < 120) return m2;
    if (hue < 160) return rounded(m1 * 40 + (m2 - m1) * (160 - hue), 40);
    return m1;
}

Rgb oracleColour(int64_t h, int64_t l, int64_t s) {
    if (s == 0) return Rgb::of(scaledChannel(l), scaledChannel(l), scaledChannel(l));
    const int64_t m2 = l <= 120 ? rounded(l * (240 + s), 240) : rounded((l + s) * 240 - l * s, 240);
    const int64_t m1 = 2 * l - m2;
    return Rgb::of(scaledChannel(ramp(m1, m2, h + 80)), scaledChannel(ramp(m1, m2, h)),
                   scaledChannel(ramp(m1, m2, h - 80)));
}

struct Definition {
    const char* hues;        // "value name" pairs
    const char* luminances;  // value, "_" for no prefix, else the prefix
    const char* greys;
    int columns, rows, size, gap;
};

const char* const hues23 =
    "0 RED 12 COPPER 20 ORANGE 30 GOLD 35 TOPAZ 40 YELLOW 50 LEMON 60 LIME 80 GREEN 100 JADE 110 TURQUOISE "
    "120 CYAN 125 AQUA 130 TEAL 140 AZURE 150 SAPPHIRE 160 BLUE 180 LAVENDER 190 VIOLET 200 MAGENTA "
    "210 FUCHSIA 220 PINK 230 CRIMSON";
const char* const hues15 =
    "0 RED 12 COPPER 20 ORANGE 30 GOLD 40 YELLOW 60 LIME 80 GREEN 110 TURQUOISE 120 CYAN 130 TEAL 160 BLUE "
    "180 LAVENDER 200 MAGENTA 210 FUCHSIA 220 PINK";
const char* const hues7 = "0 RED 20 ORANGE 40 YELLOW 80 GREEN 120 CYAN 160 BLUE 200 MAGENTA";
const char* const eight = "225 PASTEL 210 BARLEY 180 LIGHT 120 _ 105 DUSKY 90 DEEP 60 DARK 40 EARTH";
const char* const greys8 =
    "240 WHITE 210 SILVER 180 CHROME 150 TITANIUM 120 GRAY 90 DARK-GRAY 60 CHARCOAL 0 BLACK";

const std::array<Definition, 12> definitions{{
    {"0 RED 40 YELLOW 80 GREEN 120 CYAN 160 BLUE 200 MAGENTA", "120 _ 60 DARK",
     "240 WHITE 120 GRAY 180 CHROME 0 BLACK", 8, 2, 14, 7},
    {hues7, "180 LIGHT 120 _ 60 DARK", "240 WHITE 180 CHROME 60 CHARCOAL 210 SILVER 120 GRAY 0 BLACK", 9, 3,
     14, 7},
    {hues7, eight, greys8, 8, 8, 13, 7},
    {hues15, eight, greys8, 16, 8, 12, 5},
    {hues23, eight, greys8, 24, 8, 12, 5},
    {hues23, "225 PASTEL 210 BARLEY 180 LIGHT 150 SOFT 120 _ 105 DUSKY 90 DEEP 75 CLOUDY 60 DARK 40 EARTH",
     "240 WHITE 210 SILVER 180 CHROME 150 TITANIUM 120 GRAY 90 DARK-GRAY 80 EBONY 60 CHARCOAL 30 EARTH 0 BLACK",
     24, 10, 9, 7},
    {hues7, "120 _", "240 WHITE", 2, 4, 12, 3},
    {hues7, "120 _", "240 WHITE", 1, 8, 11, 2},
    {"0 RED 20 ORANGE 40 YELLOW 50 LEMON 80 GREEN 110 TURQUOISE 220 PINK 200 MAGENTA 160 BLUE 130 TEAL 120 CYAN",
     "120 _", "240 WHITE", 2, 6, 11, 2},
    {"0 RED 12 COPPER 20 ORANGE 30 GOLD 40 YELLOW 60 LIME 80 GREEN 110 TURQUOISE 220 PINK 210 FUCHSIA 200 MAGENTA "
     "180 LAVENDER 160 BLUE 130 TEAL 120 CYAN",
     "120 _", "240 WHITE", 2, 8, 11, 2},
    {"0 RED 12 COPPER 20 ORANGE 30 GOLD 35 TOPAZ 40 YELLOW 50 LEMON 60 LIME 150 SAPPHIRE 140 AZURE 130 TEAL "
     "125 AQUA 120 CYAN 110 TURQUOISE 100 JADE 80 GREEN 160 BLUE 180 LAVENDER 190 VIOLET 200 MAGENTA 210 FUCHSIA "
     "220 PINK 230 CRIMSON",
     "120 _", "240 WHITE", 3, 8, 10, 2},
    {"0 RED 12 COPPER 20 ORANGE 25 BRONZE 30 GOLD 35 TOPAZ 37 TOURMALINE 40 YELLOW 110 TURQUOISE 100 JADE 90 BERYL "
     "80 GREEN 70 EMERALD 60 LIME 50 LEMON 45 CITRINE 120 CYAN 125 AQUA 130 TEAL 140 AZURE 150 SAPPHIRE 160 BLUE "
     "170 INDIGO 180 LAVENDER 230 CRIMSON 220 PINK 210 FUCHSIA 200 MAGENTA 195 COBALT 190 VIOLET 185 AMETHYST",
     "120 _", "240 WHITE", 4, 8, 10, 2},
}};

std::vector<std::pair<int, std::string>> pairs(const char* text) {
    std::vector<std::pair<int, std::string>> result;
    std::istringstream in(text);
    int value = 0;
    std::string name;
    while (in >> value >> name) {
        std::replace(name.begin(), name.end(), '-', ' ');
        result.emplace_back(value, name == "_" ? "" : name);
    }
    return result;
}

ColourPalette paletteOf(size_t number) {
    return ColourPalette(*paletteFromNumber(static_cast<int32_t>(number)));
}

TEST(ColourPaletteTest, EveryBaseCellHasItsColourNameAndPlace) {
    for (size_t number = 0; number < definitions.size(); ++number) {
        const Definition& expected = definitions[number];
        const ColourPalette palette = paletteOf(number);
        const auto cells = palette.baseCells();
        size_t at = 0;
        const auto check = [&](int hue, int luminance, int saturation, const std::string& name) {
            ASSERT_LT(at, cells.size());
            const PaletteCell& cell = cells[at];
            const int left = 6 + static_cast<int>(at) / expected.rows * (expected.size + expected.gap);
            const int top = 6 + static_cast<int>(at) % expected.rows * (expected.size + expected.gap);
            SCOPED_TRACE("palette " + std::to_string(number) + " cell " + std::to_string(at));
            EXPECT_EQ(cell.hls, (Hls{hue, luminance, saturation}));
            EXPECT_EQ(cell.Color, oracleColour(hue, luminance, saturation));
            EXPECT_EQ(toUtf8(cell.Name()), name);
            EXPECT_EQ(cell.rect, (PixelRect{left, top, left + expected.size, top + expected.size}));
            EXPECT_EQ(cell.IsHue, saturation != 0);
            EXPECT_TRUE(cell.isBase);
            ++at;
        };
        for (const auto& [hue, name] : pairs(expected.hues)) {
            for (const auto& [luminance, prefix] : pairs(expected.luminances))
                check(hue, luminance, 240,
                      prefix.empty() ? name : std::string(prefix).append(" ").append(name));
        }
        for (const auto& [luminance, name] : pairs(expected.greys)) check(0, luminance, 0, name);
        EXPECT_EQ(at, cells.size());
        EXPECT_EQ(cells.size(), static_cast<size_t>(expected.columns * expected.rows));
    }
    EXPECT_FALSE(paletteFromNumber(12));
    EXPECT_FALSE(paletteFromNumber(-1));
}

TEST(ColourPaletteTest, ShadeBlocksGoColumnByColumnBesideTheBaseGrid) {
    struct Block {
        size_t palette;
        const char* saturations;
        const char* luminances;
        const char* greys;
        int step;
    };
    const char* six = "240 _ 200 _ 160 _ 120 _ 80 _ 40 _";
    const char* shadeGreys =
        "240 WHITE 210 SILVER 180 CHROME 150 TITANIUM 120 GRAY 90 DARK-GRAY 60 CHARCOAL 30 EARTH";
    const Block blocks[] = {
        {6, "240 _ 180 _ 120 _ 60 _", "210 BARLEY 180 LIGHT 120 _ 60 DARK",
         "240 WHITE 180 CHROME 120 GRAY 60 CHARCOAL", 15},
        {8, six, "210 BARLEY 180 LIGHT 120 _ 90 DEEP 60 DARK 40 EARTH",
         "240 WHITE 200 PLATINUM 160 NICKEL 120 GRAY 80 EBONY 40 MIDNIGHT", 6},
        {7, six, eight, shadeGreys, 5},
        {9, six, eight, shadeGreys, 5},
        {10, six, eight, shadeGreys, 5},
        {11, six, eight, shadeGreys, 5},
    };
    for (const Block& block : blocks) {
        ColourPalette palette = paletteOf(block.palette);
        const Definition& shape = definitions[block.palette];
        const int pitch = shape.size + shape.gap;
        const auto saturations = pairs(block.saturations);
        const auto rows = pairs(block.luminances);
        const auto greys = pairs(block.greys);
        EXPECT_TRUE(palette.shadeCells().empty());
        const auto bases = palette.baseCells();
        for (const PaletteCell& base : std::vector(bases.begin(), bases.end())) {
            palette.buildShades(base);
            const auto cells = palette.shadeCells();
            ASSERT_EQ(cells.size(), saturations.size() * rows.size());
            for (size_t at = 0; at < cells.size(); ++at) {
                SCOPED_TRACE(toUtf8(base.Name()) + " of palette " + std::to_string(block.palette) +
                             " shade " + std::to_string(at));
                const size_t column = at / rows.size();
                const size_t row = at % rows.size();
                const bool black = !base.IsHue && at + 1 == cells.size();
                const int luminance = base.IsHue ? rows[row].first
                                      : black    ? 0
                                                 : greys[row].first - static_cast<int>(column) * block.step;
                const int saturation = base.IsHue ? saturations[column].first : 0;
                std::string name = base.IsHue ? rows[row].second : black ? "BLACK" : greys[row].second;
                if (base.IsHue) name += (name.empty() ? "" : " ") + toUtf8(base.Name());
                EXPECT_EQ(cells[at].hls, (Hls{base.hls.hue, luminance, saturation}));
                EXPECT_EQ(cells[at].Color, oracleColour(base.hls.hue, luminance, saturation));
                EXPECT_EQ(toUtf8(cells[at].Name()), name);
                EXPECT_FALSE(cells[at].isBase);
                const int left = pitch * shape.columns + 8 + shape.gap + static_cast<int>(column) * pitch;
                EXPECT_EQ(cells[at].rect.left, left);
                EXPECT_EQ(cells[at].rect.top, 6 + static_cast<int>(row) * pitch);
                EXPECT_EQ(cells[at].rect.width(), shape.size);
            }
        }
    }
    ColourPalette flat = paletteOf(4);
    flat.buildShades(flat.baseCells().front());
    EXPECT_TRUE(flat.shadeCells().empty());
    EXPECT_EQ(paletteOf(8).baseCell(rgbFromHls({10, 120, 240})).hls.hue, 0) << "the first of two as near";
}

TEST(ColourPaletteTest, EveryPixelOfACellHitsItAndNoPixelOfAGapHitsAnything) {
    for (size_t number = 0; number < definitions.size(); ++number) {
        ColourPalette palette = paletteOf(number);
        palette.buildShades(palette.baseCells().back());
        std::map<std::pair<int, int>, const PaletteCell*> owner;
        int right = 0;
        int bottom = 0;
        for (const PaletteCell& cell : palette.cells()) {
            right = std::max(right, cell.rect.right);
            bottom = std::max(bottom, cell.rect.bottom);
            for (int x = cell.rect.left; x < cell.rect.right; ++x) {
                for (int y = cell.rect.top; y < cell.rect.bottom; ++y) owner.emplace(std::pair(x, y), &cell);
            }
        }
        int wrong = 0;
        for (int x = -2; x < right + 2; ++x) {
            for (int y = -2; y < bottom + 2; ++y) {
                const auto found = owner.find({x, y});
                if (palette.hitTest({x, y}) != (found == owner.end() ? nullptr : found->second)) ++wrong;
            }
        }
        EXPECT_EQ(wrong, 0) << "palette " << number;
    }
}

TEST(ColourPaletteTest, AnyColourFindsACellThatNoOtherIsNearerThan) {
    for (size_t number = 0; number < definitions.size(); ++number) {
        ColourPalette palette = paletteOf(number);
        palette.buildShades(palette.baseCells().front());
        const auto distance = [](const PaletteCell& cell, const Hls& to) {
            return std::abs(cell.hls.hue - to.hue) + std::abs(cell.hls.luminance - to.luminance) +
                   std::abs(cell.hls.saturation - to.saturation);
        };
        for (uint32_t color = 0; color < 0x1000000; color += 0x030F1D) {
            const Hls wanted = hlsFromRgb({color});
            const PaletteCell& found = palette.nearestCell({color});
            for (const PaletteCell& cell : palette.cells())
                ASSERT_GE(distance(cell, wanted), distance(found, wanted));
        }
        // Of two equal cells the first wins: a base cell's own colour finds the first cell of that triple.
        for (const PaletteCell& cell : palette.baseCells()) {
            const PaletteCell& found = palette.nearestCell(rgbFromHls(cell.hls));
            EXPECT_LE(&found, &cell);
        }
    }
    const ColourPalette shades = paletteOf(8);
    EXPECT_EQ(toUtf8(shades.baseCell({2}).Name()), "RED");
    EXPECT_EQ(toUtf8(shades.baseCell(Rgb::of(0, 0, 0)).Name()), "WHITE");
    EXPECT_EQ(toUtf8(shades.baseCell(Rgb::of(10, 20, 250)).Name()), "BLUE");
}

TEST(HlsTest, ThereAndBackStaysWithinItsBoundOverTheWholeCube) {
    // 240 steps cannot hold 256 values; the largest error of a channel over all 16.7 million colours is
    // known.
    int worst = 0;
    for (int red = 0; red < 256; ++red) {
        for (int green = 0; green < 256; ++green) {
            for (int blue = 0; blue < 256; ++blue) {
                const Rgb rgb = Rgb::of(static_cast<uint8_t>(red), static_cast<uint8_t>(green),
                                        static_cast<uint8_t>(blue));
                const Hls hls = hlsFromRgb(rgb);
                const Rgb back = rgbFromHls(hls);
                worst = std::max({worst, std::abs(red - back.red()), std::abs(green - back.green()),
                                  std::abs(blue - back.blue())});
                if (hls.hue < 0 || hls.hue >= 240 || hls.luminance > 240 || hls.saturation > 240)
                    FAIL() << red << ' ' << green << ' ' << blue;
            }
        }
    }
    EXPECT_EQ(worst, 6);
    EXPECT_EQ(hlsFromRgb(Rgb::of(255, 0, 0)), (Hls{0, 120, 240}));
    EXPECT_EQ(hlsFromRgb(Rgb::of(0, 255, 0)), (Hls{80, 120, 240}));
    EXPECT_EQ(hlsFromRgb(Rgb::of(255, 0, 255)), (Hls{200, 120, 240}));
    EXPECT_EQ(hlsFromRgb(Rgb::of(128, 128, 128)), (Hls{0, 120, 0}));
}

}  // namespace
}  // namespace obk::test
