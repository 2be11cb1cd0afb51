// Hue, luminance and saturation on the 0 to 240 scale of the system's colour chooser, and RGB.
#pragma once

#include "base/colour.h"

#include <cstdint>

namespace obk {

struct Hls {
    int32_t hue = 0, luminance = 0, saturation = 0;  // 0 to 240 each
    friend bool operator==(const Hls&, const Hls&) = default;
};

// Values outside 0 to 240 are not refused; the channels stop at 0 and 255.
Rgb rgbFromHls(const Hls& hls);
// The nearest triple; a grey has hue 0. There and back is not always the same colour: 240 steps are fewer
// than 256.
Hls hlsFromRgb(Rgb rgb);

}  // namespace obk
