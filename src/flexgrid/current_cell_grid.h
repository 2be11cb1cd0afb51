// The cells of a grid, and those of them that are selected: tells of what has to be drawn anew.
#pragma once

#include "flexgrid/grid_view.h"

#include <functional>

namespace obk {

// Cells are named by row and column; the current one is moved for the person who works there. Functions that
// answer whether they did something refuse what is out of range and change nothing; when memory ends,
// std::bad_alloc leaves all as it was.
class CurrentCellGrid {
public:
    CurrentCellGrid(const CurrentCellGrid&) = delete;
    CurrentCellGrid& operator=(const CurrentCellGrid&) = delete;

    const GridModel& model() const { return model_; }
    // Another number whenever rows or columns have come, gone or changed places, or all was emptied.
    uint32_t revision() const { return revision_; }
    // Work on the cells that is not named below; the selection is brought back into the grid afterwards.
    void change(const std::function<void(GridModel&)>& work);

    int32_t Rows() const { return model_.rows(); }
    bool SetRows(int32_t count);
    int32_t Cols() const { return model_.cols(); }
    bool SetCols(int32_t count);

    // The current cell, one end of the selection. Its row is -1 without rows. Setting either half makes the
    // selection this one cell.
    CellAddress current() const { return current_; }
    int32_t Row() const { return current_.row; }
    bool SetRow(int32_t row);
    int32_t Col() const { return current_.col; }
    // Also in a grid without rows, for the rows that come.
    bool SetCol(int32_t col);
    // The corner of the selection opposite the current cell.
    CellAddress corner() const { return corner_; }
    CellRange selection() const { return CellRange::between(current_, corner_); }
    bool Select(CellAddress current, CellAddress corner);
    // Makes the selection one cell.
    bool Select(CellAddress cell) {
        if (watched_ || !model_.contains(cell)) return Select(cell, cell);
        current_ = cell;
        corner_ = cell;
        return true;
    }
    // The same by halves: where one is out of range the other moves all the same. The current cell then.
    CellAddress SelectByHalves(CellAddress cell) {
        if (!Select(cell)) {
            SetCol(cell.col);
            SetRow(cell.row);
        }
        return current_;
    }

    // Inserts before a row, or after the last one. Tab characters stand between the cells.
    bool AddItem(TextView item, int32_t row);
    bool RemoveItem(int32_t row);
    // Empties all cells; rows, columns and their sizes stay.
    void Clear();
    // All rows, by the texts of one column. The current record stays the current one, and alone is selected.
    bool Sort(int32_t col, SortDirection direction, const SortKeyOf& keyOf = {});

    bool setText(CellAddress cell, TextView text);
    // One attribute of a cell's style: setAttribute<&CellStyle::bold>(cell, true).
    template <auto Attribute, typename Setting>
    bool setAttribute(CellAddress cell, Setting&& setting) {
        return changed(cell, model_.setAttribute<Attribute>(cell, std::forward<Setting>(setting)));
    }
    bool setPicture(CellAddress cell, PictureRef picture, CellAlignment alignment);

    // Twips; 0 hides, and stands for what is out of range.
    int32_t ColWidth(int32_t col) const;
    bool SetColWidth(int32_t col, int32_t twips);
    bool SetColAlignment(int32_t col, CellAlignment alignment);
    int32_t RowHeight(int32_t row) const;
    bool SetRowHeight(int32_t row, int32_t twips);

protected:
    CurrentCellGrid(int32_t rows, int32_t cols, Dpi dpi);
    ~CurrentCellGrid() = default;

    // Whether cells and selection are told of.
    void setWatched(bool watched) { watched_ = watched; }
    bool watched() const { return watched_; }
    // What has changed and may have to be drawn anew. Nothing may throw from here.
    virtual void cellsChanged(const CellRange& cells) = 0;
    // After that, where they are not only drawn in another way.
    virtual void textsChanged(const CellRange& cells) = 0;
    virtual void selectionChanged(const CellRange& before) = 0;
    // Everything from this row down, from this column to the right, may stand elsewhere or be gone.
    virtual void placesChanged(int32_t fromRow, int32_t fromCol) = 0;

    GridModel& ownModel() { return model_; }

private:
    bool changed(CellAddress cell, bool done) {
        if (done && watched_) cellsChanged(CellRange::between(cell, cell));
        return done;
    }
    bool bringInside();

    GridModel model_;
    CellAddress current_, corner_;
    uint32_t revision_ = 0;
    bool watched_ = false;
};

}  // namespace obk
