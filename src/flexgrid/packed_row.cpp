#include "flexgrid/packed_row.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <functional>
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

// What a row's texts may take together; far more than a grid's columns need while long texts lie apart.
constexpr size_t mostUnits = 0x3FFFFFFF;

uint32_t unitsFor(TextView text) {
    return liesApart(text) ? addressUnits : static_cast<uint32_t>(text.size());
}

// Room that spares the next few growths their move.
size_t grown(size_t needed, size_t present) {
    return present == 0 ? needed : needed + needed / 8 + 8;
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
    const size_t bytes = sizeof(PackedRow) + slots * sizeof(uint32_t) + units * sizeof(char16_t);
    void* memory = ::operator new(bytes);
    return RowHandle(new (memory) PackedRow(static_cast<uint32_t>(slots), static_cast<uint32_t>(units)));
}

RowHandle PackedRow::fromItem(TextView item, int32_t cols) {
    // Ends are found first, on the stack for all but the widest rows, so that the row is made in one piece.
    std::array<uint32_t, 64> few;
    std::vector<uint32_t> many;
    uint32_t* found = few.data();
    size_t room = few.size();
    size_t count = 0, longest = 0, start = 0;
    const auto limit = static_cast<size_t>(cols);
    if (item.size() > mostUnits) throw std::bad_alloc();
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
    std::memcpy(row->ends(), found, count * sizeof(uint32_t));
    // The tab characters come along: they are the units between two texts.
    std::memcpy(row->units(), units, used * sizeof(char16_t));
    row->cells_ = static_cast<uint32_t>(count);
    return row;
}

RowHandle PackedRow::fromTexts(std::span<const TextView> texts) {
    while (!texts.empty() && texts.back().empty()) texts = texts.first(texts.size() - 1);
    if (texts.empty()) return nullptr;
    size_t units = texts.size() - 1;
    for (const TextView text : texts) units += unitsFor(text);
    if (units > mostUnits) throw std::bad_alloc();
    RowHandle row = make(texts.size(), units);
    struct Kept {
        TextView text;
        ApartAddress address = nullptr;
    };
    std::array<Kept, 2> recent;
    uint32_t at = 0;
    for (size_t cell = 0; cell < texts.size(); ++cell) {
        const TextView text = texts[cell];
        uint32_t flag = 0;
        if (liesApart(text)) {
            const auto again = std::find_if(recent.begin(), recent.end(), [text](const Kept& kept) {
                return kept.text.data() == text.data() && kept.text.size() == text.size();
            });
            if (again == recent.end()) recent = {Kept{text, new ApartText{Text(text), 0}}, recent[0]};
            const ApartAddress address = again == recent.end() ? recent[0].address : again->address;
            ++address->references;
            putAddress(row->units() + at, address);
            flag = apartBit;
        } else {
            std::copy(text.begin(), text.end(), row->units() + at);
        }
        at += unitsFor(text);
        row->ends()[cell] = at | flag;
        row->cells_ = static_cast<uint32_t>(cell + 1);  // what is made is released if the next one fails
        if (cell + 1 < texts.size()) row->units()[at++] = 0;
    }
    return row;
}

TextView PackedRow::apart(uint32_t start) const {
    return addressAt(units() + start)->text;
}

void PackedRow::releaseApart(uint32_t firstCell) noexcept {
    for (uint32_t cell = firstCell; cell < cells_; ++cell) {
        if ((ends()[cell] & apartBit) == 0) continue;
        ApartAddress address = addressAt(units() + (ends()[cell] & placeBits) - addressUnits);
        if (--address->references == 0) delete address;
    }
}

PackedRow& PackedRow::ensured(RowHandle& row) {
    if (!row) row = make(0, 0);
    return *row;
}

// Moves the row to a larger place unless it has room enough.
void PackedRow::reserve(RowHandle& row, size_t slots, size_t units) {
    if (row && row->slots_ >= slots && row->capacity_ >= units) return;
    if (units > mostUnits) throw std::bad_alloc();
    const size_t newSlots = row ? std::max<size_t>(slots, row->slots_) : slots;
    const size_t newUnits =
        row && row->capacity_ >= units ? row->capacity_ : grown(units, row ? row->capacity_ : 0);
    RowHandle larger = make(newSlots, newUnits);
    if (row) {
        std::memcpy(larger->ends(), row->ends(), row->cells_ * sizeof(uint32_t));
        std::memcpy(larger->units(), row->units(), row->used() * sizeof(char16_t));
        larger->height_ = row->height_;
        larger->styled_ = std::exchange(row->styled_, 0);
        larger->styles_ = std::move(row->styles_);
        larger->cells_ = std::exchange(row->cells_, 0);
    }
    row = std::move(larger);
}

