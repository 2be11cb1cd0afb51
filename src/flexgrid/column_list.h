// The columns of a grid: how wide they are, where they stand, how their texts are aligned.
#pragma once

#include "base/units.h"
#include "flexgrid/cell_style.h"

#include <cstdint>
#include <vector>

namespace obk {

// Positions are whole pixels from the first column's left edge. Columns are 0 to size() - 1.
class ColumnList {
public:
    static constexpr int32_t defaultWidth = 960;  // twips

    explicit ColumnList(Dpi dpi) : dpi_(dpi) {}

    int32_t size() const { return static_cast<int32_t>(columns_.size()); }
    // Columns that come have the default width and the general alignment. Changes nothing when memory ends.
    void resize(int32_t count);

    int32_t width(int32_t col) const { return columns_[static_cast<size_t>(col)].width; }
    void setWidth(int32_t col, int32_t twips);
    CellAlignment alignment(int32_t col) const { return columns_[static_cast<size_t>(col)].alignment; }
    void setAlignment(int32_t col, CellAlignment alignment) {
        columns_[static_cast<size_t>(col)].alignment = alignment;
    }
    void setDpi(Dpi dpi);

    int64_t left(int32_t col) const;  // of size() too: where the last column ends
    int32_t widthPixels(int32_t col) const { return static_cast<int32_t>(left(col + 1) - left(col)); }
    // The column that covers a position; -1 left of the first, size() beyond the last. Hidden ones cover
    // none.
    int32_t colAt(int64_t position) const;

private:
    struct Column {
        int32_t width = defaultWidth;
        CellAlignment alignment = CellAlignment::general;
        int64_t left = 0;
    };

    void place(size_t fromCol);

    std::vector<Column> columns_;
    int64_t end_ = 0;
    Dpi dpi_;
};

}  // namespace obk
