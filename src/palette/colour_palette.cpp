#include "palette/colour_palette.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace obk {

namespace {

struct NamedValue {
    int16_t value;
    TextView name;
};

// A hue, a luminance and a grey have the same name in every palette that has them.
constexpr NamedValue hueNames[] = {
    {0, u"RED"},         {12, u"COPPER"},     {20, u"ORANGE"},   {25, u"BRONZE"},    {30, u"GOLD"},
    {35, u"TOPAZ"},      {37, u"TOURMALINE"}, {40, u"YELLOW"},   {45, u"CITRINE"},   {50, u"LEMON"},
    {60, u"LIME"},       {70, u"EMERALD"},    {80, u"GREEN"},    {90, u"BERYL"},     {100, u"JADE"},
    {110, u"TURQUOISE"}, {120, u"CYAN"},      {125, u"AQUA"},    {130, u"TEAL"},     {140, u"AZURE"},
    {150, u"SAPPHIRE"},  {160, u"BLUE"},      {170, u"INDIGO"},  {180, u"LAVENDER"}, {185, u"AMETHYST"},
    {190, u"VIOLET"},    {195, u"COBALT"},    {200, u"MAGENTA"}, {210, u"FUCHSIA"},  {220, u"PINK"},
    {230, u"CRIMSON"},
};
constexpr NamedValue luminancePrefixes[] = {
    {225, u"PASTEL "}, {210, u"BARLEY "}, {180, u"LIGHT "}, {150, u"SOFT "}, {120, u""},
    {105, u"DUSKY "},  {90, u"DEEP "},    {75, u"CLOUDY "}, {60, u"DARK "},  {40, u"EARTH "},
};
constexpr NamedValue greyNames[] = {
    {240, u"WHITE"},    {210, u"SILVER"}, {200, u"PLATINUM"}, {180, u"CHROME"}, {160, u"NICKEL"},
    {150, u"TITANIUM"}, {120, u"GRAY"},   {90, u"DARK GRAY"}, {80, u"EBONY"},   {60, u"CHARCOAL"},
    {40, u"MIDNIGHT"},  {30, u"EARTH"},   {0, u"BLACK"},
};

TextView nameOf(std::span<const NamedValue> names, int16_t value) {
    const auto found = std::find_if(names.begin(), names.end(),
                                    [value](const NamedValue& named) { return named.value == value; });
    return found == names.end() ? TextView() : found->name;
}

using Values = std::span<const int16_t>;

constexpr int16_t hues6[] = {0, 40, 80, 120, 160, 200};
constexpr int16_t hues7[] = {0, 20, 40, 80, 120, 160, 200};
constexpr int16_t hues15[] = {0, 12, 20, 30, 40, 60, 80, 110, 120, 130, 160, 180, 200, 210, 220};
constexpr int16_t hues23[] = {0,   12,  20,  30,  35,  40,  50,  60,  80,  100, 110, 120,
                              125, 130, 140, 150, 160, 180, 190, 200, 210, 220, 230};
// The base columns of shade palettes wrap round the colour circle and are not in the order of hues.
constexpr int16_t wrapped11[] = {0, 20, 40, 50, 80, 110, 220, 200, 160, 130, 120};
constexpr int16_t wrapped15[] = {0, 12, 20, 30, 40, 60, 80, 110, 220, 210, 200, 180, 160, 130, 120};
constexpr int16_t wrapped23[] = {0,   12,  20,  30, 35,  40,  50,  60,  150, 140, 130, 125,
                                 120, 110, 100, 80, 160, 180, 190, 200, 210, 220, 230};
constexpr int16_t wrapped31[] = {0,   12,  20,  25,  30,  35,  37,  40,  110, 100, 90,  80,  70,  60,  50, 45,
                                 120, 125, 130, 140, 150, 160, 170, 180, 230, 220, 210, 200, 195, 190, 185};

constexpr int16_t luminances2[] = {120, 60};
constexpr int16_t luminances3[] = {180, 120, 60};
constexpr int16_t luminances8[] = {225, 210, 180, 120, 105, 90, 60, 40};
constexpr int16_t luminances10[] = {225, 210, 180, 150, 120, 105, 90, 75, 60, 40};
constexpr int16_t pure[] = {120};

constexpr int16_t greys4[] = {240, 120, 180, 0};
constexpr int16_t greys6[] = {240, 180, 60, 210, 120, 0};
constexpr int16_t greys8[] = {240, 210, 180, 150, 120, 90, 60, 0};
constexpr int16_t greys10[] = {240, 210, 180, 150, 120, 90, 80, 60, 30, 0};
constexpr int16_t white[] = {240};

struct BaseLists {
    PaletteGeometry geometry;
    Values hues, luminances, greys;
};

// In the order of enQUILLPalette.
constexpr std::array<BaseLists, 12> bases{{
    {{8, 2, 14, 7, false}, hues6, luminances2, greys4},
    {{9, 3, 14, 7, false}, hues7, luminances3, greys6},
    {{8, 8, 13, 7, false}, hues7, luminances8, greys8},
    {{16, 8, 12, 5, false}, hues15, luminances8, greys8},
    {{24, 8, 12, 5, false}, hues23, luminances8, greys8},
    {{24, 10, 9, 7, false}, hues23, luminances10, greys10},
    {{2, 4, 12, 3, true}, hues7, pure, white},
    {{1, 8, 11, 2, true}, hues7, pure, white},
    {{2, 6, 11, 2, true}, wrapped11, pure, white},
    {{2, 8, 11, 2, true}, wrapped15, pure, white},
    {{3, 8, 10, 2, true}, wrapped23, pure, white},
    {{4, 8, 10, 2, true}, wrapped31, pure, white},
}};

// Shades of one base colour: a column for each saturation, a row for each luminance. The shades of white are
// greys, each column `greyStep` darker than the one before.
struct ShadeLists {
    Values saturations, luminances, greys;
    int32_t greyStep;
};

constexpr int16_t saturations4[] = {240, 180, 120, 60};
constexpr int16_t saturations6[] = {240, 200, 160, 120, 80, 40};
constexpr int16_t shadeLuminances4[] = {210, 180, 120, 60};
constexpr int16_t shadeLuminances6[] = {210, 180, 120, 90, 60, 40};
constexpr int16_t shadeGreys4[] = {240, 180, 120, 60};
constexpr int16_t shadeGreys6[] = {240, 200, 160, 120, 80, 40};
constexpr int16_t shadeGreys8[] = {240, 210, 180, 150, 120, 90, 60, 30};

constexpr ShadeLists shades4x4{saturations4, shadeLuminances4, shadeGreys4, 15};
constexpr ShadeLists shades6x6{saturations6, shadeLuminances6, shadeGreys6, 6};
constexpr ShadeLists shades8x6{saturations6, luminances8, shadeGreys8, 5};

const ShadeLists* shadesOf(enQUILLPalette palette) {
    switch (palette) {
        case enQUILLPalette::QP8X4X4:
            return &shades4x4;
        case enQUILLPalette::QP12X6X6:
            return &shades6x6;
        case enQUILLPalette::QP8X8X6:
        case enQUILLPalette::QP16X8X6:
        case enQUILLPalette::QP24X8X6:
        case enQUILLPalette::QP32X8X6:
            return &shades8x6;
        default:
            return nullptr;
    }
}

constexpr int32_t marginAt96 = 6;  // of the base grid and the block, from the panel's edge
constexpr int32_t blockDistanceAt96 = 8;

PaletteCell makeCell(bool isBase, const Hls& hls, bool isHue, TextView prefix, TextView name) {
    return {isBase, {}, rgbFromHls(hls), hls, isHue, prefix, name};
}

// Column by column from `origin` on, `rows` to a column.
void layOutColumns(std::span<PaletteCell> cells, int32_t rows, PixelPoint origin,
                   const PaletteGeometry& geometry) {
    int32_t i = 0;
    for (PaletteCell& cell : cells) {
        const int32_t left = origin.x + i / rows * geometry.pitch();
        const int32_t top = origin.y + i % rows * geometry.pitch();
        cell.rect = {left, top, left + geometry.CellSize, top + geometry.CellSize};
        ++i;
    }
}

}  // namespace

