// Draws the cells of a grid that show.
#pragma once

#include "flexgrid/grid_view.h"
#include "widgets/canvas.h"
#include "widgets/text_box_peer.h"

#include <functional>
#include <optional>

namespace obk {

// As hosts give them.
struct GridColours {
    OleColour fore{SystemColour::windowText};
    OleColour beyond{SystemColour::window};  // right of the last column, below the last row
    std::optional<OleColour> lines;          // none: half a shadow, in dark schemes too
    OleColour selectionBack{SystemColour::highlight}, selectionFore{SystemColour::highlightText};
};

// Whether a column is one of check marks; empty: none is.
using CheckColumns = std::function<bool(int32_t)>;

// What the cells look like where they say nothing themselves; colours as they are drawn.
struct GridLook {
    FontDescription font;
    Rgb back, fore;  // of cells
    Rgb ground;      // beyond the last row and column
    Rgb lines;
    Rgb selectionBack, selectionFore;
    Rgb window, focus;       // the frame of the current cell, inside and outside
    bool ownColours = true;  // false: cells are drawn in the colours above, as in high contrast
    std::function<Rgb(OleColour)> rgb;
    CheckColumns checkColumns;
};

// The font of a cell.
FontDescription cellFont(const FontDescription& usual, const CellStyle& style);
HorizontalAlignment horizontalOf(CellAlignment alignment);
// Between a cell's edges, the grid's line included, and its text: as in the editor that stands over it.
inline int32_t cellMargin(Dpi dpi) {
    return dpi.scaled(textMargin);
}

// What is marked.
struct GridMarks {
    CellAddress current{-1, -1};
    CellRange selection;  // empty where none is shown
    bool focused = false;
};

class GridPainter {
public:
    // All borrowed. `origin` is where the widget's left top corner is on the canvas.
    GridPainter(Canvas& canvas, PixelPoint origin, const GridView& view, const GridLook& look,
                const GridMarks& marks);

    // What the canvas's clip lets through.
    void paint();

    // The frame of the current cell lies on the lines around it, so this much above and left of the cell.
    static int32_t frameReach(Dpi dpi) { return dpi.scaled(1); }

private:
    void paintRow(int32_t row, int32_t top, int32_t bottom);
    void paintCell(CellAddress cell, const PixelRect& rect);
    void paintLines(const PixelRect& cells);
    void paintFrame();
    Rgb backColour(CellAddress cell, const CellStyle& style) const;
    const TextStyle& textStyle(const CellStyle& style);
    bool marked(CellAddress cell) const { return cell != marks_.current && marks_.selection.contains(cell); }

    Canvas& canvas_;
    PixelPoint origin_;
    const GridView& view_;
    const GridLook& look_;
    const GridMarks& marks_;
    PixelRect clip_;  // on the widget
    int32_t line_;
    // Cells of one style mostly stand together, and making a font's description costs memory.
    const CellStyle* styleOfText_ = nullptr;
    TextStyle text_;
};

}  // namespace obk
