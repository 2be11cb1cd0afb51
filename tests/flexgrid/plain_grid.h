// A second grid model, as simple as can be: what GridModel is compared with.
#pragma once

#include "flexgrid/grid_model.h"

#include <algorithm>
#include <vector>

namespace obk::test {

struct PlainCell {
    Text text;
    CellStyle style;
};

struct PlainRow {
    std::vector<PlainCell> cells;
    int32_t height = -1;
};

// Vectors of vectors, every position summed up from the start, every order found by inserting.
class PlainGrid {
public:
    PlainGrid(int32_t rowCount, int32_t cols, Dpi dpi) : dpi_(dpi), widths(static_cast<size_t>(cols), 960) {
        setRows(rowCount);
    }

    int32_t cols() const { return static_cast<int32_t>(widths.size()); }
    void setRows(int32_t count) { rows.resize(static_cast<size_t>(count), emptyRow()); }
    void setCols(int32_t count) {
        widths.resize(static_cast<size_t>(count), 960);
        for (PlainRow& row : rows) row.cells.resize(widths.size());
    }
    void addItem(const Text& item, int32_t at) {
        PlainRow row = emptyRow();
        size_t col = 0;
        for (const char16_t unit : item) {
            if (unit == u'\t')
                ++col;
            else if (col < row.cells.size())
                row.cells[col].text.push_back(unit);
        }
        rows.insert(rows.begin() + at, row);
    }
    void removeItem(int32_t at) { rows.erase(rows.begin() + at); }
    void clear() {
        for (PlainRow& row : rows) row.cells.assign(widths.size(), {});
    }
    void sort(int32_t col, SortDirection direction, int32_t first, int32_t last);

    int32_t height(const PlainRow& row) const { return row.height < 0 ? defaultHeight : row.height; }
    int32_t pixels(int32_t twips) const {
        return twips == 0 ? 0 : std::max(1, dpi_.toPixels(Twips{static_cast<double>(twips)}));
    }
    int64_t top(int32_t row) const {
        int64_t top = 0;
        for (int32_t at = 0; at < row; ++at) top += pixels(height(rows[static_cast<size_t>(at)]));
        return top;
    }
    int64_t left(int32_t col) const {
        int64_t left = 0;
        for (int32_t at = 0; at < col; ++at) left += pixels(widths[static_cast<size_t>(at)]);
        return left;
    }
    void setDpi(Dpi dpi) { dpi_ = dpi; }

private:
    PlainRow emptyRow() const { return {std::vector<PlainCell>(widths.size()), -1}; }

    Dpi dpi_;

public:
    std::vector<int32_t> widths;
    std::vector<PlainRow> rows;
    int32_t defaultHeight = GridModel::defaultRowHeight;
};

// -1, 0 or 1: the generic order, worked out anew for each pair.
int genericOrder(TextView left, TextView right);

inline void PlainGrid::sort(int32_t col, SortDirection direction, int32_t first, int32_t last) {
    const auto cell = static_cast<size_t>(col);
    for (int32_t at = first + 1; at <= last; ++at) {
        for (int32_t place = at; place > first; --place) {
            auto& above = rows[static_cast<size_t>(place - 1)];
            auto& below = rows[static_cast<size_t>(place)];
            const int order = genericOrder(above.cells[cell].text, below.cells[cell].text);
            if (direction == SortDirection::ascending ? order <= 0 : order >= 0) break;
            std::swap(above, below);
        }
    }
}

}  // namespace obk::test