std::optional<enQUILLPalette> paletteFromNumber(int32_t number) {
    if (number < 0 || number >= static_cast<int32_t>(bases.size())) return std::nullopt;
    return static_cast<enQUILLPalette>(number);
}

ColourPalette::ColourPalette(enQUILLPalette palette)
    : kind_(palette), geometry_(bases[static_cast<size_t>(palette)].geometry) {
    const BaseLists& lists = bases[static_cast<size_t>(palette)];
    cells_.reserve(lists.hues.size() * lists.luminances.size() + lists.greys.size());
    for (const int16_t hue : lists.hues) {
        const TextView name = nameOf(hueNames, hue);
        for (const int16_t luminance : lists.luminances)
            cells_.push_back(
                makeCell(true, {hue, luminance, 240}, true, nameOf(luminancePrefixes, luminance), name));
    }
    for (const int16_t grey : lists.greys)
        cells_.push_back(makeCell(true, {0, grey, 0}, false, {}, nameOf(greyNames, grey)));
    baseCount_ = cells_.size();
    layOut();
}

PaletteGeometry PaletteGeometry::scaled(Dpi dpi) const {
    return {Columns, Rows, dpi.scaled(CellSize), dpi.scaled(CellGap), ShadeMode};
}

void ColourPalette::setScale(Dpi dpi) {
    scale_ = dpi;
    layOut();
}

