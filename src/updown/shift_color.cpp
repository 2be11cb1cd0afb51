#include "updown/shift_color.h"

#include "base/colour.h"

#include <algorithm>

namespace obk {

int32_t ShiftColor(int32_t Color, int32_t amount, bool IsXP) {
    if (Color == 0) return 0;
    const int64_t blue = (Color / 65536) % 256;
    const int64_t green = (Color / 256) % 256;
    const int64_t red = Color & 255;
    // A channel whose arithmetic leaves 32 bits is a failed statement and stays 0.
    const auto checked = [](int64_t channel) {
        return channel < INT32_MIN || channel > INT32_MAX ? 0 : static_cast<int32_t>(channel);
    };
    const auto scaled = [&](int64_t channel) {
        const int64_t product = channel * amount;
        return product < INT32_MIN || product > INT32_MAX ? 0 : checked(channel + product / 192);
    };
    const auto clamped = [](int32_t channel) { return std::clamp(channel, 0, 255); };
    const int32_t newBlue = clamped(IsXP ? scaled(blue) : checked(blue + amount));
    const int32_t newGreen = clamped(checked(green + amount));
    const int32_t newRed = clamped(checked(red + amount));

    // Red and green come out 4 lower than blue; hosts have tuned their colours to that.
    constexpr int32_t bias = 4;
    if (newRed < bias || newGreen < bias) return 0;
    return static_cast<int32_t>(Rgb::of(static_cast<uint8_t>(newRed - bias),
                                        static_cast<uint8_t>(newGreen - bias), static_cast<uint8_t>(newBlue))
                                    .value);
}

}  // namespace obk
