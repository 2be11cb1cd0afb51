#include "flexgrid/style_table.h"

namespace obk {

const CellStyle& StyleRef::unset() {
    static const CellStyle style;
    return style;
}

void StyleRef::dropLast() const noexcept {
    StyleTable& table = *entry_->table;
    table.steps_.fill({});
    table.entries_.erase(table.entries_.find(entry_->style));
}

StyleRef StyleTable::shared(const CellStyle& style) {
    if (style.nothingSet()) return {};
    auto found = entries_.find(style);
    if (found == entries_.end()) found = entries_.insert(StyleRef::Entry{style, this, 0}).first;
    return StyleRef(*found);
}

}  // namespace obk
