// What a grid makes of the values that hosts give it: check marks, sizes, fonts, colours of rows.
#pragma once

#include "base/colour.h"
#include "base/text.h"
#include "flexgrid/cell_style.h"
#include "grid/column_types.h"

#include <cstdint>
#include <optional>

namespace obk {

// A checked cell holds the letter that is a check mark in this font; an unchecked one is empty.
inline constexpr TextView checkedText = u"a";
inline constexpr TextView checkFontName = u"webdings";
inline constexpr float checkFontSize = 12;  // points

// The text of a check cell: checked for "a", for "true" in any case, and for a text whose leading number
// is 1, blanks and a plus sign before it aside.
Text checkText(TextView value);

// A column's width in whole twips, halves to even. Nothing for 200 twips or less, which nobody could use, and
// for what is no number or no 32-bit width.
std::optional<int32_t> usableColumnWidth(double twips);

// A font's size in points out of a text; nothing when that is no number of single precision.
std::optional<float> fontSizeFromText(TextView text);

// Negative numbers included.
constexpr bool isEven(int32_t number) {
    return number % 2 == 0;
}

// Every second row from the first one on has the colour, those between them the window's.
constexpr OleColour alternateRowColour(int32_t row, OleColour colour) {
    return isEven(row) ? colour : OleColour(SystemColour::window);
}

// How a cell looks that was read from a file, by its column.
CellStyle loadedStyle(ColumnType type);

}  // namespace obk
