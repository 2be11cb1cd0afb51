// A grid of cells as it is seen: what it looks like, which part of it shows, and what is painted anew.
#pragma once

#include "flexgrid/current_cell_grid.h"
#include "flexgrid/grid_events.h"
#include "flexgrid/grid_painter.h"
#include "widgets/font_holder.h"
#include "widgets/scroll_bar.h"

#include <vector>

namespace obk {

// Draws its cells without windows of their own, and scrolls by its bars. Works without a window.
class ShownGrid : public Container, public CurrentCellGrid, public GridEvents {
public:
    // BackColor, of the widget below, is the background of cells that have none of their own.
    const GridColours& colours() const { return colours_; }
    void setColours(const GridColours& colours);
    const FontRef& Font() const { return font_.font(); }
    // The rows that have no height of their own become as high as the font needs.
    void SetFont(FontRef font) { font_.set(std::move(font)); }
    void setLook(Look look);
    // When the selection is shown. False, and nothing changed, for other numbers.
    bool SetHighLight(int32_t setting);  // 0 never, 1 always, 2 while the grid has the focus
    // Columns whose cells show a check mark for their letter, whatever their font is; none at first.
    void setCheckColumns(CheckColumns are) { checkColumns_ = std::move(are); }

    bool Redraw() const { return redraw_; }
    void SetRedraw(bool redraw);  // False suspends drawing; True draws all anew

    // The first row and column that show, in part at least. The end of the grid stops the scrolling.
    int32_t TopRow() const { return view().topRow(); }
    bool SetTopRow(int32_t row);
    int32_t LeftCol() const { return view().leftCol(); }
    bool SetLeftCol(int32_t col);
    void scrollTo(ScrollOffset offset);
    void show(CellAddress cell) { scrollTo(view().showing(cell)); }
    GridView view() const { return viewAt(offset_); }
    // Where a cell stands, in twips from the grid's left top corner; nowhere for a cell that is not there.
    TwipsRect cellPlace(CellAddress cell) const;

    bool hasFocus() const;
    bool takeFocus() override;
    Widget* focused() override { return hasFocus() ? this : Container::focused(); }

    void paint(Canvas& canvas, const PixelRect& bounds) override;
    void attach(SurfacePeer& peer) override;
    void detach() override;
    void placed() override;
    void appearanceChanged() override;
    void focusCameBelow() override { showFocus(); }
    void focusWentBelow() override { showFocus(); }

protected:
    explicit ShownGrid(Container& parent);

    bool attached() const { return attached_; }  // there is a window to draw in
    bool showsSelection() const { return highLight_ != 0; }
    const FontDescription& fontDescription() const { return font_.description(); }
    bool checks(int32_t col) const { return checkColumns_ && checkColumns_(col); }

private:
    void cellsChanged(const CellRange& cells) override;
    void textsChanged(const CellRange& cells) override;
    void selectionChanged(const CellRange& before) override;
    void placesChanged(int32_t fromRow, int32_t fromCol) override;
    void announceStructure();
    GridView viewAt(ScrollOffset offset) const;
    void step(ScrollBar::Step by, bool vertical);
    void invalidateCells(const CellRange& cells);
    void invalidateArea(const PixelRect& onWidget);
    void layOut();
    void useFont();
    void showFocus();
    GridLook look() const;
    GridMarks marks() const;

    GridColours colours_;
    CheckColumns checkColumns_;
    FontHolder font_;
    ScrollOffset offset_;
    uint32_t toldRevision_ = 0;
    bool toldVisible_ = true;
    bool attached_ = false;
    bool redraw_ = true;
    uint8_t highLight_ = 1;
    ScrollBar verticalBar_, horizontalBar_;
    std::vector<Connection> connections_;
};

}  // namespace obk
