// The styles of a grid's cells, each one once however many cells have it.
#pragma once

#include "flexgrid/style_steps.h"

#include <cstddef>
#include <unordered_set>
#include <utility>
#include <vector>

namespace obk {

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
    uint32_t number() const { return entry_ ? entry_->number : StyleEntry::none; }
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
    StyleTable() = default;
    StyleTable(const StyleTable&) = delete;
    StyleTable& operator=(const StyleTable&) = delete;

    // Empty for a style in which nothing is set.
    StyleRef shared(const CellStyle& style);
    size_t size() const { return entries_.size(); }
    // Null for `StyleEntry::none`.
    const StyleEntry* numbered(uint32_t number) const { return numbered_[number]; }

    // What styles became; knows styles of this table only.
    StyleSteps& steps() { return steps_; }

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

    void drop(const StyleEntry& entry) noexcept;

    std::unordered_set<StyleEntry, Hash, Equal> entries_;
    std::vector<const StyleEntry*> numbered_{nullptr};
    std::vector<uint32_t> freeNumbers_;  // has room for all of them
    StyleSteps steps_;
};

}  // namespace obk
