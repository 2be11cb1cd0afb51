// A surface's window as far as it is placed, asked and told what shows in it.
#pragma once

#include "widgets/container.h"
#include "widgets/surface_owner.h"
#include "widgets/surface_peer.h"

#include <memory>

namespace obk {

class SurfaceView {
public:
    SurfaceView(const SurfaceView&) = delete;
    SurfaceView& operator=(const SurfaceView&) = delete;

    // From parked into a parent's window.
    void setParent(NativeWindow parent);
    // Whether the window has a place on the screen, as opposed to being parked.
    bool placed() const { return peer_ && placed_; }
    bool isOpen() const { return peer_ != nullptr; }
    // 0 when it is not open.
    NativeWindow window() const { return peer_ ? peer_->window() : 0; }
    Dpi dpi() const;
    // Where a part of it is on the screen; where it is in the window when it is not open.
    PixelRect toScreen(const PixelRect& part) const;
    bool mirrored() const { return owner_.mirrored(); }
    // Where a part is in the window, which differs where it is mirrored; and the other way round.
    PixelRect inWindow(const PixelRect& part) const;
    PixelPoint fromWindow(PixelPoint point) const;
    // Of the monitor that a place on the screen is on; empty when it is not open.
    PixelRect workArea(const PixelRect& place) const { return peer_ ? peer_->workArea(place) : PixelRect{}; }

    // What follows does nothing when it is not open.
    void setBounds(const PixelRect& bounds);
    void setVisible(bool visible);
    // Paints what is invalid now rather than later.
    void update();
    void setCursor(Cursor cursor);
    // Shown when the mouse rests inside `rect`, or at once below that; an empty text removes it. One at a
    // time.
    void setToolTip(const PixelRect& rect, TextView text, ToolTipShown shown = ToolTipShown::whenMouseRests);
    void invalidate(const PixelRect& rect);
    // A child's window shows something else.
    void childLooksDifferent() { owner_.surfaceLooksDifferent(); }
    // Moves what is drawn inside a rectangle and invalidates what is uncovered.
    void scroll(const PixelRect& rect, int32_t x, int32_t y);
    // Whether the focus is in the window or one of its children.
    bool hasFocus() const { return peer_ && peer_->hasFocus(); }

    // What a label says that stands before the window; empty where there is none.
    Text labelBefore() const { return peer_ ? peer_->labelBefore() : Text(); }

protected:
    // Both are borrowed and outlive the surface.
    SurfaceView(Container& root, SurfaceOwner& owner) : root_(root), owner_(owner) {}
    ~SurfaceView() = default;

    Container& root_;
    SurfaceOwner& owner_;
    std::unique_ptr<SurfacePeer> peer_;
    Dpi dpi_{96};  // the peer's; asked for each thing that is placed or painted
    bool placed_ = false;
    bool looksDifferent_ = false;  // from what was painted last
    bool unseen_ = false;  // all of it is still to be painted: what changes meanwhile need not be said
};

}  // namespace obk
