// The control frame: what every control shares, from its creation to its last event.
#pragma once

#include "base/event.h"
#include "framework/control_keys.h"
#include "framework/control_table.h"
#include "framework/host_link.h"
#include "framework/property_bag.h"
#include "widgets/container.h"
#include "widgets/surface.h"

#include <memory>
#include <vector>

namespace obk {

class HostedControl;
class PopUpPanel;

// A control surface with its child widgets. Works from the moment it is created, with or without a host, with
// or without a window. Held by shared_ptr; created through its table.
class Control : public std::enable_shared_from_this<Control>,
                public HostLink,
                public ControlKeys,
                private SurfaceOwner {
public:
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control();

    virtual const ControlTable& table() const = 0;

    // Driven by the container, which is its host: created, then placed afresh or loaded, sized, used, saved.
    void initNew();
    void load(PropertyBag& bag);
    void save(PropertyBag& bag) const;
    // The container has another font now; a control that still shows the old one takes it.
    void ambientFontChanged();

    // Every setting lays the children out again; some controls keep a size of their own and ask for it back.
    void setSize(Twips width, Twips height);
    Twips width() const { return width_; }
    Twips height() const { return height_; }

    // In place: a window of its own inside `parent`, at `bounds` in its pixels. Whether it could be made.
    bool activate(NativeWindow parent, const PixelRect& bounds);
    void deactivate();
    bool active() const { return active_; }
    void setBounds(const PixelRect& bounds);  // while active; pixels of the parent
    // The control's window; made, invisible, when a host asks before activation. 0 when the system refuses.
    NativeWindow window();
    // By its own keys, or those of a control inside it.
    KeyRoute preTranslate(const KeyEvent& event) override;
    bool focus();  // to the control's first child that takes it; whether one did
    bool hasFocus() const;
    // By what the window system has told; cheaper than asking it.
    bool focusInside() const { return focusInside_; }
    // Paints the whole control into `bounds`, with or without a window.
    void draw(Canvas& canvas, const PixelRect& bounds);

    Platform& platform() const { return root_.platform(); }
    // Shares the platform, which is otherwise borrowed: a call that is under way may keep the control for
    // longer than its host does.
    void keep(std::shared_ptr<Platform> platform) { kept_ = std::move(platform); }
    Container& root() { return root_; }
    const Container& root() const { return root_; }
    // A copy of the container's font, or the system's dialog font where there is none.
    FontRef ambientFont() const;

protected:
    explicit Control(Platform& platform);

    virtual void initialize() {}      // once, after construction
    virtual void initProperties() {}  // a fresh placement, as opposed to a loaded one
    virtual void loaded() {}          // after the last persisted value
    // Lays the children out from width() and height(); cheap, and the same however often it runs.
    virtual void resize() = 0;
    virtual void enterFocus() {}
    virtual void exitFocus() {}  // the focus left the control and its children
    virtual void useAmbientFont(const FontRef&) {}
    virtual void appearanceChanged() { resize(); }

    // Whether all of the control is mirrored then, so that x counts from the reading edge. Otherwise it lays
    // itself out for both.
    virtual bool mirrorsItself() const { return false; }
    // A key as it would be without mirroring.
    KeyEvent alongReading(const KeyEvent& event) const;
    // Shift+Tab and the like, on behalf of the user. Whether the container used it.
    bool offerToContainer(const KeyEvent& event) override;
    AccessibleItem describeSurface() const override;
    void announceSurface(AccessibleEvent event);

private:
    friend class ControlFactory;
    friend class HostedControl;
    friend class PopUpPanel;
    void focusEntered() override;
    void focusLeft() override;
    void surfaceCaptureLost() override {}
    void surfaceChanged() override;
    void surfaceLooksDifferent() override;
    bool mirrored() const override { return mirrored_; }
    void readContainer();
    void closePanels();

    std::shared_ptr<Platform> kept_;  // goes after everything else
    Container root_;
    Surface surface_;
    Twips width_{4800}, height_{3600};
    bool active_ = false;
    bool mirrored_ = false;  // as the container read when it was asked last
    bool focusInside_ = false;
    std::vector<PopUpPanel*> panels_;     // borrowed; they take themselves out
    std::vector<HostedControl*> hosted_;  // likewise
    std::vector<Connection> eventConnections_;
};

}  // namespace obk
