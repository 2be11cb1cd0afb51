#include "platform/headless/headless_check_box.h"

namespace obk::headless {

HeadlessCheckBox::HeadlessCheckBox(HeadlessPlatform& platform, CheckBoxClient& client,
                                   HeadlessSurface& parent, const ChildPlacement& placement)
    : HeadlessChildPeer(platform, client, parent, placement), checkClient_(client) {}

void HeadlessCheckBox::keyEffect(const KeyEvent& event) {
    if (event.code == key::space) pressed_ = true;
}

void HeadlessCheckBox::keyUpEffect(const KeyEvent& event) {
    if (event.code == key::space) release(true);
}

void HeadlessCheckBox::mouseEffect(const MouseEvent& event) {
    using Kind = MouseEvent::Kind;
    if (event.kind == Kind::move && (event.button & button::left) == 0) pressed_ = false;
    if (event.button != button::left) return;
    if (event.kind == Kind::down || event.kind == Kind::doubleClick)
        pressed_ = true;
    else if (event.kind == Kind::up)
        release(PixelRect{0, 0, bounds_.width(), bounds_.height()}.contains(event.at));
}

void HeadlessCheckBox::release(bool inside) {
    const bool told = std::exchange(pressed_, false) && inside && id() != 0;
    if (!told) return;
    if (const auto alive = checkClient_.keepAlive()) checkClient_.checkPressed();
}

}  // namespace obk::headless
