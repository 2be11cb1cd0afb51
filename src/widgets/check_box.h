// A check box without a caption, whose mark and look are kept here; its window exists while the control is
// active.
#pragma once

#include "base/attempt.h"
#include "base/event.h"
#include "widgets/check_box_peer.h"
#include "widgets/widget.h"

#include <memory>

namespace obk {

class CheckBox final : public Widget, private CheckBoxClient {
public:
    explicit CheckBox(Container& parent);
    ~CheckBox() override;

    int16_t value() const { return checked_ ? 1 : 0; }
    // 0 unchecked, 1 checked. False, and nothing changed, for any other number. Not a click.
    bool setValue(int16_t value);
    OleColour backColour() const { return backColour_; }
    void setBackColour(OleColour colour);

    bool hasFocus() const;
    bool takeFocus() override;
    Widget* focused() override { return hasFocus() ? this : nullptr; }

    void paint(Canvas& canvas, const PixelRect& bounds) override;
    void attach(SurfacePeer& peer) override;
    void detach() override;
    void placed() override;
    void appearanceChanged() override { showColours(); }

    // A person has turned the mark over.
    Event<> clicked;
    Event<KeyEvent&> keyWentDown, keyWentUp;
    // A listener that sets the character to 0 discards it.
    Event<int16_t&> characterTyped;
    Event<const MouseEvent&> mousePressed, mouseMoved, mouseReleased;

private:
    std::shared_ptr<void> keepAlive() override { return Widget::keepAlive(); }
    void mouse(const MouseEvent& event) override;
    bool wheel(const WheelEvent&) override { return false; }
    void keyDown(KeyEvent& event) override { keyWentDown(event); }
    void keyUp(KeyEvent& event) override { keyWentUp(event); }
    int16_t keyPress(int16_t character) override;
    void focusGained() override;
    void focusLost() override;
    KeyRoute preTranslate(const KeyEvent& event) override;
    bool offerToContainer(const KeyEvent& event) override;
    void checkPressed() override;

    // Something of the window, where there is one.
    template <typename Statement>
    void ask(Statement&& statement, Place place = Place::here()) const {
        if (peer_) attempt(std::forward<Statement>(statement), place);
    }
    void showColours();

    bool checked_ = false;
    OleColour backColour_{SystemColour::buttonFace};
    std::unique_ptr<CheckBoxPeer> peer_;
};

}  // namespace obk
