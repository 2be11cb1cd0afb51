// The check box window in memory.
#pragma once

#include "platform/headless/headless_child.h"
#include "widgets/check_box_peer.h"

namespace obk::headless {

class HeadlessCheckBox : public HeadlessChildPeer<CheckBoxPeer> {
public:
    HeadlessCheckBox(HeadlessPlatform& platform, CheckBoxClient& client, HeadlessSurface& parent,
                     const ChildPlacement& placement);

    void setChecked(bool checked) override {
        work();
        checked_ = checked;
    }
    bool checked() const { return checked_; }

    void keyEffect(const KeyEvent& event) override;
    void keyUpEffect(const KeyEvent& event) override;
    void mouseEffect(const MouseEvent& event) override;

private:
    void release(bool inside);

    CheckBoxClient& checkClient_;
    bool checked_ = false;
    bool pressed_ = false;
};

}  // namespace obk::headless
