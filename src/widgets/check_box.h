// A check box without a caption, whose mark and look are kept here.
#pragma once

#include "base/event.h"
#include "widgets/check_box_peer.h"
#include "widgets/child_widget.h"
#include "widgets/key_claims.h"

#include <memory>

namespace obk {

constexpr KeyClaim checkBoxKeys[] = {keyClaim(key::space, shifts::none, u"checks, or takes the mark away")};

class CheckBox final : public ChildWidget<CheckBoxClient, CheckBoxPeer> {
public:
    explicit CheckBox(Container& parent);
    ~CheckBox() override;

    int16_t value() const { return checked_ ? 1 : 0; }
    // 0 unchecked, 1 checked. False, and nothing changed, for any other number. Not a click.
    bool setValue(int16_t value);
    OleColour backColour() const { return backColour_; }
    void setBackColour(OleColour colour);

    void paint(Canvas& canvas, const PixelRect& bounds) override;
    bool accessibleWhole() const override { return true; }
    AccessibleItem accessible(AccessiblePart part) const override;
    void useAccessible(AccessiblePart part, const AccessibleAction& action) override;

    // A person has turned the mark over.
    Event<> clicked;
    Event<KeyEvent&> keyWentDown, keyWentUp;
    // A listener that sets the character to 0 discards it.
    Event<int16_t&> characterTyped;
    Event<const MouseEvent&> mousePressed, mouseMoved, mouseReleased;

private:
    std::unique_ptr<ChildPeer> createPeer(SurfacePeer& surface, const ChildPlacement& placement) override;
    void windowMade() override;
    void showColours() override;
    void mouse(const MouseEvent& event) override;
    bool wheel(const WheelEvent& event) override { return wheelAround(event); }
    void keyDown(KeyEvent& event) override { keyWentDown(event); }
    void keyUp(KeyEvent& event) override { keyWentUp(event); }
    int16_t keyPress(int16_t character) override;
    void checkPressed() override;

    bool checked_ = false;
    OleColour backColour_{SystemColour::buttonFace};
};

}  // namespace obk
