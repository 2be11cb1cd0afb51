#include "palette/hls.h"

#include <algorithm>
#include <cmath>

namespace obk {

namespace {

// Integers are made from floating point by rounding to the nearest, ties to even.
int32_t nearest(double value) {
    return static_cast<int32_t>(std::nearbyint(value));
}

// 256 and not 255, so that the middle luminances give 64, 128 and 192; the clamp catches 256.
uint8_t channel(int32_t value) {
    return static_cast<uint8_t>(std::clamp(nearest(value * 256 / 240.0), 0, 255));
}

int32_t hueToChannel(int32_t low, int32_t high, int32_t hue) {
    if (hue < 0) hue += 240;
    if (hue > 240) hue -= 240;
    if (hue < 40) return nearest(low + (high - low) * static_cast<double>(hue) / 240 * 6);
    if (hue < 120) return high;
    if (hue < 160) return nearest(low + (high - low) * (160.0 - hue) / 240 * 6);
    return low;
}

}  // namespace

Rgb rgbFromHls(const Hls& hls) {
    const auto [h, l, s] = hls;
    if (s == 0) return Rgb::of(channel(l), channel(l), channel(l));
    const int32_t high =
        l <= 120 ? nearest(l * (240.0 + s) / 240) : nearest((l + s) - l * static_cast<double>(s) / 240);
    const int32_t low = 2 * l - high;
    return Rgb::of(channel(hueToChannel(low, high, h + 80)), channel(hueToChannel(low, high, h)),
                   channel(hueToChannel(low, high, h - 80)));
}

Hls hlsFromRgb(Rgb rgb) {
    const double red = rgb.red();
    const double green = rgb.green();
    const double blue = rgb.blue();
    const double most = std::max({red, green, blue});
    const double least = std::min({red, green, blue});
    const double sum = most + least;
    const double spread = most - least;
    Hls hls{0, nearest(sum * 120 / 255), 0};
    if (spread == 0) return hls;
    hls.saturation = nearest(240 * spread / (sum <= 255 ? sum : 510 - sum));
    const double sixth = most == red     ? (green - blue) / spread
                         : most == green ? 2 + (blue - red) / spread
                                         : 4 + (red - green) / spread;
    hls.hue = (nearest(sixth * 40) + 240) % 240;
    return hls;
}

}  // namespace obk
