#include "updown/shift_color.h"

#include "base/colour.h"

#include <algorithm>

namespace obk {

int32_t ShiftColor(int32_t Color, int32_t amount, bool IsXP) {
    if (Color == 0) return 0;
    const int64_t blue = (Color / 65536) % 256;
    const int64_t green = (Color / 256) % 256;
    const int64_t red = Color & 255;
    const auto fits = [](int64_t value) { return value >= INT32_MIN && value <= INT32_MAX; };
    // A channel whose arithmetic leaves 32 bits is a failed statement and stays 0.
    const auto channel = [&fits](int64_t value) {
        return fits(value) ? static_cast<uint8_t>(std::clamp<int64_t>(value, 0, 255)) : uint8_t{0};
    };
    const int64_t product = blue * amount;
    const uint8_t scaled = fits(product) ? channel(blue + product / 192) : uint8_t{0};
    const uint8_t newBlue = IsXP ? scaled : channel(blue + amount);
    const uint8_t newGreen = channel(green + amount);
    const uint8_t newRed = channel(red + amount);

    // Red and green come out 4 lower, blue does not: meant so.
    constexpr uint8_t bias = 4;
    if (newRed < bias || newGreen < bias) return 0;
    const Rgb shifted =
        Rgb::of(static_cast<uint8_t>(newRed - bias), static_cast<uint8_t>(newGreen - bias), newBlue);
    return static_cast<int32_t>(shifted.value);
}

}  // namespace obk
