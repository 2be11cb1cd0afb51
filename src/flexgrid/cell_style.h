// What a cell may have beside its text.
#pragma once

#include "base/colour.h"
#include "base/picture.h"
#include "base/text.h"

#include <bit>
#include <cstdint>
#include <memory>
#include <optional>

namespace obk {

// Where texts and pictures stand in a cell.
enum class CellAlignment : uint8_t {
    leftTop,
    leftCentre,
    leftBottom,
    centreTop,
    centreCentre,
    centreBottom,
    rightTop,
    rightCentre,
    rightBottom,
    general,  // numbers to the right, other texts to the left, both in the middle of the height
};

// What is not set follows the column, then the grid.
struct CellStyle {
    std::optional<OleColour> backColour, foreColour;
    std::shared_ptr<const Text> fontName;  // never an empty text
    std::optional<float> fontSize;         // points
    std::optional<bool> bold, italic, underline, strikeThrough;
    std::optional<CellAlignment> alignment;
    PictureRef picture;
    std::optional<CellAlignment> pictureAlignment;

    // Pictures are the same when they are one object, names when they read alike.
    bool operator==(const CellStyle& other) const;
    size_t hash() const;
    bool nothingSet() const;
};

// What a setting is in 32 bits, for those that are no more.
inline uint32_t settingBits(OleColour colour) {
    return colour.value;
}
inline uint32_t settingBits(float size) {
    return std::bit_cast<uint32_t>(size);
}
inline uint32_t settingBits(bool setting) {
    return setting ? 1 : 0;
}
inline uint32_t settingBits(CellAlignment alignment) {
    return static_cast<uint32_t>(alignment);
}
template <typename Setting>
concept SmallSetting = requires(Setting setting) {
    settingBits(setting);
};

}  // namespace obk
