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

const RowHandle* RowSequence::findElsewhere(int32_t row) const {
    if (row < 0 || row >= size_) return nullptr;
    const Block& block = blocks_[blockOf(row)];
    return block.rows ? &block.row(row - block.first) : nullptr;
}

size_t RowSequence::blockOf(int32_t row) const {
    if (static_cast<uint32_t>(row) < evenRows_) return static_cast<size_t>(row) / blockRows;
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
void RowSequence::remeasure(size_t index) {
    Block& block = blocks_[index];
    block.ownHeights = 0;
    block.ownPixels = 0;
    for (int32_t at = 0; block.rows && at < block.count; ++at) {
        const PackedRow* row = block.row(at).get();
        if (!row || row->height() == PackedRow::ownHeightNone) continue;
        ++block.ownHeights;
        block.ownPixels += pixels(row);
    }
}

// Numbers and places the blocks after one that changed.
void RowSequence::renumber(size_t fromBlock) {
    int32_t first = 0;
    int64_t top = 0;
    if (fromBlock > 0 && !blocks_.empty()) {
        const Block& before = blocks_[fromBlock - 1];
        first = before.first + before.count;
        top = before.top + pixels(before);
    }
    for (size_t index = fromBlock; index < blocks_.size(); ++index) {
        Block& block = blocks_[index];
        block.first = first;
        block.top = top;
        first += block.count;
        top += pixels(block);
    }
    evenBlocks_ = std::min(evenBlocks_, fromBlock);
    while (evenBlocks_ < blocks_.size() && blocks_[evenBlocks_].rows &&
           blocks_[evenBlocks_].first == static_cast<int32_t>(evenBlocks_) * blockRows)
        ++evenBlocks_;
    const Block* last = evenBlocks_ == 0 ? nullptr : &blocks_[evenBlocks_ - 1];
    evenRows_ = last ? static_cast<uint32_t>(last->first + last->count) : 0;
}

// Two more blocks can be added without a failure.
void RowSequence::makeRoomForBlocks() {
    constexpr size_t spare = 2;
    if (blocks_.capacity() - blocks_.size() < spare) blocks_.reserve(blocks_.size() * 2 + spare);
}

void RowSequence::makeRoom(Block& block, int32_t count) {
    if (block.room >= count) return;
    // Only a short grid starts small.
    const int32_t room = blocks_.size() > 1 ? blockRows : std::clamp(block.room * 2, 8, blockRows);
    auto rows = std::make_unique<RowHandle[]>(static_cast<size_t>(room));
    std::move(block.rows.get(), block.rows.get() + block.count, rows.get());
    block.rows = std::move(rows);
    block.room = room;
}

// Parts a block in two; `at` is inside it.
void RowSequence::split(size_t index, int32_t at) {
    makeRoomForBlocks();
    Block rest;
    const int32_t count = blocks_[index].count - at;
    if (blocks_[index].rows) {
        rest.rows = std::make_unique<RowHandle[]>(static_cast<size_t>(blockRows));
        rest.room = blockRows;
        const auto from = blocks_[index].rows.get() + at;
        std::move(from, from + count, rest.rows.get());
    }
    rest.count = count;
    blocks_[index].count = at;
    blocks_.insert(blocks_.begin() + static_cast<ptrdiff_t>(index) + 1, std::move(rest));
    remeasure(index);
    remeasure(index + 1);
    renumber(index + 1);
}

// The block which a new row at a place goes to, with room for it.
size_t RowSequence::blockForInsertion(int32_t row) {
    const auto open = [this](size_t index) {
        return blocks_[index].rows && blocks_[index].count < blockRows;
    };
    makeRoomForBlocks();
    size_t index = row == size_ ? blocks_.size() : blockOf(row);
    if (index < blocks_.size() && row > blocks_[index].first) {
        if (!open(index)) {
            const int32_t at = row - blocks_[index].first;
            const bool full = blocks_[index].rows != nullptr;
            split(index, full ? blockRows / 2 : at);
            if (!full || at > blockRows / 2) ++index;
            makeRoomForBlocks();
        }
    } else if (index > 0 && open(index - 1)) {
        --index;
    } else if (index < blocks_.size() && blocks_[index].rows && !open(index)) {
        split(index, blockRows / 2);
    }
    if (index < blocks_.size() && open(index)) {
        makeRoom(blocks_[index], blocks_[index].count + 1);
        return index;
    }
    Block fresh;
    makeRoom(fresh, 1);
    blocks_.insert(blocks_.begin() + static_cast<ptrdiff_t>(index), std::move(fresh));
    renumber(index);
    return index;
}

bool RowSequence::insert(int32_t row, RowHandle handle) {
    if (size_ == mostRows) return false;
    const size_t index = blockForInsertion(row);
    Block& block = blocks_[index];
    const auto at = block.rows.get() + (row - block.first);
    const auto end = block.rows.get() + block.count;
    std::move_backward(at, end, end + 1);
    if (handle && handle->height() != PackedRow::ownHeightNone) {
        ++block.ownHeights;
        block.ownPixels += pixels(handle.get());
    }
    *at = std::move(handle);
    ++block.count;
    ++size_;
    renumber(index + 1);
    return true;
}

bool RowSequence::appendEmpty(int32_t count) {
    if (count > mostRows - size_) return false;
    if (count == 0) return true;
    if (blocks_.empty() || blocks_.back().rows) {
        makeRoomForBlocks();
        blocks_.emplace_back();
        renumber(blocks_.size() - 1);
    }
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
        if (block.rows) {
            const auto from = block.rows.get() + at;
            std::move(from + here, block.rows.get() + block.count, from);
            for (int32_t gone = block.count - here; gone < block.count; ++gone) block.row(gone).reset();
        }
        block.count -= here;
        left -= here;
        if (block.ownHeights != 0) remeasure(index);
    }
    const auto empty = [](const Block& block) { return block.count == 0; };
    const auto touched = blocks_.begin() + static_cast<ptrdiff_t>(start);
    const auto end = blocks_.begin() + static_cast<ptrdiff_t>(index);
    blocks_.erase(std::remove_if(touched, end, empty), end);
    size_ -= count;
    joinSmall(start);
    renumber(std::min(start, blocks_.size()) - (start > 0 ? 1 : 0));
}

