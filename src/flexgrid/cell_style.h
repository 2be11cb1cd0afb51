// What a cell may have beside its text, and how equal styles are shared.
#pragma once

#include "base/colour.h"
#include "base/picture.h"
#include "base/text.h"

#include <array>
#include <bit>
#include <cstdint>
#include <memory>
#include <optional>
#include <unordered_set>
#include <utility>

namespace obk {

// Where texts and pictures stand in a cell, in the numbering that hosts know.
enum class CellAlignment : uint8_t {
    leftTop,
    leftCentre,
    leftBottom,
    centreTop,
    centreCentre,
    centreBottom,
    rightTop,
    rightCentre,
    rightBottom,
    general,  // numbers to the right, other texts to the left, both in the middle of the height
};

// Nothing for a number that is no alignment.
std::optional<CellAlignment> cellAlignment(int32_t number);

// What is not set follows the column, then the grid.
struct CellStyle {
    std::optional<OleColour> backColour, foreColour;
    std::shared_ptr<const Text> fontName;  // never an empty text
    std::optional<float> fontSize;         // points
    std::optional<bool> bold, italic, underline, strikeThrough;
    std::optional<CellAlignment> alignment;
    PictureRef picture;
    std::optional<CellAlignment> pictureAlignment;

    // Pictures are the same when they are one object, names when they read alike.
    bool operator==(const CellStyle& other) const;
};

// What a setting is in 32 bits, for those that are no more.
inline uint32_t settingBits(OleColour colour) {
    return colour.value;
}
inline uint32_t settingBits(float size) {
    return std::bit_cast<uint32_t>(size);
}
inline uint32_t settingBits(bool setting) {
    return setting ? 1 : 0;
}
inline uint32_t settingBits(CellAlignment alignment) {
    return static_cast<uint32_t>(alignment);
}
template <typename Setting>
concept SmallSetting = requires(Setting setting) {
    settingBits(setting);
};

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
    static Transition transition(const StyleRef& from, const void* attribute, uint32_t setting) {
        return {from.entry_, attribute, setting};
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
        size_t operator()(const CellStyle& style) const noexcept;
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
