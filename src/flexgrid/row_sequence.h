// All rows of a grid in their order, with what each takes of the height: found, inserted and removed anywhere
// at the cost of a few thousand neighbours, whatever their number.
#pragma once

#include "base/units.h"
#include "flexgrid/packed_row.h"

#include <cstdint>
#include <limits>
#include <vector>

namespace obk {

// Rows are kept in blocks. A run of empty rows that nothing was set in is a block without any memory of its
// own, so that a grid may be given more rows than could ever be filled. Positions are whole pixels from the
// first row's top. Functions that may need memory change nothing when it ends.
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
    // The first row from this one on that is in no run of empty rows; size() where there is none.
    int32_t nextStored(int32_t row) const {
        while (row < size_ && blocks_[blockOf(row)].run()) row = blocks_[blockOf(row)].end();
        return row;
    }
    // Null in a run of empty rows, and for a row that is not there.
    RowHandle* stored(int32_t row) { return const_cast<RowHandle*>(find(row)); }
    // To write to it; heights are set with setHeight(). Rows are 0 to size() - 1 here and below.
    RowHandle& slot(int32_t row);

    // `row` is 0 to size(). The new row has no height of its own. False, and nothing changed, when there
    // would be too many rows.
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
        std::vector<RowHandle> rows;  // none: a run of empty rows
        int32_t count = 0;
        int32_t first = 0;
        int64_t top = 0;
        int32_t ownHeights = 0;  // rows with a height of their own
        int64_t ownPixels = 0;   // what those take

        bool run() const { return rows.empty(); }
        int32_t end() const { return first + count; }
        bool contains(int32_t row) const {
            return static_cast<uint32_t>(row - first) < static_cast<uint32_t>(count);
        }
        bool open() const { return !run() && count < blockRows; }
        RowHandle& row(int32_t number) { return rows[static_cast<size_t>(number - first)]; }
        const RowHandle& row(int32_t number) const { return rows[static_cast<size_t>(number - first)]; }
    };

    const RowHandle* find(int32_t row) const {
        if (static_cast<uint32_t>(row) >= static_cast<uint32_t>(size_)) return nullptr;
        const Block& block = blocks_[blockOf(row)];
        return block.run() ? nullptr : &block.row(row);
    }
    size_t blockOf(int32_t row) const {
        // In a grid that was filled from the front all blocks but the last are full.
        const auto likely = static_cast<size_t>(row) / blockRows;
        return likely < blocks_.size() && blocks_[likely].contains(row) ? likely : searchedBlockOf(row);
    }
    size_t searchedBlockOf(int32_t row) const;
    int32_t pixels(const PackedRow* row) const;
    int64_t pixels(const Block& block) const;
    void remeasure(Block& block) noexcept;
    void renumber(size_t fromBlock) noexcept;
    void insertBlock(size_t index, Block block);
    void split(size_t index, int32_t row);
    size_t materialized(int32_t row);
    void joinSmall(size_t index) noexcept;

    std::vector<Block> blocks_;  // none is empty
    int32_t size_ = 0;
    int32_t defaultHeight_;
    int32_t defaultPixels_;
    Dpi dpi_;
};

}  // namespace obk
