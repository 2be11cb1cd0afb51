// The cells of a grid as hosts speak to them: through a current cell that is moved to a place before its text
// or look is set.
#pragma once

#include "flexgrid/grid_view.h"

#include <functional>

namespace obk {

// Functions that answer whether they did something refuse what is out of range and change nothing; when
// memory ends, std::bad_alloc leaves all as it was. Nothing here raises an event.
class CurrentCellGrid {
public:
    CurrentCellGrid(const CurrentCellGrid&) = delete;
    CurrentCellGrid& operator=(const CurrentCellGrid&) = delete;

    const GridModel& model() const { return model_; }
    // Another number whenever rows or columns have come, gone or changed places, or all was emptied.
    uint32_t arrangement() const { return arrangement_; }
    // Work on the cells that is not named below; the current cell is brought back into the grid afterwards.
    void change(const std::function<void(GridModel&)>& work);

    int32_t Rows() const { return model_.rows(); }
    bool SetRows(int32_t count);
    int32_t Cols() const { return model_.cols(); }
    bool SetCols(int32_t count);

    // -1 without rows. Setting either makes the selection this one cell.
    int32_t Row() const { return current_.row; }
    bool SetRow(int32_t row);
    int32_t Col() const { return current_.col; }
    bool SetCol(int32_t col);
    // The corner of the selection opposite the current cell.
    int32_t RowSel() const { return corner_.row; }
    bool SetRowSel(int32_t row) { return Select(current_, {row, corner_.col}); }
    int32_t ColSel() const { return corner_.col; }
    bool SetColSel(int32_t col) { return Select(current_, {corner_.row, col}); }
    bool Select(CellAddress current, CellAddress corner);
    // Makes the selection one cell.
    bool Select(CellAddress cell) {
        if (watched_ || !model_.contains(cell)) return Select(cell, cell);
        current_ = cell;
        corner_ = cell;
        return true;
    }
    // Each half stands alone: where one is out of range the other moves all the same.
    void SelectByHalves(CellAddress cell);
    CellAddress current() const { return current_; }
    CellRange selection() const { return CellRange::between(current_, corner_); }

    // Inserts before a row, or after the last one. Tab characters stand between the cells.
    bool AddItem(TextView item, int32_t row);
    bool AddItem(TextView item) { return AddItem(item, Rows()); }
    bool RemoveItem(int32_t row);
    // Empties all cells; rows, columns and their sizes stay.
    void Clear();
    // 1 sorts all rows by the current column, 2 in descending order.
    bool Sort(int32_t setting);

    // Of the current cell. Texts are valid until the next change.
    TextView Text() const { return model_.text(current_); }
    bool SetText(TextView text);
    bool SetCellBackColor(OleColour colour);
    // The same for a cell that becomes the current one, by halves, at the least cost: hosts colour whole
    // grids cell by cell.
    void SetCellBackColor(CellAddress cell, OleColour colour) {
        if (watched_ || !model_.repeatAttribute<&CellStyle::backColour>(cell, colour))
            return colourAnew(cell, colour);
        current_ = cell;
        corner_ = cell;
    }
    bool SetCellForeColor(OleColour colour) { return setStyle<&CellStyle::foreColour>(colour); }
    bool SetCellAlignment(int32_t alignment);
    bool SetCellFontName(TextView name);
    bool SetCellFontSize(float points) { return setStyle<&CellStyle::fontSize>(points); }
    bool SetCellFontBold(bool bold) { return setStyle<&CellStyle::bold>(bold); }
    bool SetCellFontItalic(bool italic) { return setStyle<&CellStyle::italic>(italic); }
    bool SetCellFontUnderline(bool underline) { return setStyle<&CellStyle::underline>(underline); }
    bool SetCellFontStrikeThrough(bool strike) { return setStyle<&CellStyle::strikeThrough>(strike); }
    bool SetCellPicture(PictureRef picture) { return setStyle<&CellStyle::picture>(std::move(picture)); }
    bool SetCellPictureAlignment(int32_t alignment);
    // Both at once.
    bool SetCellPicture(PictureRef picture, CellAlignment alignment);

    // Twips; 0 hides, and stands for what is out of range.
    int32_t ColWidth(int32_t col) const;
    bool SetColWidth(int32_t col, int32_t twips);
    bool SetColAlignment(int32_t col, int32_t alignment);
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
    virtual void selectionChanged(const CellRange& before, CellAddress currentBefore) = 0;
    // Everything from this row down, from this column to the right, may stand elsewhere or be gone.
    virtual void placesChanged(int32_t fromRow, int32_t fromCol) = 0;

    GridModel& ownModel() { return model_; }

private:
    template <auto Attribute, typename Setting>
    bool setStyle(Setting&& setting) {
        if (!model_.setAttribute<Attribute>(current_, std::forward<Setting>(setting))) return false;
        currentCellChanged();
        return true;
    }
    void currentCellChanged() {
        if (watched_) cellsChanged(CellRange::between(current_, current_));
    }
    void colourAnew(CellAddress cell, OleColour colour);
    bool bringInside();

    GridModel model_;
    CellAddress current_, corner_;
    uint32_t arrangement_ = 0;
    bool watched_ = false;
};

}  // namespace obk
