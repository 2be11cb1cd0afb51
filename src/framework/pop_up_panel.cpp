#include "framework/pop_up_panel.h"

#include "base/attempt.h"
#include "base/scoped_value.h"

#include <algorithm>
#include <utility>

namespace obk {

PopUpPanel::Root::Root(PopUpPanel& panel)
    : Container(panel.owner_.platform(), [&panel] { return panel.owner_.root().keepAlive(); }),
      panel_(panel) {}

PopUpPanel::PopUpPanel(Control& owner, SizeAt sizeAt)
    : owner_(owner), root_(*this), surface_(root_, *this), sizeAt_(std::move(sizeAt)) {
    owner_.panels_.push_back(this);
}

PopUpPanel::~PopUpPanel() {
    surface_.close();
    std::erase(owner_.panels_, this);
}

bool PopUpPanel::show(PopUpSide first) {
    if (visible_) return true;
    const Surface* host = owner_.root().surface();
    if (!host || !host->placed() || owner_.root().pixelClip().empty()) return false;
    side_ = first;
    mirrored_ = owner_.mirrorsItself() && owner_.rightToLeft();
    if (!surface_.isOpen() && !surface_.open({SurfacePlacement::Kind::panel, host->window(),
                                              placed(sizeAt_(owner_.root().dpi()), *host)}))
        return false;
    fit();
    visible_ = true;
    // Whoever loses the capture may tell a host, which may hide the panel or close the control.
    surface_.holdCapture();
    if (visible_) surface_.setVisible(true);
    if (visible_) surface_.update();
    owner_.announceSurface(AccessibleEvent::expanded);
    if (visible_) root_.announce(AccessibleEvent::focus);
    return visible_;
}

void PopUpPanel::sizeChanged() {
    if (visible_) fit();
}

// Where it comes to lie may be a monitor of another scale, at which it has another size.
void PopUpPanel::fit() {
    constexpr int32_t monitors = 3;  // more than any panel lies on: ones that disagree do not go on for ever
    const Surface* host = owner_.root().surface();
    if (!host || !surface_.isOpen() || fitting_) return;
    const ScopedFlag fitting(fitting_);
    Dpi scale = surface_.dpi();
    PixelSize size;
    for (int32_t tried = 0; tried < monitors; ++tried) {
        scale = surface_.dpi();
        size = sizeAt_(scale);
        surface_.setBounds(placed(size, *host));
        if (surface_.dpi() == scale) break;
    }
    if (fittedTo_ != scale) root_.appearanceChanged();
    fittedTo_ = scale;
    root_.move({{0}, {0}, scale.toTwips(size.width), scale.toTwips(size.height)});
    root_.placed();
    root_.invalidate();
}

void PopUpPanel::hide() {
    visible_ = false;
    surface_.endCapture();
    surface_.setVisible(false);
    owner_.announceSurface(AccessibleEvent::expanded);
    if (owner_.hasFocus()) owner_.announceSurface(AccessibleEvent::focus);
}

void PopUpPanel::renewCapture() {
    if (!visible_) return;
    surface_.endCapture();
    surface_.holdCapture();
}

PixelRect PopUpPanel::placed(PixelSize size, const Surface& host) const {
    const PixelRect anchor = host.toScreen(owner_.root().pixelBounds());
    return placePopUp(anchor, size, host.workArea(anchor), side_, mirrored_);
}

void PopUpPanel::close() {
    surfaceHostMoved();
    // Whatever the host has done about it, there is nothing left to show the panel on.
    visible_ = false;
    surface_.close();
}

void PopUpPanel::surfaceCaptureLost() {
    surfaceHostMoved();
}

void PopUpPanel::surfaceHostMoved() {
    if (visible_) attempt([&] { dismissed(); });
}

void PopUpPanel::surfaceChanged() {
    // The next fitting takes over what changed, be it the one under way or that of the next showing.
    fittedTo_.reset();
    sizeChanged();
}

AccessibleItem PopUpPanel::describeSurface() const {
    AccessibleItem item;
    item.role = accessibleRole_;
    item.name = accessibleName_;
    item.bounds = root_.pixelBounds();
    return item;
}

}  // namespace obk
