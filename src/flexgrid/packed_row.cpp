#include "flexgrid/packed_row.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <new>

namespace obk {

namespace {

// A text that is out of line, counted by the cells that show it.
struct LongText {
    Text text;
    uint32_t references = 0;
};

constexpr uint32_t addressUnits = sizeof(void*) / sizeof(char16_t);
static_assert(addressUnits <= PackedRow::longestInline);

// Addresses stand among the texts, at any unit.
LongText* addressAt(const char16_t* at) {
    LongText* address = nullptr;
    std::memcpy(&address, at, sizeof(void*));
    return address;
}

void putAddress(char16_t* at, LongText* address) {
    std::memcpy(at, &address, sizeof(void*));
}

bool isLong(TextView text) {
    return text.size() > PackedRow::longestInline;
}

uint32_t unitsFor(TextView text) {
    return isLong(text) ? addressUnits : static_cast<uint32_t>(text.size());
}

uint32_t heldUnits(TextPlace place) {
    return place.outOfLine() ? addressUnits : place.length();
}

// Calls use(start, length) for each cell of a text with tab characters between them, at most `cols`.
template <typename Use>
void eachCell(TextView item, int32_t cols, Use&& use) {
    const char16_t* const units = item.data();
    for (size_t start = 0; cols > 0 && start <= item.size(); --cols) {
        size_t end = start;
        while (end < item.size() && units[end] != u'\t') ++end;
        use(start, end - start);
        start = end + 1;
    }
}

void release(LongText* address) {
    if (--address->references == 0) delete address;
}

}  // namespace

void PackedRowDeleter::operator()(PackedRow* row) const noexcept {
    row->~PackedRow();
    ::operator delete(static_cast<void*>(row));
}

PackedRow::~PackedRow() {
    releaseLongTexts(0);
}

// A row of empty cells, with room for so many units.
RowHandle PackedRow::make(size_t cells, size_t units) {
    static_assert(sizeof(TextPlace) == placeUnits * sizeof(char16_t));
    const size_t first = cells * placeUnits, capacity = first + units;
    if (capacity > TextPlace::mostUnits) throw std::bad_alloc();
    void* memory = ::operator new(sizeof(PackedRow) + capacity * sizeof(char16_t));
    RowHandle row(new (memory) PackedRow(cells, capacity));
    std::uninitialized_fill_n(row->places(), cells, TextPlace(static_cast<uint32_t>(first), 0));
    return row;
}

RowHandle PackedRow::fromItem(TextView item, int32_t cols) {
    std::array<uint32_t, 64> ends;
    size_t count = 0, longest = 0, size = 0;
    eachCell(item, cols, [&](size_t start, size_t length) {
        size = start + length;
        longest = std::max(longest, length);
        if (count < ends.size()) ends[count] = static_cast<uint32_t>(size);
        ++count;
    });
    if (longest > longestInline || count > ends.size()) {
        std::vector<TextView> texts;
        eachCell(item, cols,
                 [&](size_t start, size_t length) { texts.push_back(item.substr(start, length)); });
        return fromTexts(texts);
    }
    if (size == 0) return nullptr;
    // The tab characters come along: a little room for each text.
    RowHandle row = make(count, size);
    const uint32_t first = row->places()->start();
    std::copy_n(item.begin(), size, row->units() + first);
    for (uint32_t cell = 0, start = 0; cell < count; start = ends[cell++] + 1)
        row->places()[cell] = TextPlace(first + start, ends[cell] - start);
    return row;
}

RowHandle PackedRow::fromTexts(std::span<const TextView> texts) {
    while (!texts.empty() && texts.back().empty()) texts = texts.first(texts.size() - 1);
    if (texts.empty()) return nullptr;
    size_t units = 0;
    for (const TextView text : texts) units += unitsFor(text);
    RowHandle row = make(texts.size(), units);
    struct Kept {
        TextView text;
        LongText* address = nullptr;
    };
    std::array<Kept, 2> recent;
    uint32_t start = row->places()->start();
    for (size_t cell = 0; cell < texts.size(); ++cell) {
        const TextView text = texts[cell];
        uint32_t length = unitsFor(text);
        if (isLong(text)) {
            const auto again = std::find_if(recent.begin(), recent.end(), [text](const Kept& kept) {
                return kept.text.data() == text.data() && kept.text.size() == text.size();
            });
            if (again == recent.end()) recent = {Kept{text, new LongText{Text(text), 0}}, recent[0]};
            LongText* const address = again == recent.end() ? recent[0].address : again->address;
            ++address->references;
            putAddress(row->units() + start, address);
            length = TextPlace::outOfLineMark;
        } else {
            std::copy(text.begin(), text.end(), row->units() + start);
        }
        row->places()[cell] = TextPlace(start, length);  // released if the next one fails
        start += unitsFor(text);
    }
    return row;
}

uint32_t PackedRow::usedEnd() const {
    const TextPlace last = places()[cells_ - 1];
    return last.start() + heldUnits(last);
}

TextView PackedRow::longText(TextPlace place) const {
    return addressAt(units() + place.start())->text;
}

void PackedRow::releaseLongTexts(uint32_t firstCell) noexcept {
    for (uint32_t cell = firstCell; cell < cells_; ++cell) {
        if (places()[cell].outOfLine()) release(addressAt(units() + places()[cell].start()));
    }
}

PackedRow& PackedRow::ensured(RowHandle& row) {
    if (!row) row = make(0, 0);
    return *row;
}

// Room for the next text of a cell that the row has, moving the texts after it if need be. False, and nothing
// changed, when the row has not so many units left.
bool PackedRow::makeRoom(uint32_t cell, uint32_t count) noexcept {
    const uint32_t end = places()[cell].start() + count, next = roomEnd(cell);
    if (end <= next) return true;
    const uint32_t used = usedEnd(), by = end - next;
    if (cell + 1u == cells_ || capacity_ - used < by) return false;
    std::memmove(units() + end, units() + next, (used - next) * sizeof(char16_t));
    for (uint32_t at = cell + 1; at < cells_; ++at) places()[at].move(by);
    return true;
}

// A row with room for a cell's next text; the one that the cell has goes.
void PackedRow::moveToLarger(RowHandle& row, uint32_t cell, uint32_t count, int32_t cols) {
    const size_t present = row ? row->cells_ : 0;
    // Rows that are filled cell by cell grow by more than one cell at a time, those that are written to by
    // more than one text.
    const size_t cells =
        cell < present ? present
                       : std::max<size_t>(cell + 1, std::min<size_t>(static_cast<size_t>(cols), present * 2));
    size_t units = count;
    for (size_t at = 0; at < present; ++at) units += at == cell ? 0 : heldUnits(row->places()[at]);
    RowHandle larger = make(cells, present == 0 ? units : units + units / 8 + 8);
    uint32_t start = larger->places()->start();
    for (size_t at = 0; at < cells; ++at) {
        TextPlace& to = larger->places()[at];
        to = TextPlace(start, 0);
        if (at == cell) {
            start += count;
        } else if (at < present) {
            TextPlace& from = row->places()[at];
            std::memcpy(larger->units() + start, row->units() + from.start(),
                        heldUnits(from) * sizeof(char16_t));
            to.setLength(from.length());
            start += heldUnits(from);
            from.setLength(0);  // what is out of line has moved along
        }
    }
    if (row) {
        larger->height_ = row->height_;
        larger->styles_ = std::move(row->styles_);
        larger->styled_ = row->styled_;
    }
    row = std::move(larger);
}

void PackedRow::replaceText(RowHandle& row, uint32_t cell, TextView text, int32_t cols) {
    // A text of this very row moves while it is written, and one that is out of line may go.
    std::array<char16_t, longestInline> held;
    std::unique_ptr<LongText> own;
    const uint32_t count = unitsFor(text);
    if (isLong(text)) {
        own = std::make_unique<LongText>(LongText{Text(text), 1});
        putAddress(held.data(), own.get());
    } else {
        std::char_traits<char16_t>::copy(held.data(), text.data(), count);
    }
    if (!row || cell >= row->cells_ || !row->makeRoom(cell, count)) moveToLarger(row, cell, count, cols);
    TextPlace& place = row->places()[cell];
    char16_t* const at = row->units() + place.start();
    if (place.outOfLine()) release(addressAt(at));
    std::char_traits<char16_t>::copy(at, held.data(), count);
    place.setLength(own ? TextPlace::outOfLineMark : count);
    static_cast<void>(own.release());
}

void PackedRow::growStyles(size_t count) {
    auto larger = std::make_unique<StyleRef[]>(count);
    std::move(styles_.get(), styles_.get() + styled_, larger.get());
    styles_ = std::move(larger);
    styled_ = static_cast<uint16_t>(count);
}

void PackedRow::setStyle(RowHandle& row, int32_t col, StyleRef style) {
    StyleRef* slot = row ? row->styleSlot(col) : nullptr;
    if (!slot) {
        if (!style) return;
        PackedRow& own = ensured(row);
        // A row is mostly styled from its first cell to its last.
        own.growStyles(std::max({static_cast<size_t>(col) + 1, size_t{own.cells_}, size_t{own.styled_} * 2}));
        slot = own.styleSlot(col);
    }
    *slot = std::move(style);
}

void PackedRow::setStyles(RowHandle& row, std::span<const StyleRef> styles) {
    PackedRow& own = ensured(row);
    if (styles.size() > own.styled_) own.growStyles(styles.size());
    std::copy(styles.begin(), styles.end(), own.styles_.get());
}

void PackedRow::setHeight(RowHandle& row, int32_t height) {
    ensured(row).height_ = height;
}

void PackedRow::truncate(int32_t cols) noexcept {
    const auto count = static_cast<uint16_t>(cols);
    if (count < cells_) {
        releaseLongTexts(count);
        cells_ = count;
    }
    for (; styled_ > count; --styled_) styles_[styled_ - 1u] = StyleRef();
}

}  // namespace obk
