// A widget that stands for one of the system's own windows: its window's making, place, focus and end.
#pragma once

#include "base/attempt.h"
#include "base/scoped_value.h"
#include "widgets/child_peer.h"
#include "widgets/surface.h"
#include "widgets/widget.h"

#include <memory>
#include <optional>
#include <type_traits>
#include <utility>

namespace obk {

// `Peer` is the port's window, `Client` what that reports to. All that the window shows is kept by the
// widget, so the window is made only when it is first to be seen, and then stays until the surface goes: a
// form opens as fast as what it shows, and one of hidden fields costs nothing.
template <typename Client, typename Peer>
class ChildWidget : public Widget, protected Client {
public:
    bool hasFocus() const {
        bool focused = false;
        ask([&] { focused = peer_->hasFocus(); });
        return focused;
    }
    bool takeFocus() override {
        if (pixelClip().empty() || !enabled()) return false;
        ask([&] { peer_->focus(); });
        return hasFocus();
    }
    Widget* focused() override { return hasFocus() ? this : nullptr; }

    void attach(SurfacePeer& peer) override {
        surfacePeer_ = &peer;
        placed();
    }
    void detach() override {
        surfacePeer_ = nullptr;
        if (!peer_) return;
        windowGoes();
        const auto going = std::move(peer_);
    }
    // The window is asked only for what is new to it: layouts run often, and a window's place is dear.
    void placed() override {
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
    void appearanceChanged() override { showColours(); }

protected:
    explicit ChildWidget(Container& parent) : Widget(parent) {}

    // Null when the system refuses.
    virtual std::unique_ptr<Peer> createPeer(SurfacePeer& surface, const ChildPlacement& placement) = 0;
    // Tells a new window what it was not made with.
    virtual void windowMade() = 0;
    virtual void windowGoes() {}
    virtual void showColours() = 0;
    // Where the window is, of the widget's place on the surface.
    virtual PixelRect windowBounds(PixelRect bounds) const { return bounds; }

    // Something of the window, where there is one.
    template <typename Statement>
    void ask(Statement&& statement, Place place = Place::here()) const {
        if (peer_) attempt(std::forward<Statement>(statement), place);
    }
    bool hasWindow() const { return peer_ != nullptr; }
    Peer& window() const { return *peer_; }  // only inside `ask`
    NativeWindow nativeWindow() const {
        NativeWindow window = 0;
        ask([&] { window = peer_->window(); });
        return window;
    }

    void focusGained() override {
        if (Surface* shownOn = surface()) shownOn->childFocusGained(*this);
    }
    void focusLost() override {
        if (Surface* shownOn = surface()) shownOn->childFocusLost(*this);
    }

private:
    std::shared_ptr<void> keepAlive() override { return Widget::keepAlive(); }
    KeyRoute preTranslate(const KeyEvent& event) override {
        Surface* shownOn = surface();
        return shownOn ? shownOn->preTranslate(event) : KeyRoute::child;
    }
    bool offerToContainer(const KeyEvent& event) override {
        Surface* shownOn = surface();
        return shownOn && shownOn->offerToContainer(event);
    }
    Text accessibleName() override {
        const Surface* shownOn = surface();
        return shownOn ? shownOn->readersTree().item({this, {}}).name : Text();
    }

    ChildPlacement present() const {
        const Surface* shownOn = surface();
        const auto inWindow = [&](const PixelRect& part) { return shownOn ? shownOn->inWindow(part) : part; };
        return {inWindow(windowBounds(pixelBounds())), inWindow(pixelClip()), enabled()};
    }
    bool makeWindow(const ChildPlacement& placement) {
        if (!surfacePeer_ || making_) return false;
        const ScopedFlag making(making_);
        std::unique_ptr<Peer> made;
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
    template <typename T, typename Statement>
    void tell(T& known, const std::type_identity_t<T>& now, Statement&& statement) {
        if (peer_ && known != now && attempt(std::forward<Statement>(statement))) known = now;
    }

    SurfacePeer* surfacePeer_ = nullptr;  // borrowed, while there is one to make a window on
    std::unique_ptr<Peer> peer_;
    std::optional<std::pair<PixelRect, PixelRect>> place_;  // and clip, that the window was told last
    bool enabled_ = true, seen_ = true;                     // likewise
    bool making_ = false;
};

}  // namespace obk
