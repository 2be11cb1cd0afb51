// One row of cells in one piece of memory: where each text is, then the texts themselves.
#pragma once

#include "base/text.h"
#include "flexgrid/style_places.h"
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

// Null stands for a row of empty cells without styles in the grid's own height.
using RowHandle = std::unique_ptr<PackedRow, PackedRowDeleter>;

// A text-only cell costs its text and six bytes. Texts stand in the order of their cells, and the room of one
// goes on to the next, so that most can be replaced where they are. Texts too long to be moved about lie
// apart, shared where one text fills several cells. Functions that make or grow a row change nothing when
// memory ends.
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
        const auto cell = static_cast<uint32_t>(col);
        if (cell >= cells_) return {};
        const Place place = places()[cell];
        return place.apart() ? apart(place) : TextView{units() + place.start(), place.length()};
    }
    // Where the cell's text is now; false, and nothing changed, if it does not fit there. `text` may lie in
    // this row.
    bool setTextInPlace(int32_t col, TextView text) {
        const auto cell = static_cast<uint32_t>(col);
        if (cell >= cells_ || text.size() > longestInline) return false;
        Place& place = places()[cell];
        const auto length = static_cast<uint32_t>(text.size());
        if (place.apart() || !hasRoom(cell, length)) return false;
        std::char_traits<char16_t>::move(units() + place.start(), text.data(), length);
        place.setLength(length);
        return true;
    }
    // `text` may lie in this row. `cols` is the grid's and bounds how far the row grows.
    static void setText(RowHandle& row, int32_t col, TextView text, int32_t cols);

    StyleRef style(int32_t col) const {
        return static_cast<uint32_t>(col) < styles_.size() ? styles_.at(static_cast<uint32_t>(col))
                                                           : StyleRef();
    }
    // As StylePlaces::repeat(); false also for a cell that never had a style.
    bool repeatStyle(StyleSteps& steps, int32_t col, const void* attribute, uint32_t setting) {
        return static_cast<uint32_t>(col) < styles_.size() &&
               styles_.repeat(steps, static_cast<uint32_t>(col), attribute, setting);
    }
    static void setStyle(RowHandle& row, int32_t col, StyleRef style, int32_t cols) {
        if (!row || static_cast<uint32_t>(col) >= row->styles_.size())
            makeRoomForStyle(row, col, style, cols);
        if (row && static_cast<uint32_t>(col) < row->styles_.size())
            row->styles_.set(static_cast<uint32_t>(col), std::move(style));
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

    using Place = TextPlace;
    static_assert(longestInline < Place::apartLength);

    static constexpr uint32_t placeUnits = sizeof(Place) / sizeof(char16_t);

    PackedRow(size_t slots, size_t capacity)
        : slots_(static_cast<uint16_t>(slots)), capacity_(static_cast<uint32_t>(capacity)) {}
    static RowHandle make(size_t slots, size_t units);
    static PackedRow& ensured(RowHandle& row);
    static void replaceText(RowHandle& row, uint32_t cell, TextView text, int32_t cols);
    static void makeRoom(RowHandle& row, uint32_t cell, uint32_t count, int32_t cols);
    static void moveToLarger(RowHandle& row, uint32_t cell, uint32_t count, int32_t cols);
    static void makeRoomForStyle(RowHandle& row, int32_t col, const StyleRef& style, int32_t cols);
    bool hasRoom(uint32_t cell, uint32_t count) const {
        return places()[cell].start() + count <=
               (cell + 1u < cells_ ? places()[cell + 1].start() : capacity_);
    }
    bool widen(uint32_t cell, uint32_t count) noexcept;
    bool append(uint32_t cell, uint32_t count) noexcept;
    static uint32_t heldUnits(Place place);
    uint32_t usedEnd() const;

    Place* places() { return reinterpret_cast<Place*>(this + 1); }
    const Place* places() const { return reinterpret_cast<const Place*>(this + 1); }
    char16_t* units() { return reinterpret_cast<char16_t*>(this + 1); }
    const char16_t* units() const { return reinterpret_cast<const char16_t*>(this + 1); }
    TextView apart(Place place) const;
    void releaseApart(uint32_t firstCell) noexcept;

    [[no_unique_address]] StylePlaces styles_;
    uint16_t slots_;      // cells there is room for
    uint16_t cells_ = 0;  // those after it are empty
    uint32_t capacity_;   // units there is room for, those of the places included
    int32_t height_ = ownHeightNone;
};

}  // namespace obk
