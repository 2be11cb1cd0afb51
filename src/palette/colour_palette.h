// The twelve palettes: which swatches each holds, in which order, with which names and at which places in its
// panel.
#pragma once

#include "base/text.h"
#include "base/units.h"
#include "palette/hls.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace obk {

// Columns by rows for a flat palette; base colours by shade rows by shade columns for a shade palette.
enum class enQUILLPalette : int32_t {
    QP8X2,
    QP9X3,
    QP8X8,
    QP16X8,
    QP24X8,
    QP24X10,
    QP8X4X4,
    QP8X8X6,
    QP12X6X6,
    QP16X8X6,
    QP24X8X6,
    QP32X8X6,
};

// Nothing for a number that is no palette's.
std::optional<enQUILLPalette> paletteFromNumber(int32_t number);

// One swatch.
struct PaletteCell {
    bool isBase = false;  // false for the cells of a shade block
    PixelRect rect;       // in the panel, in its pixels
    OleColour Color;      // of a palette's cells: what `hls` gives
    Hls hls;
    bool IsHue = false;   // false for a grey
    TextView namePrefix;  // of the luminance, with its blank; literals, as is the name
    TextView baseName;

    // "DARK RED".
    Text Name() const { return Text(namePrefix) += baseName; }
    // Whether both stand for the same swatch of a palette, at whatever scale and with whatever colour.
    bool standsFor(const PaletteCell& other) const { return isBase == other.isBase && hls == other.hls; }
    friend bool operator==(const PaletteCell&, const PaletteCell&) = default;
};

// The swatch grid of a panel; sizes in pixels at 96 DPI.
struct PaletteGeometry {
    int32_t Columns = 0, Rows = 0;  // of a shade palette: the grid of its base colours
    int32_t CellSize = 0, CellGap = 0;
    bool ShadeMode = false;  // a base column with a block of shades of the chosen base colour

    int32_t pitch() const { return CellSize + CellGap; }
    // In whole pixels at another scale: every cell and every gap as large as any other.
    PaletteGeometry scaled(Dpi dpi) const;
};

class ColourPalette {
public:
    explicit ColourPalette(enQUILLPalette palette);

    enQUILLPalette kind() const { return kind_; }
    const PaletteGeometry& geometry() const { return geometry_; }
    // The scale in which the cells' places are given; 96 DPI at first.
    Dpi scale() const { return scale_; }
    void setScale(Dpi dpi);
    // From the panel's edge to the cells, in pixels.
    int32_t margin() const;
    // The base cells, then the shade block.
    std::span<const PaletteCell> cells() const { return cells_; }
    // Hue by hue, each from its first luminance to its last, then the greys.
    std::span<const PaletteCell> baseCells() const { return cells().first(baseCount_); }
    // Column by column; empty in a flat palette and before the first block is built.
    std::span<const PaletteCell> shadeCells() const { return cells().subspan(baseCount_); }

    // Replaces the block by the shades of a base cell; cells that were given out are none any more. Does
    // nothing in a flat palette.
    void buildShades(const PaletteCell& base);

    // The first base cell, else the first shade cell, whose rectangle holds the point; null in the gaps.
    const PaletteCell* hitTest(PixelPoint point) const;
    // The cell that differs least in the sum of hue, luminance and saturation; the first of equals.
    const PaletteCell& nearestCell(Rgb color) const;
    // The base cell nearest in hue, or for a grey the one nearest in luminance among the greys.
    const PaletteCell& baseCell(Rgb color) const;

private:
    void layOut();

    enQUILLPalette kind_;
    PaletteGeometry geometry_;
    Dpi scale_;
    std::vector<PaletteCell> cells_;
    size_t baseCount_ = 0;
};

}  // namespace obk
