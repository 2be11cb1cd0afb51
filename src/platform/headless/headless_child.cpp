#include "platform/headless/headless_child.h"

#include <stdexcept>

namespace obk::headless {

HeadlessChild::HeadlessChild(HeadlessPlatform& platform, PeerClient& client, HeadlessSurface& parent,
                             const ChildPlacement& placement)
    : HeadlessWindow(platform, client, &parent) {
    bounds_ = placement.bounds;
    clip_ = placement.clip;
    enabled_ = placement.enabled;
    parent.addChild(*this);
}

HeadlessChild::~HeadlessChild() {
    if (parent_) parent_->removeChild(*this);
}

void HeadlessChild::work() const {
    if (platform_.childWindowsFail()) throw std::runtime_error("a child window fails");
}

bool HeadlessChild::canTakeFocus() const {
    return HeadlessWindow::canTakeFocus() && !bounds_.intersected(clip_).empty() && parent_ &&
           parent_->canTakeFocus();
}

void HeadlessChild::releaseFocus() {
    // As the window system does: the surface has it when a child can no longer show it.
    if (holdsFocus()) platform_.setFocus(parent_->canTakeFocus() ? parent_->id() : 0);
}

void HeadlessChild::place(const PixelRect& bounds, const PixelRect& clip) {
    bounds_ = bounds;
    clip_ = clip;
    if (bounds_.intersected(clip_).empty()) releaseFocus();
}

void HeadlessChild::show(bool visible) {
    visible_ = visible;
    if (!visible) releaseFocus();
}

void HeadlessChild::enable(bool enabled) {
    enabled_ = enabled;
    if (!enabled && holdsFocus()) platform_.setFocus(0);
}

void HeadlessChild::takeFocus() {
    if (canTakeFocus() && !platform_.refusesRequest()) platform_.setFocus(id());
}

}  // namespace obk::headless
