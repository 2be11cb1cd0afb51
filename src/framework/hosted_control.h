// A control inside another one: the container that the hosted control sits in, as a widget of the outer one.
#pragma once

#include "framework/control.h"
#include "framework/control_host.h"
#include "widgets/container.h"

#include <memory>

namespace obk {

// The hosted control draws on the outer control's surface, is kept alive with it, and has the size of this
// widget. Keys and activation belong to the outermost control. The outer control speaks to the hosted one
// through its public members only, and connects its events directly.
class HostedControl : public Container, private ControlHost {
public:
    // `outer` is borrowed and outlives the widget; `parent` is a container of it or of a panel of it.
    HostedControl(Control& outer, Container& parent, const ControlTable& table);
    ~HostedControl() override;

    Control& control() const { return *control_; }
    // What shows around a hosted control that does not fill its place, and behind one that takes its
    // container's colour.
    void setAmbientBackColour(OleColour colour);
    // Presses go to what lies below, as on a picture.
    void setTakesMouse(bool takes) { takesMouse_ = takes; }
    // Without one it is called as what it is in.
    void setAccessibleName(Text name) { accessibleName_ = std::move(name); }

    void paint(Canvas& canvas, const PixelRect& bounds) override;
    Widget* hitTest(PixelPoint point) override;
    void detach() override;
    void placed() override;
    void appearanceChanged() override;
    void focusCameBelow() override;
    void focusWentBelow() override;
    Widget* focused() override;
    // One that is but a picture has nothing to tell.
    bool accessibleWhole() const override { return takesMouse_; }
    AccessibleItem accessible(AccessiblePart part) const override;
    AccessibleId accessibleFocus() override { return {}; }  // what has it is inside
    void useAccessible(AccessiblePart part, const AccessibleAction& action) override;

private:
    void raise(const Member&, std::span<Value>) override {}
    void propertyChanged(const Member*) override {}
    FontRef ambientFont() override { return outer_.ambientFont(); }
    void requestSize(Twips width, Twips height) override;
    void focusChanged(bool) override {}  // the surface tells the outer control
    bool offerToContainer(const KeyEvent& event) override { return outer_.offerToContainer(event); }
    void viewChanged() override {}
    bool rightToLeft() override { return outer_.rightToLeft(); }
    bool designMode() override { return outer_.designMode(); }

    Control& outer_;
    std::shared_ptr<Control> control_;
    Text accessibleName_;
    bool takesMouse_ = true;
};

// Typed access: Hosted<ButtonArrow> barPALETTE(*this, root());
template <typename C>
class Hosted final : public HostedControl {
public:
    Hosted(Control& outer, Container& parent) : HostedControl(outer, parent, C::memberTable()) {}
    C* operator->() const { return static_cast<C*>(&control()); }
    C& operator*() const { return static_cast<C&>(control()); }
};

}  // namespace obk
