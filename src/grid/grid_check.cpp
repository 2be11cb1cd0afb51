#include "grid/grid_check.h"

#include <utility>

namespace obk {

GridCheck::GridCheck(Platform& platform) : Control(platform), chkBOX(root()) {
    const Twips side{195};  // as the system draws it at 96 DPI
    chkBOX.move({{0}, {15}, side, side});
    const auto on = [this](auto& event, auto handler) {
        connections_.push_back(event.connect(std::move(handler)));
    };
    on(chkBOX.clicked, [this] { Click(); });
    on(chkBOX.keyWentDown, [this](KeyEvent& event) { KeyDown(event.code, event.shift); });
    on(chkBOX.characterTyped, [this](int16_t& character) { KeyPress(character); });
    on(chkBOX.keyWentUp, [this](KeyEvent& event) { KeyUp(event.code, event.shift); });
    on(chkBOX.mousePressed, [this](const MouseEvent& event) { raiseMouse(MouseDown, event); });
    on(chkBOX.mouseMoved, [this](const MouseEvent& event) { raiseMouse(MouseMove, event); });
    on(chkBOX.mouseReleased, [this](const MouseEvent& event) { raiseMouse(MouseUp, event); });
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
    // What centres a box of the usual size, its edges counted in.
    chkBOX.setLeft(0.5 * (width() - Twips{97} - Twips{60}));
}

void GridCheck::raiseMouse(const Event<int16_t&, int16_t&, float&, float&>& event, const MouseEvent& mouse) {
    int16_t mouseButton = mouse.button;
    int16_t shiftState = mouse.shift;
    const Dpi dpi = root().dpi();
    auto x = static_cast<float>(dpi.toTwips(mouse.at.x).value);
    auto y = static_cast<float>(dpi.toTwips(mouse.at.y).value);
    event(mouseButton, shiftState, x, y);
}

}  // namespace obk
