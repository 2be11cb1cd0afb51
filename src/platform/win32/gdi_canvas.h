// Paints on any device context: a window's off-screen buffer, a printer, a metafile.
#pragma once

#include "platform/win32/fonts.h"
#include "widgets/canvas.h"

#include <vector>

namespace obk::win32 {

class GdiCanvas final : public Canvas {
public:
    // `dc` is borrowed, and is as before when the canvas goes. One logical unit of it is one pixel of `dpi`.
    // `fonts` is borrowed; without it the canvas keeps fonts of its own.
    GdiCanvas(HDC dc, Dpi dpi, FontCache* fonts = nullptr);
    GdiCanvas(const GdiCanvas&) = delete;
    GdiCanvas& operator=(const GdiCanvas&) = delete;
    ~GdiCanvas() override;

    Dpi dpi() const override { return dpi_; }
    void fillRect(const PixelRect& rect, Rgb colour) override;
    void fillPolygon(std::span<const PixelPoint> points, Rgb colour) override;
    void drawText(TextView text, const PixelRect& rect, const TextStyle& style) override;
    // Partly transparent pixels are mixed with white where the device cannot blend.
    void drawPicture(const SharedPicture& picture, const PixelRect& rect) override;
    void drawFocusRect(const PixelRect& rect) override;
    void pushClip(const PixelRect& rect) override;
    void popClip() override;
    PixelRect clipBounds() const override;

private:
    struct SelectedFont {
        SharedGdiFont font;  // held: it must not go while a context has it
        LONG height = 0;     // of a line
    };

    void selectFont(const FontDescription& font);
    bool drawFitting(std::wstring_view text, const RECT& area, LONG top, const TextStyle& style) const;
    void blend(const uint32_t* pixels, PixelSize size, const PixelRect& rect);
    void stampOpaque(const SharedPicture& picture, const PixelRect& rect);

    HDC dc_;
    Dpi dpi_;
    FontCache ownFonts_;
    FontCache& fonts_;
    int savedState_;
    SelectedFont font_;
    std::vector<SelectedFont> fontsOutside_;  // of the clips that are open, from the outermost
    bool recorded_;  // a metafile or a printer: no blending, no colours that live in the context alone
};

}  // namespace obk::win32
