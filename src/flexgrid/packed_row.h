// One row of cells in one piece of memory: where each text is, then the texts themselves.
#pragma once

#include "base/text.h"
#include "flexgrid/style_table.h"
#include "flexgrid/text_place.h"

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace obk {

class PackedRow;

struct PackedRowDeleter {
    void operator()(PackedRow* row) const noexcept;
};

// Null stands for a row of empty cells without styles in the grid's default height.
using RowHandle = std::unique_ptr<PackedRow, PackedRowDeleter>;

// A text-only cell costs its text and six bytes. Texts stand in the order of their cells, and the room of one
// goes on to the next. Texts too long to be moved about are out of line, shared where one text fills several
// cells; styles are out of line, too. Functions that make or grow a row change nothing when memory ends.
class PackedRow {
public:
    static constexpr size_t longestInline = 200;  // units
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
        const auto cell = static_cast<uint32_t>(col);
        if (cell >= cells_) return {};
        const TextPlace place = places()[cell];
        return place.outOfLine() ? longText(place) : TextView{units() + place.start(), place.length()};
    }
    // `text` may be in this row. `cols` is the grid's and bounds how far the row grows.
    static void setText(RowHandle& row, int32_t col, TextView text, int32_t cols) {
        const auto cell = static_cast<uint32_t>(col);
        const bool present = row && cell < row->cells_;
        if (present ? !row->replaceInPlace(cell, text) : !text.empty()) replaceText(row, cell, text, cols);
    }

    StyleRef style(int32_t col) const {
        const auto cell = static_cast<uint32_t>(col);
        return cell < styled_ ? styles_[cell] : StyleRef();
    }
    // Null for a cell beyond those that were styled. Valid until the row changes.
    StyleRef* styleSlot(int32_t col) {
        const auto cell = static_cast<uint32_t>(col);
        return cell < styled_ ? &styles_[cell] : nullptr;
    }
    static void setStyle(RowHandle& row, int32_t col, StyleRef style);
    // Of the first cells, as many as there are styles.
    static void setStyles(RowHandle& row, std::span<const StyleRef> styles);

    // Twips, or ownHeightNone.
    int32_t height() const { return height_; }
    static void setHeight(RowHandle& row, int32_t height);

    // Cells from `cols` on go; the height stays.
    void truncate(int32_t cols) noexcept;

private:
    friend struct PackedRowDeleter;

    static_assert(longestInline < TextPlace::outOfLineMark);
    static constexpr uint32_t placeUnits = sizeof(TextPlace) / sizeof(char16_t);

    PackedRow(size_t cells, size_t capacity)
        : cells_(static_cast<uint16_t>(cells)), capacity_(static_cast<uint32_t>(capacity)) {}
    static RowHandle make(size_t cells, size_t units);
    static PackedRow& ensured(RowHandle& row);
    void growStyles(size_t count);
    static void moveToLarger(RowHandle& row, uint32_t cell, uint32_t count, int32_t cols);
    // Where the cell's text is now; false, and nothing changed, if it does not fit there.
    bool replaceInPlace(uint32_t cell, TextView text) noexcept {
        TextPlace& place = places()[cell];
        const size_t size = text.size();
        if (size > longestInline || place.outOfLine() || place.start() + size > roomEnd(cell)) return false;
        std::char_traits<char16_t>::move(units() + place.start(), text.data(), size);
        place.setLength(static_cast<uint32_t>(size));
        return true;
    }
    static void replaceText(RowHandle& row, uint32_t cell, TextView text, int32_t cols);
    bool makeRoom(uint32_t cell, uint32_t count) noexcept;
    // Where the room of a cell's text ends.
    uint32_t roomEnd(uint32_t cell) const {
        return cell + 1u == cells_ ? capacity_ : places()[cell + 1].start();
    }
    uint32_t usedEnd() const;

    TextPlace* places() { return reinterpret_cast<TextPlace*>(this + 1); }
    const TextPlace* places() const { return reinterpret_cast<const TextPlace*>(this + 1); }
    char16_t* units() { return reinterpret_cast<char16_t*>(this + 1); }
    const char16_t* units() const { return reinterpret_cast<const char16_t*>(this + 1); }
    TextView longText(TextPlace place) const;
    void releaseLongTexts(uint32_t firstCell) noexcept;

    std::unique_ptr<StyleRef[]> styles_;
    uint16_t styled_ = 0;  // cells it holds a style for, which may be empty
    uint16_t cells_;       // those after it are empty
    uint32_t capacity_;    // units there is room for, those of the places included
    int32_t height_ = ownHeightNone;
};

}  // namespace obk
