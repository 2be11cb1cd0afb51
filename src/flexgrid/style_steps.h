// From which style to which a setting leads: cells that are set one after the other mostly go the same way.
#pragma once

#include "flexgrid/cell_style.h"

#include <array>
#include <cstddef>

namespace obk {

class StyleTable;

// A style in a table, with its number there.
struct StyleEntry {
    static constexpr uint32_t none = 0;  // the number of a style in which nothing is set, which has no entry

    CellStyle style;
    StyleTable* table = nullptr;
    mutable uint32_t number = none;
    mutable uint32_t references = 0;
};

// Remembers the latest few. `attribute` is any address that stands for what is set; what it is set to is
// given by its bits. Holds no references to styles: all must be forgotten when one goes.
class StyleSteps {
public:
    struct Step {
        const void* attribute = nullptr;
        const StyleEntry* from = nullptr;  // null where nothing was set
        const StyleEntry* to = nullptr;
        uint32_t fromNumber = StyleEntry::none;
        uint32_t setting = 0;
    };
    // Null where it is not remembered. Valid until the next one is remembered, or all are forgotten.
    const Step* find(uint32_t from, const void* attribute, uint32_t setting) {
        if (!is(*latest_, from, attribute, setting)) {
            const Step& step = steps_[place(from, attribute, setting)];
            if (!is(step, from, attribute, setting)) return nullptr;
            latest_ = &step;
        }
        return latest_;
    }
    // `from` may be null, `to` may not.
    void remember(const StyleEntry* from, const void* attribute, uint32_t setting, const StyleEntry* to) {
        const uint32_t number = from ? from->number : StyleEntry::none;
        steps_[place(number, attribute, setting)] = {attribute, from, to, number, setting};
    }
    void forget() noexcept { steps_.fill({}); }

private:
    static bool is(const Step& step, uint32_t from, const void* attribute, uint32_t setting) {
        return step.fromNumber == from && step.attribute == attribute && step.setting == setting;
    }
    static size_t place(uint32_t from, const void* attribute, uint32_t setting) {
        return (from + reinterpret_cast<uintptr_t>(attribute) * 5 + (setting * 0x9E3779B1u >> 16)) % count;
    }

    static constexpr size_t count = 16;
    std::array<Step, count> steps_{};
    const Step* latest_ = steps_.data();
};

}  // namespace obk
