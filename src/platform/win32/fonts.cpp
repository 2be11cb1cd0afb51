#include "platform/win32/fonts.h"

#include "base/left_undone.h"
#include "platform/win32/text_conversion.h"

#include <algorithm>
#include <cmath>

namespace obk::win32 {

namespace {

int CALLBACK noteFont(const LOGFONTW*, const TEXTMETRICW*, DWORD, LPARAM known) {
    *reinterpret_cast<bool*>(known) = true;
    return 0;  // no more of them
}

// Another font stands in for one that the system does not have.
void tellIfUnknown(const LOGFONTW& font) {
    LOGFONTW asked{};
    asked.lfCharSet = DEFAULT_CHARSET;
    std::copy(std::begin(font.lfFaceName), std::end(font.lfFaceName), asked.lfFaceName);
    bool known = asked.lfFaceName[0] == L'\0';
    const ScreenDc screen;
    EnumFontFamiliesExW(screen.get(), &asked, noteFont, reinterpret_cast<LPARAM>(&known), 0);
    if (known) return;
    const Text name = fromWide(font.lfFaceName);
    tellUndone({.kind = LeftUndone::Kind::font, .subject = name});
}

}  // namespace

FontCache::Entry* FontCache::find(const FontDescription& font, Dpi dpi) {
    constexpr size_t capacity = 24;
    const auto found = std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) {
        return entry.dpi == dpi && entry.description == font;
    });
    if (found != entries_.end()) {
        std::rotate(found, found + 1, entries_.end());
        return &entries_.back();
    }
    const LOGFONTW wanted = toLogFont(font, dpi);
    const HFONT created = CreateFontIndirectW(&wanted);
    if (!created) return nullptr;
    if (undoneIsObserved()) tellIfUnknown(wanted);
    SharedGdiFont shared(created, GdiObjectDeleter{});
    if (entries_.size() == capacity) entries_.erase(entries_.begin());
    entries_.push_back({font, dpi, shared, std::nullopt});
    return &entries_.back();
}

SharedGdiFont FontCache::get(const FontDescription& font, Dpi dpi) {
    const Entry* entry = find(font, dpi);
    return entry ? entry->font : nullptr;
}

FontMetrics FontCache::metrics(const FontDescription& font, Dpi dpi, HDC dc) {
    Entry* entry = find(font, dpi);
    if (entry && entry->metrics) return *entry->metrics;
    const Selection selection(dc, entry ? entry->font.get() : nullptr);
    TEXTMETRICW measured{};
    GetTextMetricsW(dc, &measured);
    const FontMetrics result{measured.tmAscent, measured.tmDescent};
    if (entry) entry->metrics = result;
    return result;
}

LOGFONTW toLogFont(const FontDescription& font, Dpi dpi) {
    constexpr double largest = 1638;  // points
    const double points = font.size > 0 ? std::min(font.size, largest) : FontDescription{}.size;
    LOGFONTW result{};
    result.lfHeight = -std::max(1L, std::lround(points * dpi.dotsPerInch() / 72));
    result.lfWeight = std::clamp<LONG>(font.weight, 1, 1000);
    result.lfItalic = font.italic;
    result.lfUnderline = font.underline;
    result.lfStrikeOut = font.strikethrough;
    result.lfCharSet = static_cast<BYTE>(font.charset);
    const auto name = asWide(font.name).substr(0, LF_FACESIZE - 1);
    std::copy(name.begin(), name.end(), result.lfFaceName);
    return result;
}

FontDescription fromLogFont(const LOGFONTW& font, Dpi dpi) {
    FontDescription result;
    result.name = fromWide(font.lfFaceName);
    // Points in the quarters that people choose sizes in.
    const double points = std::abs(static_cast<double>(font.lfHeight)) * 72 / dpi.dotsPerInch();
    if (points > 0) result.size = std::round(points * 4) / 4;
    result.weight =
        static_cast<int16_t>(std::clamp<LONG>(font.lfWeight ? font.lfWeight : FW_NORMAL, 1, 1000));
    result.charset = font.lfCharSet;
    result.italic = font.lfItalic != 0;
    result.underline = font.lfUnderline != 0;
    result.strikethrough = font.lfStrikeOut != 0;
    return result;
}

}  // namespace obk::win32
