// The generic order of cells: as numbers where both are numbers, as texts otherwise.
#pragma once

#include "base/text.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace obk {

// Appends to a key what a text is compared by, byte by byte. Texts of equal keys are in the order of their
// units.
using SortKeyOf = std::function<void(TextView, std::string&)>;

enum class SortDirection : uint8_t { ascending, descending };

// Whether a text is sorted as a number: what numberFromText() reads.
bool isNumber(TextView text);

// First the texts that are no numbers and sort before the digits, the empty one among them, then the numbers
// by their value, then the other texts. Without `keyOf` texts compare unit by unit after every letter has
// become a capital.
//
// Answers the places of `count` texts in their order; what is equal keeps its order, in both
// directions. Each text is read once.
std::vector<uint32_t> sortedOrder(uint32_t count, const std::function<TextView(uint32_t)>& text,
                                  SortDirection direction, const SortKeyOf& keyOf = {});

}  // namespace obk
