#include "updown/up_down_text_box.h"

#include "platform/headless/headless_text_box.h"
#include "support/control_fixture.h"

#include <limits>

namespace obk::test {
namespace {

using namespace std::chrono_literals;
using headless::HeadlessTextBox;

// Points of the control at 96 DPI and its default size, 81 x 21 pixels.
constexpr PixelPoint inText{20, 10}, onUp{70, 5}, onDown{70, 15}, outside{-20, 5};

class UpDownTextBoxTest : public ControlFixture {
protected:
    void SetUp() override { placeFresh(); }
    void placeFresh() {
        place(UpDownTextBox::memberTable());
        put(u"Interval", 1.0);
        host.take();
    }
    // With a window, and the keyboard in it.
    void edit() {
        activate();
        ASSERT_TRUE(control->focus());
        host.take();
    }
    void setText(const char16_t* text) {
        put(u"Text", Text(text));
        host.take();
    }
    NativeWindow window() const { return control->window(); }
    HeadlessTextBox& textWindow(PixelPoint at = inText) const {
        return dynamic_cast<HeadlessTextBox&>(*platform.surface(window())->childAt(at));
    }
    void mouse(MouseEvent::Kind kind, PixelPoint at, int16_t mouseButton = button::left) {
        platform.mouse(window(), {kind, mouseButton, 0, at});
    }
    void press(PixelPoint at) { mouse(MouseEvent::Kind::down, at); }
    void letGo(PixelPoint at) { mouse(MouseEvent::Kind::up, at); }
    void drag(PixelPoint to) { mouse(MouseEvent::Kind::move, to); }
    void wheel(int32_t delta, PixelPoint at = onUp) { platform.wheel(window(), {delta, false, 0, at}); }
    // What the host hears of a key, and last the text that it leaves.
    Journal pressed(int16_t code, int16_t shift = 0) {
        platform.pressKey(code, shift);
        Journal told = host.takeEvents();
        told.push_back(text(u"Text"));
        return told;
    }
    std::string typed(TextView keys) {
        platform.type(keys);
        return text(u"Text");
    }
    // An answer of the host's to every KeyDown.
    void hostMakesKeys(const Value& code) {
        host.on["KeyDown"] = [code](std::span<Value> arguments) { arguments[0] = code; };
    }
    // Lines like "UpClick" or "KeyPress 0".
    Journal events(const std::string& start) {
        Journal found = host.take();
        std::erase_if(found, [&](const std::string& line) { return line.find(start) != 0; });
        return found;
    }
    std::vector<AccessibleItem> items() const { return everyItem(*platform.surface(window())); }
};

TEST_F(UpDownTextBoxTest, ArrowAndPageKeysStepBeforeTheHostSeesThem) {
    put(u"AllowArrowKeys", false);  // is about the spinner only
    setText(u"9");
    edit();
    EXPECT_EQ(pressed(key::up), (Journal{"DownClick", "Change", "KeyDown 38 0", "KeyUp 38 0", "10"}));
    EXPECT_EQ(pressed(key::pageUp),
              (Journal{"DownClick", "Change", "Change", "KeyDown 33 0", "KeyUp 33 0", "10"}));
    textWindow().setSelection({0, 2});
    EXPECT_EQ(pressed(key::down, shift::shift),
              (Journal{"UpClick", "Change", "KeyDown 40 1", "KeyUp 40 1", "9"}));
    EXPECT_EQ(textWindow().selection().length, 0);
    EXPECT_EQ(pressed(key::pageDown), (Journal{"UpClick", "Change", "KeyDown 34 0", "KeyUp 34 0", "8"}));
    // What it does not claim it leaves alone, also where no host takes it.
    platform.pressKey(key::up, shift::alt);
    platform.pressKey(key::pageUp, shift::control);
    EXPECT_EQ(text(u"Text"), "8");
}

TEST_F(UpDownTextBoxTest, AStepAddsTheIntervalInThePatternOfTheField) {
    struct Row {
        const char16_t* text;
        double interval;
        const char *whole, *onePlace;
    };
    edit();
    put(u"Max", 2000);
    put(u"Min", -2000);
    // What is no number stays, and so does one whose sum is none.
    for (const Row& row :
         {Row{u"9", 1, "10", "10.0"}, Row{u"1", 0.25, "1", "1.3"}, Row{u"1", -0.25, "1", "0.8"},
          Row{u"0.5", 0, "1", "0.5"}, Row{u"-0.5", 0, "-1", "-0.5"}, Row{u"0.5", -0.54, "0", "0.0"},
          Row{u"1,234", 1, "1235", "1235.0"}, Row{u" 7 ", 1, "8", "8.0"}, Row{u"1e3", -1, "999", "999.0"},
          Row{u"0.1", 0.2, "0", "0.3"}, Row{u"99.95", 0, "100", "100.0"}, Row{u"", 1, "", ""},
          Row{u"1.2.3", 1, "1.2.3", "1.2.3"}, Row{u"ten", 1, "ten", "ten"},
          Row{u"1", std::numeric_limits<double>::quiet_NaN(), "1", "1"}}) {
        for (const bool decimals : {false, true}) {
            for (const int16_t code : {key::up, key::down}) {
                setText(row.text);
                put(u"AllowDecpoint", decimals);
                put(u"Interval", code == key::up ? row.interval : -row.interval);
                EXPECT_EQ(pressed(code).back(), decimals ? row.onePlace : row.whole)
                    << toUtf8(row.text) << " by " << row.interval << ", key " << code;
            }
        }
    }
}

TEST_F(UpDownTextBoxTest, StepsAreHeldAtTheBoundAheadOnly) {
    struct Row {
        const char16_t* text;
        double interval;
        int16_t key;
        const char* result;
    };
    edit();
    put(u"Min", -5);
    put(u"AllowDecpoint", true);
    for (const Row& row : {Row{u"-4.8", 0.5, key::down, "-5.0"}, Row{u"20", 1, key::down, "19.0"},
                           Row{u"20", 1, key::up, "10.0"}, Row{u"-20", 1, key::up, "-19.0"},
                           Row{u"1e308", -1e308, key::down, "1e308"}}) {
        setText(row.text);
        put(u"Interval", row.interval);
        EXPECT_EQ(pressed(row.key).back(), row.result) << toUtf8(row.text) << " by " << row.interval;
    }
    place(UpDownTextBox::memberTable());
    edit();
    textWindow().setSelection({0, 1});
    EXPECT_EQ(pressed(key::up).back(), "1") << "a freshly placed control has no interval yet";
    EXPECT_EQ(textWindow().selection().length, 0);
}

TEST_F(UpDownTextBoxTest, KeyLockKeepsDigitsBackspaceAndOnePoint) {
    for (const TextView before : {u"", u"1,5\x3002", u"12.5", u".", u"a.b.c"}) {
        const bool hasPoint = before.find(u'.') != Text::npos;
        EXPECT_EQ(call(u"DecimalpointCheck", {Text(before)}), Value(int32_t{hasPoint}));
        for (const bool points : {false, true}) {
            const std::string kept = std::string("0123456789\b") + (points && !hasPoint ? "." : "");
            // Also what would be a digit or a point if only its low byte counted.
            for (int32_t code = -1000; code <= 1000; ++code) {
                const bool keeps = code > 0 && code < 256 && kept.find(static_cast<char>(code)) != Text::npos;
                ASSERT_EQ(call(u"KeyLock", {code, points, Text(before)}),
                          Value(static_cast<uint8_t>(keeps ? code : 0)))
                    << code << " after " << toUtf8(before);
            }
        }
    }
}

TEST_F(UpDownTextBoxTest, ShiftColorLowersRedAndGreenByFourAfterClampingAndBlueNot) {
    struct Row {
        uint32_t colour;
        int32_t amount;
        bool isXp;
        int32_t shifted;
    };
    // Where red or green would be negative, all is 0. What leaves 32 bits is a failed statement, and its
    // channel stays 0. Negative colours are taken apart as such.
    for (const auto& [colour, amount, isXp, shifted] :
         {Row{0, 50, false, 0}, Row{0xFAFAFA, 20, false, 0xFFFBFB}, Row{0x80FFFF, -97, false, 0x1F9A9A},
          Row{0x01FFFF, -5, false, 0x00F6F6}, Row{0x606464, 0, true, 0x606060},
          Row{0x606464, 48, true, 0x789090}, Row{0x80FFFF, -97, true, 0x409A9A}, Row{0x04FF03, 0, false, 0},
          Row{0x0403FF, 0, false, 0}, Row{0x640000, INT32_MAX, false, 0x00FBFB},
          Row{0x000064, INT32_MAX, false, 0}, Row{0x006400, INT32_MAX, false, 0},
          Row{0xFE0000, 8421505, true, 0xFFFBFB}, Row{0xFF0000, 8421505, true, 0x00FBFB},
          Row{0x80606464, 200, false, 0x2929FB}, Row{0x80606464, 200, true, 0x0029FB},
          Row{0xFF0A0A0A, 250, false, 0x0501FB}})
        EXPECT_EQ(call(u"ShiftColor", {static_cast<int32_t>(colour), amount, isXp}), Value(shifted))
            << std::hex << colour << std::dec << " by " << amount << (isXp ? " XP" : "");
}

TEST_F(UpDownTextBoxTest, TypingIsFilteredByTheWholeText) {
    setText(u"");
    edit();
    EXPECT_EQ(typed(u"1.-a, 2\b3"), "13");
    EXPECT_EQ(events("KeyPress"),
              (Journal{"KeyPress 49", "KeyPress 0", "KeyPress 0", "KeyPress 0", "KeyPress 0", "KeyPress 0",
                       "KeyPress 50", "KeyPress 8", "KeyPress 51"}));
    put(u"AllowDecpoint", true);
    EXPECT_EQ(typed(u"..5"), "13.5");
    textWindow().setSelection({0, 4});
    EXPECT_EQ(typed(u"."), "13.5") << "the selected point still counts";
    EXPECT_EQ(typed(u"7."), "7.");
    put(u"MaxLength", 3);
    EXPECT_EQ(typed(u"123"), "7.1");
    put(u"Text", Text(u"12345"));
    EXPECT_EQ(text(u"Text"), "123") << "a host's text is cut";
}

TEST_F(UpDownTextBoxTest, EditingCommandsWorkThoughTheirCharactersAreFiltered) {
    setText(u"12");
    edit();
    platform.pressKey('A', shift::control);
    platform.pressKey('C', shift::control);
    EXPECT_EQ(platform.clipboard(), u"12");
    EXPECT_EQ(events("KeyPress"), (Journal{"KeyPress 0", "KeyPress 0"}));
    platform.setClipboard(u"3.x");
    platform.pressKey('V', shift::control);
    EXPECT_EQ(events("Change").size(), 1u);
    EXPECT_EQ(text(u"Text"), "3.x") << "only what is typed is filtered";
    EXPECT_EQ(pressed('Z', shift::control).back(), "12");
    hostMakesKeys(int16_t{0});
    EXPECT_EQ(pressed('V', shift::control).back(), "12") << "the host has taken the key away";
}

TEST_F(UpDownTextBoxTest, TheHostChangesOrDiscardsKeysAndCharacters) {
    setText(u"");
    edit();
    host.on["KeyPress"] = [](std::span<Value> arguments) {
        const auto code = std::get<int16_t>(arguments[0]);
        arguments[0] = static_cast<int16_t>(code == '1' ? 0 : code == '2' ? 'x' : code);
    };
    EXPECT_EQ(typed(u"123"), "x3");
    hostMakesKeys(int16_t{0});
    EXPECT_EQ(typed(u"5"), "x3");
    hostMakesKeys(Text(u"nonsense"));
    EXPECT_EQ(typed(u"6"), "x36") << "an answer of another type is none";
}

TEST_F(UpDownTextBoxTest, DialogKeysAreOfferedToTheContainerFirst) {
    edit();
    for (const int16_t code : {key::tab, key::enter, key::escape}) {
        const std::string number = std::to_string(code);
        host.takesKeys = true;
        platform.pressKey(code);
        EXPECT_EQ(host.take(), (Journal{"offered " + number, "KeyUp " + number + " 0"}));
        host.takesKeys = false;
        platform.pressKey(code);
        EXPECT_EQ(host.take(), (Journal{"offered " + number, "KeyDown " + number + " 0", "KeyPress 0",
                                        "KeyUp " + number + " 0"}));
    }
    platform.pressKey('5');
    EXPECT_EQ(events("offered"), Journal{});
}

TEST_F(UpDownTextBoxTest, LeavingTheTextBoxWritesThePatternAndLeavingTheControlOneDecimal) {
    struct Row {
        const char16_t* text;
        int32_t min, max;
        bool decimals;
        const char* inside;  // the focus went to the surface
        const char* away;    // the focus left the control
    };
    edit();
    // Max is first, then Min.
    for (const Row& row :
         {Row{u"15", 0, 10, false, "10", "10.0"}, Row{u"-1", 0, 10, false, "0", "0.0"},
          Row{u"10", 0, 10, true, "10", "10"}, Row{u"9.99", 0, 10, false, "9.99", "9.99"},
          Row{u"-5", -5, 10, true, "-5", "-5"}, Row{u"-5.1", -5, 10, false, "-5", "-5.0"},
          Row{u"10.0001", 0, 10, false, "10", "10.0"}, Row{u"1,001", 0, 1000, true, "1000.0", "1000.0"},
          Row{u"-20", -30, 10, false, "-20", "-20"},
          Row{u"-99999999999", INT32_MIN, 10, true, "-2147483648.0", "-2147483648.0"},
          Row{u"", 5, -1, false, "", ""}, Row{u"many", 5, -1, false, "many", "many"},
          Row{u"15", 12, 10, false, "12", "12"}}) {
        put(u"Min", row.min);
        put(u"Max", row.max);
        put(u"AllowDecpoint", row.decimals);
        ASSERT_TRUE(control->focus());
        setText(row.text);
        platform.setFocus(window());
        EXPECT_EQ(text(u"Text"), row.inside) << toUtf8(row.text);
        EXPECT_EQ(events("focus"), Journal{}) << "still inside";
        setText(row.text);
        platform.setFocus(0);
        EXPECT_EQ(text(u"Text"), row.away) << toUtf8(row.text);
        const Journal told = host.take();
        EXPECT_EQ(told.front(), row.away == toUtf8(row.text) ? "focus out" : "Change") << toUtf8(row.text);
        EXPECT_EQ(std::ranges::count(told, "focus out"), 1);
    }
}

TEST_F(UpDownTextBoxTest, EnablingDiscardsTheBackColour) {
    for (const bool enabled : {false, true, true}) {
        put(u"BackColor", OleColour(0x123456u));
        put(u"Enabled", enabled);
        EXPECT_EQ(get(u"BackColor"), Value(OleColour(enabled ? 0x80000005u : 0xF7F7F7u)));
    }
}

TEST_F(UpDownTextBoxTest, ADisabledControlTakesNoFocus) {
    edit();
    put(u"Enabled", false);
    EXPECT_FALSE(control->focus());
    for (const AccessibleItem& item : parts(*platform.surface(window()), AccessibleItem::Role::button))
        EXPECT_TRUE(item.is(AccessibleItem::disabled));
    MemoryBag stored;
    control->save(stored);
    put(u"Enabled", true);
    control->load(stored);
    EXPECT_FALSE(control->focus()) << "nor one that is loaded so";
    put(u"Enabled", true);
    EXPECT_TRUE(control->focus());
    EXPECT_EQ(pressed(key::up).back(), "2");
}

TEST_F(UpDownTextBoxTest, LayoutInPixelsAtEveryScale) {
    struct Row {
        int32_t dpi, buddyAlignment;
        PixelSize size;
        PixelRect textBox, up;
        int32_t downBottom;
    };
    const Row rows[] = {{96, 0, {81, 21}, {2, 3, 59, 22}, {62, 2, 79, 10}, 19},
                        {96, 0, {81, 30}, {2, 8, 59, 27}, {62, 2, 79, 15}, 28},
                        {120, 1, {101, 26}, {25, 3, 96, 27}, {4, 2, 25, 13}, 24},
                        {144, 0, {122, 32}, {2, 4, 88, 32}, {94, 2, 120, 16}, 30},
                        {144, 0, {122, 45}, {2, 10, 88, 39}, {94, 2, 120, 22}, 43},
                        {192, 1, {162, 42}, {38, 4, 152, 42}, {4, 2, 38, 21}, 40}};
    activate();
    const auto expectLayout = [this](const Row& row) {
        SCOPED_TRACE(row.dpi);
        EXPECT_EQ(textWindow({row.textBox.left + 1, row.textBox.top + 1}).bounds(), row.textBox);
        ASSERT_EQ(items().size(), 4u);
        EXPECT_EQ(items()[1].bounds, row.up);
        EXPECT_EQ(items()[2].bounds, (PixelRect{row.up.left, row.up.bottom, row.up.right, row.downBottom}));
    };
    for (const Row& row : rows) {
        platform.setDpi(window(), Dpi(row.dpi));
        put(u"BuddyAlignment", row.buddyAlignment);
        control->setBounds({10, 10, 10 + row.size.width, 10 + row.size.height});
        expectLayout(row);
        call(u"Refresh");
        call(u"RefreshFont");
        expectLayout(row);
    }
    // What is left of a width that leaves no room for the text box beside the spinner.
    platform.setDpi(window(), Dpi(96));
    put(u"BuddyAlignment", 0);
    control->setBounds({0, 0, 25, 21});
    EXPECT_EQ(textWindow({2, 5}).bounds().width(), 1);
    control->setBounds({0, 0, 24, 21});
    EXPECT_EQ(textWindow({2, 5}).bounds().width(), 1) << "360 twips leave the width as it was";
    control->setBounds({0, 0, 0, 0});
    control->setBounds({0, 0, 81, 21});
    expectLayout(rows[0]);
}

TEST_F(UpDownTextBoxTest, APressOnAButtonFocusesReportsAndSteps) {
    activate();
    press(onUp);
    EXPECT_EQ(host.take(), (Journal{"focus in", "MouseDown 1 0 990 45", "DownClick", "Change"}));
    EXPECT_EQ(platform.focus(), textWindow().id());
    EXPECT_TRUE(items()[1].is(AccessibleItem::pressed));
    letGo(onUp);
    EXPECT_FALSE(items()[1].is(AccessibleItem::pressed));
    click(onDown);
    EXPECT_EQ(host.take(), (Journal{"MouseDown 1 0 990 195", "UpClick", "Change"}));
    mouse(MouseEvent::Kind::down, onUp, button::right);
    EXPECT_EQ(host.take(), Journal{"MouseDown 2 0 990 45"}) << "only the left button steps";
    mouse(MouseEvent::Kind::doubleClick, onUp);
    EXPECT_EQ(host.take(), (Journal{"MouseDown 1 0 990 45", "DownClick", "Change"}))
        << "the second press of a quick pair is one like any other";
    letGo(onUp);
    EXPECT_EQ(platform.capture(), 0u);
    host.on["MouseDown"] = [this](auto) { put(u"Enabled", false); };
    press(onUp);
    EXPECT_EQ(text(u"Text"), "2") << "the host has disabled it";
    EXPECT_EQ(platform.capture(), 0u);
}

TEST_F(UpDownTextBoxTest, AHeldButtonRepeatsAfterADelayWhileTheMouseIsOnIt) {
    put(u"Max", 1000);
    activate();
    const auto after = [this](std::chrono::milliseconds time) {
        platform.advance(time);
        return text(u"Text");
    };
    press(onUp);
    EXPECT_EQ(after(499ms), "2");
    EXPECT_EQ(after(1ms), "3");
    EXPECT_EQ(after(100ms), "5");
    for (const PixelPoint away : {outside, onDown, inText}) {
        drag(away);
        EXPECT_EQ(after(1s), "5") << "dragged away";
    }
    drag(onUp);
    EXPECT_EQ(after(96ms), "13") << "four times as often after two seconds";
    letGo(outside);
    EXPECT_EQ(after(10s), "13");
    press(onUp);
    EXPECT_EQ(after(550ms), "16") << "each press begins anew";
}

TEST_F(UpDownTextBoxTest, AButtonAtItsBoundLooksDisabledAndActs) {
    activate();
    const auto inks = [this] {
        std::vector<Rgb> colours;
        for (const size_t button : {1, 2}) {
            const PixelRect place = items()[button].bounds;
            EXPECT_FALSE(items()[button].is(AccessibleItem::disabled));
            colours.push_back(platform.surface(window())->paint().colourAt(
                {(place.left + place.right) / 2, (place.top + place.bottom) / 2}));
        }
        return colours;
    };
    const Rgb live = system(SystemColour::buttonText), grey = system(SystemColour::greyText);
    for (const auto& [value, up, down] : {std::tuple(u"10", grey, live),
                                          {u"0", live, grey},
                                          {u"5", live, live},
                                          {u"12", grey, live},
                                          {u"", live, live}}) {
        put(u"Text", Text(value));
        EXPECT_EQ(inks(), (std::vector{up, down})) << toUtf8(value);
    }
    put(u"Text", Text(u"5"));
    put(u"Max", 5);
    put(u"Min", 5);
    EXPECT_EQ(inks(), (std::vector{grey, grey}));
    host.take();
    click(onUp);
    EXPECT_EQ(host.takeEvents(), (Journal{"MouseDown 1 0 990 45", "DownClick", "Change", "Change"}));
}

TEST_F(UpDownTextBoxTest, AllIsSelectedWhereKeysEnterAndNotWhereTheMouseDoes) {
    setText(u"10");
    edit();
    platform.type(u"7");
    EXPECT_EQ(text(u"Text"), "7");
    for (const PixelPoint at : {inText, onDown}) {
        platform.setFocus(0);
        setText(u"9");
        click(at);
        EXPECT_EQ(textWindow().selection().length, 0);
    }
}

TEST_F(UpDownTextBoxTest, WhateverEndsAPressEndsTheRepeating) {
    put(u"Max", 1000);
    const std::pair<const char*, std::function<void()>> ends[] = {
        {"released", [this] { letGo(onUp); }},
        {"capture stolen", [this] { platform.stealCapture(); }},
        {"disabled", [this] { put(u"Enabled", false); }},
        {"deactivated", [this] { control->deactivate(); }},
        {"without room", [this] { control->setBounds(PixelRect()); }},
        {"destroyed", [this] { release(); }},
    };
    for (const auto& [how, end] : ends) {
        placeFresh();
        activate();
        press(onUp);
        platform.advance(550ms);
        ASSERT_EQ(text(u"Text"), "4") << how;
        end();
        platform.advance(10s);
        EXPECT_EQ(platform.capture(), 0u) << how;
        if (!control) continue;
        EXPECT_EQ(text(u"Text"), "4") << how;
        control->deactivate();
    }
    EXPECT_EQ(platform.timerCount(), 0u);
}

TEST_F(UpDownTextBoxTest, TheWheelStepsByWholeNotchesWhereItMay) {
    activate();
    for (const PixelPoint at : {onUp, onDown, inText}) {
        setText(u"5");
        // Another direction begins anew.
        for (const auto& [delta, left] :
             {std::pair(60, "5"), {60, "6"}, {-100, "6"}, {50, "6"}, {-100, "6"}, {-140 - 120, "3"}}) {
            wheel(delta, at);
            EXPECT_EQ(text(u"Text"), left) << delta;
        }
        platform.wheel(window(), {1200, true, 0, at});
        EXPECT_EQ(text(u"Text"), "3") << "sideways";
    }
    host.on["DownClick"] = [this](auto) { put(u"Enabled", false); };
    wheel(360);
    EXPECT_EQ(text(u"Text"), "4") << "disabled at the first of three notches";
    put(u"Enabled", true);
    put(u"AllowArrowKeys", false);
    wheel(1200);
    wheel(1200, inText);
    EXPECT_EQ(text(u"Text"), "4");
}

TEST_F(UpDownTextBoxTest, TheMouseInTheTextIsReportedInTwips) {
    activate();
    platform.click(window(), {12, 13});
    letGo({12, 13});  // of a press that began elsewhere
    EXPECT_EQ(host.takeEvents(), (Journal{"MouseMove 0 0 150 150", "MouseDown 1 0 150 150",
                                          "MouseUp 1 0 150 150", "Click", "MouseUp 1 0 150 150"}));
    press({12, 13});
    platform.setDpi(window(), Dpi(192));
    host.take();
    letGo(outside);
    EXPECT_EQ(events("Click"), Journal{}) << "let go outside";
    mouse(MouseEvent::Kind::move, {12, 14});
    EXPECT_EQ(host.takeEvents().back(), "MouseMove 1 0 75 75");
    mouse(MouseEvent::Kind::doubleClick, {12, 14});
    EXPECT_EQ(host.takeEvents(), Journal{"DblClick"});
}

TEST_F(UpDownTextBoxTest, WhatTheHostSetsInsideAStepCounts) {
    edit();
    host.on["Change"] = [this](auto) { put(u"Text", Text(u"5")); };
    platform.pressKey(key::up);
    EXPECT_EQ(host.take(), (Journal{"DownClick", "Change", "Change", "changed Text", "changed Text",
                                    "KeyDown 38 0", "KeyUp 38 0"}));
    EXPECT_EQ(typed(u"9"), "5");
    // A host that never comes to rest is its own fault, but one that counts on is not.
    host.on["Change"] = [this](auto) {
        if (const auto length = std::get<Text>(get(u"Text")).size(); length < 50)
            put(u"Text", Text(length + 1, u'1'));
    };
    put(u"Text", Text(u"1"));
    EXPECT_EQ(std::get<Text>(get(u"Text")).size(), 50u);
    host.on.clear();
    host.on["DownClick"] = [this](auto) {
        put(u"Text", Text(u"3"));
        put(u"Interval", 2.0);
        put(u"AllowDecpoint", true);
    };
    EXPECT_EQ(pressed(key::up).back(), "5.0");
}

TEST_F(UpDownTextBoxTest, WindowsComeAndGoWithoutLosingTextOrSelection) {
    setText(u"1234");
    put(u"Max", 9999);
    edit();
    textWindow().setSelection({1, 2});
    control->deactivate();
    EXPECT_EQ(platform.windowCount(), 0u);
    EXPECT_EQ(host.take().back(), "focus out");
    activate();
    EXPECT_EQ(textWindow().selection(), (TextSelection{1, 2}));
    click(inText);
    EXPECT_EQ(typed(u"0"), "104");
    control->deactivate();
    put(u"Text", Text(u"77"));
    // A handle that is asked for early is the one that is activated.
    const NativeWindow early = window();
    EXPECT_NE(early, 0u);
    EXPECT_FALSE(control->active());
    activate();
    EXPECT_EQ(window(), early);
    EXPECT_EQ(textWindow().selection(), (TextSelection{0, 0})) << "a set text is not selected";
    control->focus();
    EXPECT_EQ(pressed(key::up).back(), "78");
}

TEST_F(UpDownTextBoxTest, ASystemWithoutWindowsIsBorne) {
    platform.refuseWindows(true);
    EXPECT_FALSE(control->activate(1000, {0, 0, 81, 21}));
    EXPECT_FALSE(control->active());
    EXPECT_EQ(control->window(), 0u);
    EXPECT_FALSE(control->focus());
    put(u"Text", Text(u"3"));
    EXPECT_EQ(text(u"Text"), "3");
    platform.refuseWindows(false);
    activate();
    EXPECT_TRUE(control->focus());
}

}  // namespace
}  // namespace obk::test
