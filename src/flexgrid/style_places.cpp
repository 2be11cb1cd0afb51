#include "flexgrid/style_places.h"

#include <algorithm>
#include <new>

namespace obk {

StylePlaces::StylePlaces(StyleTable& table, uint32_t count)
    : block_(new (::operator new(sizeof(Block) + count * sizeof(uint32_t))) Block{&table}),
      count_(static_cast<uint16_t>(count)) {
    std::fill_n(numbers(), count, StyleEntry::none);
}

void StylePlaces::set(uint32_t cell, StyleRef style) noexcept {
    // The cell's reference goes with this one.
    const StyleRef before = StyleRef::adopted(block_->table->numbered(numbers()[cell]));
    numbers()[cell] = style.number();
    static_cast<void>(style.release());
}

void StylePlaces::grow(uint32_t count) {
    StylePlaces larger(*block_->table, count);
    std::copy_n(numbers(), count_, larger.numbers());
    // The references have moved along.
    std::fill_n(numbers(), count_, StyleEntry::none);
    *this = std::move(larger);
}

void StylePlaces::truncate(uint32_t count) noexcept {
    for (uint32_t cell = count; cell < count_; ++cell) set(cell, {});
    count_ = static_cast<uint16_t>(std::min<uint32_t>(count_, count));
    if (count_ > 0) return;
    ::operator delete(static_cast<void*>(block_));
    block_ = nullptr;
}

}  // namespace obk
