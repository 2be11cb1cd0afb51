// What a cell may have beside its text.
#pragma once

#include "base/colour.h"
#include "base/picture.h"
#include "base/text.h"

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
};

}  // namespace obk
