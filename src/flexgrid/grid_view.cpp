#include "flexgrid/grid_view.h"

namespace obk {

namespace {

// Rows and columns have the same rules along their own direction.
struct RowAxis {
    const RowSequence& rows;
    int32_t count() const { return rows.size(); }
    int32_t at(int64_t position) const { return rows.rowAt(position); }
    int64_t start(int32_t index) const { return rows.top(index); }
    int64_t end(int32_t index) const { return rows.top(index) + rows.heightPixels(index); }
    int64_t length() const { return rows.top(rows.size()); }
    int64_t usual() const { return rows.dpi().toPixels(Twips{static_cast<double>(rows.defaultHeight())}); }
};

struct ColAxis {
    const ColumnList& columns;
    int32_t count() const { return columns.size(); }
    int32_t at(int64_t position) const { return columns.colAt(position); }
    int64_t start(int32_t index) const { return columns.left(index); }
    int64_t end(int32_t index) const { return columns.left(index + 1); }
    int64_t length() const { return columns.left(columns.size()); }
    int64_t usual() const { return 20; }
};

// The first beginning of a row at or after a position.
template <typename Axis>
int64_t nextStart(const Axis& axis, int64_t position) {
    if (position <= 0) return 0;
    const int32_t index = axis.at(position);
    if (index >= axis.count()) return axis.length();
    return axis.start(index) == position ? position : axis.end(index);
}

// The last offset: as many whole rows as fit; the end of the last one where not even that does.
template <typename Axis>
int64_t lastOffset(const Axis& axis, int64_t view) {
    const int64_t rest = axis.length() - view;
    if (rest <= 0) return 0;
    const int64_t start = nextStart(axis, rest);
    return start < axis.length() ? start : rest;
}

// One row on; what is longer than the view is gone through in smaller steps.
template <typename Axis>
int64_t forward(const Axis& axis, int64_t position, int64_t view) {
    const int32_t index = axis.at(position);
    if (index < 0 || index >= axis.count()) return position;
    const int64_t end = axis.end(index);
    return end - position > view ? std::min(end, position + std::max<int64_t>(axis.usual(), 1)) : end;
}

template <typename Axis>
int64_t backward(const Axis& axis, int64_t position, int64_t view) {
    if (position <= 0) return 0;
    const int64_t start = axis.start(axis.at(std::min(position, axis.length()) - 1));
    return position - start > view ? std::max(start, position - std::max<int64_t>(axis.usual(), 1)) : start;
}

template <typename Axis>
int64_t bySteps(const Axis& axis, int64_t position, int64_t view, int32_t count) {
    for (; count > 0; --count) position = forward(axis, position, view);
    for (; count < 0; ++count) position = backward(axis, position, view);
    return position;
}

template <typename Axis>
int64_t byPages(const Axis& axis, int64_t position, int64_t view, int32_t count) {
    for (; count > 0; --count) {
        const int32_t index = axis.at(position + view);
        const int64_t start = index < axis.count() ? axis.start(index) : axis.length();
        position = start > position ? start : position + view;
    }
    for (; count < 0; ++count) {
        const int64_t start = nextStart(axis, position - view);
        position = start < position ? start : position - view;
    }
    return position;
}

// Moves as little as shows all of a stretch, or its beginning where it is longer than the view.
template <typename Align>
int64_t showingStretch(int64_t offset, int64_t view, int64_t start, int64_t end, Align&& align) {
    if (start < offset || end - start >= view) return start;
    return end > offset + view ? align(end - view) : offset;
}

int32_t bounded(int64_t position) {
    constexpr int64_t limit = 1 << 29;  // leaves room for sums of coordinates
    return static_cast<int32_t>(std::clamp(position, -limit, limit));
}

}  // namespace

GridView::GridView(const GridModel& grid, PixelSize area, int32_t barThickness, ScrollOffset wanted)
    : grid_(grid), size_(area) {
    const int64_t height = contentHeight(), width = contentWidth();
    const bool room = area.width > barThickness && area.height > barThickness;
    verticalBar_ = room && height > area.height;
    horizontalBar_ = room && width > area.width - (verticalBar_ ? barThickness : 0);
    verticalBar_ = room && height > area.height - (horizontalBar_ ? barThickness : 0);
    if (verticalBar_) size_.width -= barThickness;
    if (horizontalBar_) size_.height -= barThickness;
    offset_.x = std::clamp<int64_t>(wanted.x, 0, std::max<int64_t>(width - size_.width, 0));
    offset_.y = std::clamp<int64_t>(wanted.y, 0, lastOffset(RowAxis{grid.rowList()}, size_.height));
}

int32_t GridView::topRow() const {
    const int32_t row = grid_.rowList().rowAt(offset_.y);
    return row < grid_.rows() ? row : grid_.rows() - 1;
}

int32_t GridView::leftCol() const {
    return std::min(grid_.columns().colAt(offset_.x), grid_.cols() - 1);
}

CellRange GridView::visible() const {
    if (size_.width <= 0 || size_.height <= 0 || contentWidth() == 0 || contentHeight() == 0) return {};
    const int32_t bottom = grid_.rowList().rowAt(offset_.y + size_.height - 1);
    const int32_t right = grid_.columns().colAt(offset_.x + size_.width - 1);
    return {topRow(), leftCol(), std::min(bottom, grid_.rows() - 1), std::min(right, grid_.cols() - 1)};
}

PixelRect GridView::rect(const CellRange& cells) const {
    if (cells.empty()) return {};
    const PixelPoint leftTop = this->leftTop({cells.top, cells.left});
    const PixelPoint rightBottom = this->leftTop({cells.bottom + 1, cells.right + 1});
    return {leftTop.x, leftTop.y, rightBottom.x, rightBottom.y};
}

PixelPoint GridView::leftTop(CellAddress cell) const {
    return {bounded(grid_.columns().left(cell.col) - offset_.x),
            bounded(grid_.rowList().top(cell.row) - offset_.y)};
}

int32_t GridView::rowAt(int32_t y) const {
    if (y < 0 || y >= size_.height) return -1;
    const int32_t row = grid_.rowList().rowAt(offset_.y + y);
    return row < grid_.rows() ? row : -1;
}

int32_t GridView::colAt(int32_t x) const {
    if (x < 0 || x >= size_.width) return -1;
    const int32_t col = grid_.columns().colAt(offset_.x + x);
    return col < grid_.cols() ? col : -1;
}

CellAddress GridView::nearest(PixelPoint point) const {
    const int64_t y = offset_.y + std::clamp(point.y, 0, std::max(size_.height - 1, 0));
    const int64_t x = offset_.x + std::clamp(point.x, 0, std::max(size_.width - 1, 0));
    return {std::min(grid_.rowList().rowAt(y), grid_.rows() - 1),
            std::min(grid_.columns().colAt(x), grid_.cols() - 1)};
}

int32_t GridView::colBorderAt(int32_t x, int32_t reach) const {
    if (x < 0 || x >= size_.width) return -1;
    const ColumnList& columns = grid_.columns();
    const int64_t position = offset_.x + x;
    const int64_t end = columns.left(columns.size());
    if (position >= end) return position < end + reach ? columns.colAt(end - 1) : -1;
    const int32_t col = columns.colAt(position);
    // Something of a narrow column is left to press on.
    const int32_t inside = std::min(reach, columns.widthPixels(col) / 4);
    if (position >= columns.left(col + 1) - inside) return col;
    const int64_t left = columns.left(col);
    return left > 0 && position < left + inside ? columns.colAt(left - 1) : -1;
}

ScrollOffset GridView::showing(CellAddress cell) const {
    const RowAxis rows{grid_.rowList()};
    const ColAxis columns{grid_.columns()};
    ScrollOffset offset = offset_;
    if (cell.row >= 0)
        offset.y = showingStretch(offset_.y, size_.height, rows.start(cell.row), rows.end(cell.row),
                                  [&](int64_t least) { return nextStart(rows, least); });
    offset.x = showingStretch(offset_.x, size_.width, columns.start(cell.col), columns.end(cell.col),
                              [](int64_t least) { return least; });
    return offset;
}

ScrollOffset GridView::byRows(int32_t count) const {
    return {offset_.x, bySteps(RowAxis{grid_.rowList()}, offset_.y, size_.height, count)};
}

ScrollOffset GridView::byCols(int32_t count) const {
    return {bySteps(ColAxis{grid_.columns()}, offset_.x, size_.width, count), offset_.y};
}

ScrollOffset GridView::byPagesDown(int32_t count) const {
    return {offset_.x, byPages(RowAxis{grid_.rowList()}, offset_.y, size_.height, count)};
}

ScrollOffset GridView::byPagesRight(int32_t count) const {
    return {byPages(ColAxis{grid_.columns()}, offset_.x, size_.width, count), offset_.y};
}

ScrollOffset GridView::nearRowAt(int64_t y) const {
    const RowSequence& rows = grid_.rowList();
    if (y >= contentHeight() - size_.height) return {offset_.x, contentHeight()};
    const int32_t row = rows.rowAt(y);
    if (row < 0 || row >= rows.size() || rows.heightPixels(row) > size_.height) return {offset_.x, y};
    const int64_t top = rows.top(row), end = top + rows.heightPixels(row);
    return {offset_.x, y - top < end - y ? top : end};
}

}  // namespace obk
