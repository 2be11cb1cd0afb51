// The system's colours, metrics and fonts.
#pragma once

#include "platform/win32/fonts.h"
#include "widgets/platform.h"

#include <optional>

namespace obk::win32 {

class SystemAppearance final : public Appearance {
public:
    explicit SystemAppearance(FontCache& fonts) : fonts_(fonts) {}

    std::optional<Rgb> systemColour(uint8_t index) override;
    bool highContrast() override;
    Dpi systemDpi() override;
    FontMetrics metrics(const FontDescription& font, Dpi dpi) override;
    PixelSize measure(TextView text, const FontDescription& font, Dpi dpi) override;
    FontDescription dialogFont() override;
    Metrics metrics() override;

private:
    HDC measuringDc();

    FontCache& fonts_;
    UniqueMemoryDc measuringDc_;
    std::optional<Dpi> systemDpi_;  // the same while the process lasts, and asked for with every place
};

}  // namespace obk::win32
