// The flexible grid: cells that a person scrolls through, selects, sizes and copies.
#pragma once

#include "flexgrid/cell_describer.h"
#include "flexgrid/grid_keys.h"
#include "flexgrid/shown_grid.h"
#include "widgets/timer.h"

#include <vector>

namespace obk {

class FlexGrid final : public ShownGrid {
public:
    explicit FlexGrid(Container& parent);

    void SetAllowUserResizing(bool allow) { allowUserResizing_ = allow; }
    // What is below the mouse, wherever it was heard of last; -1 for none.
    int32_t MouseRow() const { return view().rowAt(mouse_.y); }
    int32_t MouseCol() const { return view().colAt(mouse_.x); }
    PixelPoint mouseAt() const { return mouse_; }
    void setDescriber(CellDescriber* describer) { describer_ = describer; }  // borrowed
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
    void click();      // on the current cell

    void mouse(const MouseEvent& event) override;
    bool wheel(const WheelEvent& event) override;
    bool contextMenu(std::optional<PixelPoint> at) override;
    void captureLost() override { endDrag(); }
    bool takesDrops() const override { return true; }
    void drop(DropEvent& event) override;
    void keyDown(KeyEvent& event) override;
    void keyUp(KeyEvent& event) override { keyWentUp(event); }
    int16_t keyPress(int16_t character) override;
    void detach() override;
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

    std::vector<int32_t> widestRows(int32_t col) const;
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

    CellDescriber* describer_ = nullptr;
    bool allowUserResizing_ = true;
    Drag drag_ = Drag::none;
    PixelPoint pressedAt_;  // while a press may become a drag of texts
    int32_t draggedCol_ = 0;
    int32_t dragRest_ = 0;  // from the mouse to the column's border
    PixelPoint mouse_{-1, -1};
    double wheelRest_ = 0;  // of fine-grained wheels, until it makes a pixel
    Timer dragTimer_;
    Connection ticked_;
};

}  // namespace obk
