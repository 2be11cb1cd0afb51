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

uint32_t number(size_t at) {
    uint32_t read = 0;
    std::memcpy(&read, obkCellIcons + 4 * at, sizeof read);
    return read;
}

// Of an icon that there is: part 0 is its key, the others are its pictures in the order of the sizes.
Bytes part(int32_t index, size_t which) {
    const size_t at = 1 + static_cast<size_t>(index - 1) * (1 + sizes.size()) + which;
    return {obkCellIcons + number(at), obkCellIcons + number(at + 1)};
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
    const Bytes key = part(index, 0);
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
    const Bytes packed = part(index, 1 + static_cast<size_t>(found - sizes.begin()));
    std::vector<uint32_t> unpacked(static_cast<size_t>(size) * static_cast<size_t>(size));
    auto length = static_cast<uLongf>(unpacked.size() * sizeof(uint32_t));
    // The pictures are part of the program: what can fail is memory.
    if (uncompress(reinterpret_cast<Bytef*>(unpacked.data()), &length, packed.data(),
                   static_cast<uLong>(packed.size())) != Z_OK)
        throw std::bad_alloc();
    return unpacked;
}

}  // namespace obk::cell_icons
