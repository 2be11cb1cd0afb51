#include "flexgrid/current_cell_grid.h"

#include "base/left_undone.h"

namespace obk {

namespace {

using Kind = LeftUndone::Kind;

// A row or column that a grid of so many does not have.
bool notThere(Kind kind, int32_t number, int32_t count) {
    tellUndone({.kind = kind, .number = number, .limit = count});
    return false;
}

}  // namespace

CurrentCellGrid::CurrentCellGrid(int32_t rows, int32_t cols, Dpi dpi) : model_(rows, cols, dpi) {
    bringInside();
}

void CurrentCellGrid::change(const std::function<void(GridModel&)>& work) {
    // Also when memory ends halfway: what was done by then stays done.
    struct Settle {
        CurrentCellGrid& grid;
        ~Settle() {
            ++grid.revision_;
            grid.bringInside();
            grid.placesChanged(0, 0);
        }
    } settle{*this};
    work(model_);
}

// After rows or columns have come or gone. Whether the selection had to move.
bool CurrentCellGrid::bringInside() {
    const auto inside = [this](CellAddress cell) {
        const int32_t leastRow = Rows() == 0 ? -1 : 0;
        return CellAddress{std::clamp(cell.row, leastRow, Rows() - 1), std::clamp(cell.col, 0, Cols() - 1)};
    };
    const CellAddress current = inside(current_), corner = inside(corner_);
    const bool moved = current != current_ || corner != corner_;
    current_ = current;
    corner_ = corner;
    return moved;
}

bool CurrentCellGrid::SetRows(int32_t count) {
    const int32_t before = Rows();
    if (!model_.setRows(count)) return false;
    ++revision_;
    const bool moved = bringInside();
    if (count != before) placesChanged(moved ? 0 : std::min(before, count), 0);
    return true;
}

bool CurrentCellGrid::SetCols(int32_t count) {
    const int32_t before = Cols();
    if (!model_.setCols(count)) return false;
    ++revision_;
    const bool moved = bringInside();
    if (count != before) placesChanged(0, moved ? 0 : std::min(before, count));
    return true;
}

bool CurrentCellGrid::SetRow(int32_t row) {
    return Select(CellAddress{row, current_.col}) || notThere(Kind::row, row, Rows());
}

bool CurrentCellGrid::SetCol(int32_t col) {
    return Select(CellAddress{current_.row, col}) || notThere(Kind::column, col, Cols());
}

bool CurrentCellGrid::Select(CellAddress current, CellAddress corner) {
    const auto possible = [this](CellAddress cell) {
        return model_.contains(cell) || (Rows() == 0 && cell.row == -1 && cell.col >= 0 && cell.col < Cols());
    };
    if (!possible(current) || !possible(corner)) return false;
    if (current == current_ && corner == corner_) return true;
    const CellRange before = selection();
    current_ = current;
    corner_ = corner;
    if (watched_) selectionChanged(before);
    return true;
}

bool CurrentCellGrid::AddItem(TextView item, int32_t row) {
    if (!model_.addItem(item, row)) return notThere(Kind::row, row, Rows());
    ++revision_;
    if (current_.row < 0) bringInside();
    placesChanged(row, 0);
    return true;
}

bool CurrentCellGrid::RemoveItem(int32_t row) {
    if (!model_.removeItem(row)) return notThere(Kind::row, row, Rows());
    ++revision_;
    const bool moved = bringInside();
    placesChanged(moved ? 0 : row, 0);
    return true;
}

void CurrentCellGrid::Clear() {
    model_.clear();
    ++revision_;
    const CellRange all{0, 0, Rows() - 1, Cols() - 1};
    if (watched_) cellsChanged(all);
    if (watched_) textsChanged(all);
}

bool CurrentCellGrid::Sort(int32_t col, SortDirection direction, const SortKeyOf& keyOf) {
    if (!model_.sort(col, direction, 0, Rows() - 1, keyOf, &current_.row)) return false;
    corner_ = current_;
    ++revision_;
    placesChanged(0, 0);
    return true;
}

bool CurrentCellGrid::setText(CellAddress cell, TextView text) {
    const bool another = watched_ && model_.text(cell) != text;
    const bool done = changed(cell, model_.setText(cell, text));
    if (done && another) textsChanged(CellRange::between(cell, cell));
    return done;
}

bool CurrentCellGrid::setPicture(CellAddress cell, PictureRef picture, CellAlignment alignment) {
    CellStyle style = *model_.style(cell);
    style.picture = std::move(picture);
    style.pictureAlignment = alignment;
    return changed(cell, model_.setStyle(cell, style));
}

int32_t CurrentCellGrid::ColWidth(int32_t col) const {
    return col >= 0 && col < Cols() ? model_.columns().width(col) : 0;
}

bool CurrentCellGrid::SetColWidth(int32_t col, int32_t twips) {
    if (!model_.setColWidth(col, twips))
        return col >= 0 && col < Cols() ? refuseNumber(twips, u"a width")
                                        : notThere(Kind::column, col, Cols());
    placesChanged(0, col);
    return true;
}

bool CurrentCellGrid::SetColAlignment(int32_t col, CellAlignment alignment) {
    if (!model_.setColAlignment(col, alignment)) return false;
    if (watched_) cellsChanged({0, col, Rows() - 1, col});
    return true;
}

int32_t CurrentCellGrid::RowHeight(int32_t row) const {
    return row >= 0 && row < Rows() ? model_.rowList().height(row) : 0;
}

bool CurrentCellGrid::SetRowHeight(int32_t row, int32_t twips) {
    if (!model_.setRowHeight(row, twips)) return false;
    placesChanged(row, 0);
    return true;
}

}  // namespace obk