int32_t ColourPalette::margin() const {
    return scale_.scaled(marginAt96);
}

void ColourPalette::layOut() {
    const PaletteGeometry scaled = geometry_.scaled(scale_);
    const std::span<PaletteCell> all(cells_);
    layOutColumns(all.first(baseCount_), scaled.Rows, {margin(), margin()}, scaled);
    const ShadeLists* lists = shadesOf(kind_);
    if (!lists) return;
    const int32_t left = scaled.pitch() * scaled.Columns + scale_.scaled(blockDistanceAt96) + scaled.CellGap;
    layOutColumns(all.subspan(baseCount_), static_cast<int32_t>(lists->luminances.size()), {left, margin()},
                  scaled);
}

void ColourPalette::buildShades(const PaletteCell& base) {
    const ShadeLists* lists = shadesOf(kind_);
    if (!lists) return;
    const size_t rows = lists->luminances.size();
    std::vector<PaletteCell> cells(cells_.begin(), cells_.begin() + static_cast<ptrdiff_t>(baseCount_));
    cells.reserve(baseCount_ + lists->saturations.size() * rows);
    for (size_t column = 0; column < lists->saturations.size(); ++column) {
        for (size_t row = 0; row < rows; ++row) {
            const int16_t luminance = lists->luminances[row];
            const int16_t grey = lists->greys[row];
            if (base.IsHue) {
                cells.push_back(makeCell(false, {base.hls.hue, luminance, lists->saturations[column]}, true,
                                         nameOf(luminancePrefixes, luminance), base.baseName));
            } else {
                const int32_t darker = grey - static_cast<int32_t>(column) * lists->greyStep;
                cells.push_back(
                    makeCell(false, {base.hls.hue, darker, 0}, false, {}, nameOf(greyNames, grey)));
            }
        }
    }
    // The block of white ends in black, whatever the steps would give.
    if (!base.IsHue) cells.back() = makeCell(false, {base.hls.hue, 0, 0}, false, {}, nameOf(greyNames, 0));
    cells_ = std::move(cells);
    layOut();
}

const PaletteCell* ColourPalette::hitTest(PixelPoint point) const {
    const auto hit = std::find_if(cells_.begin(), cells_.end(),
                                  [point](const PaletteCell& cell) { return cell.rect.contains(point); });
    return hit == cells_.end() ? nullptr : &*hit;
}

const PaletteCell& ColourPalette::nearestCell(Rgb color) const {
    const Hls wanted = hlsFromRgb(color);
    const auto distance = [&wanted](const PaletteCell& cell) {
        return std::abs(cell.hls.hue - wanted.hue) + std::abs(cell.hls.luminance - wanted.luminance) +
               std::abs(cell.hls.saturation - wanted.saturation);
    };
    return *std::min_element(cells_.begin(), cells_.end(), [&](const auto& one, const auto& other) {
        return distance(one) < distance(other);
    });
}

const PaletteCell& ColourPalette::baseCell(Rgb color) const {
    const Hls wanted = hlsFromRgb(color);
    const bool hueWanted = wanted.saturation != 0;
    const PaletteCell* best = nullptr;
    int32_t bestDistance = 240;
    for (const PaletteCell& cell : baseCells()) {
        if (cell.IsHue != hueWanted) continue;
        const int32_t distance =
            hueWanted ? std::abs(cell.hls.hue - wanted.hue) : std::abs(cell.hls.luminance - wanted.luminance);
        // Black is as far from white as can be; white stands in all the same when it is the only grey.
        if (!best || distance < bestDistance) {
            bestDistance = distance;
            best = &cell;
        }
    }
    return *best;
}

}  // namespace obk
