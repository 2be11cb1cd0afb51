// The styles of a grid's cells, each one once however many cells have it.
#pragma once

#include "flexgrid/cell_style.h"

#include <array>
#include <cstddef>
#include <unordered_set>
#include <utility>

namespace obk {

class StyleTable;

// A place in a style table; the style goes with the last reference to it. Empty: nothing is set.
class StyleRef {
public:
    StyleRef() = default;
    StyleRef(const StyleRef& other) : entry_(other.entry_) { retain(); }
    StyleRef(StyleRef&& other) noexcept : entry_(std::exchange(other.entry_, nullptr)) {}
    StyleRef& operator=(StyleRef other) noexcept {
        std::swap(entry_, other.entry_);
        return *this;
    }
    ~StyleRef() {
        if (entry_ && --entry_->references == 0) dropLast();
    }

    const CellStyle& operator*() const { return entry_ ? entry_->style : unset(); }
    const CellStyle* operator->() const { return &**this; }
    explicit operator bool() const { return entry_ != nullptr; }

private:
    friend class StyleTable;
    struct Entry {
        CellStyle style;
        StyleTable* table = nullptr;
        mutable uint32_t references = 0;
    };

    explicit StyleRef(const Entry& entry) : entry_(&entry) { retain(); }
    static const CellStyle& unset();
    void retain() const {
        if (entry_) ++entry_->references;
    }
    void dropLast() const noexcept;

    const Entry* entry_ = nullptr;
};

// The styles that a grid's cells have, each one once. Outlives its references.
class StyleTable {
public:
    StyleTable() = default;
    StyleTable(const StyleTable&) = delete;
    StyleTable& operator=(const StyleTable&) = delete;

    // Empty for a style in which nothing is set.
    StyleRef shared(const CellStyle& style);

    // Makes of a style what it became by the same setting before: cells that are set one after the other
    // mostly go from and to the same few styles. False, and nothing changed, where that is not remembered.
    // `attribute` is any address that stands for what is set.
    bool repeat(StyleRef& style, const void* attribute, uint32_t setting) {
        const Step& step = steps_[place(style.entry_, attribute, setting)];
        if (step.from != style.entry_ || step.attribute != attribute || step.setting != setting) return false;
        style = step.to ? StyleRef(*step.to) : StyleRef();
        return true;
    }
    void remember(const StyleRef& from, const void* attribute, uint32_t setting, const StyleRef& to) {
        steps_[place(from.entry_, attribute, setting)] = {from.entry_, attribute, to.entry_, setting};
    }
    size_t size() const { return entries_.size(); }

private:
    friend class StyleRef;
    struct Hash {
        using is_transparent = void;
        size_t operator()(const CellStyle& style) const noexcept { return style.hash(); }
        size_t operator()(const StyleRef::Entry& entry) const noexcept { return (*this)(entry.style); }
    };
    struct Equal {
        using is_transparent = void;
        bool operator()(const StyleRef::Entry& left, const StyleRef::Entry& right) const {
            return left.style == right.style;
        }
        bool operator()(const CellStyle& left, const StyleRef::Entry& right) const {
            return left == right.style;
        }
        bool operator()(const StyleRef::Entry& left, const CellStyle& right) const {
            return left.style == right;
        }
    };

    struct Step {
        const StyleRef::Entry* from = nullptr;
        const void* attribute = nullptr;
        const StyleRef::Entry* to = nullptr;
        uint32_t setting = 0;
    };
    static size_t place(const StyleRef::Entry* from, const void* attribute, uint32_t setting) {
        const uintptr_t mixed = reinterpret_cast<uintptr_t>(from) / alignof(std::max_align_t) +
                                reinterpret_cast<uintptr_t>(attribute) * 5 + (setting * 0x9E3779B1u >> 16);
        return mixed % stepCount;
    }

    static constexpr size_t stepCount = 16;
    std::unordered_set<StyleRef::Entry, Hash, Equal> entries_;
    // References to none of its styles: all are forgotten when one goes.
    std::array<Step, stepCount> steps_{};
};

}  // namespace obk
