#include "flexgrid/style_table.h"

namespace obk {

const CellStyle& StyleRef::unset() {
    static const CellStyle style;
    return style;
}

void StyleRef::drop() const noexcept {
    entry_->table->drop(*entry_);
}

StyleRef StyleTable::shared(const CellStyle& style) {
    if (style.nothingSet()) return {};
    auto found = entries_.find(style);
    if (found == entries_.end()) {
        if (freeNumbers_.empty()) {
            if (freeNumbers_.capacity() < numbered_.size()) freeNumbers_.reserve(numbered_.size() * 2);
            numbered_.push_back(nullptr);
            freeNumbers_.push_back(static_cast<uint32_t>(numbered_.size() - 1));
        }
        found = entries_.insert(StyleEntry{style, this}).first;
        found->number = freeNumbers_.back();
        freeNumbers_.pop_back();
        numbered_[found->number] = &*found;
    }
    return StyleRef(&*found);
}

void StyleTable::drop(const StyleEntry& entry) noexcept {
    steps_.forget();
    numbered_[entry.number] = nullptr;
    freeNumbers_.push_back(entry.number);
    entries_.erase(entries_.find(entry.style));
}

}  // namespace obk
