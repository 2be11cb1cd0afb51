// What the editable grid tells screen readers, and what they do with its cells.
#include "grid/cell_rules.h"
#include "grid/grid_edit.h"

namespace obk {

using Kind = AccessibleAction::Kind;

AccessibleItem GridEdit::describeSurface() const {
    AccessibleItem item = Control::describeSurface();
    flexGRID.describeWhole(item);
    item.allow(Kind::focus);
    return item;
}

void GridEdit::useSurface(const AccessibleAction&) {
    flexGRID.takeFocus();
}

void GridEdit::describeCell(AccessibleItem& item, CellAddress cell) const {
    item.name = header_.spoken(cell.col) + u", " + item.name;
    item.allow(Kind::press);
    const ColumnType type = types_.type(cell.col);
    const bool editable = editing_.opensFor(cell);
    item.set(AccessibleItem::readOnly, !editable);
    if (type == ColumnType::checkBox) {
        item.set(AccessibleItem::checkable);
        item.set(AccessibleItem::checked, trimmed(item.value) == checkedText);
        item.set(AccessibleItem::valued, false);
        item.value = {};
        if (editable) item.allow(Kind::toggle);
    } else if (editable) {
        item.allow(Kind::write);
    }
}

// As a person does it: the host hears of each step.
void GridEdit::useCell(CellAddress cell, const AccessibleAction& action) {
    flexGRID.takeFocus();
    flexGRID.goTo(cell);
    if (flexGRID.current() != cell) return;
    if (action.kind == Kind::press) return flexGRID.click();
    if (!editing_.show()) return;
    if (action.kind == Kind::toggle)
        editing_.editors().toggle();
    else
        editing_.editors().paste(action.text);
    editing_.commit();
}

std::optional<CellAddress> GridEdit::cellUnder(const Widget& child) const {
    return editing_.editors().cellUnder(child);
}

}  // namespace obk
