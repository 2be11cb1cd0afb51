// An etched horizontal separator: a dark line with a light one directly below it.
#pragma once

#include "framework/control.h"
#include "widgets/decoration.h"

namespace obk {

class lns final : public Control {
public:
    explicit lns(Platform& platform);

    static const ControlTable& memberTable();
    const ControlTable& table() const override { return memberTable(); }

    // Tints both lines from `clrLINEBASE`.
    void ColorRefresh();

    // The colour to tint from; black unless a control that hosts this one sets it.
    OleColour clrLINEBASE;

private:
    void initialize() override;
    void resize() override;
    AccessibleItem describeSurface() const override {
        AccessibleItem item = Control::describeSurface();
        item.role = AccessibleItem::Role::separator;
        return item;
    }

    LineShape lneSHADOW;
    LineShape lneHIGHLIGHT;
};

}  // namespace obk
