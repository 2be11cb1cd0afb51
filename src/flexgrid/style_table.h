// The styles of a grid's cells, each one once however many cells have it.
#pragma once

#include "flexgrid/cell_style.h"

#include <array>
#include <optional>
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
    // What a style becomes by one setting: cells that are set one after the other mostly go from and to the
    // same few styles. `attribute` is any address that stands for what is set.
    struct Transition {
        const void* from = nullptr;
        const void* attribute = nullptr;
        uint32_t setting = 0;
        friend bool operator==(const Transition&, const Transition&) = default;
    };
    static Transition transition(const StyleRef* from, const void* attribute, uint32_t setting) {
        return {from ? from->entry_ : nullptr, attribute, setting};
    }
    // Nothing where it is not remembered.
    std::optional<StyleRef> after(const Transition& transition) const {
        const Memory& memory = memories_[place(transition)];
        if (memory.transition != transition) return std::nullopt;
        return memory.to ? StyleRef(*memory.to) : StyleRef();
    }
    void remember(const Transition& transition, const StyleRef& to) {
        memories_[place(transition)] = {transition, to.entry_};
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

    struct Memory {
        Transition transition;
        const StyleRef::Entry* to = nullptr;
    };
    static size_t place(const Transition& transition) {
        const auto from = reinterpret_cast<uintptr_t>(transition.from);
        const auto attribute = reinterpret_cast<uintptr_t>(transition.attribute);
        const size_t mixed = from / 16 + attribute * 5 + transition.setting * size_t{0x9E3779B1u};
        return (mixed ^ mixed >> 7 ^ mixed >> 17) % memoryCount;
    }

    static constexpr size_t memoryCount = 16;
    std::unordered_set<StyleRef::Entry, Hash, Equal> entries_;
    // References to none of its styles: all are forgotten when one goes.
    std::array<Memory, memoryCount> memories_{};
};

}  // namespace obk
