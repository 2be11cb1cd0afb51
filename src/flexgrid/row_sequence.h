// All rows of a grid in their order, with what each takes of the height: found, inserted and removed anywhere
// at the cost of a few thousand neighbours, whatever their number.
#pragma once

#include "base/units.h"
#include "flexgrid/packed_row.h"

#include <cstdint>
#include <limits>
#include <memory>
#include <vector>

namespace obk {

// Rows lie in blocks. A run of rows that nobody has touched is a block without any memory of its own, so that
// a grid may be given more rows than could ever be filled. Positions are whole pixels from the first row's
// top. Functions that may need memory change nothing when it ends.
class RowSequence {
public:
    static constexpr int32_t mostRows = std::numeric_limits<int32_t>::max();

    RowSequence(Dpi dpi, int32_t defaultHeight);

    int32_t size() const { return size_; }
    // Null for an empty row, and for one that is not there.
    const PackedRow* at(int32_t row) const {
        const RowHandle* const handle = find(row);
        return handle ? handle->get() : nullptr;
    }
    // Null in a run of rows that nobody has touched, and for a row that is not there.
    RowHandle* touched(int32_t row) { return const_cast<RowHandle*>(find(row)); }
    // Null also for a row that has to be searched for.
    RowHandle* touchedAtHand(int32_t row) {
        const auto number = static_cast<uint32_t>(row);
        return number < evenRows_ ? &blocks_[number / blockRows].rows[number % blockRows] : nullptr;
    }
    // Grids are mostly gone through row by row: has the rows after one ready when they are asked for.
    void fetchAfter(int32_t row) const {
        constexpr int32_t ahead = 4;
        const RowHandle* const handle = row < size_ - ahead ? find(row + ahead) : nullptr;
        if (handle) __builtin_prefetch(handle->get());
    }
    // To write to it; heights are set with setHeight(). Rows are 0 to size() - 1 here and below.
    RowHandle& slot(int32_t row);

    // `row` is 0 to size(). False, and nothing changed, when there would be too many rows.
    bool insert(int32_t row, RowHandle handle);
    bool appendEmpty(int32_t count);
    void erase(int32_t first, int32_t count) noexcept;
    // Empties every row; heights stay.
    void clearCells() noexcept;
    void truncateCells(int32_t cols) noexcept;

    // Row by row, each of a range taken out and put back in another order: `order[i]` is the place from the
    // start of the range that the row there had before.
    void reorder(int32_t first, const std::vector<uint32_t>& order);

    // Heights in twips. A row of its own height keeps it when the others change.
    int32_t defaultHeight() const { return defaultHeight_; }
    void setDefaultHeight(int32_t twips);
    int32_t height(int32_t row) const;
    void setHeight(int32_t row, int32_t twips);
    Dpi dpi() const { return dpi_; }
    void setDpi(Dpi dpi);

    int64_t top(int32_t row) const;  // of size() too: where the last row ends
    int32_t heightPixels(int32_t row) const { return pixels(at(row)); }
    // The row that covers a position; -1 above the first, size() beyond the last. Hidden rows cover none.
    int32_t rowAt(int64_t position) const;

private:
    static constexpr int32_t blockRows = 512;

    struct Block {
        std::unique_ptr<RowHandle[]> rows;  // none: a run of empty rows
        int32_t room = 0;
        int32_t count = 0;
        int32_t ownHeights = 0;  // rows with a height of their own
        int32_t first = 0;
        int64_t ownPixels = 0;  // what those take
        int64_t top = 0;

        RowHandle& row(int32_t at) const { return rows[static_cast<size_t>(at)]; }
    };

    const RowHandle* find(int32_t row) const {
        const auto number = static_cast<uint32_t>(row);
        if (number >= evenRows_) return findElsewhere(row);
        return &blocks_[number / blockRows].rows[number % blockRows];
    }
    const RowHandle* findElsewhere(int32_t row) const;
    size_t blockOf(int32_t row) const;
    int32_t pixels(const PackedRow* row) const;
    int64_t pixels(const Block& block) const;
    void remeasure(size_t block);
    void renumber(size_t fromBlock);
    void makeRoomForBlocks();
    void makeRoom(Block& block, int32_t count);
    void split(size_t block, int32_t at);
    size_t blockForInsertion(int32_t row);
    size_t materialized(int32_t row);
    void joinSmall(size_t block) noexcept;

    std::vector<Block> blocks_;
    // The first blocks that are full, and the one after them: rows that are found by their number. All of
    // them in a grid that was filled from the front.
    size_t evenBlocks_ = 0;
    uint32_t evenRows_ = 0;
    int32_t size_ = 0;
    int32_t defaultHeight_;
    int32_t defaultPixels_;
    Dpi dpi_;
};

}  // namespace obk
