// The named icons that hosts show in cells, drawn in three sizes: a fixed catalogue that the library carries.
#pragma once

#include "base/text.h"

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

namespace obk::cell_icons {

// Sides in pixels: for 96, 144 and 192 DPI.
inline constexpr std::array<int32_t, 3> sizes{16, 24, 32};

// Icons count from 1.
int32_t count();
// Empty where there is no such icon.
Text key(int32_t index);
// By its exact key; nothing for a key that no icon has.
std::optional<int32_t> indexOf(TextView key);

// One icon in one of the sizes: premultiplied 0xAARRGGBB, row by row from the top. Unpacked at each call,
// with its neighbours;
// empty where there is no such icon or size.
std::vector<uint32_t> pixels(int32_t index, int32_t size);

}  // namespace obk::cell_icons
