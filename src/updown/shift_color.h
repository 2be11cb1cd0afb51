// Lightens or darkens an RGB colour.
#pragma once

#include <cstdint>

namespace obk {

// `Color` is an RGB value (a system colour gives a meaningless result); a positive `amount` lightens, a
// negative one darkens; with `IsXP` blue moves in proportion to itself. 0 for black, and where red or green
// would come out below 0.
int32_t ShiftColor(int32_t Color, int32_t amount, bool IsXP);

}  // namespace obk