// Gives a cell's text another length; the units of the new text are the caller's to write.
void PackedRow::replaceUnits(PackedRow& row, int32_t col, uint32_t count, uint32_t flag) noexcept {
    uint32_t* const ends = row.ends();
    const auto cell = static_cast<uint32_t>(col);
    const uint32_t used = row.used();
    const uint32_t start = cell == 0 ? 0 : (ends[cell - 1] & placeBits) + 1;
    const uint32_t end = ends[cell] & placeBits;
    const uint32_t newEnd = start + count;
    if (newEnd != end) {
        std::memmove(row.units() + newEnd, row.units() + end, (used - end) * sizeof(char16_t));
        const uint32_t shift = newEnd - end;  // wraps, and so does the sum
        for (uint32_t at = cell + 1; at < row.cells_; ++at) ends[at] += shift;
    }
    ends[cell] = newEnd | flag;
}

void PackedRow::setText(RowHandle& row, int32_t col, TextView text, int32_t cols) {
    const auto cell = static_cast<uint32_t>(col);
    const uint32_t present = row ? row->cells_ : 0;
    if (cell >= present && text.empty()) return;
    const char16_t* const from = row ? row->units() : nullptr;
    const bool within =
        row && std::less_equal<>()(from, text.data()) && std::less<>()(text.data(), from + row->capacity_);
    const bool wasApart = cell < present && (row->ends()[cell] & apartBit) != 0;
    // A text of this very row moves while it is written, and one that lay apart may go.
    std::unique_ptr<ApartText> apartText;
    Text copy;
    if (liesApart(text)) {
        apartText = std::make_unique<ApartText>(ApartText{Text(text), 1});
    } else if (within || wasApart) {
        copy.assign(text);
        text = copy;
    }

    const uint32_t count = apartText ? addressUnits : static_cast<uint32_t>(text.size());
    if (cell >= present) {
        // Rows that are filled cell by cell grow by more than one place at a time.
        const size_t wanted = std::min<size_t>(static_cast<size_t>(cols), size_t{present} * 2);
        const size_t slots = std::max<size_t>(cell + size_t{1}, wanted);
        const size_t added = cell + 1 - present;
        const size_t separators = present == 0 ? added - 1 : added;
        reserve(row, row && row->slots_ > cell ? row->slots_ : slots,
                (row ? row->used() : 0) + separators + count);
        uint32_t end = row->used();
        for (uint32_t at = present; at <= cell; ++at) {
            if (at > 0) row->units()[end++] = 0;
            row->ends()[at] = end;
        }
        row->cells_ = cell + 1;
    } else {
        const uint32_t start = cell == 0 ? 0 : (row->ends()[cell - 1] & placeBits) + 1;
        const uint32_t old = (row->ends()[cell] & placeBits) - start;
        if (count > old) reserve(row, row->slots_, size_t{row->used()} + count - old);
        if (wasApart) {
            ApartAddress address = addressAt(row->units() + start);
            if (--address->references == 0) delete address;
        }
    }
    replaceUnits(*row, col, count, apartText ? apartBit : 0);
    char16_t* const place = row->units() + (row->ends()[cell] & placeBits) - count;
    if (apartText)
        putAddress(place, apartText.release());
    else
        std::copy(text.begin(), text.end(), place);
}

// None for a cell beyond the styled ones that stays without a style.
void PackedRow::makeRoomForStyle(RowHandle& row, int32_t col, const StyleRef& style, int32_t cols) {
    if (!style) return;
    PackedRow& own = ensured(row);
    // A row is mostly styled from its first cell to its last.
    const uint32_t wanted = std::min(static_cast<uint32_t>(cols), std::max(own.cells_, own.styled_ * 2));
    const uint32_t count = std::max(static_cast<uint32_t>(col) + 1, wanted);
    auto larger = std::make_unique<StyleRef[]>(count);
    std::move(own.styles_.get(), own.styles_.get() + own.styled_, larger.get());
    own.styles_ = std::move(larger);
    own.styled_ = count;
}

void PackedRow::setStyles(RowHandle& row, std::span<const StyleRef> styles) {
    auto own = std::make_unique<StyleRef[]>(styles.size());
    std::copy(styles.begin(), styles.end(), own.get());
    PackedRow& styled = ensured(row);
    styled.styles_ = std::move(own);
    styled.styled_ = static_cast<uint32_t>(styles.size());
}

void PackedRow::setHeight(RowHandle& row, int32_t height) {
    if (!row && height == ownHeightNone) return;
    ensured(row).height_ = height;
}

void PackedRow::clear() noexcept {
    truncate(0);
}

void PackedRow::truncate(int32_t cols) noexcept {
    const auto count = static_cast<uint32_t>(cols);
    if (count < cells_) {
        releaseApart(count);
        cells_ = count;
    }
    for (uint32_t cell = count; cell < styled_; ++cell) styles_[cell] = {};
    styled_ = std::min(styled_, count);
    if (styled_ == 0) styles_.reset();
}

}  // namespace obk
