#include "flexgrid/row_sequence.h"

#include <algorithm>
#include <iterator>

namespace obk {

namespace {

// What shows at all shows as one pixel at least.
int32_t pixelsOf(int32_t twips, Dpi dpi) {
    return twips <= 0 ? 0 : std::max(dpi.toPixels(Twips{static_cast<double>(twips)}), 1);
}

}  // namespace

RowSequence::RowSequence(Dpi dpi, int32_t defaultHeight)
    : defaultHeight_(defaultHeight), defaultPixels_(pixelsOf(defaultHeight, dpi)), dpi_(dpi) {}

size_t RowSequence::searchedBlockOf(int32_t row) const {
    const auto after =
        std::upper_bound(blocks_.begin(), blocks_.end(), row,
                         [](int32_t value, const Block& block) { return value < block.first; });
    return static_cast<size_t>(after - blocks_.begin()) - 1;
}

int32_t RowSequence::pixels(const PackedRow* row) const {
    return row && row->height() != PackedRow::ownHeightNone ? pixelsOf(row->height(), dpi_) : defaultPixels_;
}

int64_t RowSequence::pixels(const Block& block) const {
    return block.ownPixels + int64_t{block.count - block.ownHeights} * defaultPixels_;
}

// Counts a block's own heights again.
void RowSequence::remeasure(Block& block) noexcept {
    block.ownHeights = 0;
    block.ownPixels = 0;
    for (const RowHandle& row : block.rows) {
        if (!row || row->height() == PackedRow::ownHeightNone) continue;
        ++block.ownHeights;
        block.ownPixels += pixels(row.get());
    }
}

// Numbers and places the blocks after one that changed.
void RowSequence::renumber(size_t fromBlock) noexcept {
    for (size_t index = fromBlock; index < blocks_.size(); ++index) {
        const Block* const before = index == 0 ? nullptr : &blocks_[index - 1];
        blocks_[index].first = before ? before->first + before->count : 0;
        blocks_[index].top = before ? before->top + pixels(*before) : 0;
    }
}

void RowSequence::insertBlock(size_t index, Block block) {
    blocks_.insert(blocks_.begin() + static_cast<ptrdiff_t>(index), std::move(block));
    renumber(index);
}

// Parts a block in two before a row inside it.
void RowSequence::split(size_t index, int32_t row) {
    Block rest;
    if (!blocks_[index].run()) rest.rows.reserve(blockRows);
    if (blocks_.size() == blocks_.capacity()) blocks_.reserve(blocks_.size() * 2);
    Block& block = blocks_[index];
    const int32_t kept = row - block.first;
    rest.count = block.count - kept;
    if (!block.run()) {
        const auto from = block.rows.begin() + kept;
        rest.rows.assign(std::make_move_iterator(from), std::make_move_iterator(block.rows.end()));
        block.rows.erase(from, block.rows.end());
    }
    block.count = kept;
    remeasure(block);
    remeasure(rest);
    insertBlock(index + 1, std::move(rest));
}

bool RowSequence::insert(int32_t row, RowHandle handle) {
    if (size_ == mostRows) return false;
    const auto isInside = [this, row](size_t index) {
        return index < blocks_.size() && row > blocks_[index].first;
    };
    size_t index = row == size_ ? blocks_.size() : blockOf(row);
    if (isInside(index) && !blocks_[index].open()) {
        split(index, blocks_[index].run() ? row : blocks_[index].first + blockRows / 2);
        index = blockOf(row);
    }
    // A row between two blocks goes to the end of the first one, if it can.
    if (!isInside(index) && index > 0 && blocks_[index - 1].open()) --index;
    if (index < blocks_.size() && blocks_[index].open()) {
        Block& block = blocks_[index];
        block.rows.insert(block.rows.begin() + (row - block.first), std::move(handle));
        ++block.count;
        renumber(index + 1);
    } else {
        Block fresh;
        fresh.rows.push_back(std::move(handle));
        fresh.count = 1;
        insertBlock(index, std::move(fresh));
    }
    ++size_;
    return true;
}

bool RowSequence::appendEmpty(int32_t count) {
    if (count > mostRows - size_) return false;
    if (count == 0) return true;
    if (blocks_.empty() || !blocks_.back().run()) insertBlock(blocks_.size(), Block());
    blocks_.back().count += count;
    size_ += count;
    return true;
}

void RowSequence::erase(int32_t first, int32_t count) noexcept {
    if (count == 0) return;
    const size_t start = blockOf(first);
    size_t index = start;
    int32_t at = first - blocks_[start].first;
    for (int32_t left = count; left > 0; ++index, at = 0) {
        Block& block = blocks_[index];
        const int32_t here = std::min(left, block.count - at);
        if (!block.run()) block.rows.erase(block.rows.begin() + at, block.rows.begin() + at + here);
        block.count -= here;
        left -= here;
        if (block.ownHeights != 0) remeasure(block);
    }
    const auto changed = blocks_.begin() + static_cast<ptrdiff_t>(start);
    const auto end = blocks_.begin() + static_cast<ptrdiff_t>(index);
    blocks_.erase(std::remove_if(changed, end, [](const Block& block) { return block.count == 0; }), end);
    size_ -= count;
    joinSmall(start);
    renumber(start > 0 ? start - 1 : 0);
}

// Blocks that removals have left small, or two runs, become one.
void RowSequence::joinSmall(size_t index) noexcept {
    for (const size_t left : {index, index - 1}) {
        if (left >= blocks_.size() || left + 1 == blocks_.size()) continue;
        Block& into = blocks_[left];
        Block& from = blocks_[left + 1];
        const int32_t count = into.count + from.count;
        const auto room = static_cast<int32_t>(into.rows.capacity());
        if (into.run() != from.run() || (!into.run() && count > std::min(room, blockRows / 2))) continue;
        std::move(from.rows.begin(), from.rows.end(), std::back_inserter(into.rows));
        into.count = count;
        into.ownHeights += from.ownHeights;
        into.ownPixels += from.ownPixels;
        blocks_.erase(blocks_.begin() + static_cast<ptrdiff_t>(left) + 1);
    }
}

// The block of a row, with memory for its rows.
size_t RowSequence::materialized(int32_t row) {
    size_t index = blockOf(row);
    if (!blocks_[index].run()) return index;
    const int32_t start = blocks_[index].first, end = start + blocks_[index].count;
    const int32_t first = start + (row - start) / blockRows * blockRows;
    const int32_t count = std::min(end - first, blockRows);
    std::vector<RowHandle> rows(static_cast<size_t>(count));
    if (first + count < end) split(index, first + count);
    if (first > start) split(index++, first);
    blocks_[index].rows = std::move(rows);
    return index;
}

RowHandle& RowSequence::slot(int32_t row) {
    return blocks_[materialized(row)].row(row);
}

void RowSequence::clearCells() noexcept {
    for (Block& block : blocks_) {
        if (block.ownHeights == 0) block.rows = std::vector<RowHandle>();
        for (RowHandle& row : block.rows) {
            if (row && row->height() != PackedRow::ownHeightNone)
                row->truncate(0);
            else
                row.reset();
        }
    }
}

void RowSequence::truncateCells(int32_t cols) noexcept {
    for (Block& block : blocks_) {
        for (RowHandle& row : block.rows) {
            if (row) row->truncate(cols);
        }
    }
}

void RowSequence::reorder(int32_t first, const std::vector<uint32_t>& order) {
    const int32_t end = first + static_cast<int32_t>(order.size());
    std::vector<RowHandle> taken;
    taken.reserve(order.size());
    bool ownHeights = false;
    for (int32_t row = first; row < end;) {
        const Block& block = blocks_[materialized(row)];
        ownHeights = ownHeights || block.ownHeights != 0;
        row = block.first + block.count;
    }
    const size_t start = blockOf(first);
    const auto eachRow = [&](auto&& use) {
        for (size_t index = start; index < blocks_.size() && blocks_[index].first < end; ++index) {
            Block& block = blocks_[index];
            const int32_t blockEnd = std::min(block.first + block.count, end);
            for (int32_t row = std::max(block.first, first); row < blockEnd; ++row) use(block.row(row));
        }
    };
    eachRow([&](RowHandle& row) { taken.push_back(std::move(row)); });
    auto place = order.begin();
    eachRow([&](RowHandle& row) { row = std::move(taken[*place++]); });
    if (!ownHeights) return;
    for (size_t index = start; index < blocks_.size() && blocks_[index].first < end; ++index)
        remeasure(blocks_[index]);
    renumber(start + 1);
}

void RowSequence::setDefaultHeight(int32_t twips) {
    defaultHeight_ = twips;
    defaultPixels_ = pixelsOf(twips, dpi_);
    renumber(0);
}

int32_t RowSequence::height(int32_t row) const {
    const PackedRow* own = at(row);
    return own && own->height() != PackedRow::ownHeightNone ? own->height() : defaultHeight_;
}

void RowSequence::setHeight(int32_t row, int32_t twips) {
    const size_t index = materialized(row);
    Block& block = blocks_[index];
    PackedRow::setHeight(block.row(row), twips);
    remeasure(block);
    renumber(index + 1);
}

void RowSequence::setDpi(Dpi dpi) {
    if (dpi == dpi_) return;
    dpi_ = dpi;
    for (Block& block : blocks_) {
        if (block.ownHeights != 0) remeasure(block);
    }
    setDefaultHeight(defaultHeight_);
}

int64_t RowSequence::top(int32_t row) const {
    if (blocks_.empty()) return 0;
    const Block& block = row == size_ ? blocks_.back() : blocks_[blockOf(row)];
    if (row == size_) return block.top + pixels(block);
    if (block.ownHeights == 0) return block.top + int64_t{row - block.first} * defaultPixels_;
    int64_t top = block.top;
    for (int32_t before = block.first; before < row; ++before) top += pixels(block.row(before).get());
    return top;
}

int32_t RowSequence::rowAt(int64_t position) const {
    if (position < 0) return -1;
    if (position >= top(size_)) return size_;
    const auto after = std::upper_bound(blocks_.begin(), blocks_.end(), position,
                                        [](int64_t value, const Block& block) { return value < block.top; });
    const Block& block = *std::prev(after);
    int64_t rest = position - block.top;
    if (block.ownHeights == 0) return block.first + static_cast<int32_t>(rest / defaultPixels_);
    int32_t row = block.first;
    for (int64_t height; rest >= (height = pixels(block.row(row).get())); ++row) rest -= height;
    return row;
}

}  // namespace obk
