#include "platform/headless/recording_canvas.h"

#include <algorithm>

namespace obk::headless {

void RecordingCanvas::add(DrawnItem::Kind kind, const PixelRect& rect, Rgb colour, TextView text,
                          const TextStyle& style) {
    const PixelRect shown = rect.intersected(clips_.back());
    if (!shown.empty()) items_.push_back({kind, shown, colour, Text(text), style});
}

void RecordingCanvas::fillRect(const PixelRect& rect, Rgb colour) {
    add(DrawnItem::Kind::fill, rect, colour);
}

void RecordingCanvas::fillPolygon(std::span<const PixelPoint> points, Rgb colour) {
    if (points.size() < 3) return;
    PixelRect box{points[0].x, points[0].y, points[0].x, points[0].y};
    for (const PixelPoint point : points) {
        box.left = std::min(box.left, point.x);
        box.top = std::min(box.top, point.y);
        box.right = std::max(box.right, point.x);
        box.bottom = std::max(box.bottom, point.y);
    }
    add(DrawnItem::Kind::polygon, box, colour);
}

void RecordingCanvas::drawText(TextView text, const PixelRect& rect, const TextStyle& style) {
    add(DrawnItem::Kind::text, rect, style.colour, text, style);
}

void RecordingCanvas::drawPicture(const SharedPicture& picture, const PixelRect& rect) {
    const size_t before = items_.size();
    add(DrawnItem::Kind::picture, rect, {});
    if (items_.size() > before) items_.back().picture = &picture;
}

void RecordingCanvas::drawFocusRect(const PixelRect& rect) {
    add(DrawnItem::Kind::focusRect, rect, {});
}

Rgb RecordingCanvas::colourAt(PixelPoint point) const {
    const auto found = std::find_if(items_.rbegin(), items_.rend(), [point](const DrawnItem& item) {
        return item.kind == DrawnItem::Kind::fill && item.rect.contains(point);
    });
    return found == items_.rend() ? Rgb{} : found->colour;
}

}  // namespace obk::headless
