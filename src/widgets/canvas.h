// What widgets paint on: whole pixels, clipped, without state except the clip.
#pragma once

#include "base/colour.h"
#include "base/font.h"
#include "base/picture.h"
#include "base/text.h"
#include "base/units.h"

#include <span>

namespace obk {

enum class HorizontalAlignment : uint8_t { left, right, centre };
enum class VerticalAlignment : uint8_t { top, centre, bottom };

constexpr HorizontalAlignment mirrored(HorizontalAlignment alignment) {
    return alignment == HorizontalAlignment::left    ? HorizontalAlignment::right
           : alignment == HorizontalAlignment::right ? HorizontalAlignment::left
                                                     : alignment;
}

struct TextStyle {
    FontDescription font;
    Rgb colour;
    HorizontalAlignment horizontal = HorizontalAlignment::left;
    VerticalAlignment vertical = VerticalAlignment::centre;
    bool ellipsis = true;        // a text that does not fit on its line ends in an ellipsis
    bool showAccessKey = false;  // "&" underlines the next character and "&&" is an ampersand
    bool rightToLeft = false;    // the order in which words and the ellipsis follow each other
};

class Canvas {
public:
    virtual ~Canvas() = default;

    virtual Dpi dpi() const = 0;
    // Whether left and right are exchanged, for what keeps its shape all the same.
    virtual bool mirrors() const { return false; }
    // Empty rectangles paint nothing.
    virtual void fillRect(const PixelRect& rect, Rgb colour) = 0;
    // A closed polygon, filled without an outline; fewer than three points paint nothing.
    virtual void fillPolygon(std::span<const PixelPoint> points, Rgb colour) = 0;
    // One line of text inside `rect`, clipped to it.
    virtual void drawText(TextView text, const PixelRect& rect, const TextStyle& style) = 0;
    // Stretched to `rect`.
    virtual void drawPicture(const SharedPicture& picture, const PixelRect& rect) = 0;
    // The system's dotted focus cue.
    virtual void drawFocusRect(const PixelRect& rect) = 0;

    // Clips nest; each push has its pop.
    virtual void pushClip(const PixelRect& rect) = 0;
    virtual void popClip() = 0;
    // What lies outside need not be painted; may be larger than the clip.
    virtual PixelRect clipBounds() const = 0;

    void frameRect(const PixelRect& rect, int32_t thickness, Rgb colour) {
        frameEdges(rect, thickness, colour, colour);
    }
    // Left and top edges in one colour, right and bottom ones in another: the look of raised and sunken
    // edges.
    void frameEdges(const PixelRect& rect, int32_t thickness, Rgb leftTop, Rgb rightBottom);
};

// Clips for one scope.
class CanvasClip {
public:
    CanvasClip(Canvas& canvas, const PixelRect& rect) : canvas_(canvas) { canvas_.pushClip(rect); }
    CanvasClip(const CanvasClip&) = delete;
    CanvasClip& operator=(const CanvasClip&) = delete;
    ~CanvasClip() { canvas_.popClip(); }

private:
    Canvas& canvas_;
};

}  // namespace obk
