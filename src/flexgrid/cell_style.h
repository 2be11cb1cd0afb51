// What a cell may have beside its text, and how equal styles are shared.
#pragma once

#include "base/colour.h"
#include "base/picture.h"
#include "base/text.h"

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

    std::unordered_set<StyleRef::Entry, Hash, Equal> entries_;
};

}  // namespace obk
