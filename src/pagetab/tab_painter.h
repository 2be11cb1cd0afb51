// How one tab and the page below it are drawn: flat, classic and in high contrast, in every state.
#pragma once

#include "base/font.h"
#include "widgets/canvas.h"
#include "widgets/widget.h"

namespace obk {

// What a tab shows at the moment.
struct TabFace {
    PixelRect rect;     // of the tab when it is not selected; a selected one grows beyond it
    PixelRect caption;  // where its text goes
    Text text;          // on one line, with the access key's mark
    FontDescription font;
    bool selected = false;
    bool hovered = false;
    bool enabled = true;
    bool focused = false;
    bool rightToLeft = false;
};

struct TabColours {
    Rgb strip, tab, page, text;
};

class TabPainter {
public:
    // Both are borrowed.
    TabPainter(Canvas& canvas, Platform& platform, Look look, const TabColours& colours);

    // In this order, the selected tab last: it opens onto the page.
    void strip(const PixelRect& rect) { canvas_.fillRect(rect, colours_.strip); }
    void page(const PixelRect& rect);
    void tab(const TabFace& face);

private:
    Rgb colour(SystemColour index) const;
    // How each look draws a tab's edges and ground; answers the colour of its text.
    Rgb flatTab(const PixelRect& rect, const TabFace& face);
    Rgb classicTab(const PixelRect& rect, const TabFace& face);
    Rgb contrastTab(const PixelRect& rect, const TabFace& face);
    // Left, top and right lines, open below.
    void openFrame(const PixelRect& rect, Rgb ink, int32_t thickness);
    void caption(const TabFace& face, Rgb ink);

    Canvas& canvas_;
    Platform& platform_;
    Look look_;
    bool highContrast_;
    TabColours colours_;
    int32_t line_;
};

}  // namespace obk
