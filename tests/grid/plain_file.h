// The grid's text file once more, written and read in the simplest way: what the real one is compared with.
#pragma once

#include "base/text.h"

#include <string>
#include <vector>

namespace obk::test {

using PlainTexts = std::vector<std::vector<Text>>;

// What the western code page has for a unit, "?" for what it has not; and back.
char plainByte(char16_t unit);
char16_t plainUnit(char byte);

std::string plainBytes(const PlainTexts& cells, int32_t cols, TextView caption);

// Every field of a whole file at once.
std::vector<Text> plainFields(const std::string& bytes);

// Rows of `cols` out of all fields but the first; the last row is filled up with its last field.
PlainTexts plainRows(const std::vector<Text>& fields, size_t cols);

}  // namespace obk::test
