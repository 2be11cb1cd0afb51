// A widget that stands for one of the system's own windows: its window's making, place, focus and end.
#pragma once

#include "base/attempt.h"
#include "widgets/child_peer.h"
#include "widgets/widget.h"

#include <memory>
#include <optional>
#include <type_traits>
#include <utility>

namespace obk {

// All that the window shows is kept by the widget, so the window is made only when it is first to be seen,
// and then stays until the surface goes: a form opens as fast as what it shows, and one of hidden fields
// costs nothing.
class WindowedWidget : public Widget {
public:
    bool hasFocus() const;
    bool takeFocus() override;
    Widget* focused() override { return hasFocus() ? this : nullptr; }

    void attach(SurfacePeer& peer) override;
    void detach() override;
    // The window is asked only for what is new to it: layouts run often, and a window's place is dear.
    void placed() override;
    void appearanceChanged() override { showColours(); }

protected:
    explicit WindowedWidget(Container& parent) : Widget(parent) {}

    // Null when the system refuses.
    virtual std::unique_ptr<ChildPeer> createPeer(SurfacePeer& surface, const ChildPlacement& placement) = 0;
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
    ChildPeer& peer() const { return *peer_; }  // only inside `ask`
    NativeWindow nativeWindow() const;

private:
    ChildPlacement present() const;
    bool makeWindow(const ChildPlacement& placement);
    template <typename T, typename Statement>
    void tell(T& known, const std::type_identity_t<T>& now, Statement&& statement) {
        if (peer_ && known != now && attempt(std::forward<Statement>(statement))) known = now;
    }

    SurfacePeer* surfacePeer_ = nullptr;  // borrowed, while there is one to make a window on
    std::unique_ptr<ChildPeer> peer_;
    std::optional<std::pair<PixelRect, PixelRect>> place_;  // and clip, that the window was told last
    bool enabled_ = true, seen_ = true;                     // likewise
    bool making_ = false;
};

}  // namespace obk
