// Colours as hosts give them (OLE colours) and as they are drawn (RGB), kept apart.
#pragma once

#include <cmath>
#include <cstdint>

namespace obk {

// 0x00BBGGRR: red in the low byte.
struct Rgb {
    uint32_t value = 0;

    constexpr uint8_t red() const { return static_cast<uint8_t>(value); }
    constexpr uint8_t green() const { return static_cast<uint8_t>(value >> 8); }
    constexpr uint8_t blue() const { return static_cast<uint8_t>(value >> 16); }
    static constexpr Rgb of(uint8_t red, uint8_t green, uint8_t blue) {
        return {red | static_cast<uint32_t>(green) << 8 | static_cast<uint32_t>(blue) << 16};
    }
    friend constexpr bool operator==(Rgb, Rgb) = default;
};

// One channel of a mix: `share` out of 255 of `first`, the rest of `second`, halves to even. Not clamped.
inline double mixedChannel(uint8_t first, uint8_t second, int32_t share) {
    return std::nearbyint(first * static_cast<double>(share) / 255.0 + second * (255.0 - share) / 255.0);
}

// Indexes of the system's colours, in the window system's own numbering.
enum class SystemColour : uint8_t {
    window = 5,
    windowText = 8,
    highlight = 13,
    highlightText = 14,
    buttonFace = 15,
    buttonShadow = 16,
    greyText = 17,
    buttonText = 18,
    buttonHighlight = 20,
    darkShadow3d = 21,
    light3d = 22,
    infoText = 23,
    infoBackground = 24,
};

// Either an RGB value or, with the high bit set, a system colour's index in the low byte.
// Kept and persisted as given; translated only where arithmetic or drawing needs RGB.
struct OleColour {
    uint32_t value = 0;

    constexpr OleColour() = default;
    constexpr explicit OleColour(uint32_t bits) : value(bits) {}
    constexpr OleColour(Rgb rgb) : value(rgb.value) {}
    constexpr OleColour(SystemColour index) : value(0x80000000u | static_cast<uint32_t>(index)) {}
    friend constexpr bool operator==(OleColour, OleColour) = default;
};

}  // namespace obk
