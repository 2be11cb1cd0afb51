#include "flexgrid/packed_row.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <new>
#include <utility>

namespace obk {

namespace {

// A text of its own, counted by the cells that show it.
struct ApartText {
    Text text;
    uint32_t references = 0;
};

using ApartAddress = ApartText*;
constexpr uint32_t addressUnits = sizeof(ApartAddress) / sizeof(char16_t);
static_assert(addressUnits <= PackedRow::longestInline);

// Addresses stand among the texts, at any unit.
ApartAddress addressAt(const char16_t* at) {
    ApartAddress address = nullptr;
    std::memcpy(&address, at, sizeof address);
    return address;
}

void putAddress(char16_t* at, ApartAddress address) {
    std::memcpy(at, &address, sizeof address);
}

bool liesApart(TextView text) {
    return text.size() > PackedRow::longestInline;
}

uint32_t unitsFor(TextView text) {
    return liesApart(text) ? addressUnits : static_cast<uint32_t>(text.size());
}

// Places in it are counted in 32 bits.
constexpr size_t longestItem = 0x7FFFFFFF;

void release(ApartAddress address) {
    if (--address->references == 0) delete address;
}

}  // namespace

void PackedRowDeleter::operator()(PackedRow* row) const noexcept {
    row->~PackedRow();
    ::operator delete(static_cast<void*>(row));
}

PackedRow::~PackedRow() {
    releaseApart(0);
}

RowHandle PackedRow::make(size_t slots, size_t units) {
    static_assert(sizeof(Place) == placeUnits * sizeof(char16_t));
    const size_t capacity = slots * placeUnits + units;
    if (capacity > Place::mostUnits) throw std::bad_alloc();
    void* memory = ::operator new(sizeof(PackedRow) + capacity * sizeof(char16_t));
    return RowHandle(new (memory) PackedRow(slots, capacity));
}

RowHandle PackedRow::fromItem(TextView item, int32_t cols) {
    // Ends are found first, on the stack for all but the widest rows, so that the row is made in one piece.
    std::array<uint32_t, 64> few;
    std::vector<uint32_t> many;
    uint32_t* found = few.data();
    size_t room = few.size();
    size_t count = 0, longest = 0, start = 0;
    const auto limit = static_cast<size_t>(cols);
    if (item.size() > longestItem) throw std::bad_alloc();
    const char16_t* const units = item.data();
    const size_t size = item.size();
    for (size_t at = 0; count < limit; ++at) {
        while (at < size && units[at] != u'\t') ++at;
        if (count == room) {
            room = std::min(limit, room * 8);
            if (many.empty()) many.assign(few.begin(), few.end());
            many.resize(room);
            found = many.data();
        }
        found[count++] = static_cast<uint32_t>(at);
        longest = std::max(longest, at - start);
        start = at + 1;
        if (at == size) break;
    }
    if (longest > longestInline) {
        std::vector<TextView> texts;
        texts.reserve(count);
        for (size_t cell = 0, from = 0; cell < count; from = found[cell++] + 1)
            texts.push_back(item.substr(from, found[cell] - from));
        return fromTexts(texts);
    }
    const size_t used = count == 0 ? 0 : found[count - 1];
    if (used == 0 && count <= 1) return nullptr;
    RowHandle row = make(count, used);
    // The tab characters come along: a little room for each text.
    const auto first = static_cast<uint32_t>(count * placeUnits);
    std::memcpy(row->units() + first, units, used * sizeof(char16_t));
    uint32_t from = 0;
    for (size_t cell = 0; cell < count; from = found[cell++] + 1)
        row->places()[cell] = Place(first + from, found[cell] - from);
    row->cells_ = static_cast<uint16_t>(count);
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
        ApartAddress address = nullptr;
    };
    std::array<Kept, 2> recent;
    uint32_t start = row->usedEnd();
    for (const TextView text : texts) {
        uint32_t length = unitsFor(text);
        if (liesApart(text)) {
            const auto again = std::find_if(recent.begin(), recent.end(), [text](const Kept& kept) {
                return kept.text.data() == text.data() && kept.text.size() == text.size();
            });
            if (again == recent.end()) recent = {Kept{text, new ApartText{Text(text), 0}}, recent[0]};
            const ApartAddress address = again == recent.end() ? recent[0].address : again->address;
            ++address->references;
            putAddress(row->units() + start, address);
            length = Place::apartLength;
        } else {
            std::copy(text.begin(), text.end(), row->units() + start);
        }
        row->places()[row->cells_++] = Place(start, length);  // released if the next one fails
        start += unitsFor(text);
    }
    return row;
}

uint32_t PackedRow::heldUnits(Place place) {
    return place.apart() ? addressUnits : place.length();
}

uint32_t PackedRow::usedEnd() const {
    if (cells_ == 0) return slots_ * placeUnits;
    const Place last = places()[cells_ - 1];
    return last.start() + heldUnits(last);
}

TextView PackedRow::apart(Place place) const {
    return addressAt(units() + place.start())->text;
}

void PackedRow::releaseApart(uint32_t firstCell) noexcept {
    for (uint32_t cell = firstCell; cell < cells_; ++cell) {
        if (places()[cell].apart()) release(addressAt(units() + places()[cell].start()));
    }
}

PackedRow& PackedRow::ensured(RowHandle& row) {
    if (!row) row = make(0, 0);
    return *row;
}

