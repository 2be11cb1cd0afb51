#include "widgets/surface_view.h"

#include "base/attempt.h"

namespace obk {

void SurfaceView::setParent(NativeWindow parent) {
    if (!peer_) return;
    if (attempt([&] { peer_->setParent(parent); })) placed_ = true;
}

Dpi SurfaceView::dpi() const {
    return peer_ ? dpi_ : root_.platform().appearance().systemDpi();
}

PixelRect SurfaceView::toScreen(const PixelRect& part) const {
    const PixelPoint origin = peer_ ? peer_->toScreen({0, 0}) : PixelPoint{};
    return inWindow(part).moved(origin.x, origin.y);
}

PixelRect SurfaceView::inWindow(const PixelRect& part) const {
    if (!mirrored()) return part;
    const int32_t width = root_.pixelBounds().width();
    return {width - part.right, part.top, width - part.left, part.bottom};
}

PixelPoint SurfaceView::fromWindow(PixelPoint point) const {
    return mirrored() ? PixelPoint{root_.pixelBounds().width() - 1 - point.x, point.y} : point;
}

void SurfaceView::setBounds(const PixelRect& bounds) {
    if (peer_) attempt([&] { peer_->setBounds(bounds); });
}

void SurfaceView::setVisible(bool visible) {
    if (peer_) attempt([&] { peer_->setVisible(visible); });
}

void SurfaceView::update() {
    if (peer_) attempt([&] { peer_->update(); });
}

void SurfaceView::setCursor(Cursor cursor) {
    if (peer_) attempt([&] { peer_->setCursor(cursor); });
}

void SurfaceView::setToolTip(const PixelRect& rect, TextView text, ToolTipShown shown) {
    if (peer_) attempt([&] { peer_->setToolTip(inWindow(rect), text, shown); });
}

void SurfaceView::invalidate(const PixelRect& rect) {
    if (!peer_ || rect.empty()) return;
    looksDifferent_ = true;
    if (!unseen_) attempt([&] { peer_->invalidate(inWindow(rect)); });
}

void SurfaceView::scroll(const PixelRect& rect, int32_t x, int32_t y) {
    if (!peer_ || rect.empty()) return;
    looksDifferent_ = true;
    attempt([&] { peer_->scroll(inWindow(rect), mirrored() ? -x : x, y); });
}

}  // namespace obk
