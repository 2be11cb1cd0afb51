#include "flexgrid/current_cell_grid.h"

namespace obk {

CurrentCellGrid::CurrentCellGrid(int32_t rows, int32_t cols, Dpi dpi) : model_(rows, cols, dpi) {
    bringInside();
}

void CurrentCellGrid::change(const std::function<void(GridModel&)>& work) {
    // Also when memory ends halfway: what was done by then stays done.
    struct Settle {
        CurrentCellGrid& grid;
        ~Settle() {
            ++grid.arrangement_;
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
    ++arrangement_;
    const bool moved = bringInside();
    if (count != before) placesChanged(moved ? 0 : std::min(before, count), 0);
    return true;
}

bool CurrentCellGrid::SetCols(int32_t count) {
    const int32_t before = Cols();
    if (!model_.setCols(count)) return false;
    ++arrangement_;
    const bool moved = bringInside();
    if (count != before) placesChanged(0, moved ? 0 : std::min(before, count));
    return true;
}

bool CurrentCellGrid::SetRow(int32_t row) {
    return Select(CellAddress{row, current_.col});
}

bool CurrentCellGrid::SetCol(int32_t col) {
    // Also in a grid without rows, for the rows that come.
    return Select(CellAddress{current_.row, col});
}

bool CurrentCellGrid::Select(CellAddress current, CellAddress corner) {
    const auto possible = [this](CellAddress cell) {
        return model_.contains(cell) || (Rows() == 0 && cell.row == -1 && cell.col >= 0 && cell.col < Cols());
    };
    if (!possible(current) || !possible(corner)) return false;
    if (current == current_ && corner == corner_) return true;
    const CellRange before = selection();
    const CellAddress currentBefore = current_;
    current_ = current;
    corner_ = corner;
    if (watched_) selectionChanged(before, currentBefore);
    return true;
}

void CurrentCellGrid::SelectByHalves(CellAddress cell) {
    if (Select(cell)) return;
    SetCol(cell.col);
    SetRow(cell.row);
}

bool CurrentCellGrid::AddItem(TextView item, int32_t row) {
    if (!model_.addItem(item, row)) return false;
    ++arrangement_;
    if (current_.row < 0) bringInside();
    placesChanged(row, 0);
    return true;
}

bool CurrentCellGrid::RemoveItem(int32_t row) {
    if (!model_.removeItem(row)) return false;
    ++arrangement_;
    const bool moved = bringInside();
    placesChanged(moved ? 0 : row, 0);
    return true;
}

void CurrentCellGrid::Clear() {
    model_.clear();
    ++arrangement_;
    if (watched_) cellsChanged({0, 0, Rows() - 1, Cols() - 1});
}

bool CurrentCellGrid::Sort(int32_t setting) {
    if (setting != 1 && setting != 2) return false;
    const auto direction = setting == 1 ? SortDirection::ascending : SortDirection::descending;
    if (!model_.sort(current_.col, direction, 0, Rows() - 1)) return false;
    ++arrangement_;
    placesChanged(0, 0);
    return true;
}

bool CurrentCellGrid::SetText(TextView text) {
    if (!model_.setText(current_, text)) return false;
    currentCellChanged();
    return true;
}

bool CurrentCellGrid::SetCellBackColor(OleColour colour) {
    return setStyle<&CellStyle::backColour>(colour);
}

void CurrentCellGrid::colourAnew(CellAddress cell, OleColour colour) {
    SelectByHalves(cell);
    SetCellBackColor(colour);
}

bool CurrentCellGrid::SetCellAlignment(int32_t alignment) {
    const auto known = cellAlignment(alignment);
    return known && setStyle<&CellStyle::alignment>(*known);
}

bool CurrentCellGrid::SetCellPictureAlignment(int32_t alignment) {
    const auto known = cellAlignment(alignment);
    return known && setStyle<&CellStyle::pictureAlignment>(*known);
}

bool CurrentCellGrid::SetCellPicture(PictureRef picture, CellAlignment alignment) {
    CellStyle style = *model_.style(current_);
    style.picture = std::move(picture);
    style.pictureAlignment = alignment;
    if (!model_.setStyle(current_, style)) return false;
    cellsChanged({current_.row, current_.col, current_.row, current_.col});
    return true;
}

bool CurrentCellGrid::SetCellFontName(TextView name) {
    return setStyle<&CellStyle::fontName>(std::make_shared<const obk::Text>(name));
}

int32_t CurrentCellGrid::ColWidth(int32_t col) const {
    return col >= 0 && col < Cols() ? model_.columns().width(col) : 0;
}

bool CurrentCellGrid::SetColWidth(int32_t col, int32_t twips) {
    if (!model_.setColWidth(col, twips)) return false;
    placesChanged(0, col);
    return true;
}

bool CurrentCellGrid::SetColAlignment(int32_t col, int32_t alignment) {
    const auto known = cellAlignment(alignment);
    if (!known || !model_.setColAlignment(col, *known)) return false;
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