// Moves the texts after a cell's to make room in it, while the row has units left.
bool PackedRow::widen(uint32_t cell, uint32_t count) noexcept {
    if (cell + 1 >= cells_) return false;
    const uint32_t next = places()[cell + 1].start(), used = usedEnd();
    const uint32_t by = places()[cell].start() + count - next;
    if (capacity_ - used < by) return false;
    std::memmove(units() + next + by, units() + next, (used - next) * sizeof(char16_t));
    for (uint32_t at = cell + 1; at < cells_; ++at) places()[at].move(by);
    return true;
}

// Makes a cell beyond the last one, while the row has places and units left.
bool PackedRow::append(uint32_t cell, uint32_t count) noexcept {
    const uint32_t used = usedEnd();
    if (cell < cells_ || cell >= slots_ || capacity_ - used < count) return false;
    std::fill(places() + cells_, places() + cell + 1, Place(used, 0));
    cells_ = static_cast<uint16_t>(cell + 1);
    return true;
}

// Room for a cell's next text; the one that it has may go.
void PackedRow::makeRoom(RowHandle& row, uint32_t cell, uint32_t count, int32_t cols) {
    if (row && cell < row->cells_ && (row->hasRoom(cell, count) || row->widen(cell, count))) return;
    if (row && row->append(cell, count)) return;
    moveToLarger(row, cell, count, cols);
}

void PackedRow::moveToLarger(RowHandle& row, uint32_t cell, uint32_t count, int32_t cols) {
    const uint32_t present = row ? row->cells_ : 0;
    // Rows that are filled cell by cell grow by more than one place at a time, those that are written to by
    // more than one text.
    size_t slots = row ? row->slots_ : 0, units = count;
    if (cell >= slots)
        slots = std::max<size_t>(cell + 1, std::min<size_t>(static_cast<size_t>(cols), present * 2));
    for (uint32_t at = 0; at < present; ++at) units += at == cell ? 0 : heldUnits(row->places()[at]);
    RowHandle larger = make(slots, present == 0 ? units : units + units / 8 + 8);
    uint32_t start = larger->usedEnd();
    for (uint32_t at = 0; at < std::max(present, cell + 1); ++at) {
        const Place from = at < present && at != cell ? row->places()[at] : Place(0, 0);
        if (from.length() != 0)
            std::memcpy(larger->units() + start, row->units() + from.start(),
                        heldUnits(from) * sizeof(char16_t));
        larger->places()[at] = Place(start, from.length());
        start += at == cell ? count : heldUnits(from);
    }
    larger->cells_ = static_cast<uint16_t>(std::max(present, cell + 1));
    if (row) {
        larger->height_ = row->height_;
        larger->styles_ = std::move(row->styles_);
        // What lies apart has moved along, but for what is replaced.
        if (cell < present) std::swap(row->places()[0], row->places()[cell]);
        row->cells_ = cell < present ? 1 : 0;
    }
    row = std::move(larger);
}

void PackedRow::setText(RowHandle& row, int32_t col, TextView text, int32_t cols) {
    if (!row || !row->setTextInPlace(col, text)) replaceText(row, static_cast<uint32_t>(col), text, cols);
}

void PackedRow::replaceText(RowHandle& row, uint32_t cell, TextView text, int32_t cols) {
    if (text.empty() && (!row || cell >= row->cells_)) return;
    // A text of this very row moves while it is written, and one that lay apart may go.
    std::unique_ptr<ApartText> apartText;
    std::array<char16_t, longestInline> copy;
    if (liesApart(text))
        apartText = std::make_unique<ApartText>(ApartText{Text(text), 1});
    else
        std::copy(text.begin(), text.end(), copy.begin());

    const uint32_t count = unitsFor(text);
    makeRoom(row, cell, count, cols);
    Place& place = row->places()[cell];
    char16_t* const at = row->units() + place.start();
    if (place.apart()) release(addressAt(at));
    if (apartText) {
        putAddress(at, apartText.release());
        place.setLength(Place::apartLength);
    } else {
        std::copy_n(copy.begin(), count, at);
        place.setLength(count);
    }
}

// None for a cell beyond the styled ones that stays without a style.
void PackedRow::makeRoomForStyle(RowHandle& row, int32_t col, const StyleRef& style, int32_t cols) {
    if (!style) return;
    StylePlaces& own = ensured(row).styles_;
    // A row is mostly styled from its first cell to its last.
    const uint32_t wanted =
        std::min(static_cast<uint32_t>(cols), std::max<uint32_t>(row->cells_, own.size() * 2));
    const uint32_t count = std::max(static_cast<uint32_t>(col) + 1, wanted);
    if (own.size() == 0)
        own = StylePlaces(*style.entry()->table, count);
    else
        own.grow(count);
}

void PackedRow::setStyles(RowHandle& row, std::span<const StyleRef> styles) {
    const auto styled =
        std::find_if(styles.begin(), styles.end(), [](const StyleRef& style) { return bool(style); });
    StylePlaces own;
    if (styled != styles.end())
        own = StylePlaces(*styled->entry()->table, static_cast<uint32_t>(styles.size()));
    for (uint32_t cell = 0; cell < own.size(); ++cell) own.set(cell, styles[cell]);
    ensured(row).styles_ = std::move(own);
}

void PackedRow::setHeight(RowHandle& row, int32_t height) {
    if (!row && height == ownHeightNone) return;
    ensured(row).height_ = height;
}

void PackedRow::clear() noexcept {
    truncate(0);
}

void PackedRow::truncate(int32_t cols) noexcept {
    const auto count = static_cast<uint16_t>(cols);
    if (count < cells_) {
        releaseApart(count);
        cells_ = count;
    }
    styles_.truncate(count);
}

}  // namespace obk
