// The editor of check cells: one check box in the middle of its width.
#pragma once

#include "framework/control.h"
#include "widgets/check_box.h"

#include <vector>

namespace obk {

class GridCheck final : public Control {
public:
    explicit GridCheck(Platform& platform);

    static const ControlTable& memberTable();
    const ControlTable& table() const override { return memberTable(); }

    OleColour BackColor() const { return chkBOX.backColour(); }
    void SetBackColor(OleColour BackColor);
    int16_t Value() const { return chkBOX.value(); }
    void SetValue(int16_t Value);
    bool Enabled() const { return chkBOX.enabled(); }
    void SetEnabled(bool Enabled);

    std::span<const KeyGroup> keyGroups() const override {
        static constexpr KeyGroup groups[] = {{{}, 0, checkBoxKeys}};
        return groups;
    }

    // Those of the check box, as they are.
    Event<> Click;
    Event<int16_t&, int16_t&> KeyDown, KeyUp;                                 // KeyCode, Shift
    Event<int16_t&> KeyPress;                                                 // KeyAscii
    Event<int16_t&, int16_t&, float&, float&> MouseDown, MouseMove, MouseUp;  // Button, Shift, X, Y in twips

private:
    void resize() override;

    CheckBox chkBOX;
    std::vector<Connection> connections_;
};

}  // namespace obk
