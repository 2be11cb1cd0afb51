// A window's portable side: routes what the window system reports to the widgets of one root container.
#pragma once

#include "widgets/accessible_tree.h"
#include "widgets/container.h"
#include "widgets/reader_news.h"
#include "widgets/surface_owner.h"
#include "widgets/surface_peer.h"

#include <memory>

namespace obk {

class Surface final : private SurfaceClient {
public:
    // Both are borrowed and outlive the surface.
    Surface(Container& root, SurfaceOwner& owner);
    Surface(const Surface&) = delete;
    Surface& operator=(const Surface&) = delete;
    ~Surface();

    // Makes the window and those of the children. Whether the system gave one.
    bool open(const SurfacePlacement& placement);
    void close();
    // From parked into a parent's window.
    void setParent(NativeWindow parent);
    // A widget that has joined what is shown.
    void attach(Widget& widget);
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
    // Asks for the focus unless it is there already. Whether it is there now.
    bool takeFocus();
    // Gives the keyboard to a drawn widget: the keys of the surface's own window are its until it is
    // forgotten or another widget asks for them. Whether it has them now.
    bool focus(Widget& widget);
    bool hasOwnFocus() const { return ownFocus_; }  // the window itself, and no child of it
    bool focusedOn(const Widget& widget) const { return ownFocus_ && keyTarget_ == &widget; }
    // Mouse events go to `widget` until it releases, another window takes the capture, or it is forgotten.
    void capture(Widget& widget);
    void releaseCapture(const Widget& widget);
    bool captured(const Widget& widget) const { return captured_ == &widget; }
    // Mouse events from anywhere on the screen come here: to a widget that captures them, else to the one
    // below the mouse, else to the root. Lasts over the captures of single widgets, until another window
    // takes it.
    void holdCapture();
    void endCapture();
    bool holdsCapture() const { return holding_; }
    // Whether the window has the system's capture, for whichever of these.
    bool hasCapture() const { return peer_ && peer_->hasCapture(); }
    // A menu of the system beside a rectangle of this surface; see Platform::chooseFromMenu. A capture that
    // is held rests meanwhile and is not reported as lost.
    std::optional<size_t> chooseFromMenu(std::span<const MenuItem> items, const PixelRect& beside);
    // A panel of a widget's own is open, until it says otherwise or goes: a capture that is held rests and is
    // not reported as lost, and the wheel is the widget's wherever the mouse is.
    void beginDropDown(Widget& widget);
    void endDropDown(const Widget& widget);
    // Likewise, because another window has taken the panel's capture: so it is lost here.
    void loseDropDown(const Widget& widget);
    // A widget is about to go.
    void forget(const Widget& widget);

    // What a label says that stands before the window; empty where there is none.
    Text labelBefore() const { return peer_ ? peer_->labelBefore() : Text(); }
    // Tells screen readers, once the present work is done. The focus is told where it is by then.
    void announce(AccessibleEvent event, const AccessibleId& of);
    const AccessibleTree& readersTree() const { return tree_; }

    // For the children's windows.
    void childFocusGained(Widget& child);
    // Before the child tells its own listeners: the control as a whole is left first.
    void childFocusLost(Widget& child);
    KeyRoute preTranslate(const KeyEvent& event) override { return owner_.preTranslate(event); }
    bool offerToContainer(const KeyEvent& event) override { return owner_.offerToContainer(event); }

private:
    std::shared_ptr<void> keepAlive() override;
    void mouse(const MouseEvent& event) override;
    bool wheel(const WheelEvent& event) override;
    bool contextMenu(std::optional<PixelPoint> at) override;
    void keyDown(KeyEvent& event) override;
    void keyUp(KeyEvent& event) override;
    int16_t keyPress(int16_t character) override;
    void focusGained() override;
    void focusLost() override;
    void paint(Canvas& canvas, const PixelRect& dirty) override;
    void captureLost() override;
    bool takesDrop(PixelPoint at) override { return dropTarget(at) != nullptr; }
    void drop(DropEvent& event) override;
    void dpiChanged(Dpi dpi) override;
    void appearanceChanged() override;
    void hostMoved() override { owner_.surfaceHostMoved(); }
    void pressedElsewhere() override { owner_.surfacePressedElsewhere(); }
    const AccessibleTree* accessibleTree() override { return &tree_; }
    void tellReaders() override;

    // Something that may wait to be told to readers, who are called soon for the first of it.
    template <typename Add>
    void addNews(Add&& add);
    void deliver(Widget& widget, const MouseEvent& event);
    Widget* dropTarget(PixelPoint at);

    Container& root_;
    SurfaceOwner& owner_;
    AccessibleTree tree_;
    ReaderNews news_{tree_};
    std::unique_ptr<SurfacePeer> peer_;
    Widget* captured_ = nullptr;
    Widget* hovered_ = nullptr;
    Widget* droppedDown_ = nullptr;
    Widget* keyTarget_ = nullptr;  // a drawn widget that keys go to
    bool ownFocus_ = false;        // the window itself has the focus, none of its children
    bool holding_ = false;
    bool resting_ = false;  // the held capture, while a menu or a list is open
    Dpi dpi_{96};           // the peer's; asked for each thing that is placed or painted
    bool placed_ = false;
    bool looksDifferent_ = false;  // from what was painted last
    bool unseen_ = false;  // all of it is still to be painted: what changes meanwhile need not be said
};

}  // namespace obk
