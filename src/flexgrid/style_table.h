// The styles of a grid's cells, each one once however many cells have it.
#pragma once

#include "flexgrid/cell_style.h"

#include <array>
#include <cstddef>
#include <unordered_set>
#include <utility>
#include <vector>

namespace obk {

class StyleTable;

// A style in a table, with its number there.
struct StyleEntry {
    CellStyle style;
    StyleTable* table = nullptr;
    mutable uint32_t number = 0;
    mutable uint32_t references = 0;
};

// A style that a table keeps; it goes with the last reference to it. Empty: nothing is set.
class StyleRef {
public:
    StyleRef() = default;
    explicit StyleRef(const StyleEntry* entry) : entry_(entry) {
        if (entry_) ++entry_->references;
    }
    StyleRef(const StyleRef& other) : StyleRef(other.entry_) {}
    StyleRef(StyleRef&& other) noexcept : entry_(std::exchange(other.entry_, nullptr)) {}
    StyleRef& operator=(StyleRef other) noexcept {
        std::swap(entry_, other.entry_);
        return *this;
    }
    ~StyleRef() {
        if (entry_ && --entry_->references == 0) drop();
    }

    const CellStyle& operator*() const { return entry_ ? entry_->style : unset(); }
    const CellStyle* operator->() const { return &**this; }
    explicit operator bool() const { return entry_ != nullptr; }
    const StyleEntry* entry() const { return entry_; }
    // Leaves its reference to the caller, and takes over one that was left.
    const StyleEntry* release() { return std::exchange(entry_, nullptr); }
    static StyleRef adopted(const StyleEntry* entry) {
        StyleRef style;
        style.entry_ = entry;
        return style;
    }

private:
    static const CellStyle& unset();
    void drop() const noexcept;

    const StyleEntry* entry_ = nullptr;
};

// The styles that a grid's cells have, each one once and with a number. Outlives its references.
class StyleTable {
public:
    static constexpr uint32_t noStyle = 0;  // the number of a style in which nothing is set

    StyleTable() = default;
    StyleTable(const StyleTable&) = delete;
    StyleTable& operator=(const StyleTable&) = delete;

    // Empty for a style in which nothing is set.
    StyleRef shared(const CellStyle& style);
    size_t size() const { return entries_.size(); }
    // Null for `noStyle`.
    const StyleEntry* numbered(uint32_t number) const { return numbered_[number]; }

    // Cells that are set one after the other mostly go from and to the same few styles: what a style became
    // by the same setting before. Null where that is not remembered. `attribute` is any address that stands
    // for what is set.
    struct Step {
        const void* attribute = nullptr;
        const StyleEntry* from = nullptr;  // none for `noStyle`
        const StyleEntry* to = nullptr;
        uint32_t fromNumber = noStyle;
        uint32_t setting = 0;

        bool is(uint32_t start, const void* which, uint32_t what) const {
            return fromNumber == start && attribute == which && setting == what;
        }
    };
    const Step* remembered(uint32_t from, const void* attribute, uint32_t setting) {
        if (latest_->is(from, attribute, setting)) return latest_;
        const Step& step = steps_[place(from, attribute, setting)];
        if (!step.is(from, attribute, setting)) return nullptr;
        return latest_ = &step;
    }
    const Step* remembered(const StyleRef& from, const void* attribute, uint32_t setting) {
        return remembered(numberOf(from), attribute, setting);
    }
    void remember(const StyleRef& from, const void* attribute, uint32_t setting, const StyleRef& to) {
        const uint32_t start = numberOf(from);
        steps_[place(start, attribute, setting)] = {attribute, from.entry(), to.entry(), start, setting};
    }

private:
    friend class StyleRef;
    struct Hash {
        using is_transparent = void;
        size_t operator()(const CellStyle& style) const noexcept { return style.hash(); }
        size_t operator()(const StyleEntry& entry) const noexcept { return (*this)(entry.style); }
    };
    struct Equal {
        using is_transparent = void;
        bool operator()(const StyleEntry& left, const StyleEntry& right) const {
            return left.style == right.style;
        }
        bool operator()(const CellStyle& left, const StyleEntry& right) const { return left == right.style; }
        bool operator()(const StyleEntry& left, const CellStyle& right) const { return left.style == right; }
    };

    static uint32_t numberOf(const StyleRef& style) { return style ? style.entry()->number : noStyle; }
    static size_t place(uint32_t from, const void* attribute, uint32_t setting) {
        return (from + reinterpret_cast<uintptr_t>(attribute) * 5 + (setting * 0x9E3779B1u >> 16)) %
               stepCount;
    }
    void drop(const StyleEntry& entry) noexcept;

    static constexpr size_t stepCount = 16;
    std::unordered_set<StyleEntry, Hash, Equal> entries_;
    std::vector<const StyleEntry*> numbered_{nullptr};
    std::vector<uint32_t> freeNumbers_;  // has room for all of them
    // References to none of its styles: all are forgotten when one goes.
    std::array<Step, stepCount> steps_{};
    const Step* latest_ = steps_.data();
};

}  // namespace obk
