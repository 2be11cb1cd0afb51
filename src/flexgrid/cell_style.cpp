#include "flexgrid/cell_style.h"

#include <bit>
#include <functional>

namespace obk {

namespace {

void mix(size_t& hash, size_t value) {
    hash = (hash ^ value) * size_t{0x9E3779B1u};
    hash ^= hash >> 15;
}

// By their bits, so that what is not a number is found again too.
uint32_t sizeBits(std::optional<float> size) {
    return std::bit_cast<uint32_t>(size.value_or(0.0f));
}

bool equalNames(const std::shared_ptr<const Text>& left, const std::shared_ptr<const Text>& right) {
    return left == right || (left && right && *left == *right);
}

// Two bits for a setting: whether it is set, and what it is.
unsigned bits(std::optional<bool> setting) {
    return setting ? 2u | static_cast<unsigned>(*setting) : 0u;
}

unsigned bits(std::optional<CellAlignment> alignment) {
    return alignment ? static_cast<unsigned>(*alignment) + 1u : 0u;
}

unsigned smallSettings(const CellStyle& style) {
    return bits(style.bold) | bits(style.italic) << 2 | bits(style.underline) << 4 |
           bits(style.strikeThrough) << 6 | bits(style.alignment) << 8 | bits(style.pictureAlignment) << 12 |
           static_cast<unsigned>(style.backColour.has_value()) << 16 |
           static_cast<unsigned>(style.foreColour.has_value()) << 17 |
           static_cast<unsigned>(style.fontSize.has_value()) << 18;
}

}  // namespace

bool CellStyle::operator==(const CellStyle& other) const {
    return smallSettings(*this) == smallSettings(other) && backColour == other.backColour &&
           foreColour == other.foreColour && sizeBits(fontSize) == sizeBits(other.fontSize) &&
           picture == other.picture && equalNames(fontName, other.fontName);
}

size_t CellStyle::hash() const {
    size_t hash = smallSettings(*this);
    mix(hash, backColour.value_or(OleColour()).value);
    mix(hash, foreColour.value_or(OleColour()).value);
    if (fontSize) mix(hash, sizeBits(fontSize));
    if (fontName) mix(hash, std::hash<Text>()(*fontName));
    if (picture) mix(hash, std::hash<PictureRef>()(picture));
    return hash;
}

bool CellStyle::nothingSet() const {
    return smallSettings(*this) == 0 && !fontName && !picture;
}

}  // namespace obk
