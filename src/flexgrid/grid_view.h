// Which part of a grid shows in a rectangle, and where its cells stand there. Costs what shows, whatever the
// number of rows.
#pragma once

#include "flexgrid/grid_model.h"
#include "widgets/scroll_bar.h"

#include <algorithm>

namespace obk {

// Rows `top` to `bottom`, columns `left` to `right`, these included.
struct CellRange {
    int32_t top = 0, left = 0, bottom = -1, right = -1;

    static CellRange between(CellAddress one, CellAddress other) {
        return {std::min(one.row, other.row), std::min(one.col, other.col), std::max(one.row, other.row),
                std::max(one.col, other.col)};
    }
    bool empty() const { return bottom < top || right < left; }
    bool single() const { return top == bottom && left == right; }
    bool contains(CellAddress cell) const {
        return cell.row >= top && cell.row <= bottom && cell.col >= left && cell.col <= right;
    }
    CellRange intersected(const CellRange& other) const {
        return {std::max(top, other.top), std::max(left, other.left), std::min(bottom, other.bottom),
                std::min(right, other.right)};
    }
    friend bool operator==(const CellRange&, const CellRange&) = default;
};

// How far the cells are scrolled, in whole pixels.
struct ScrollOffset {
    int64_t x = 0, y = 0;
    friend bool operator==(ScrollOffset, ScrollOffset) = default;
};

// Valid until the grid changes.
class GridView {
public:
    // Of a widget of this size, with scroll bars so thick at its right and bottom edge where they are needed.
    // An offset out of range is moved into it.
    GridView(const GridModel& grid, PixelSize area, int32_t barThickness, ScrollOffset wanted);

    const GridModel& grid() const { return grid_; }
    // What is left for cells, from the widget's left top corner.
    PixelSize size() const { return size_; }
    bool verticalBar() const { return verticalBar_; }
    bool horizontalBar() const { return horizontalBar_; }
    ScrollRange verticalRange() const { return {contentHeight(), size_.height, offset_.y}; }
    ScrollRange horizontalRange() const { return {contentWidth(), size_.width, offset_.x}; }
    ScrollOffset offset() const { return offset_; }
    int64_t contentWidth() const { return grid_.columns().left(grid_.cols()); }
    int64_t contentHeight() const { return grid_.rowList().top(grid_.rows()); }

    // Cells of which a pixel shows; empty where there are none.
    CellRange visible() const;
    // The first row that shows; -1 without rows.
    int32_t topRow() const;
    int32_t leftCol() const;
    // Where cells stand on the widget; what lies far outside is brought near.
    PixelRect rect(const CellRange& cells) const;
    // Also of the place after the last row and column.
    PixelPoint leftTop(CellAddress cell) const;
    PixelRect rect(CellAddress cell) const { return rect({cell.row, cell.col, cell.row, cell.col}); }
    // -1 for what lies on no row or column, or outside the view.
    int32_t rowAt(int32_t y) const;
    int32_t colAt(int32_t x) const;
    // The cell nearest to a point; row -1 without rows.
    CellAddress nearest(PixelPoint point) const;
    // The column whose right edge is within `reach` pixels, fewer in narrow columns; -1 for none.
    int32_t colBorderAt(int32_t x, int32_t reach) const;

    // Calls use(index, first, end) with the places on the widget of all rows, of all columns that show.
    template <typename Use>
    void eachVisibleRow(Use&& use) const;
    template <typename Use>
    void eachVisibleCol(Use&& use) const;

    // Offsets to scroll to; those of rows begin with a whole row unless it is higher than the view.
    ScrollOffset showing(CellAddress cell) const;
    ScrollOffset atRow(int32_t row) const { return {offset_.x, grid_.rowList().top(row)}; }
    ScrollOffset atCol(int32_t col) const { return {grid_.columns().left(col), offset_.y}; }
    ScrollOffset byRows(int32_t count) const;
    ScrollOffset byCols(int32_t count) const;
    ScrollOffset byPagesDown(int32_t count) const;
    ScrollOffset byPagesRight(int32_t count) const;
    // A row's beginning near a position.
    ScrollOffset nearRowAt(int64_t y) const;

private:
    const GridModel& grid_;
    PixelSize size_;
    bool verticalBar_ = false, horizontalBar_ = false;
    ScrollOffset offset_;
};

template <typename Use>
void GridView::eachVisibleRow(Use&& use) const {
    const RowSequence& rows = grid_.rowList();
    // From place to place: hidden rows between two that show cost nothing.
    for (int32_t row = topRow(); row >= 0 && row < grid_.rows();) {
        const int64_t top = rows.top(row), end = top + rows.heightPixels(row);
        use(row, static_cast<int32_t>(top - offset_.y), static_cast<int32_t>(end - offset_.y));
        row = end - offset_.y < size_.height ? rows.rowAt(end) : -1;
    }
}

template <typename Use>
void GridView::eachVisibleCol(Use&& use) const {
    const ColumnList& columns = grid_.columns();
    for (int32_t col = leftCol(); col >= 0 && col < columns.size();) {
        const int64_t left = columns.left(col), end = left + columns.widthPixels(col);
        use(col, static_cast<int32_t>(left - offset_.x), static_cast<int32_t>(end - offset_.x));
        col = end - offset_.x < size_.width ? columns.colAt(end) : -1;
    }
}

}  // namespace obk
