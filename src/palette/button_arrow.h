// A small button face of fixed size that shows an arrow.
#pragma once

#include "framework/control.h"
#include "widgets/decoration.h"

namespace obk {

class ButtonArrow final : public Control {
public:
    explicit ButtonArrow(Platform& platform);

    static const ControlTable& memberTable();
    const ControlTable& table() const override { return memberTable(); }

    void EnabledCol(bool changeVal);

private:
    void initialize() override;
    void loaded() override { fixSize(); }
    void resize() override { fixSize(); }
    void enterFocus() override { fixSize(); }
    void fixSize();
    AccessibleItem describeSurface() const override {
        AccessibleItem item = Control::describeSurface();
        item.role = AccessibleItem::Role::graphic;
        return item;
    }

    ArrowLabel lblARROW;
    bool fixingSize_ = false;
};

}  // namespace obk
