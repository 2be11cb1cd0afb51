#include "grid/grid_check.h"

#include "base/attempt.h"
#include "framework/mouse_arguments.h"

#include <utility>

namespace obk {

GridCheck::GridCheck(Platform& platform) : Control(platform), chkBOX(root()) {
    const Twips side{195};  // as the system draws it at 96 DPI
    chkBOX.move({{0}, {15}, side, side});
    const auto on = [this](auto& event, auto handler) {
        connections_.push_back(event.connect(std::move(handler)));
    };
    const auto passOn = [&](auto& event, const auto& raised) {
        on(event, [&raised](auto&... arguments) { attempt([&] { raised(arguments...); }); });
    };
    const auto passKeysOn = [&](Event<KeyEvent&>& event, const Event<int16_t&, int16_t&>& raised) {
        on(event, [&raised](KeyEvent& key) { attempt([&] { raised(key.code, key.shift); }); });
    };
    const auto passMouseOn = [&](Event<const MouseEvent&>& event, const MouseRaised& raised) {
        on(event, [this, &raised](const MouseEvent& mouse) {
            attempt([&] { MouseArguments::inTwips(mouse, root().dpi()).raise(raised); });
        });
    };
    passOn(chkBOX.clicked, Click);
    passKeysOn(chkBOX.keyWentDown, KeyDown);
    passOn(chkBOX.characterTyped, KeyPress);
    passKeysOn(chkBOX.keyWentUp, KeyUp);
    passMouseOn(chkBOX.mousePressed, MouseDown);
    passMouseOn(chkBOX.mouseMoved, MouseMove);
    passMouseOn(chkBOX.mouseReleased, MouseUp);
}

void GridCheck::SetBackColor(OleColour BackColor) {
    chkBOX.setBackColour(BackColor);
    PropertyChanged<&GridCheck::BackColor>();
}

void GridCheck::SetValue(int16_t Value) {
    chkBOX.setValue(Value);
    PropertyChanged<&GridCheck::Value>();
}

void GridCheck::SetEnabled(bool Enabled) {
    chkBOX.setEnabled(Enabled);
    PropertyChanged<&GridCheck::Enabled>();
}

void GridCheck::resize() {
    // What centres a box of the default size, its edges counted in.
    chkBOX.setLeft(0.5 * (width() - Twips{97} - Twips{60}));
}

}  // namespace obk
