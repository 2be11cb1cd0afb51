#include "cellicons/cell_icons.h"

#include <zlib.h>

#include <cstring>
#include <functional>
#include <numeric>
#include <string_view>
#include <unordered_map>

// What icons/cells/render.mjs writes, and says the layout of. By this very name, without a system's prefix.
extern const unsigned char obkCellIcons[] __asm__("obkCellIcons");

namespace obk::cell_icons {

namespace {

constexpr int32_t pixelCount = std::accumulate(sizes.begin(), sizes.end(), 0,
                                               [](int32_t sum, int32_t size) { return sum + size * size; });

uint32_t number(int32_t at) {
    uint32_t read = 0;
    std::memcpy(&read, obkCellIcons + size_t{4} * static_cast<size_t>(at), sizeof read);
    return read;
}

struct Record {
    std::string_view key;
    std::span<const unsigned char> packed;
};

std::optional<Record> record(int32_t index) {
    if (index < 1 || index > count()) return std::nullopt;
    const unsigned char* const from = obkCellIcons + number(index);
    const unsigned char* const end = obkCellIcons + number(index + 1);
    const unsigned char* const key = from + 1;
    return Record{{reinterpret_cast<const char*>(key), *from}, {key + *from, end}};
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
    const auto found = record(index);
    return found ? Text(found->key.begin(), found->key.end()) : Text();
}

std::optional<int32_t> indexOf(TextView key) {
    static const Indexes all = indexes();
    const auto found = all.find(key);
    if (found == all.end()) return std::nullopt;
    return found->second;
}

std::span<const uint32_t> Pixels::of(int32_t size) const {
    size_t from = 0;
    for (const int32_t each : sizes) {
        const auto area = static_cast<size_t>(each) * static_cast<size_t>(each);
        if (each == size && from + area <= pixels_.size()) return std::span(pixels_).subspan(from, area);
        from += area;
    }
    return {};
}

std::optional<Pixels> pixels(int32_t index) {
    const auto found = record(index);
    if (!found) return std::nullopt;
    std::vector<uint32_t> unpacked(pixelCount);
    uLongf length = pixelCount * sizeof(uint32_t);
    const int result = uncompress(reinterpret_cast<Bytef*>(unpacked.data()), &length, found->packed.data(),
                                  static_cast<uLong>(found->packed.size()));
    // The pictures are part of the program: what is left to fail is memory.
    if (result != Z_OK) return std::nullopt;
    return Pixels(std::move(unpacked));
}

}  // namespace obk::cell_icons