// Blocks that removals have left small become one, where there is room already.
void RowSequence::joinSmall(size_t block) noexcept {
    for (const size_t left : {block, block - 1}) {
        const size_t right = left + 1;
        if (left >= blocks_.size() || right >= blocks_.size()) continue;
        Block& into = blocks_[left];
        Block& from = blocks_[right];
        if (!into.rows && !from.rows) {
            into.count += from.count;
        } else if (into.rows && from.rows && into.count + from.count <= std::min(into.room, blockRows / 2)) {
            std::move(from.rows.get(), from.rows.get() + from.count, into.rows.get() + into.count);
            into.count += from.count;
            into.ownHeights += from.ownHeights;
            into.ownPixels += from.ownPixels;
        } else {
            continue;
        }
        blocks_.erase(blocks_.begin() + static_cast<ptrdiff_t>(right));
    }
}

// The block of a row, with memory for its rows.
size_t RowSequence::materialized(int32_t row) {
    size_t index = blockOf(row);
    if (blocks_[index].rows) return index;
    makeRoomForBlocks();
    const int32_t at = (row - blocks_[index].first) / blockRows * blockRows;
    const int32_t count = std::min(blocks_[index].count - at, blockRows);
    auto rows = std::make_unique<RowHandle[]>(static_cast<size_t>(count));
    if (at + count < blocks_[index].count) split(index, at + count);
    if (at > 0) {
        split(index, at);
        ++index;
    }
    blocks_[index].rows = std::move(rows);
    blocks_[index].room = count;
    renumber(index);
    return index;
}

RowHandle& RowSequence::slot(int32_t row) {
    Block& block = blocks_[materialized(row)];
    return block.row(row - block.first);
}

void RowSequence::clearCells() noexcept {
    for (Block& block : blocks_) {
        for (int32_t at = 0; block.rows && at < block.count; ++at) {
            RowHandle& row = block.row(at);
            if (row && row->height() != PackedRow::ownHeightNone)
                row->clear();
            else
                row.reset();
        }
        if (block.ownHeights == 0) {
            block.rows.reset();
            block.room = 0;
        }
    }
    size_t kept = 0;
    for (size_t index = 1; index < blocks_.size(); ++index) {
        if (!blocks_[kept].rows && !blocks_[index].rows)
            blocks_[kept].count += blocks_[index].count;
        else if (++kept != index)
            blocks_[kept] = std::move(blocks_[index]);
    }
    if (!blocks_.empty()) blocks_.erase(blocks_.begin() + static_cast<ptrdiff_t>(kept) + 1, blocks_.end());
    renumber(0);
}

void RowSequence::truncateCells(int32_t cols) noexcept {
    for (Block& block : blocks_) {
        for (int32_t at = 0; block.rows && at < block.count; ++at) {
            if (block.row(at)) block.row(at)->truncate(cols);
        }
    }
}

void RowSequence::reorder(int32_t first, const std::vector<uint32_t>& order) {
    if (order.empty()) return;
    const int32_t end = first + static_cast<int32_t>(order.size());
    std::vector<RowHandle> taken(order.size());
    for (int32_t row = first; row < end;) {
        const Block& block = blocks_[materialized(row)];
        row = block.first + block.count;
    }
    const size_t start = blockOf(first);
    bool ownHeights = false;
    const auto eachRow = [&](auto&& use) {
        size_t place = 0;
        for (size_t index = start; place < order.size(); ++index) {
            Block& block = blocks_[index];
            ownHeights = ownHeights || block.ownHeights != 0;
            for (int32_t at = std::max(first - block.first, 0); at < block.count && place < order.size();
                 ++at)
                use(block.row(at), place++);
        }
    };
    eachRow([&](RowHandle& row, size_t place) { taken[place] = std::move(row); });
    eachRow([&](RowHandle& row, size_t place) { row = std::move(taken[order[place]]); });
    if (!ownHeights) return;
    for (size_t index = start; index < blocks_.size() && blocks_[index].first < end; ++index)
        remeasure(index);
    renumber(start);
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
    PackedRow::setHeight(block.row(row - block.first), twips);
    remeasure(index);
    renumber(index + 1);
}

void RowSequence::setDpi(Dpi dpi) {
    if (dpi == dpi_) return;
    dpi_ = dpi;
    for (size_t index = 0; index < blocks_.size(); ++index) {
        if (blocks_[index].ownHeights != 0) remeasure(index);
    }
    setDefaultHeight(defaultHeight_);
}

int64_t RowSequence::top(int32_t row) const {
    if (blocks_.empty()) return 0;
    const Block& block = row == size_ ? blocks_.back() : blocks_[blockOf(row)];
    if (row == size_) return block.top + pixels(block);
    const int32_t before = row - block.first;
    if (block.ownHeights == 0) return block.top + int64_t{before} * defaultPixels_;
    int64_t top = block.top;
    for (int32_t at = 0; at < before; ++at) top += pixels(block.row(at).get());
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
    int32_t at = 0;
    for (int64_t height; rest >= (height = pixels(block.row(at).get())); ++at) rest -= height;
    return block.first + at;
}

}  // namespace obk
