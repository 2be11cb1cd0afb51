#include "theme.h"

#include "container/window_metrics.h"

namespace obk::gallery {

namespace {

bool highContrast() {
    HIGHCONTRASTW contrast = {};
    contrast.cbSize = sizeof contrast;
    return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) &&
           (contrast.dwFlags & HCF_HIGHCONTRASTON);
}

FontHandle fontOf(LOGFONTW description, int percent, LONG weight) {
    description.lfHeight = MulDiv(description.lfHeight, percent, 100);
    description.lfWeight = weight;
    return FontHandle(CreateFontIndirectW(&description));
}

// How much of some letters a font makes dark.
int inkOf(HFONT font) {
    constexpr int side = 80;
    const HDC dc = CreateCompatibleDC(nullptr);
    const HDC screen = GetDC(nullptr);
    const BitmapHandle bitmap(CreateCompatibleBitmap(screen, side, side));
    ReleaseDC(nullptr, screen);
    const HGDIOBJ old = SelectObject(dc, bitmap.get());
    const RECT area = {0, 0, side, side};
    FillRect(dc, &area, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    drawText(dc, L"lli", area, font, RGB(0, 0, 0), DT_SINGLELINE);
    int ink = 0;
    for (int at = 0; at < side * side; ++at) ink += 255 - GetGValue(GetPixel(dc, at % side, at / side));
    SelectObject(dc, old);
    DeleteDC(dc);
    return ink;
}

}  // namespace

COLORREF mixed(COLORREF first, COLORREF second, int weight) {
    const auto channel = [&](int one, int other) { return (one * weight + other * (255 - weight)) / 255; };
    return RGB(channel(GetRValue(first), GetRValue(second)), channel(GetGValue(first), GetGValue(second)),
               channel(GetBValue(first), GetBValue(second)));
}

void Theme::refresh(int dpi) {
    dpi_ = dpi = MulDiv(dpi, view_.percent, 100);
    const LOGFONTW message = container::messageLogFont(dpi);
    body_ = fontOf(message, 100, message.lfWeight);
    strong_ = fontOf(message, 100, FW_BOLD);
    heading_ = fontOf(message, 127, FW_NORMAL);
    title_ = fontOf(message, 200, FW_NORMAL);
    strikesTwice_ = inkOf(strong_.get()) * 4 < inkOf(body_.get()) * 5;

    const COLORREF window = GetSysColor(COLOR_WINDOW);
    const COLORREF windowText = GetSysColor(COLOR_WINDOWTEXT);
    const COLORREF highlight = GetSysColor(COLOR_HIGHLIGHT);
    card = window;
    text = windowText;
    accent = highlight;
    form = GetSysColor(COLOR_BTNFACE);
    formText = GetSysColor(COLOR_BTNTEXT);
    if (highContrast()) {
        page = window;
        border = windowText;
        fieldBorder = windowText;
        dimFormText = formText;
        dimText = windowText;
        selected = highlight;
        selectedText = GetSysColor(COLOR_HIGHLIGHTTEXT);
    } else {
        page = mixed(GetSysColor(COLOR_BTNFACE), window, 170);
        border = mixed(GetSysColor(COLOR_BTNSHADOW), window, 110);
        fieldBorder = mixed(GetSysColor(COLOR_BTNSHADOW), window, 200);
        dimFormText = mixed(formText, form, 155);
        dimText = mixed(windowText, window, 155);
        selected = mixed(highlight, window, 45);
        selectedText = windowText;
    }
    if (view_.colours != ColourScheme::system) {
        const bool night = view_.colours == ColourScheme::night;
        form = night ? RGB(43, 43, 48) : RGB(247, 240, 222);
        card = night ? RGB(30, 30, 34) : RGB(255, 252, 243);
        page = form;
        formText = text = night ? RGB(236, 236, 236) : RGB(59, 44, 28);
        dimFormText = dimText = mixed(formText, form, 190);
        border = mixed(formText, form, 90);
        fieldBorder = mixed(formText, form, 150);
        selected = mixed(highlight, card, 90);
        selectedText = text;
    }
    cardBrush_.reset(CreateSolidBrush(card));
    formBrush_.reset(CreateSolidBrush(form));
}

RECT Theme::scale(const RECT& rectangle) const {
    return {scale(static_cast<int>(rectangle.left)), scale(static_cast<int>(rectangle.top)),
            scale(static_cast<int>(rectangle.right)), scale(static_cast<int>(rectangle.bottom))};
}

int Theme::lineHeight(HFONT font) const {
    const HDC screen = GetDC(nullptr);
    const HGDIOBJ old = SelectObject(screen, font);
    TEXTMETRICW metrics = {};
    GetTextMetricsW(screen, &metrics);
    SelectObject(screen, old);
    ReleaseDC(nullptr, screen);
    return static_cast<int>(metrics.tmHeight);
}

void fillRect(HDC dc, const RECT& rectangle, COLORREF colour) {
    SetDCBrushColor(dc, colour);
    FillRect(dc, &rectangle, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

void frameRect(HDC dc, const RECT& rectangle, COLORREF colour) {
    SetDCBrushColor(dc, colour);
    FrameRect(dc, &rectangle, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

int drawText(HDC dc, std::wstring_view text, RECT rectangle, HFONT font, COLORREF colour, UINT format) {
    const HGDIOBJ old = SelectObject(dc, font);
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, colour);
    const int height = DrawTextW(dc, text.data(), static_cast<int>(text.size()), &rectangle, format);
    SelectObject(dc, old);
    return height;
}

int drawStrong(HDC dc, const Theme& theme, std::wstring_view text, RECT rectangle, COLORREF colour,
               UINT format) {
    const int height = drawText(dc, text, rectangle, theme.strong(), colour, format);
    // Pixel by pixel, so that the strokes are wider and not double.
    for (int wider = theme.strikesTwice() ? theme.scale(1) : 0; wider > 0; --wider) {
        ++rectangle.left;
        drawText(dc, text, rectangle, theme.strong(), colour, format);
    }
    return height;
}

PaintSurface::PaintSurface(HWND window) : window_(window) {
    const HDC target = BeginPaint(window, &paint_);
    GetClientRect(window, &client_);
    memory_ = CreateCompatibleDC(target);
    bitmap_ = CreateCompatibleBitmap(target, client_.right > 0 ? client_.right : 1,
                                     client_.bottom > 0 ? client_.bottom : 1);
    old_ = SelectObject(memory_, bitmap_);
}

PaintSurface::~PaintSurface() {
    const RECT& dirty = paint_.rcPaint;
    BitBlt(paint_.hdc, dirty.left, dirty.top, dirty.right - dirty.left, dirty.bottom - dirty.top, memory_,
           dirty.left, dirty.top, SRCCOPY);
    SelectObject(memory_, old_);
    DeleteObject(bitmap_);
    DeleteDC(memory_);
    EndPaint(window_, &paint_);
}

}  // namespace obk::gallery
