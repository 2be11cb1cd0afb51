#include "platform/win32/appearance.h"

#include "platform/win32/display.h"
#include "platform/win32/text_conversion.h"

namespace obk::win32 {

std::optional<Rgb> SystemAppearance::systemColour(uint8_t index) {
    // GetSysColor answers black for an index that does not exist.
    if (!GetSysColorBrush(index)) return std::nullopt;
    return Rgb{GetSysColor(index)};
}

bool SystemAppearance::highContrast() {
    HIGHCONTRASTW state{};
    state.cbSize = sizeof state;
    return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof state, &state, 0) &&
           (state.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

Dpi SystemAppearance::systemDpi() {
    if (!systemDpi_) systemDpi_ = win32::systemDpi();
    return *systemDpi_;
}

HDC SystemAppearance::measuringDc() {
    if (!measuringDc_) measuringDc_.reset(CreateCompatibleDC(nullptr));
    return measuringDc_.get();
}

FontMetrics SystemAppearance::metrics(const FontDescription& font, Dpi dpi) {
    return fonts_.metrics(font, dpi, measuringDc());
}

PixelSize SystemAppearance::measure(TextView text, const FontDescription& font, Dpi dpi) {
    const int32_t height = metrics(font, dpi).height();
    const SharedGdiFont used = fonts_.get(font, dpi);
    const Selection selection(measuringDc(), used.get());
    constexpr size_t longest = 8192;  // what the system measures in one call
    SIZE size{};
    const auto wide = asWide(text).substr(0, longest);
    GetTextExtentPoint32W(measuringDc(), wide.data(), static_cast<int>(wide.size()), &size);
    return {size.cx, height};
}

FontDescription SystemAppearance::dialogFont() {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    if (!SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0)) return {};
    return fromLogFont(metrics.lfMessageFont, systemDpi());
}

Appearance::Metrics SystemAppearance::metrics() {
    using std::chrono::milliseconds;
    Metrics result;
    UINT delay = 1;  // 0 to 3: a quarter of a second to a whole one
    if (SystemParametersInfoW(SPI_GETKEYBOARDDELAY, 0, &delay, 0))
        result.repeatDelay = milliseconds(250 * (1 + std::min(delay, 3u)));
    DWORD speed = 31;  // 0 to 31: 2.5 to 30 a second
    if (SystemParametersInfoW(SPI_GETKEYBOARDSPEED, 0, &speed, 0)) {
        const double aSecond = 2.5 + std::min<DWORD>(speed, 31) * (30 - 2.5) / 31;
        result.repeatInterval = milliseconds(std::lround(1000 / aSecond));
    }
    result.doubleClick = milliseconds(GetDoubleClickTime());
    UINT lines = 3;
    if (SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0)) {
        constexpr UINT page = 1000;  // "a page a notch": more lines than a page has
        result.wheelLines = static_cast<int32_t>(std::min(lines, page));
    }
    return result;
}

}  // namespace obk::win32
