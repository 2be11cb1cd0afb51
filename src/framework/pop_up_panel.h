// The drop-down panel of a control: a top-level window that captures the mouse while it is open.
#pragma once

#include "base/event.h"
#include "framework/control.h"
#include "framework/pop_up_placement.h"
#include "widgets/surface.h"

namespace obk {

// Holds the panel's widgets from the beginning; its window exists from the first showing until the control is
// deactivated. It never hides by itself: whatever should end it raises `dismissed`, and the control hides it
// and tells its host.
class PopUpPanel final : private SurfaceOwner {
public:
    // `owner` is borrowed and outlives the panel.
    explicit PopUpPanel(Control& owner);
    PopUpPanel(const PopUpPanel&) = delete;
    PopUpPanel& operator=(const PopUpPanel&) = delete;
    ~PopUpPanel();

    // The parent of the panel's widgets. Mouse events that none of them takes, those outside the panel among
    // them, come to `mouseElsewhere`.
    Container& root() { return root_; }
    void setAccessibleName(Text name) { accessibleName_ = std::move(name); }

    bool visible() const { return visible_; }
    // Places the panel beside the control, whole on its monitor, takes the mouse capture and shows it. Does
    // nothing while it is shown, and false when the control has no place on the screen.
    bool show(PixelSize size, PopUpSide first);
    // Another size at the same control, as far as it is shown.
    void resize(PixelSize size, PopUpSide first);
    // Gives up the capture only if the panel has it.
    void hide();
    // Gives the capture up and takes it anew, as a press does that begins a drag.
    void renewCapture();
    bool holdsCapture() const { return surface_.hasCapture(); }
    // In the control's pixels: those of the monitor that it is on.
    Dpi dpi() const { return owner_.root().dpi(); }
    // 0 before it was shown first, and when the control has no window any more.
    NativeWindow window() const { return surface_.window(); }

    Event<> dismissed;
    Event<const MouseEvent&> mouseElsewhere;  // in pixels of the panel
    Event<> appearanceChanged;

private:
    friend class Control;

    class Root final : public Container {
    public:
        explicit Root(PopUpPanel& panel);
        void mouse(const MouseEvent& event) override { panel_.mouseElsewhere(event); }

    private:
        PopUpPanel& panel_;
    };

    PixelRect placed(PixelSize size, PopUpSide first, const Surface& host) const;
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
    AccessibleItem describeSurface() const override;

    Control& owner_;
    Root root_;
    Surface surface_;
    Text accessibleName_;
    bool visible_ = false;
};

}  // namespace obk
