// The editable grid's caption bar: which column was pressed, and sorting by it.
#include "base/attempt.h"
#include "grid/grid_edit.h"

namespace obk {

void GridEdit::BarHeaderCaptionSet(int32_t colno, const Text& caption) {
    const bool another = header_.caption(colno) != caption;
    attempt([&] { header_.setCaption(colno, caption); });
    if (another && flexGRID.Redraw()) picTOPBAR.announce(AccessibleEvent::name, {colno, -1});
    picTOPBAR.invalidate();
}

// The column that was pressed becomes the current one; the last column, where none was.
int32_t GridEdit::BarHeaderColumn() {
    BoxHide();
    const Twips pressed = picTOPBAR.pressedAt();
    const auto hit = [&](int32_t col) {
        const TwipsRect cell = flexGRID.cellPlace({flexGRID.Row(), col});
        return cell.left < pressed && pressed < cell.left + cell.width;
    };
    int32_t col = 0;
    while (col < flexGRID.Cols() && !hit(col)) ++col;
    const bool found = flexGRID.SetCol(col);
    if (!found) flexGRID.SetCol(col - 1);
    flexGRID.SetRedraw(true);
    return found ? col : -1;
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
    const int32_t before = header_.sortedCol();
    header_.turnTo(flexGRID.Col());
    if (colno >= 0 && colno < flexGRID.Cols()) sortRows(header_.nextSort(), before);
    picTOPBAR.invalidate();
}

// The newest first, in grids that have their dates in the fifth column; as texts, like any other sort.
void GridEdit::GridColSortInitialDate() {
    constexpr int32_t dateCol = 4;
    editing_.commit();
    const bool hasDates = flexGRID.SetCol(dateCol);
    const int32_t before = header_.sortedCol();
    header_.moveTo(flexGRID.Col());
    if (hasDates) sortRows(SortDirection::descending, before);
    picTOPBAR.invalidate();
}

void GridEdit::sortRows(SortDirection direction, int32_t sortedBefore) {
    const auto keyOf = [this](TextView text, std::string& key) { platform().appendSortKey(text, key); };
    attempt([&] { flexGRID.Sort(header_.sortedCol(), direction, keyOf); });
    flexGRID.show(flexGRID.current());
    const int32_t col = header_.sortedCol();
    const bool markMoves = col != sortedBefore && header_.indicator(col).has_value();
    header_.sorted(direction);
    if (!flexGRID.Redraw()) return;
    if (markMoves) picTOPBAR.announce(AccessibleEvent::state, {sortedBefore, -1});
    picTOPBAR.announce(AccessibleEvent::state, {col, -1});
}

}  // namespace obk
