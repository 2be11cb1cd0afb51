// The flexible grid: cells that a person scrolls through, selects and copies, drawn without windows of their
// own. Works without a window.
#pragma once

#include "flexgrid/cell_describer.h"
#include "flexgrid/current_cell_grid.h"
#include "flexgrid/grid_events.h"
#include "flexgrid/grid_keys.h"
#include "flexgrid/grid_painter.h"
#include "widgets/font_holder.h"
#include "widgets/scroll_bar.h"
#include "widgets/timer.h"

#include <vector>

namespace obk {

class FlexGrid final : public Container, public CurrentCellGrid, public GridEvents {
public:
    static constexpr int32_t startRows = 2, startCols = 2;
    explicit FlexGrid(Container& parent);

    // BackColor, of the widget below, is the background of cells that have none of their own.
    const GridColours& colours() const { return colours_; }
    void setColours(const GridColours& colours);
    const FontRef& Font() const { return font_.font(); }
    // The rows that have no height of their own become as high as the font needs.
    void SetFont(FontRef font) { font_.set(std::move(font)); }
    void setLook(Look look);
    // When the selection is shown. False, and nothing changed, for other numbers.
    bool SetHighLight(int32_t setting);  // 0 never, 1 always, 2 while the grid has the focus
    void SetAllowUserResizing(bool allow) { allowUserResizing_ = allow; }

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

    // What is below the mouse, wherever it was heard of last; -1 for none.
    int32_t MouseRow() const { return view().rowAt(mouse_.y); }
    int32_t MouseCol() const { return view().colAt(mouse_.x); }
    PixelPoint mouseAt() const { return mouse_; }
    // Columns whose cells show a check mark for their letter, whatever their font is; none at first.
    void setCheckColumns(CheckColumns are) { checkColumns_ = std::move(are); }
    void setDescriber(CellDescriber* describer) { describer_ = describer; }  // borrowed
    // Where a cell stands, in twips from the grid's left top corner; nowhere for a cell that is not there.
    TwipsRect cellPlace(CellAddress cell) const;
    // What an arrow key means where the grid is shown from right to left.
    int16_t towards(int16_t key) const;
    void goTo(CellAddress cell);  // as a person does: it is shown, and the events tell of it
    // Makes a column as wide as its texts need, as a double click on its border does; of a million rows the
    // longest ones are measured.
    void fitColumn(int32_t col);
    // The column whose right border is near `x`, in pixels from the grid's left edge; -1 for none, and while
    // a person may not resize columns.
    int32_t columnBorderAt(int32_t x) const;
    // Moves a column's right border there, as dragging it does; a column keeps a few pixels.
    void dragColumnBorder(int32_t col, int32_t x);
    void copySelection() const;
    void selectAll();  // as a person does; the current cell is the first one

    bool hasFocus() const;
    bool takeFocus() override;
    Widget* focused() override { return hasFocus() ? this : Container::focused(); }

    void paint(Canvas& canvas, const PixelRect& bounds) override;
    void mouse(const MouseEvent& event) override;
    bool wheel(const WheelEvent& event) override;
    bool contextMenu(std::optional<PixelPoint> at) override;
    void captureLost() override { endDrag(); }
    bool takesDrops() const override { return true; }
    void drop(DropEvent& event) override;
    void keyDown(KeyEvent& event) override;
    void keyUp(KeyEvent& event) override { keyWentUp(event); }
    int16_t keyPress(int16_t character) override;
    void attach(SurfacePeer& peer) override;
    void detach() override;
    void placed() override;
    void appearanceChanged() override;
    void focusCameBelow() override { showFocus(); }
    void focusWentBelow() override;
    AccessibleItem accessible(AccessiblePart part) const override;
    int32_t accessibleParts(AccessiblePart of) const override;
    int32_t accessibleInSight(AccessiblePart of, int32_t index, int32_t by) const override;
    AccessiblePart accessiblePartAt(PixelPoint at) const override;
    AccessibleId accessibleFocus() override;
    std::vector<AccessiblePart> accessibleSelection() const override;
    AccessiblePart accessiblePlaceOf(const Widget& child) const override;
    void useAccessible(AccessiblePart part, const AccessibleAction& action) override;
    // What the grid is as a whole, for the control around it.
    void describeWhole(AccessibleItem& item) const;

private:
    // `carry` becomes a drag of the selected texts once the mouse moves.
    enum class Drag : uint8_t { none, selection, column, carry };

    void cellsChanged(const CellRange& cells) override;
    void selectionChanged(const CellRange& before) override;
    void placesChanged(int32_t fromRow, int32_t fromCol) override;
    GridView viewAt(ScrollOffset offset) const;
    void invalidateCells(const CellRange& cells);
    void invalidateArea(const PixelRect& onWidget);
    void layOut();
    void useFont();
    std::vector<int32_t> widestRows(int32_t col) const;
    void showFocus();
    GridLook look() const;
    GridMarks marks() const;
    void press(const MouseEvent& event);
    void dragSelection();
    void carryOut();
    void resizeColumn(int32_t col, int32_t twips);
    void beginDrag(Drag drag);
    void endDrag();
    void scrollAtEdge();
    void showCursor(PixelPoint at);
    int32_t borderAt(PixelPoint at) const;
    void select(CellAddress cell, bool extend);
    void step(ScrollBar::Step by, const ScrollBar& bar);

    GridColours colours_;
    CheckColumns checkColumns_;
    CellDescriber* describer_ = nullptr;
    FontHolder font_;
    ScrollOffset offset_;
    uint32_t toldRevision_ = 0;
    bool attached_ = false;  // there is a window to draw in
    bool redraw_ = true;
    bool allowUserResizing_ = true;
    uint8_t highLight_ = 1;
    Drag drag_ = Drag::none;
    PixelPoint pressedAt_;  // while a press may become a drag of texts
    int32_t draggedCol_ = 0;
    int32_t dragRest_ = 0;  // from the mouse to the column's border
    PixelPoint mouse_{-1, -1};
    double wheelRest_ = 0;  // of fine-grained wheels, until it makes a pixel
    ScrollBar verticalBar_, horizontalBar_;
    Timer dragTimer_;
    std::vector<Connection> connections_;
};

}  // namespace obk
