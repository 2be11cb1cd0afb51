// A single-line text edit whose text, selection and look are kept here.
#pragma once

#include "base/event.h"
#include "widgets/child_widget.h"
#include "widgets/font_holder.h"
#include "widgets/text_box_peer.h"

#include <memory>

namespace obk {

class TextBox final : public ChildWidget<TextBoxClient, TextBoxPeer> {
public:
    explicit TextBox(Container& parent);
    ~TextBox() override;

    const Text& text() const { return text_; }
    // Cut to the maximum length. An equal text changes nothing and is not notified; line breaks end the text.
    void setText(TextView text);
    TextSelection selection() const;
    // Clamped to the text; a negative start or length counts as 0.
    void setSelection(TextSelection selection);

    int32_t alignment() const { return static_cast<int32_t>(alignment_); }
    // 0 left, 1 right, 2 centre. False, and nothing changed, for any other number.
    bool setAlignment(int32_t alignment);
    int32_t maxLength() const { return maxLength_; }
    // 0 is no limit; does not shorten the present text. False, and nothing changed, for a negative number.
    bool setMaxLength(int32_t length);
    OleColour foreColour() const { return foreColour_; }
    void setForeColour(OleColour colour);
    OleColour backColour() const { return backColour_; }
    void setBackColour(OleColour colour);
    const FontRef& font() const { return font_.font(); }
    void setFont(FontRef font) { font_.set(std::move(font)); }
    // What it holds reads from left to right everywhere; to be said before it has a window.
    void setHoldsNumbers() { holdsNumbers_ = true; }
    // While `focusCame` is raised: whether keys or a host brought the focus from elsewhere in the form.
    bool enteredByKeys() const;
    // The text in the middle of the height above some room (pixels at 96 DPI); at first it is at the top.
    void centreAbove(int32_t room);

    void paint(Canvas& canvas, const PixelRect& bounds) override;
    void appearanceChanged() override;
    bool accessibleWhole() const override { return true; }
    AccessibleItem accessible(AccessiblePart part) const override;
    void useAccessible(AccessiblePart part, const AccessibleAction& action) override;

    Event<> fontChanged;
    Event<> changed;
    Event<KeyEvent&> keyWentDown;
    // A listener that sets the character to 0 discards it.
    Event<int16_t&> characterTyped;
    Event<KeyEvent&> keyWentUp;
    Event<const MouseEvent&> mousePressed, mouseMoved, mouseReleased;
    Event<> mouseLeft;
    Event<> clicked, doubleClicked;
    Event<> focusCame, focusWent;
    // The answer of the last listener counts; true says that the wheel was used.
    Event<const WheelEvent&, bool&> wheelTurned;
    // Likewise; true says that a menu was shown in place of the window's own.
    Event<std::optional<PixelPoint>, bool&> menuAsked;

private:
    std::unique_ptr<ChildPeer> createPeer(SurfacePeer& surface, const ChildPlacement& placement) override;
    void windowMade() override;
    void windowGoes() override;
    void showColours() override;
    PixelRect windowBounds(PixelRect bounds) const override;
    void mouse(const MouseEvent& event) override;
    bool wheel(const WheelEvent& event) override;
    bool contextMenu(std::optional<PixelPoint> at) override;
    void keyDown(KeyEvent& event) override;
    void keyUp(KeyEvent& event) override;
    int16_t keyPress(int16_t character) override;
    void focusGained() override;
    void focusLost() override;
    void textChanged(Text text) override;
    HorizontalAlignment horizontalAlignment() const;
    TextFlow windowFlow() const;
    bool mirrored() const;
    PixelPoint fromWindow(PixelPoint point) const;

    Text text_;
    TextSelection selection_;  // while there is no window
    FontHolder font_;
    OleColour foreColour_{SystemColour::windowText};
    OleColour backColour_{SystemColour::window};
    int32_t maxLength_ = 0;
    uint8_t alignment_ = 0;
    bool pressed_ = false;
    bool holdsNumbers_ = false;
    std::optional<int32_t> roomBelow_;  // none: at the top
};

}  // namespace obk
