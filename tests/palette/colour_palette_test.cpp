#include "palette/colour_palette.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <map>
#include <sstream>
#include <string>

namespace obk::test {
namespace {

// numerator / denominator to the nearest integer, ties to even.
int rounded(int numerator, int denominator) {
    return static_cast<int>(std::lrint(static_cast<double>(numerator) / denominator));
}

uint8_t scaledChannel(int value) {
    return static_cast<uint8_t>(std::clamp(rounded(value * 256, 240), 0, 255));
}

int ramp(int m1, int m2, int hue) {
    hue = (hue + 480) % 240;
    if (hue < 40) return rounded(m1 * 40 + (m2 - m1) * hue, 40);
    if (hue < 120) return m2;
    if (hue < 160) return rounded(m1 * 40 + (m2 - m1) * (160 - hue), 40);
    return m1;
}

Rgb expectedColour(const Hls& hls) {
    const auto [h, l, s] = hls;
    if (s == 0) return Rgb::of(scaledChannel(l), scaledChannel(l), scaledChannel(l));
    const int m2 = l <= 120 ? rounded(l * (240 + s), 240) : rounded((l + s) * 240 - l * s, 240);
    const int m1 = 2 * l - m2;
    return Rgb::of(scaledChannel(ramp(m1, m2, h + 80)), scaledChannel(ramp(m1, m2, h)),
                   scaledChannel(ramp(m1, m2, h - 80)));
}

struct Definition {
    int number, columns, rows, size, gap;
    std::map<std::string, std::vector<std::pair<int, std::string>>> lists;
};

std::vector<Definition> definitions() {
    std::vector<Definition> all;
    std::ifstream file(OBK_REPOSITORY_DIR "/tests/palette/data/palettes.txt");
    for (std::string line, key, entry; std::getline(file, line);) {
        std::istringstream in(line);
        if (!(in >> key) || key == "#") continue;
        if (key == "palette") {
            Definition& next = all.emplace_back();
            in >> next.number >> next.columns >> next.rows >> next.size >> next.gap;
            continue;
        }
        while (std::getline(in, entry, ',')) {
            size_t end = 0;
            const int value = std::stoi(entry, &end);
            all.back().lists[key].emplace_back(value, entry.substr(std::min(end + 1, entry.size())));
        }
    }
    EXPECT_EQ(all.size(), 12u);
    return all;
}

ColourPalette paletteOf(int32_t number) {
    return ColourPalette(*paletteFromNumber(number));
}

// Column by column from the left edge on.
void expectCells(std::span<const PaletteCell> cells, const std::vector<std::pair<Hls, std::string>>& expected,
                 bool base, int left, int rows, const Definition& shape) {
    ASSERT_EQ(cells.size(), expected.size());
    int at = 0;
    for (const PaletteCell& cell : cells) {
        SCOPED_TRACE("palette " + std::to_string(shape.number) + " cell " + std::to_string(at));
        const auto& [hls, name] = expected[static_cast<size_t>(at)];
        const int x = left + at / rows * (shape.size + shape.gap);
        const int y = 6 + at % rows * (shape.size + shape.gap);
        EXPECT_EQ(cell.hls, hls);
        EXPECT_EQ(cell.Color, expectedColour(hls));
        EXPECT_EQ(toUtf8(cell.Name()), name);
        EXPECT_EQ(cell.rect, (PixelRect{x, y, x + shape.size, y + shape.size}));
        EXPECT_EQ(cell.IsHue, hls.saturation != 0);
        EXPECT_EQ(cell.isBase, base);
        ++at;
    }
}

TEST(ColourPaletteTest, EveryCellHasItsColourNameAndPlace) {
    const auto joined = [](const std::string& prefix, const std::string& name) {
        return prefix.empty() ? name : prefix + " " + name;
    };
    for (Definition& shape : definitions()) {
        ColourPalette palette = paletteOf(shape.number);
        std::vector<std::pair<Hls, std::string>> expected;
        for (const auto& [hue, name] : shape.lists["hues"]) {
            for (const auto& [luminance, prefix] : shape.lists["luminances"])
                expected.emplace_back(Hls{hue, luminance, 240}, joined(prefix, name));
        }
        for (const auto& [luminance, name] : shape.lists["greys"])
            expected.emplace_back(Hls{0, luminance, 0}, name);
        EXPECT_EQ(expected.size(), static_cast<size_t>(shape.columns * shape.rows));
        expectCells(palette.baseCells(), expected, true, 6, shape.rows, shape);
        EXPECT_TRUE(palette.shadeCells().empty());
        // Beside the base cells each of them has its block of shades, except in a flat palette.
        const auto bases = palette.baseCells();
        for (const PaletteCell& base : std::vector(bases.begin(), bases.end())) {
            palette.buildShades(base);
            expected.clear();
            const auto& luminances = shape.lists[base.IsHue ? "shade-luminances" : "shade-greys"];
            int darker = 0;
            for (const auto& [saturation, none] : shape.lists["saturations"]) {
                for (const auto& [luminance, prefix] : luminances) {
                    expected.emplace_back(
                        base.IsHue ? Hls{base.hls.hue, luminance, saturation} : Hls{0, luminance - darker, 0},
                        base.IsHue ? joined(prefix, toUtf8(base.Name())) : prefix);
                }
                darker += base.IsHue ? 0 : shape.lists["step"].front().first;
            }
            if (!base.IsHue && !expected.empty()) expected.back() = {Hls{}, "BLACK"};
            expectCells(palette.shadeCells(), expected, false,
                        shape.columns * (shape.size + shape.gap) + 8 + shape.gap,
                        static_cast<int>(luminances.size()), shape);
        }
    }
    for (const int32_t none : {-1, 12}) EXPECT_FALSE(paletteFromNumber(none));
}

TEST(ColourPaletteTest, EveryPixelOfACellHitsItAndNoPixelOfAGapHitsAnything) {
    for (int32_t number = 0; number < 12; ++number) {
        ColourPalette palette = paletteOf(number);
        palette.buildShades(palette.baseCells().back());
        int32_t hits = 0, wrong = 0, area = 0;
        for (const PaletteCell& cell : palette.cells()) area += cell.rect.width() * cell.rect.height();
        for (int32_t x = -2; x < 450; ++x) {
            for (int32_t y = -2; y < 200; ++y) {
                const PaletteCell* const found = palette.hitTest({x, y});
                if (found) ++hits;
                if (found && !found->rect.contains({x, y})) ++wrong;
            }
        }
        EXPECT_EQ(hits, area) << "palette " << number;
        EXPECT_EQ(wrong, 0) << "palette " << number;
    }
}

TEST(ColourPaletteTest, AnyColourFindsACellThatNoOtherIsNearerThan) {
    const auto distance = [](const PaletteCell& cell, const Hls& to) {
        return std::abs(cell.hls.hue - to.hue) + std::abs(cell.hls.luminance - to.luminance) +
               std::abs(cell.hls.saturation - to.saturation);
    };
    for (int32_t number = 0; number < 12; ++number) {
        ColourPalette palette = paletteOf(number);
        palette.buildShades(palette.baseCells().front());
        for (uint32_t color = 0; color < 0x1000000; color += 0x030F1D) {
            const Hls wanted = hlsFromRgb({color});
            const PaletteCell& found = palette.nearestCell({color});
            for (const PaletteCell& cell : palette.cells())
                ASSERT_GE(distance(cell, wanted), distance(found, wanted));
        }
        // Of two equal cells the first wins: a base cell's own colour finds the first cell of that triple.
        for (const PaletteCell& cell : palette.baseCells())
            EXPECT_LE(&palette.nearestCell(rgbFromHls(cell.hls)), &cell);
    }
    const std::pair<Rgb, const char*> bases[] = {{{2}, "RED"},
                                                 {Rgb::of(0, 0, 0), "WHITE"},
                                                 {Rgb::of(10, 20, 250), "BLUE"},
                                                 {rgbFromHls({10, 120, 240}), "RED"}};  // the first of two
    for (const auto& [colour, name] : bases) EXPECT_EQ(toUtf8(paletteOf(8).baseCell(colour).Name()), name);
}

TEST(HlsTest, ThereAndBackStaysWithinItsBoundOverTheWholeCube) {
    // 240 steps cannot hold 256 values; the largest error of a channel over all 16.7 million colours is
    // known.
    int worst = 0;
    for (uint32_t value = 0; value < 0x1000000; ++value) {
        const Rgb rgb{value};
        const Hls hls = hlsFromRgb(rgb);
        const Rgb back = rgbFromHls(hls);
        worst = std::max({worst, std::abs(rgb.red() - back.red()), std::abs(rgb.green() - back.green()),
                          std::abs(rgb.blue() - back.blue())});
        if (hls.hue < 0 || hls.hue >= 240 || hls.luminance > 240 || hls.saturation > 240) FAIL() << value;
    }
    EXPECT_EQ(worst, 6);
}

}  // namespace
}  // namespace obk::test
