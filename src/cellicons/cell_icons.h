// The named icons that hosts show in cells, drawn in three sizes: a fixed catalogue that the library carries.
#pragma once

#include "base/text.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>
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

// One icon in all sizes.
class Pixels {
public:
    Pixels() = default;
    explicit Pixels(std::vector<uint32_t> pixels) : pixels_(std::move(pixels)) {}

    // Premultiplied 0xAARRGGBB, row by row from the top. `size` is one of `sizes`.
    std::span<const uint32_t> of(int32_t size) const;

private:
    std::vector<uint32_t> pixels_;  // one size after the other
};
// Unpacked at each call. Nothing where there is no such icon.
std::optional<Pixels> pixels(int32_t index);

}  // namespace obk::cell_icons
