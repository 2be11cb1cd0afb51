// What the flexible grid tells screen readers.
#include "flexgrid/flex_grid.h"
#include "widgets/surface.h"

#include <algorithm>

namespace obk {

using Kind = AccessibleAction::Kind;

int32_t FlexGrid::accessibleParts(AccessiblePart of) const {
    return of.whole() ? Rows() : of.col < 0 ? Cols() : 0;
}

// Hidden rows and columns between two that show cost nothing.
int32_t FlexGrid::accessibleInSight(AccessiblePart of, int32_t index, int32_t by) const {
    const CellRange seen = view().visible();
    const bool rows = of.whole();
    const int32_t first = rows ? seen.top : seen.left, last = rows ? seen.bottom : seen.right;
    if (seen.empty() || (by < 0 ? index < first : index > last)) return by < 0 ? -1 : accessibleParts(of);
    index = std::clamp(index, first, last) + (by < 0);
    return rows ? model().rowList().rowAt(model().rowList().top(index) - (by < 0))
                : model().columns().colAt(model().columns().left(index) - (by < 0));
}

AccessibleItem FlexGrid::accessible(AccessiblePart part) const {
    if (part.whole()) return {};
    const bool whole = part.col < 0;
    const GridView shown = view();
    const CellRange cells{part.row, whole ? 0 : part.col, part.row, whole ? Cols() - 1 : part.col};
    const PixelRect own = pixelBounds();
    const obk::Text row = u"row " + decimalText(int64_t{part.row} + 1);
    AccessibleItem item = itemOf(whole ? AccessibleItem::Role::row : AccessibleItem::Role::cell, row);
    item.bounds = shown.rect(cells).intersected({0, 0, shown.size().width, shown.size().height});
    item.bounds = item.bounds.empty() ? PixelRect{} : item.bounds.moved(own.left, own.top);
    item.set(AccessibleItem::selectable);
    item.set(AccessibleItem::selected, selection().intersected(cells) == cells);
    item.row = part.row;
    item.allow(Kind::select, Kind::extend, Kind::show);
    if (whole) return item;
    const CellAddress cell{part.row, part.col};
    item.col = part.col;
    item.value = model().text(cell);
    item.set(AccessibleItem::valued);
    item.set(AccessibleItem::readOnly);
    item.set(AccessibleItem::focusable);
    item.allow(Kind::focus);
    if (describer_) describer_->describeCell(item, cell);
    return item;
}

void FlexGrid::describeWhole(AccessibleItem& item) const {
    const GridView shown = view();
    const auto percent = [](int64_t part, int64_t of) {
        return of <= 0 ? 0 : 100 * static_cast<double>(part) / static_cast<double>(of);
    };
    const auto position = [&](const ScrollRange& range) {
        return range.last() == 0 ? -1 : percent(range.position, range.last());
    };
    const ScrollRange across = shown.horizontalRange(), down = shown.verticalRange();
    item.role = AccessibleItem::Role::grid;
    item.rows = Rows();
    item.cols = Cols();
    item.scroll = {position(across), position(down),
                   across.last() == 0 ? 100 : percent(across.page, across.length),
                   down.last() == 0 ? 100 : percent(down.page, down.length)};
    item.set(AccessibleItem::multiSelectable);
    item.set(AccessibleItem::focusable);
}

AccessiblePart FlexGrid::accessiblePartAt(PixelPoint at) const {
    const PixelRect own = pixelBounds();
    const GridView shown = view();
    const int32_t row = shown.rowAt(at.y - own.top);
    return {row, row < 0 ? -1 : shown.colAt(at.x - own.left)};
}

AccessibleId FlexGrid::accessibleFocus() {
    return hasFocus() ? AccessibleId{this, {Row(), Row() < 0 ? -1 : Col()}} : AccessibleId{};
}

// Of a million selected cells those that show.
std::vector<AccessiblePart> FlexGrid::accessibleSelection() const {
    std::vector<AccessiblePart> selected;
    const CellRange all = selection();
    const CellRange told = all.single() ? all : all.intersected(view().visible());
    for (int32_t row = told.top; row <= told.bottom && row >= 0; ++row) {
        for (int32_t col = told.left; col <= told.right; ++col) selected.push_back({row, col});
    }
    return selected;
}

AccessiblePart FlexGrid::accessiblePlaceOf(const Widget& child) const {
    const auto cell = describer_ ? describer_->cellUnder(child) : std::nullopt;
    return cell ? AccessiblePart{cell->row, cell->col} : AccessiblePart{};
}

void FlexGrid::useAccessible(AccessiblePart part, const AccessibleAction& action) {
    const CellAddress cell{part.row, part.col < 0 ? Col() : part.col};
    switch (action.kind) {
        case Kind::show:
            return show(cell);
        case Kind::extend:
            return select(cell, true);
        case Kind::focus:
            takeFocus();
            return goTo(cell);
        case Kind::select:
            goTo(part.col < 0 ? CellAddress{part.row, 0} : cell);
            if (part.col < 0) select({part.row, Cols() - 1}, true);
            return;
        default:
            if (describer_) describer_->useCell(cell, action);
    }
}

}  // namespace obk
