// Numbers written with a fixed count of decimals, rounded on the digits that a person would see.
#pragma once

#include "base/text.h"

#include <cstdint>
#include <optional>

namespace obk {

// `number` with `places` decimals (0 to 300), half away from zero, decided on its 15 significant decimal
// digits: 1.005 gives "1.01" with two places. No grouping, and never "-0". Nothing for what is not finite.
std::optional<Text> fixedText(double number, int32_t places);

// A text's number with `places` decimals; 0 means 2. Nothing when it is no number or `places` is out of
// range.
std::optional<Text> Datep(TextView text, int32_t places);

}  // namespace obk
