#include "flexgrid/style_table.h"

namespace obk {

const CellStyle& StyleRef::unset() {
    static const CellStyle style;
    return style;
}

void StyleRef::drop() const noexcept {
    StyleTable& table = *entry_->second.table;
    table.latest_ = {};
    table.entries_.erase(table.entries_.find(entry_->first));
}

StyleRef StyleTable::shared(const CellStyle& style) {
    if (style == StyleRef::unset()) return {};
    return StyleRef(&*entries_.try_emplace(style, StyleUse{this}).first);
}

}  // namespace obk
