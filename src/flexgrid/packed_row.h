// One row of cells in one piece of memory: where each text ends, then the texts themselves.
#pragma once

#include "base/text.h"
#include "flexgrid/style_table.h"

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace obk {

class PackedRow;

struct PackedRowDeleter {
    void operator()(PackedRow* row) const noexcept;
};

// Null stands for a row of empty cells without styles in the grid's own height.
using RowHandle = std::unique_ptr<PackedRow, PackedRowDeleter>;

// A text-only cell costs its text and six bytes. Texts too long to be moved about lie apart, shared where one
// text fills several cells. Functions that make or grow a row change nothing when memory ends.
class PackedRow {
public:
    static constexpr size_t longestInline = 200;
    static constexpr int32_t ownHeightNone = -1;

    PackedRow(const PackedRow&) = delete;
    PackedRow& operator=(const PackedRow&) = delete;
    ~PackedRow();

    // Cells out of a text with tab characters between them; those beyond `cols` are dropped.
    static RowHandle fromItem(TextView item, int32_t cols);
    // One cell for each text. A long text that is the very memory of one of the two long ones before it is
    // kept once.
    static RowHandle fromTexts(std::span<const TextView> texts);

    // Empty for a cell beyond those that were set. Valid until the row changes.
    TextView text(int32_t col) const {
        if (static_cast<uint32_t>(col) >= cells_) return {};
        const uint32_t start = col == 0 ? 0 : (ends()[col - 1] & placeBits) + 1;
        const uint32_t end = ends()[col];
        if ((end & apartBit) != 0) return apart(start);
        return {units() + start, end - start};
    }
    // `text` may lie in this row. `cols` is the grid's and bounds how far the row grows.
    static void setText(RowHandle& row, int32_t col, TextView text, int32_t cols);

    StyleRef style(int32_t col) const {
        return static_cast<uint32_t>(col) < styled_ ? styles_[static_cast<uint32_t>(col)] : StyleRef();
    }
    // Null for a cell beyond those that have room for a style.
    StyleRef* stylePlace(int32_t col) {
        return static_cast<uint32_t>(col) < styled_ ? &styles_[static_cast<uint32_t>(col)] : nullptr;
    }
    static void setStyle(RowHandle& row, int32_t col, StyleRef style, int32_t cols) {
        if (!row || static_cast<uint32_t>(col) >= row->styled_) makeRoomForStyle(row, col, style, cols);
        if (row && static_cast<uint32_t>(col) < row->styled_)
            row->styles_[static_cast<uint32_t>(col)] = std::move(style);
    }
    // Of the first cells, as many as there are styles, in place of those that the row had.
    static void setStyles(RowHandle& row, std::span<const StyleRef> styles);

    // Twips, or ownHeightNone.
    int32_t height() const { return height_; }
    static void setHeight(RowHandle& row, int32_t height);

    // Texts and styles go, the height stays.
    void clear() noexcept;
    // Cells from `cols` on go.
    void truncate(int32_t cols) noexcept;

private:
    friend struct PackedRowDeleter;

    // An end is counted in units from the start of the texts, a unit between two of them. Where the bit is
    // set, the text's place holds the address of a text that lies apart.
    static constexpr uint32_t apartBit = 0x80000000u;
    static constexpr uint32_t placeBits = ~apartBit;

    PackedRow(uint32_t slots, uint32_t capacity) : slots_(slots), capacity_(capacity) {}
    static RowHandle make(size_t slots, size_t units);
    static PackedRow& ensured(RowHandle& row);
    static void reserve(RowHandle& row, size_t slots, size_t units);
    static void makeRoomForStyle(RowHandle& row, int32_t col, const StyleRef& style, int32_t cols);
    static void replaceUnits(PackedRow& row, int32_t col, uint32_t count, uint32_t flag) noexcept;

    uint32_t* ends() { return reinterpret_cast<uint32_t*>(this + 1); }
    const uint32_t* ends() const { return reinterpret_cast<const uint32_t*>(this + 1); }
    char16_t* units() { return reinterpret_cast<char16_t*>(ends() + slots_); }
    const char16_t* units() const { return reinterpret_cast<const char16_t*>(ends() + slots_); }
    uint32_t used() const { return cells_ == 0 ? 0 : ends()[cells_ - 1] & placeBits; }
    TextView apart(uint32_t start) const;
    void releaseApart(uint32_t firstCell) noexcept;

    uint32_t cells_ = 0;  // those after it are empty
    uint32_t slots_;      // cells there is room for
    uint32_t capacity_;   // units there is room for
    int32_t height_ = ownHeightNone;
    uint32_t styled_ = 0;
    std::unique_ptr<StyleRef[]> styles_;
};

}  // namespace obk
