#include "flexgrid/column_list.h"

#include <algorithm>
#include <iterator>

namespace obk {

void ColumnList::resize(int32_t count) {
    const size_t before = columns_.size();
    columns_.resize(static_cast<size_t>(count));
    place(std::min(before, columns_.size()));
}

void ColumnList::setWidth(int32_t col, int32_t twips) {
    columns_[static_cast<size_t>(col)].width = twips;
    place(static_cast<size_t>(col));
}

void ColumnList::setDpi(Dpi dpi) {
    dpi_ = dpi;
    place(0);
}

// Columns are whole pixels wide, and what shows at all shows as one pixel at least.
void ColumnList::place(size_t fromCol) {
    const auto pixels = [this](int32_t twips) {
        return twips <= 0 ? 0 : std::max(dpi_.toPixels(Twips{static_cast<double>(twips)}), 1);
    };
    int64_t left = fromCol == 0 ? 0 : columns_[fromCol - 1].left + pixels(columns_[fromCol - 1].width);
    for (size_t col = fromCol; col < columns_.size(); ++col) {
        columns_[col].left = left;
        left += pixels(columns_[col].width);
    }
    end_ = left;
}

int64_t ColumnList::left(int32_t col) const {
    return col == size() ? end_ : columns_[static_cast<size_t>(col)].left;
}

int32_t ColumnList::colAt(int64_t position) const {
    if (position < 0) return -1;
    if (position >= end_) return size();
    const auto after =
        std::upper_bound(columns_.begin(), columns_.end(), position,
                         [](int64_t value, const Column& column) { return value < column.left; });
    return static_cast<int32_t>(std::prev(after) - columns_.begin());
}

}  // namespace obk
