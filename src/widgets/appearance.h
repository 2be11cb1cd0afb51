// How things look on this machine: the system's colours, fonts and what people set for keys, mouse and wheel.
#pragma once

#include "base/colour.h"
#include "base/font.h"
#include "base/text.h"
#include "base/units.h"

#include <chrono>
#include <cstdint>
#include <optional>

namespace obk {

struct FontMetrics {
    int32_t ascent = 0, descent = 0;  // pixels
    int32_t height() const { return ascent + descent; }
};

// The system's colours, metrics and fonts.
class Appearance {
public:
    virtual ~Appearance() = default;
    // Nothing for an index that the system does not have.
    virtual std::optional<Rgb> systemColour(uint8_t index) = 0;
    virtual bool highContrast() = 0;
    virtual Dpi systemDpi() = 0;
    virtual FontMetrics metrics(const FontDescription& font, Dpi dpi) = 0;
    // Width and height in pixels of one line.
    virtual PixelSize measure(TextView text, const FontDescription& font, Dpi dpi) = 0;
    // The font of dialogs, for a control without a container that names one.
    virtual FontDescription dialogFont() = 0;

    struct Metrics {
        std::chrono::milliseconds repeatDelay{500};  // before a held button repeats
        std::chrono::milliseconds repeatInterval{50};
        std::chrono::milliseconds doubleClick{500};
        int32_t wheelLines = 3;  // lines a notch of the wheel scrolls
    };
    virtual Metrics metrics() = 0;
};

}  // namespace obk
