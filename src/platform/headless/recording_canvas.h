// A canvas that keeps what was drawn on it, clipped, for tests to look at.
#pragma once

#include "widgets/canvas.h"

#include <utility>
#include <vector>

namespace obk::headless {

struct DrawnItem {
    enum class Kind { fill, polygon, text, picture, focusRect };
    Kind kind = Kind::fill;
    PixelRect rect;  // what shows of it; a polygon's bounding box
    Rgb colour;
    Text text;
    TextStyle style;  // of a text
    const SharedPicture* picture = nullptr;
};

class RecordingCanvas : public Canvas {
public:
    RecordingCanvas(Dpi dpi, const PixelRect& bounds) : dpi_(dpi), clips_{bounds} {}

    Dpi dpi() const override { return dpi_; }
    void fillRect(const PixelRect& rect, Rgb colour) override;
    void fillPolygon(std::span<const PixelPoint> points, Rgb colour) override;
    void drawText(TextView text, const PixelRect& rect, const TextStyle& style) override;
    void drawPicture(const SharedPicture& picture, const PixelRect& rect) override;
    void drawFocusRect(const PixelRect& rect) override;
    void pushClip(const PixelRect& rect) override { clips_.push_back(clips_.back().intersected(rect)); }
    void popClip() override { clips_.pop_back(); }
    PixelRect clipBounds() const override { return clips_.back(); }

    const std::vector<DrawnItem>& items() const& { return items_; }
    std::vector<DrawnItem> items() && { return std::move(items_); }
    // The colour of the topmost fill at a point; black where nothing was filled.
    Rgb colourAt(PixelPoint point) const;

private:
    void add(DrawnItem::Kind kind, const PixelRect& rect, Rgb colour, TextView text = {},
             const TextStyle& style = {});

    Dpi dpi_;
    std::vector<PixelRect> clips_;
    std::vector<DrawnItem> items_;
};

}  // namespace obk::headless
