#include "flexgrid/cell_movement.h"

#include "widgets/input.h"

namespace obk {

namespace {

// The row that covers a position, the nearest one that shows beyond either end.
int32_t rowNear(const RowSequence& rows, int64_t position) {
    return rows.rowAt(std::clamp<int64_t>(position, 0, std::max<int64_t>(rows.top(rows.size()) - 1, 0)));
}

int32_t colNear(const ColumnList& columns, int64_t position) {
    return columns.colAt(
        std::clamp<int64_t>(position, 0, std::max<int64_t>(columns.left(columns.size()) - 1, 0)));
}

}  // namespace

std::optional<CellAddress> movedBy(int16_t key, bool control, CellAddress from, const GridView& view) {
    const RowSequence& rows = view.grid().rowList();
    const ColumnList& columns = view.grid().columns();
    if (!view.grid().contains(from)) return std::nullopt;
    if (view.contentHeight() == 0 || view.contentWidth() == 0) return from;
    const int64_t top = rows.top(from.row), left = columns.left(from.col);
    const int32_t firstRow = rowNear(rows, 0), lastRow = rowNear(rows, view.contentHeight());
    const int32_t firstCol = colNear(columns, 0), lastCol = colNear(columns, view.contentWidth());
    const int32_t height = rows.heightPixels(from.row);
    const int64_t page = std::max(view.size().height, height);
    switch (key) {
        case key::up:
            return CellAddress{control ? firstRow : rowNear(rows, top - 1), from.col};
        case key::down:
            return CellAddress{control ? lastRow : rowNear(rows, top + height), from.col};
        case key::pageUp:
            return CellAddress{control ? firstRow : rowNear(rows, top + height - page), from.col};
        case key::pageDown:
            return CellAddress{control ? lastRow : rowNear(rows, top + page), from.col};
        case key::left:
            return CellAddress{from.row, control ? firstCol : colNear(columns, left - 1)};
        case key::right:
            return CellAddress{from.row,
                               control ? lastCol : colNear(columns, left + columns.widthPixels(from.col))};
        case key::home:
            return CellAddress{control ? firstRow : from.row, firstCol};
        case key::end:
            return CellAddress{control ? lastRow : from.row, lastCol};
        default:
            return std::nullopt;
    }
}

}  // namespace obk
