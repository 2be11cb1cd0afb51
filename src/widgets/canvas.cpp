#include "widgets/canvas.h"

namespace obk {

void Canvas::frameEdges(const PixelRect& rect, int32_t thickness, Rgb leftTop, Rgb rightBottom) {
    const int32_t t = std::min({thickness, rect.width(), rect.height()});
    fillRect({rect.left, rect.top, rect.right, rect.top + t}, leftTop);
    fillRect({rect.left, rect.top + t, rect.left + t, rect.bottom}, leftTop);
    fillRect({rect.left + t, rect.bottom - t, rect.right, rect.bottom}, rightBottom);
    fillRect({rect.right - t, rect.top + t, rect.right, rect.bottom - t}, rightBottom);
}

}  // namespace obk
