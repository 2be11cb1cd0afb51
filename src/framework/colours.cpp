#include "framework/colours.h"

#include <algorithm>

namespace obk {

int32_t TranslateOleColor(Appearance& appearance, OleColour Color) {
    constexpr int32_t failed = -1;
    constexpr uint32_t rgbBits = 0xFFFFFF;
    switch (Color.value >> 24) {
        case 0x00:
        case 0x02:  // an RGB value to be matched to a palette, which there is none of
            return static_cast<int32_t>(Color.value & rgbBits);
        case 0x80: {
            if ((Color.value & rgbBits) > 0xFF) return failed;
            const auto rgb = appearance.systemColour(static_cast<uint8_t>(Color.value));
            return rgb ? static_cast<int32_t>(rgb->value) : failed;
        }
        default:
            return failed;
    }
}

Rgb BlendColors(Appearance& appearance, OleColour Color1, OleColour Color2, int32_t Weight) {
    const Rgb first{static_cast<uint32_t>(TranslateOleColor(appearance, Color1))};
    const Rgb second{static_cast<uint32_t>(TranslateOleColor(appearance, Color2))};
    const double channels[] = {mixedChannel(first.red(), second.red(), Weight),
                               mixedChannel(first.green(), second.green(), Weight),
                               mixedChannel(first.blue(), second.blue(), Weight)};
    if (std::any_of(std::begin(channels), std::end(channels),
                    [](double channel) { return channel < 0 || channel > INT16_MAX; }))
        return {};
    const auto byte = [](double channel) { return static_cast<uint8_t>(std::min(channel, 255.0)); };
    return Rgb::of(byte(channels[0]), byte(channels[1]), byte(channels[2]));
}

}  // namespace obk
