#include "cellicons/cell_icons.h"

#include <zlib.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <new>
#include <span>
#include <unordered_map>

// What icons/cells/render.mjs writes, and says the layout of. By this very name, without a system's prefix.
extern const unsigned char obkCellIcons[] __asm__("obkCellIcons");

namespace obk::cell_icons {

namespace {

using Bytes = std::span<const unsigned char>;

// So many icons of a size are unpacked at once; as many as render.mjs packs.
constexpr size_t groupSize = 32;

uint32_t number(size_t at) {
    uint32_t read = 0;
    std::memcpy(&read, obkCellIcons + 4 * at, sizeof read);
    return read;
}

// The keys come first, then the groups of pictures, size by size.
Bytes part(size_t which) {
    return {obkCellIcons + number(1 + which), obkCellIcons + number(2 + which)};
}

bool contains(int32_t index) {
    return index >= 1 && index <= count();
}

// Finds without making a text.
struct Hash {
    using is_transparent = void;
    size_t operator()(TextView key) const { return std::hash<TextView>()(key); }
};
using Indexes = std::unordered_map<Text, int32_t, Hash, std::equal_to<>>;

Indexes indexes() {
    Indexes all;
    for (int32_t index = 1; index <= count(); ++index) all.emplace(key(index), index);
    return all;
}

}  // namespace

int32_t count() {
    return static_cast<int32_t>(number(0));
}

Text key(int32_t index) {
    if (!contains(index)) return {};
    const Bytes key = part(static_cast<size_t>(index - 1));
    return Text(key.begin(), key.end());
}

std::optional<int32_t> indexOf(TextView key) {
    static const Indexes all = indexes();
    const auto found = all.find(key);
    if (found == all.end()) return std::nullopt;
    return found->second;
}

std::vector<uint32_t> pixels(int32_t index, int32_t size) {
    const auto found = std::find(sizes.begin(), sizes.end(), size);
    if (!contains(index) || found == sizes.end()) return {};
    // Neighbours are packed together: there is not much to one icon that others do not have.
    const auto icons = static_cast<size_t>(count()), at = static_cast<size_t>(index - 1);
    const size_t group = at / groupSize, groups = (icons + groupSize - 1) / groupSize;
    const size_t held = std::min(groupSize, icons - group * groupSize);
    const Bytes packed = part(icons + static_cast<size_t>(found - sizes.begin()) * groups + group);
    const auto area = static_cast<size_t>(size) * static_cast<size_t>(size);
    std::vector<uint32_t> unpacked(held * area);
    auto length = static_cast<uLongf>(unpacked.size() * sizeof(uint32_t));
    // The pictures are part of the program: what can fail is memory.
    if (uncompress(reinterpret_cast<Bytef*>(unpacked.data()), &length, packed.data(),
                   static_cast<uLong>(packed.size())) != Z_OK)
        throw std::bad_alloc();
    const auto first = unpacked.begin() + static_cast<std::ptrdiff_t>(at % groupSize * area);
    return {first, first + static_cast<std::ptrdiff_t>(area)};
}

}  // namespace obk::cell_icons
