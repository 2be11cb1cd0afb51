// A window's portable side: routes what the window system reports to the widgets of one root container.
#pragma once

#include "widgets/accessible_tree.h"
#include "widgets/container.h"
#include "widgets/reader_news.h"
#include "widgets/surface_view.h"

#include <memory>
#include <optional>
#include <span>

namespace obk {

class Surface final : public SurfaceView, private SurfaceClient {
public:
    // Both are borrowed and outlive the surface.
    Surface(Container& root, SurfaceOwner& owner);
    ~Surface();

    // Makes the window and those of the children. Whether the system gave one.
    bool open(const SurfacePlacement& placement);
    void close();
    // A widget that has joined what is shown.
    void attach(Widget& widget);

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

    AccessibleTree tree_;
    ReaderNews news_{tree_};
    Widget* captured_ = nullptr;
    Widget* hovered_ = nullptr;
    Widget* droppedDown_ = nullptr;
    Widget* keyTarget_ = nullptr;  // a drawn widget that keys go to
    bool ownFocus_ = false;        // the window itself has the focus, none of its children
    bool holding_ = false;
    bool resting_ = false;  // the held capture, while a menu or a list is open
};

}  // namespace obk
