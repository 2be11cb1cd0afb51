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
    Rgb Color;
    Hls hls;
    bool IsHue = false;   // false for a grey
    TextView namePrefix;  // of the luminance, with its blank; literals, as is the name
    TextView baseName;
    bool valid = false;

    // "DARK RED".
    Text Name() const { return Text(namePrefix) += baseName; }
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

    const PaletteGeometry& geometry() const { return geometry_; }
    // The scale in which the cells' places are given; 96 DPI at first.
    void setScale(Dpi dpi);
    // From the panel's edge to the cells, in pixels.
    int32_t margin() const;
    // Hue by hue, each from its first luminance to its last, then the greys.
    std::span<const PaletteCell> baseCells() const { return baseCells_; }
    // Column by column; empty in a flat palette and before the first block is built.
    std::span<const PaletteCell> shadeCells() const { return shadeCells_; }
    PixelSize shadeGrid() const;  // columns and rows of the block; none in a flat palette

    // Replaces the block by the shades of a base cell. Does nothing in a flat palette.
    void buildShades(const PaletteCell& base);

    // The first base cell, else the first shade cell, whose rectangle holds the point; null in the gaps.
    const PaletteCell* hitTest(PixelPoint point) const;
    // The cell that differs least in the sum of hue, luminance and saturation; the first of equals. Shades
    // are consulted only when no base cell fits exactly.
    const PaletteCell& nearestCell(Rgb color) const;
    // The base cell nearest in hue, or for a grey the one nearest in luminance among the greys.
    const PaletteCell& baseCell(Rgb color) const;

private:
    void layOutBase();
    void layOutShades();

    enQUILLPalette palette_;
    PaletteGeometry geometry_;
    Dpi dpi_;
    std::vector<PaletteCell> baseCells_;
    std::vector<PaletteCell> shadeCells_;
};

// Places cells from `origin` on, `count` to a column (or to a row, when not `columnMajor`).
void layOutCells(std::span<PaletteCell> cells, bool columnMajor, int32_t count, PixelPoint origin,
                 const PaletteGeometry& geometry);

}  // namespace obk
