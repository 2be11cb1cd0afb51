// The drop-down panel of a control: a top-level window that captures the mouse while it is open.
#pragma once

#include "base/event.h"
#include "framework/control.h"
#include "widgets/pop_up_placement.h"
#include "widgets/surface.h"

#include <functional>

namespace obk {

// Holds the panel's widgets from the beginning; its window exists from the first showing until the control is
// deactivated. It never hides by itself: whatever should end it raises `dismissed`, and the control hides it
// and tells its host.
class PopUpPanel final : private SurfaceOwner {
public:
    // In pixels, where a pixel is as large as there; the panel's widgets are made ready for that.
    using SizeAt = std::function<PixelSize(Dpi)>;
    // `owner` is borrowed and outlives the panel.
    PopUpPanel(Control& owner, SizeAt sizeAt);
    PopUpPanel(const PopUpPanel&) = delete;
    PopUpPanel& operator=(const PopUpPanel&) = delete;
    ~PopUpPanel();

    // The parent of the panel's widgets. Mouse events that none of them takes, those outside the panel among
    // them, come to `mouseElsewhere`.
    Container& root() { return root_; }
    void setAccessible(AccessibleItem::Role role, Text name) {
        accessibleRole_ = role;
        accessibleName_ = std::move(name);
    }

    bool visible() const { return visible_; }
    // Places the panel beside the control, whole on its monitor and at the scale of that, takes the mouse
    // capture and shows it. Does nothing while it is shown. Whether it is shown now: not when the control has
    // no place on the screen, nor when a host, told that its capture is gone, has hidden it at once.
    bool show(PopUpSide first);
    // Its size is another one now.
    void sizeChanged();
    // Gives up the capture only if the panel has it.
    void hide();
    // Gives the capture up and takes it anew, as a press does that begins a drag.
    void renewCapture();
    bool holdsCapture() const { return surface_.hasCapture(); }
    // 0 before it was shown first, and when the control has no window any more.
    NativeWindow window() const { return surface_.window(); }

    Event<> dismissed;
    Event<const MouseEvent&> mouseElsewhere;  // in pixels of the panel

private:
    friend class Control;

    class Root final : public Container {
    public:
        explicit Root(PopUpPanel& panel);
        void mouse(const MouseEvent& event) override { panel_.mouseElsewhere(event); }

    private:
        PopUpPanel& panel_;
    };

    PixelRect placed(PixelSize size, const Surface& host) const;
    void fit();
    void hostMoved() { surfaceHostMoved(); }
    // The control has no window any more.
    void close();

    KeyRoute preTranslate(const KeyEvent& event) override { return owner_.preTranslate(event); }
    bool offerToContainer(const KeyEvent& event) override { return owner_.offerToContainer(event); }
    // The focus never is in a panel.
    void focusEntered() override {}
    void focusLeft() override {}
    void surfaceCaptureLost() override;
    void surfaceHostMoved() override;
    void surfaceChanged() override;
    bool mirrored() const override { return mirrored_; }
    AccessibleItem describeSurface() const override;

    Control& owner_;
    Root root_;
    Surface surface_;
    SizeAt sizeAt_;
    AccessibleItem::Role accessibleRole_ = AccessibleItem::Role::client;
    Text accessibleName_;
    PopUpSide side_ = PopUpSide::below;
    std::optional<Dpi> fittedTo_;  // the scale that the widgets are laid out for
    bool mirrored_ = false;
    bool visible_ = false;
    bool fitting_ = false;
};

}  // namespace obk
