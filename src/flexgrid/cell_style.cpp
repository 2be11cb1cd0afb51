#include "flexgrid/cell_style.h"

#include <functional>

namespace obk {

namespace {

bool equalNames(const std::shared_ptr<const Text>& left, const std::shared_ptr<const Text>& right) {
    return left == right || (left && right && *left == *right);
}

// Whether a setting is set, and what it is.
size_t bits(std::optional<bool> setting) {
    return setting ? 2u | static_cast<unsigned>(*setting) : 0u;
}

size_t bits(std::optional<CellAlignment> alignment) {
    return alignment ? static_cast<unsigned>(*alignment) + 1u : 0u;
}

}  // namespace

bool CellStyle::operator==(const CellStyle& other) const {
    return backColour == other.backColour && foreColour == other.foreColour && fontSize == other.fontSize &&
           bold == other.bold && italic == other.italic && underline == other.underline &&
           strikeThrough == other.strikeThrough && alignment == other.alignment && picture == other.picture &&
           pictureAlignment == other.pictureAlignment && equalNames(fontName, other.fontName);
}

size_t CellStyle::hash() const {
    size_t hash = 0;
    const auto mix = [&hash](size_t value) {
        hash = (hash ^ value) * size_t{0x9E3779B1u};
        hash ^= hash >> 15;
    };
    mix(bits(bold) | bits(italic) << 2 | bits(underline) << 4 | bits(strikeThrough) << 6 |
        bits(alignment) << 8 | bits(pictureAlignment) << 12);
    mix(backColour ? backColour->value : 1);
    mix(foreColour ? foreColour->value : 1);
    mix(std::hash<std::optional<float>>()(fontSize));
    mix(fontName ? std::hash<Text>()(*fontName) : 0);
    mix(std::hash<PictureRef>()(picture));
    return hash;
}

}  // namespace obk
