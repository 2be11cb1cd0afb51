#include "framework/pop_up_panel.h"

#include "base/attempt.h"

#include <algorithm>

namespace obk {

PopUpPanel::Root::Root(PopUpPanel& panel)
    : Container(panel.owner_.platform(), [&panel] { return panel.owner_.root().keepAlive(); }),
      panel_(panel) {}

PopUpPanel::PopUpPanel(Control& owner) : owner_(owner), root_(*this), surface_(root_, *this) {
    owner_.panels_.push_back(this);
}

PopUpPanel::~PopUpPanel() {
    surface_.close();
    std::erase(owner_.panels_, this);
}

bool PopUpPanel::show(PixelSize size, PopUpSide first) {
    if (visible_) return true;
    const Surface* host = owner_.root().surface();
    if (!host || !host->placed() || owner_.root().pixelClip().empty()) return false;
    const PixelRect bounds = placed(size, first, *host);
    if (!surface_.isOpen() && !surface_.open({SurfacePlacement::Kind::panel, host->window(), bounds}))
        return false;
    visible_ = true;
    surface_.setBounds(bounds);
    const Dpi scale = surface_.dpi();
    root_.move({{0}, {0}, scale.toTwips(size.width), scale.toTwips(size.height)});
    surface_.holdCapture();
    surface_.setVisible(true);
    surface_.update();
    return true;
}

void PopUpPanel::resize(PixelSize size, PopUpSide first) {
    const Surface* host = owner_.root().surface();
    if (!visible_ || !host) return;
    surface_.setBounds(placed(size, first, *host));
    const Dpi scale = surface_.dpi();
    root_.move({{0}, {0}, scale.toTwips(size.width), scale.toTwips(size.height)});
    root_.invalidate();
}

void PopUpPanel::hide() {
    visible_ = false;
    surface_.endCapture();
    surface_.setVisible(false);
}

void PopUpPanel::renewCapture() {
    if (!visible_) return;
    surface_.endCapture();
    surface_.holdCapture();
}

PixelRect PopUpPanel::placed(PixelSize size, PopUpSide first, const Surface& host) const {
    const PixelRect own = owner_.root().pixelBounds();
    const PixelPoint origin = host.toScreen({own.left, own.top});
    const PixelRect anchor{origin.x, origin.y, origin.x + own.width(), origin.y + own.height()};
    return placePopUp(anchor, size, host.workArea(), first);
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
    attempt([&] { appearanceChanged(); });
    root_.appearanceChanged();
    root_.placed();
    root_.invalidate();
}

AccessibleItem PopUpPanel::describeSurface() const {
    return {AccessibleItem::Role::client, accessibleName_, {}, root_.pixelBounds(), true, false};
}

}  // namespace obk
