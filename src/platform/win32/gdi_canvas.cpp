#include "platform/win32/gdi_canvas.h"

#include "platform/win32/display.h"
#include "platform/win32/scaled_pixels.h"
#include "platform/win32/text_conversion.h"

#include <algorithm>

namespace obk::win32 {

namespace {

bool isRecorded(HDC dc) {
    const DWORD kind = GetObjectType(dc);
    if (kind == OBJ_METADC || kind == OBJ_ENHMETADC) return true;
    const int technology = GetDeviceCaps(dc, TECHNOLOGY);
    return kind == OBJ_DC && technology != DT_RASDISPLAY;
}

// A brush of one colour for one scope: the context's own where that works, which costs no object.
class Fill {
public:
    Fill(HDC dc, Rgb colour, bool recorded) : dc_(dc) {
        if (recorded) {
            own_.reset(CreateSolidBrush(colour.value));
        } else {
            previous_ = SetDCBrushColor(dc, colour.value);
        }
    }
    Fill(const Fill&) = delete;
    Fill& operator=(const Fill&) = delete;
    ~Fill() {
        if (!own_) SetDCBrushColor(dc_, previous_);
    }
    HBRUSH brush() const { return own_ ? own_.get() : static_cast<HBRUSH>(GetStockObject(DC_BRUSH)); }

private:
    HDC dc_;
    UniqueBrush own_;
    COLORREF previous_ = 0;
};

UINT alignmentOf(HorizontalAlignment alignment) {
    switch (alignment) {
        case HorizontalAlignment::left:
            return DT_LEFT;
        case HorizontalAlignment::right:
            return DT_RIGHT;
        case HorizontalAlignment::centre:
            return DT_CENTER;
    }
    return DT_LEFT;
}

// From the top of a place to the text in it.
LONG verticalOffset(VerticalAlignment alignment, LONG freeHeight) {
    switch (alignment) {
        case VerticalAlignment::top:
            return 0;
        case VerticalAlignment::centre:
            return freeHeight / 2;
        case VerticalAlignment::bottom:
            return freeHeight;
    }
    return 0;
}

}  // namespace

GdiCanvas::GdiCanvas(HDC dc, Dpi dpi, FontCache* fonts)
    : dc_(dc),
      dpi_(dpi),
      fonts_(fonts ? *fonts : ownFonts_),
      savedState_(SaveDC(dc)),
      recorded_(isRecorded(dc)) {
    SetBkMode(dc_, TRANSPARENT);
    SetTextAlign(dc_, TA_LEFT | TA_TOP | TA_NOUPDATECP);
}

GdiCanvas::~GdiCanvas() {
    if (savedState_) RestoreDC(dc_, savedState_);
}

void GdiCanvas::fillRect(const PixelRect& rect, Rgb colour) {
    if (rect.empty()) return;
    const RECT area = toRect(rect);
    const Fill fill(dc_, colour, recorded_);
    FillRect(dc_, &area, fill.brush());
}

void GdiCanvas::fillPolygon(std::span<const PixelPoint> points, Rgb colour) {
    if (points.size() < 3) return;
    std::vector<POINT> corners;
    corners.reserve(points.size());
    for (const PixelPoint point : points) {
        const RECT held = toRect({point.x, point.y, 0, 0});
        corners.push_back({held.left, held.top});
    }
    const Fill fill(dc_, colour, recorded_);
    const Selection brush(dc_, fill.brush());
    const Selection pen(dc_, GetStockObject(NULL_PEN));
    Polygon(dc_, corners.data(), static_cast<int>(corners.size()));
}

void GdiCanvas::drawText(TextView text, const PixelRect& rect, const TextStyle& style) {
    if (text.empty() || rect.empty()) return;
    constexpr size_t longest = 8192;  // far beyond any line; the system measures no more in one call
    const auto wide = asWide(text).substr(0, longest);
    selectFont(style.font);
    SetTextColor(dc_, style.colour.value);
    RECT area = toRect(rect);
    const LONG top = area.top + verticalOffset(style.vertical, area.bottom - area.top - font_.height);
    if (drawFitting(wide, area, top, style)) return;
    UINT format = DT_SINGLELINE | alignmentOf(style.horizontal);
    if (style.ellipsis) format |= DT_END_ELLIPSIS;
    if (!style.showAccessKey) format |= DT_NOPREFIX;
    if (style.rightToLeft) format |= DT_RTLREADING;
    // A line that is too high for its place is cut at both ends, not only at the lower one.
    const int saved = top < area.top ? SaveDC(dc_) : 0;
    if (saved) IntersectClipRect(dc_, area.left, area.top, area.right, area.bottom);
    area.top = top;
    DrawTextW(dc_, wide.data(), static_cast<int>(wide.size()), &area, format);
    if (saved) RestoreDC(dc_, saved);
}

// It stays selected: the next text is likely to have the same font, and selecting costs more than drawing.
void GdiCanvas::selectFont(const FontDescription& font) {
    const SharedGdiFont wanted = fonts_.get(font, dpi_);
    if (!wanted || wanted == font_.font) return;
    SelectObject(dc_, wanted.get());
    TEXTMETRICW metrics{};
    GetTextMetricsW(dc_, &metrics);
    font_ = {wanted, metrics.tmHeight};
}

// A plain text that fits on its line, as most do, without the system's layout of lines, which takes several
// times as long. False, and nothing drawn, for others.
bool GdiCanvas::drawFitting(std::wstring_view text, const RECT& area, LONG top,
                            const TextStyle& style) const {
    const bool plain = !style.showAccessKey && !style.rightToLeft && !recorded_;
    const auto isControl = [](wchar_t unit) { return unit < L' '; };
    const auto length = static_cast<int>(text.size());
    SIZE size{};
    if (!plain || std::any_of(text.begin(), text.end(), isControl) ||
        !GetTextExtentPoint32W(dc_, text.data(), length, &size))
        return false;
    const LONG freeWidth = area.right - area.left - size.cx;
    if (freeWidth < 0) return false;
    const LONG left = area.left + (style.horizontal == HorizontalAlignment::left     ? 0
                                   : style.horizontal == HorizontalAlignment::centre ? freeWidth / 2
                                                                                     : freeWidth);
    return ExtTextOutW(dc_, left, top, ETO_CLIPPED, &area, text.data(), static_cast<UINT>(length), nullptr) !=
           FALSE;
}

void GdiCanvas::drawPicture(const SharedPicture& picture, const PixelRect& rect) {
    const PixelSize size = picture.size();
    if (rect.empty() || size.width < 1 || size.height < 1) return;
    if (recorded_) {
        stampOpaque(picture, rect);
        return;
    }
    constexpr int64_t largest = 4'000'000;  // pixels; beyond it sharpness is not worth the memory
    const PixelSize shown{rect.width(), rect.height()};
    if (shown == size || static_cast<int64_t>(shown.width) * shown.height > largest) {
        blend(picture.pixels().data(), size, rect);
    } else {
        blend(scaledPixels(picture.pixels(), size, shown).data(), shown, rect);
    }
}

void GdiCanvas::blend(const uint32_t* pixels, PixelSize size, const PixelRect& rect) {
    const BITMAPINFO info = bitmapInfo(size);
    void* bits = nullptr;
    const UniqueBitmap bitmap(CreateDIBSection(dc_, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    const UniqueMemoryDc memory(CreateCompatibleDC(dc_));
    if (!bitmap || !memory || !bits) return;
    std::copy_n(pixels, static_cast<size_t>(size.width) * static_cast<size_t>(size.height),
                static_cast<uint32_t*>(bits));
    const Selection selection(memory.get(), bitmap.get());
    const RECT area = toRect(rect);
    AlphaBlend(dc_, area.left, area.top, area.right - area.left, area.bottom - area.top, memory.get(), 0, 0,
               size.width, size.height, {AC_SRC_OVER, 0, 255, AC_SRC_ALPHA});
}

void GdiCanvas::stampOpaque(const SharedPicture& picture, const PixelRect& rect) {
    constexpr uint32_t white = 0x00FFFFFF;
    std::vector<uint32_t> colours = picture.pixels();
    std::vector<uint32_t> mask(colours.size(), 0);
    bool holes = false;
    for (size_t i = 0; i < colours.size(); ++i) {
        const uint32_t alpha = colours[i] >> 24;
        if (alpha == 0) {
            mask[i] = white;
            colours[i] = 0;
            holes = true;
        } else {
            const uint32_t paper = (255 - alpha) * 0x010101;  // premultiplied: adding white's share is enough
            colours[i] = (colours[i] & white) + paper;
        }
    }
    const BITMAPINFO info = bitmapInfo(picture.size());
    const RECT area = toRect(rect);
    const auto stamp = [&](const std::vector<uint32_t>& pixels, DWORD operation) {
        StretchDIBits(dc_, area.left, area.top, area.right - area.left, area.bottom - area.top, 0, 0,
                      picture.size().width, picture.size().height, pixels.data(), &info, DIB_RGB_COLORS,
                      operation);
    };
    SetStretchBltMode(dc_, COLORONCOLOR);
    if (holes) {
        stamp(mask, SRCAND);
        stamp(colours, SRCPAINT);
    } else {
        stamp(colours, SRCCOPY);
    }
}

void GdiCanvas::drawFocusRect(const PixelRect& rect) {
    if (rect.empty()) return;
    const RECT area = toRect(rect);
    // The cue inverts through a two-coloured pattern; other colours would tint it.
    SetTextColor(dc_, RGB(0, 0, 0));
    SetBkColor(dc_, RGB(255, 255, 255));
    DrawFocusRect(dc_, &area);
}

void GdiCanvas::pushClip(const PixelRect& rect) {
    SaveDC(dc_);
    fontsOutside_.push_back(font_);
    const RECT area = toRect(rect);
    if (rect.empty()) {
        IntersectClipRect(dc_, 0, 0, 0, 0);
    } else {
        IntersectClipRect(dc_, area.left, area.top, area.right, area.bottom);
    }
}

void GdiCanvas::popClip() {
    if (fontsOutside_.empty()) return;
    RestoreDC(dc_, -1);
    font_ = std::move(fontsOutside_.back());
    fontsOutside_.pop_back();
}

PixelRect GdiCanvas::clipBounds() const {
    constexpr int32_t endless = 1 << 30;  // where a context of recorded drawing knows no clip
    RECT box{};
    return !recorded_ && GetClipBox(dc_, &box) != ERROR ? fromRect(box)
                                                        : PixelRect{-endless, -endless, endless, endless};
}

}  // namespace obk::win32
