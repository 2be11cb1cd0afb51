// The editable grid's caption bar: which column was pressed, and sorting by it.
#include "base/attempt.h"
#include "grid/grid_edit.h"

namespace obk {

// Moves the current column over the columns as it looks for the one that was pressed, and leaves it there.
int32_t GridEdit::BarHeaderColumn() {
    BoxHide();
    flexGRID.SetRedraw(false);
    const Twips pressed = picTOPBAR.pressedAt();
    int32_t hit = -1;
    for (int32_t col = 0; col < flexGRID.Cols() && hit < 0; ++col) {
        flexGRID.SetCol(col);
        const TwipsRect cell = flexGRID.cellPlace();
        if (cell.left < pressed && pressed < cell.left + cell.width) hit = col;
    }
    flexGRID.SetRedraw(true);
    return hit;
}

void GridEdit::BarHeaderSort() {
    const int32_t col = BarHeaderColumn();
    if (col < 0) return;
    GridColSort(col);
    GridChange();
}

// The rows are sorted by the current column; `colno` only says whether there is such a column.
void GridEdit::GridColSort(int32_t colno) {
    editing_.commit();
    // A column that was not sorted last is sorted in the direction of the last sort.
    if (flexGRID.Col() != sortedCol_) sortedDescending_ = !sortedDescending_;
    picTOPBAR.moveSortMark(flexGRID.Col());
    if (colno >= 0 && colno < flexGRID.Cols()) {
        sortedDescending_ = !sortedDescending_;
        attempt([&] { flexGRID.Sort(sortedDescending_ ? 2 : 1); });
        picTOPBAR.drawSortMark(sortedDescending_);
    }
    sortedCol_ = flexGRID.Col();
}

// The newest first, in grids that have their dates in the fifth column; as texts, like any other sort.
void GridEdit::GridColSortInitialDate() {
    constexpr int32_t dateCol = 4;
    editing_.commit();
    const bool hasDates = flexGRID.SetCol(dateCol);
    picTOPBAR.moveSortMark(flexGRID.Col());
    if (hasDates) {
        sortedDescending_ = true;
        attempt([&] { flexGRID.Sort(2); });
        picTOPBAR.drawSortMark(true);
    }
    sortedCol_ = flexGRID.Col();
}

}  // namespace obk
