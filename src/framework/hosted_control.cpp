#include "framework/hosted_control.h"

#include "widgets/surface.h"

#include <algorithm>

namespace obk {

HostedControl::HostedControl(Control& outer, Container& parent, const ControlTable& table)
    : Container(parent), outer_(outer), control_(table.create(outer.platform())) {
    // Placed at the size it has by itself; the outer control's layout follows.
    move({{0}, {0}, control_->width(), control_->height()});
    adopt(control_->root());
    control_->setHost(this);
    control_->initNew();
    outer_.hosted_.push_back(this);  // last: nobody would take out one whose making has failed
}

HostedControl::~HostedControl() {
    control_->setHost(nullptr);
    control_->closePanels();
    std::erase(outer_.hosted_, this);
}

void HostedControl::setAmbientBackColour(OleColour colour) {
    SetBackColor(colour);
    control_->root().SetBackColor(colour);
}

void HostedControl::paint(Canvas& canvas, const PixelRect& bounds) {
    Container::paint(canvas, bounds);
}

Widget* HostedControl::hitTest(PixelPoint point) {
    return takesMouse_ ? Container::hitTest(point) : nullptr;
}

void HostedControl::detach() {
    control_->closePanels();
    Container::detach();
}

void HostedControl::placed() {
    if (!control_) return;  // still being made
    if (control_->width() != bounds().width || control_->height() != bounds().height)
        control_->setSize(bounds().width, bounds().height);
    Container::placed();
}

void HostedControl::appearanceChanged() {
    control_->surfaceChanged();
}

void HostedControl::focusCameBelow() {
    control_->focusEntered();
}

void HostedControl::focusWentBelow() {
    control_->focusLeft();
}

Widget* HostedControl::focused() {
    return control_->hasFocus() ? this : nullptr;
}

AccessibleItem HostedControl::accessible(AccessiblePart) const {
    AccessibleItem item = control_->describeSurface();
    item.bounds = pixelBounds();
    item.name = accessibleName_;
    return item;
}

void HostedControl::useAccessible(AccessiblePart, const AccessibleAction& action) {
    control_->useSurface(action);
}

void HostedControl::requestSize(Twips width, Twips height) {
    move({bounds().left, bounds().top, width, height});
}

}  // namespace obk
