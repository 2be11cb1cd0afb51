// Pieces of drawing that all controls share, so that they look like one family.
#pragma once

#include "widgets/canvas.h"
#include "widgets/platform.h"

namespace obk {

enum class ArrowDirection : uint8_t { up, down, left, right };

// A filled arrow in the middle of `rect`: rows of whole pixels, crisp at every scale. It is 7 x 4 pixels at
// 96 DPI and shrinks to fit; a rectangle too small for one row stays empty.
void drawArrow(Canvas& canvas, const PixelRect& rect, ArrowDirection direction, Rgb colour);

// A check mark that fills a square, so that no font has to have it.
void drawCheckMark(Canvas& canvas, const PixelRect& square, Rgb colour);

// The edges of the classic look, two lines each: what stands out, such as a button that is not pressed; what
// lies deeper, such as a field; and the border of a panel that lies above a window.
void drawRaisedEdges(Platform& platform, Canvas& canvas, const PixelRect& rect);
void drawSunkenEdges(Platform& platform, Canvas& canvas, const PixelRect& rect);
void drawPanelEdges(Platform& platform, Canvas& canvas, const PixelRect& rect);

// `share` (0 to 255) out of 255 of `first`, the rest of `second`.
Rgb mixed(Rgb first, Rgb second, int32_t share);

// `wanted` where it stands out on `ground`, else black or white, whichever does more.
Rgb readableOn(Rgb ground, Rgb wanted);

// `wanted`, made stronger as far as it takes to be seen on `ground` as a shape, at 3 to 1.
Rgb shapeOn(Rgb ground, Rgb wanted);

// The line around something flat: the system's shadow, as far as that is seen, in high contrast the texts'.
Rgb outlineOn(Platform& platform, Rgb ground);

// The system's colour, black where it has none.
Rgb systemRgb(Platform& platform, SystemColour colour);

}  // namespace obk
