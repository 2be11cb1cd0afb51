#include "widgets/windowed_widget.h"

#include "base/scoped_value.h"
#include "widgets/surface.h"

namespace obk {

bool WindowedWidget::hasFocus() const {
    bool focused = false;
    ask([&] { focused = peer_->hasFocus(); });
    return focused;
}

bool WindowedWidget::takeFocus() {
    if (pixelClip().empty() || !enabled()) return false;
    ask([&] { peer_->focus(); });
    return hasFocus();
}

void WindowedWidget::attach(SurfacePeer& peer) {
    surfacePeer_ = &peer;
    placed();
}

void WindowedWidget::detach() {
    surfacePeer_ = nullptr;
    if (!peer_) return;
    windowGoes();
    const auto going = std::move(peer_);
}

void WindowedWidget::placed() {
    if (!peer_ && (pixelClip().empty() || !makeWindow(present()))) return;
    // A host that hears of the new window may have moved or hidden the control.
    const ChildPlacement now = present();
    const bool seen = !now.clip.empty();
    const std::pair place{now.bounds, now.clip};
    // Each step may take the focus away, and who hears of that may close the window.
    tell(enabled_, now.enabled, [&] { peer_->setEnabled(now.enabled); });
    if (seen) tell(place_, place, [&] { peer_->setBounds(place.first, place.second); });
    tell(seen_, seen, [&] { peer_->setVisible(seen); });
}

NativeWindow WindowedWidget::nativeWindow() const {
    NativeWindow window = 0;
    ask([&] { window = peer_->window(); });
    return window;
}

ChildPlacement WindowedWidget::present() const {
    const Surface* shownOn = surface();
    const auto inWindow = [&](const PixelRect& part) { return shownOn ? shownOn->inWindow(part) : part; };
    return {inWindow(windowBounds(pixelBounds())), inWindow(pixelClip()), enabled()};
}

bool WindowedWidget::makeWindow(const ChildPlacement& placement) {
    if (!surfacePeer_ || making_) return false;
    const ScopedFlag making(making_);
    std::unique_ptr<ChildPeer> made;
    attempt([&] { made = createPeer(*surfacePeer_, placement); });
    // Whoever heard of it may have closed the surface.
    if (!surfacePeer_ || !made) return false;
    peer_ = std::move(made);
    enabled_ = placement.enabled;
    seen_ = true;
    place_.emplace(placement.bounds, placement.clip);
    windowMade();
    ask([&] { showColours(); });
    return peer_ != nullptr;
}

}  // namespace obk
