#include "platform/headless/headless_window.h"

#include "platform/headless/headless_surface.h"

namespace obk::headless {

HeadlessWindow::HeadlessWindow(HeadlessPlatform& platform, PeerClient& client, HeadlessSurface* parent)
    : platform_(platform), client_(client), parent_(parent), id_(platform.add(*this)) {}

HeadlessWindow::~HeadlessWindow() {
    platform_.remove(*this);
}

bool HeadlessWindow::canTakeFocus() const {
    return id_ != 0 && visible_ && enabled_;
}

void HeadlessWindow::orphan() {
    platform_.remove(*this);
    parent_ = nullptr;
    id_ = 0;
}

bool HeadlessWindow::inPanel() const {
    const HeadlessSurface* const surface = parent_ ? parent_ : platform_.surface(id_);
    return surface && surface->kind() == SurfacePlacement::Kind::panel;
}

bool HeadlessWindow::contains(NativeWindow window) const {
    if (window == id_) return true;
    const HeadlessWindow* found = platform_.find(window);
    return found && found->parent() && found->parent()->id() == id_;
}

}  // namespace obk::headless
