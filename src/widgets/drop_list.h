// A field that shows one of a list of texts; a press or a key drops the list down to choose from.
#pragma once

#include "base/event.h"
#include "widgets/font_holder.h"
#include "widgets/key_claims.h"
#include "widgets/list_panel.h"

#include <vector>

namespace obk {

constexpr KeyClaim dropListKeys[] = {
    typedCharacters(u"choose the next item that begins so"),
    {key::left, key::down, shifts::none, u"choose an item"},
    {key::end, key::home, shifts::none, u"choose an item"},
    keyClaim(key::f4, shifts::none, u"opens the list, or chooses in it"),
    keyClaim(key::up, shifts::alt, u"opens the list, or chooses in it"),
    keyClaim(key::down, shifts::alt, u"opens the list, or chooses in it"),
};
// While the list is open, beside those.
constexpr KeyClaim openListKeys[] = {
    {key::pageUp, key::pageDown, shifts::none, u"walk through the list"},
    keyClaim(key::enter, shifts::none, u"chooses in it"),
    keyClaim(key::escape, shifts::none, u"closes it"),
};

class DropList final : public Widget {
public:
    // `name` is for screen readers; without one it is called as what it is in.
    explicit DropList(Container& parent, Text name = {});

    void add(TextView item);
    // False, and nothing changed, for a position that the list does not have. What is shown stays.
    bool remove(int32_t item);
    void clear();
    const std::vector<Text>& items() const { return items_; }
    int32_t count() const { return static_cast<int32_t>(items_.size()); }
    // The position of the item that is shown; -1 for none.
    int32_t selected() const { return selected_; }
    // False, and nothing changed, for a position that the list does not have. Raises nothing.
    bool select(int32_t item);
    // Shows a text, as an item if the list has it.
    void show(TextView text);
    const Text& text() const { return text_; }
    // Offers the list as a menu.
    void open();
    void setLook(Look look);
    void setBackColour(OleColour colour);
    void setForeColour(OleColour colour);
    void setFont(FontRef font) { font_.set(std::move(font)); }

    bool listOpen() const { return panel_.open(); }
    // Without a choice.
    void closeList() { panel_.hide(); }

    bool hasFocus() const;
    bool takeFocus() override;
    Widget* focused() override { return hasFocus() ? this : nullptr; }

    void paint(Canvas& canvas, const PixelRect& bounds) override;
    void mouse(const MouseEvent& event) override;
    // Arrows, Home and End choose an item, what is typed the next one that begins so; F4 and Alt with an
    // arrow open the list. In an open one they mark, as the Page keys do, and F4, Alt with an arrow, Enter
    // and Tab choose what is marked.
    void keyDown(KeyEvent& event) override;
    void keyUp(KeyEvent& event) override { keyWentUp(event); }
    int16_t keyPress(int16_t character) override;
    void focusCameBelow() override { invalidate(); }
    void focusWentBelow() override;
    bool wheel(const WheelEvent& event) override { return panel_.open() && panel_.view().wheel(event); }
    void detach() override;
    void placed() override;
    bool accessibleWhole() const override { return true; }
    AccessibleItem accessible(AccessiblePart part) const override;
    void useAccessible(AccessiblePart part, const AccessibleAction& action) override;

    Event<> pressed;  // by the mouse, before the list opens
    Event<> chosen;   // by the user, the item that is shown already among them
    // Listeners may set `code` or the character to 0: the list then does nothing with it.
    Event<KeyEvent&> keyWentDown, keyWentUp;
    Event<int16_t&> characterTyped;

private:
    void hover(bool inside);
    void takeMarked();
    bool keyInList(const KeyEvent& event);
    // What typing and walking is about: the marked item of an open list.
    int32_t at() const { return panel_.open() ? panel_.view().marked() : selected_; }
    void goTo(int32_t item);
    void choose(int32_t item);
    void find(char16_t typed);

    Text name_;
    std::vector<Text> items_;
    int32_t selected_ = -1;
    Text text_;
    Text typed_;           // since the last pause
    int32_t typedAt_ = 0;  // in ticks of the clock
    Look look_ = Look::flat;
    OleColour backColour_{SystemColour::window}, foreColour_{SystemColour::windowText};
    FontHolder font_;
    bool hot_ = false;
    ListPanel panel_;
    Connection picked_, closed_;
};

}  // namespace obk
