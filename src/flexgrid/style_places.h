// Which styles the cells of a row have: a number for each in the grid's table.
#pragma once

#include "flexgrid/style_table.h"

#include <cstdint>
#include <span>

namespace obk {

// In one piece of memory, four bytes a cell.
class StylePlaces {
public:
    StylePlaces() = default;
    // Without a style each. Throws std::bad_alloc.
    StylePlaces(StyleTable& table, uint32_t count);
    StylePlaces(StylePlaces&& other) noexcept
        : block_(std::exchange(other.block_, nullptr)), count_(std::exchange(other.count_, uint16_t{0})) {}
    StylePlaces& operator=(StylePlaces&& other) noexcept {
        std::swap(block_, other.block_);
        std::swap(count_, other.count_);
        return *this;
    }
    ~StylePlaces() {
        if (block_) truncate(0);
    }

    uint32_t size() const { return count_; }
    StyleRef at(uint32_t cell) const { return StyleRef(block_->table->numbered(numbers()[cell])); }
    void set(uint32_t cell, StyleRef style) noexcept;
    // A step of the table's that a cell went before this one. False, and nothing changed, if it is not
    // remembered, or if this is the last cell with its style.
    bool repeat(StyleSteps& steps, uint32_t cell, const void* attribute, uint32_t setting) {
        uint32_t& number = numbers()[cell];
        const StyleSteps::Step* const step = steps.find(number, attribute, setting);
        if (!step) return false;
        if (step->from) {
            if (step->from->references == 1) return false;
            --step->from->references;
        }
        ++step->to->references;
        number = step->to->number;
        return true;
    }
    // Makes room for more; those that there are keep their styles.
    void grow(uint32_t count);
    void truncate(uint32_t count) noexcept;

private:
    struct Block {
        StyleTable* table;
    };
    uint32_t* numbers() { return reinterpret_cast<uint32_t*>(block_ + 1); }
    const uint32_t* numbers() const { return reinterpret_cast<const uint32_t*>(block_ + 1); }

    Block* block_ = nullptr;
    uint16_t count_ = 0;
};

}  // namespace obk
