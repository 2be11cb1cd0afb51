// Colours, fonts and distances of the gallery's windows, from the system's settings.
#pragma once

#include <windows.h>

#include <memory>
#include <string_view>
#include <type_traits>

#include "view_settings.h"

namespace obk::gallery {

struct GdiDelete {
    void operator()(HGDIOBJ object) const { DeleteObject(object); }
};
using FontHandle = std::unique_ptr<std::remove_pointer_t<HFONT>, GdiDelete>;
using BitmapHandle = std::unique_ptr<std::remove_pointer_t<HBITMAP>, GdiDelete>;
using BrushHandle = std::unique_ptr<std::remove_pointer_t<HBRUSH>, GdiDelete>;

// `weight` of 255 parts of the first colour, the rest of the second.
COLORREF mixed(COLORREF first, COLORREF second, int weight);

// Everything here follows the system's colours, so that a high contrast scheme shows as it is.
class Theme {
public:
    explicit Theme(int dpi) { refresh(dpi); }

    // Reads the system's settings again.
    void refresh(int dpi);

    // Takes effect with the next refresh.
    ViewSettings& view() { return view_; }
    const ViewSettings& view() const { return view_; }
    int dpi() const { return dpi_; }
    // Pixels for a length at 96 dots per inch.
    int scale(int length) const { return MulDiv(length, dpi_, 96); }
    RECT scale(const RECT& rectangle) const;

    HFONT body() const { return body_.get(); }
    HFONT strong() const { return strong_.get(); }
    HFONT heading() const { return heading_.get(); }
    HFONT title() const { return title_.get(); }
    // Some systems have bold faces whose strokes are no heavier in larger sizes.
    bool strikesTwice() const { return strikesTwice_; }
    // Height of one line of the font in pixels.
    int lineHeight(HFONT font) const;
    // Height of a one-line field or button, and of a row of a list.
    int fieldHeight() const { return lineHeight(body()) + scale(10); }
    int rowHeight() const { return lineHeight(body()) + scale(8); }

    COLORREF page = 0;  // behind the cards
    COLORREF card = 0;
    COLORREF border = 0;
    COLORREF fieldBorder = 0;  // of a field to type in
    COLORREF form = 0;         // behind the live controls
    COLORREF formText = 0;
    COLORREF dimFormText = 0;
    COLORREF text = 0;
    COLORREF dimText = 0;
    COLORREF accent = 0;
    COLORREF selected = 0;  // behind a selected row
    COLORREF selectedText = 0;
    HBRUSH cardBrush() const { return cardBrush_.get(); }
    HBRUSH formBrush() const { return formBrush_.get(); }

private:
    ViewSettings view_;
    int dpi_ = 96;
    FontHandle body_;
    FontHandle strong_;
    FontHandle heading_;
    FontHandle title_;
    bool strikesTwice_ = false;
    BrushHandle cardBrush_;
    BrushHandle formBrush_;
};

void fillRect(HDC dc, const RECT& rectangle, COLORREF colour);
void frameRect(HDC dc, const RECT& rectangle, COLORREF colour);
// DrawText with a font and a colour, on a transparent background.
int drawText(HDC dc, std::wstring_view text, RECT rectangle, HFONT font, COLORREF colour, UINT format);

// In the bold face, and bold in any case.
int drawStrong(HDC dc, const Theme& theme, std::wstring_view text, RECT rectangle, COLORREF colour,
               UINT format);

// One line, cut with an ellipsis where it does not fit.
inline constexpr UINT oneLine = DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS | DT_NOPREFIX;

// The device context of WM_PAINT, drawn off screen and shown at once.
class PaintSurface {
public:
    explicit PaintSurface(HWND window);
    PaintSurface(const PaintSurface&) = delete;
    PaintSurface& operator=(const PaintSurface&) = delete;
    ~PaintSurface();
    HDC dc() const { return memory_; }
    const RECT& client() const { return client_; }

private:
    HWND window_;
    PAINTSTRUCT paint_ = {};
    RECT client_ = {};
    HDC memory_ = nullptr;
    HBITMAP bitmap_ = nullptr;
    HGDIOBJ old_ = nullptr;
};

}  // namespace obk::gallery
