#include "datecalendar/date_calendar.h"

#include "support/control_fixture.h"

#include <algorithm>

namespace obk::test {
namespace {

using Kind = MouseEvent::Kind;

constexpr PixelPoint icon{10, 10};
constexpr PixelPoint field{60, 10};
const std::string blanks(8, ' ');
// A text, and what becomes of it.
using Case = std::pair<const char16_t*, const char*>;
const Journal leftUnchanged{"FocusHidden", "FocusLost", "MouseUp 1 0 0 0"};

// Places in the panel, in pixels at 96 DPI.
constexpr PixelPoint monthList{40, 15}, yearMore{146, 11}, yearsBack{164, 17}, yearsOn{180, 17};
constexpr PixelPoint previousYear{16, 39}, previousMonth{36, 39}, nextMonth{158, 39}, nextYear{178, 39};
constexpr PixelPoint todayButton{35, 209}, clearButton{97, 209}, closeButton{159, 209};

// In the manual clock it is Saturday, 14 November 2026.
class DateCalendarTest : public ControlFixture {
protected:
    void SetUp() override {
        place(DateCalendar::memberTable());
        activate({100, 100, 241, 121});
        host.take();
    }
    std::string date() { return toUtf8(toText(get(u"Text")).value_or(u"?")); }
    NativeWindow surface() { return control->window(); }
    // The keyboard comes to the field.
    void enter() {
        ASSERT_TRUE(control->focus());
        host.take();
    }
    void enterOn(const char16_t* date) {
        put(u"Text", Text(date));
        enter();
    }
    // What the host hears of a key.
    Journal pressed(int16_t code, int16_t shift = 0) {
        host.take();
        platform.pressKey(code, shift);
        return host.take();
    }
    // What it hears when the focus goes.
    Journal left() {
        host.take();
        platform.setFocus(0);
        return host.takeEvents();
    }
    void openOn(const char16_t* date) {
        put(u"Text", Text(date));
        call(u"ShowPopUp");
        ASSERT_TRUE(open());
        host.take();
    }
    void press(PixelPoint at) {
        if (panel()) platform.click(panel()->id(), at);
    }
    // A press in the panel, let go elsewhere in it.
    void slip(PixelPoint from, PixelPoint to) {
        platform.mouse(panel()->id(), {Kind::down, button::left, 0, from});
        platform.mouse(panel()->id(), {Kind::up, button::left, 0, to});
    }
    void pressCell(int32_t cell) {
        const PixelRect rect = Dpi().toPixels(cellBounds(cell));
        press({rect.left + 5, rect.top + 5});
    }
    std::vector<AccessibleItem> days() { return parts(*panel(), AccessibleItem::Role::listItem); }
    // The chosen day with its month, as screen readers hear it: "14 November, 2026".
    std::string chosen() {
        for (const AccessibleItem& day : days()) {
            if (day.is(AccessibleItem::selected)) return toUtf8(day.name);
        }
        return "";
    }
    std::string month() {
        const auto shown = days();
        return shown.empty() ? "no days" : toUtf8(shown.front().name).substr(2);
    }
    // A line of a cell's pixels that no text or bar touches.
    Rgb fillOf(int32_t cell) {
        const PixelRect rect = Dpi().toPixels(cellBounds(cell));
        return panel()->paint().colourAt({rect.left + 3, rect.top + 3});
    }
    Rgb edgeOf(int32_t cell) {
        const PixelRect rect = Dpi().toPixels(cellBounds(cell));
        return panel()->paint().colourAt({rect.left, rect.top + 3});
    }
};

TEST_F(DateCalendarTest, TextIsTrimmedKeptAsItIsAndShownWithItsBlanks) {
    EXPECT_EQ(date(), blanks);
    for (const char16_t* given : {u"  Mon 2 Mar 2026 ", u"whenever", u"31 Feb 20267", u"", u"   "}) {
        put(u"Text", Text(given));
        EXPECT_EQ(host.take(), (Journal{"changed Text"}));
        EXPECT_EQ(date(), toUtf8(trimmed(given)) + blanks);
    }
    put(u"Text", Text(100000, u'9'));
    call(u"subNEWDATE");
    call(u"ShowPopUp");
    EXPECT_TRUE(open()) << "although it is no date";
    EXPECT_EQ(date(), std::string(100000, '9') + blanks);
}

TEST_F(DateCalendarTest, TheMenuWritesItsDatesAndTellsTheHost) {
    for (const auto& [line, written] :
         {std::pair<size_t, const char*>(0, "Sat 14 Nov 2026"), {1, "Sun 15 Nov 2026"}, {12, ""}}) {
        platform.answerMenu([at = line](auto, const auto&) { return std::optional(at); });
        host.on["DateUpdated"] = [&, after = written](std::span<Value>) {
            EXPECT_EQ(date(), after + blanks) << "known before it is told";
        };
        click(field, Kind::down, button::right);
        EXPECT_EQ(host.takeEvents(),
                  (Journal{"MouseDown 2 0 900 150", "MouseUp 2 0 900 150", "DateUpdated"}));
    }
}

TEST_F(DateCalendarTest, TheMenuStandsWhereItIsAskedForAndADisabledFieldHasNone) {
    int asked = 0;
    PixelRect place;
    platform.answerMenu([&](std::span<const MenuItem>, const PixelRect& beside) {
        ++asked;
        place = beside;
        return std::optional<size_t>();
    });
    click(icon, Kind::down, button::right);
    EXPECT_EQ(place, (PixelRect{110, 110, 110, 110}));
    enter();
    platform.pressKey(key::menu);
    EXPECT_EQ(place.bottom - place.top, 19) << "with the keys it drops from the field";
    put(u"Enabled", false);
    click(icon, Kind::down, button::right);
    EXPECT_EQ(asked, 2);
    const Journal events = host.takeEvents();
    EXPECT_EQ(std::count(events.begin(), events.end(), "FocusLost"), 1) << "with the disabling";
}

TEST_F(DateCalendarTest, LeavingCommitsWhatWasTypedInTheOrderHostsKnow) {
    enter();
    platform.type(u"soon");
    EXPECT_EQ(date(), blanks) << "not before the editing ends";
    EXPECT_EQ(left(), (Journal{"FocusHidden", "DateUpdated", "FocusLost", "MouseUp 1 0 0 0"}));
    EXPECT_EQ(date(), "soon" + blanks);
    // Also where the window is taken away.
    enter();
    platform.type(u"!");
    host.take();
    control->deactivate();
    EXPECT_EQ(host.takeEvents(), (Journal{"FocusHidden", "DateUpdated", "FocusLost", "MouseUp 1 0 0 0"}));
}

TEST_F(DateCalendarTest, LeftUntouchedTheFieldStoresNothingAndADateThatWasNoneIsNoneAgain) {
    const auto openAndEscape = [this] {
        platform.pressKey(key::f4);
        platform.pressKey(key::escape);
    };
    const auto clear = [this] {
        platform.pressKey(key::f4);
        press(clearButton);
    };
    struct Row {
        const char16_t* date;
        std::vector<std::function<void()>> acts;
        const char *before, *after;
    };
    const Row rows[] = {
        {u"Mon 2 Mar 2026", {openAndEscape}, "Mon 2 Mar 2026", "Mon 2 Mar 2026"},
        {u"", {openAndEscape}, "Sat 14 Nov 2026", ""},
        {u"Mon 2 Mar 2026", {clear}, "", ""},
        {u"Mon 2 Mar 2026", {[this] { platform.type(u"!"); }, clear, openAndEscape}, "Sat 14 Nov 2026", ""},
    };
    for (const auto& [start, acts, before, after] : rows) {
        SCOPED_TRACE(before);
        enterOn(start);
        for (const auto& act : acts) act();
        EXPECT_EQ(date(), before + blanks);
        EXPECT_EQ(left(), leftUnchanged);
        EXPECT_EQ(date(), after + blanks);
    }
}

TEST_F(DateCalendarTest, WhatAPersonOpensItByReadsWhatWasTyped) {
    const std::function<void()> ways[] = {[this] { platform.pressKey(key::f4); },
                                          [this] { platform.pressKey(key::down, shift::alt); },
                                          [this] { platform.click(surface(), icon); }};
    for (const auto& way : ways) {
        enterOn(u"Sun 1 Nov 2026");
        platform.pressKey('A', shift::control);
        platform.type(u"Mon 2 Mar 2020");
        way();
        EXPECT_EQ(chosen(), "2 March, 2020") << &way - ways;
        platform.pressKey(key::escape);
        platform.setFocus(0);
        EXPECT_EQ(date(), "Mon 2 Mar 2020" + blanks);
    }
}

TEST_F(DateCalendarTest, TypingRaisesTheKeysAndNeitherChangeNorKeyPress) {
    enter();
    platform.type(u"7");
    EXPECT_EQ(host.take(), (Journal{"KeyDown 55 0", "KeyUp 55 0"}));
    host.on["KeyDown"] = [](std::span<Value> arguments) { arguments[0] = int16_t{0}; };
    platform.type(u"8");
    platform.setFocus(0);
    EXPECT_EQ(date(), "7" + blanks) << "the host discards keys";
}

TEST_F(DateCalendarTest, AClickOnTheIconOpensAndAPressOutsideCloses) {
    platform.click(surface(), icon);
    EXPECT_EQ(host.takeEvents(), (Journal{"MouseOut 0 0 150 150", "MouseMove 0 0 150 150",
                                          "MouseDown 1 0 150 150", "MouseUp 1 0 150 150", "PopUp", "Click"}));
    ASSERT_TRUE(open());
    EXPECT_EQ(panel()->bounds(), (PixelRect{100, 121, 294, 348}));
    EXPECT_EQ(platform.capture(), panel()->id());
    EXPECT_TRUE(control->hasFocus()) << "the keyboard is the field's";
    click(icon);
    EXPECT_EQ(host.takeEvents(), (Journal{"FocusHidden", "MouseUp 1 0 150 150"}));
    EXPECT_FALSE(open());
    EXPECT_EQ(platform.capture(), 0u);
    // Such a press may take the focus as well: the calendar has been hidden once.
    platform.click(surface(), icon);
    host.take();
    platform.stealCapture();
    platform.setFocus(0);
    EXPECT_EQ(host.takeEvents(), leftUnchanged);
    enter();
    EXPECT_EQ(left(), leftUnchanged);
    // Let go beside the icon, the press is no click.
    platform.mouse(surface(), {Kind::down, button::left, 0, icon});
    platform.mouse(surface(), {Kind::up, button::left, 0, {10, 60}});
    EXPECT_FALSE(open());
}

TEST_F(DateCalendarTest, AClickOnTheTextTellsTheHostAndOpensNothing) {
    click(field);
    EXPECT_EQ(host.takeEvents(), (Journal{"MouseDown 1 0 900 150", "MouseUp 1 0 900 150", "PopUp", "Click"}));
    platform.mouse(surface(), {Kind::doubleClick, button::left, 0, field});
    EXPECT_EQ(host.takeEvents(), (Journal{"DblClick"}));
    EXPECT_FALSE(open());
}

TEST_F(DateCalendarTest, WithoutACalendarOfItsOwnWhatOpensItRaisesPopUp) {
    put(u"PopupEnabled", false);
    enter();
    call(u"ShowPopUp");
    EXPECT_EQ(host.take(), (Journal{"PopUp"}));
    EXPECT_EQ(date(), blanks) << "and does not touch the date";
    call(u"UserControl_Click");
    EXPECT_EQ(host.take(), (Journal{"PopUp", "Click"}));
    EXPECT_EQ(pressed(key::f4), (Journal{"PopUp", "KeyDown 115 0", "KeyUp 115 0"}));
    EXPECT_EQ(panel(), nullptr);
}

TEST_F(DateCalendarTest, APickedDayIsWrittenThenHiddenThenCommitted) {
    openOn(u"Sat 14 Nov 2026");
    host.on["FocusHidden"] = [this](std::span<Value>) {
        EXPECT_FALSE(open());
        EXPECT_EQ(date(), "Sat 14 Nov 2026" + blanks);
    };
    pressCell(13);  // November 2026 begins on a Sunday
    EXPECT_EQ(host.take(), (Journal{"FocusHidden", "DateUpdated"}));
    EXPECT_EQ(date(), "Sun 1 Nov 2026" + blanks);
    // Cells without a day, gaps, and a press that slips onto another day choose nothing.
    openOn(u"Sat 14 Nov 2026");
    for (const int32_t cell : {0, 6, 7, 12, 43, 48}) pressCell(cell);
    press({31, 80});
    const PixelRect from = Dpi().toPixels(cellBounds(16));  // a Wednesday, with Thursday at its right
    slip({from.left + 3, from.top + 3}, {from.left + 30, from.top + 3});
    EXPECT_TRUE(open());
    EXPECT_EQ(host.take(), Journal{});
}

TEST_F(DateCalendarTest, ADayThatOnlyThePanelKnowsIsNotCommitted) {
    enter();
    openOn(u"Wed 28 Feb 1900");
    EXPECT_EQ(days().size(), 29u);
    pressCell(monthLayout(std::chrono::year(1900) / 2)->lngFIRSTCELL + 28);
    EXPECT_EQ(host.take(), Journal{});
    EXPECT_TRUE(open());
    EXPECT_EQ(date(), "Wed 28 Feb 1900" + blanks);
    platform.pressKey(key::right);
    platform.pressKey(key::enter);
    EXPECT_EQ(date(), "Thu 1 Mar 1900" + blanks);
}

TEST_F(DateCalendarTest, TheButtonsTurnMonthsAndYearsAndADayThatAMonthLacksBecomesTheFirst) {
    struct Row {
        const char16_t* from;
        PixelPoint button;
        const char* to;
    };
    for (const Row& row : {Row{u"Thu 31 Dec 2026", nextMonth, "31 January, 2027"},
                           Row{u"Thu 1 Jan 2026", previousMonth, "1 December, 2025"},
                           Row{u"Sat 31 Oct 2026", nextMonth, "1 November, 2026"},
                           Row{u"Thu 29 Feb 2024", nextYear, "1 February, 2025"},
                           Row{u"Sun 29 Mar 2099", previousMonth, "1 February, 2099"},
                           Row{u"Mon 29 Mar 2100", previousMonth, "29 February, 2100"},
                           Row{u"Sat 14 Nov 2026", previousYear, "14 November, 2025"},
                           Row{u"Fri 31 Dec 9999", nextMonth, "31 December, 9999"},
                           Row{u"Fri 1 Jan 0100", previousYear, "1 January, 0100"}}) {
        openOn(row.from);
        press(row.button);
        EXPECT_EQ(chosen(), row.to) << toUtf8(row.from);
        EXPECT_EQ(toUtf8(parts(*panel(), AccessibleItem::Role::staticText).front().name), month());
        call(u"HidePopUp");
    }
}

TEST_F(DateCalendarTest, TheMonthListAndTheYearFieldRefillTheDays) {
    control->focus();
    openOn(u"Sat 31 Oct 2026");
    const auto months = [this] {
        press(monthList);
        EXPECT_NE(topPanel(), panel());
        EXPECT_TRUE(open()) << "the panel stays behind its list";
        return parts(*topPanel(), AccessibleItem::Role::listItem);
    };
    const auto items = months();
    ASSERT_EQ(items.size(), 12u);
    EXPECT_TRUE(items[9].is(AccessibleItem::selected));
    const PixelRect& february = items[1].bounds;
    platform.click(topPanel()->id(), {february.left + 5, february.top + 5});
    EXPECT_EQ(chosen(), "1 February, 2026");
    EXPECT_EQ(topPanel(), panel());
    EXPECT_EQ(platform.capture(), panel()->id()) << "and has the mouse again";
    EXPECT_EQ(host.take(), Journal{}) << "only a choice is news";
    months();
    platform.pressKey(key::end);
    platform.pressKey(key::escape);
    EXPECT_EQ(topPanel(), panel()) << "the keys are the list's";
    EXPECT_EQ(chosen(), "1 February, 2026");
    host.take();
    press(yearMore);
    EXPECT_EQ(chosen(), "1 February, 2027");
    press(yearMore);
    EXPECT_EQ(days().size(), 29u) << "2028 is a leap year";
    EXPECT_EQ(host.take(), Journal{}) << "only a choice is news";
    months();
    platform.stealCapture();
    EXPECT_EQ(host.takeEvents(), Journal{"FocusHidden"});
    EXPECT_FALSE(open()) << "who takes the mouse from the list takes it from the panel";
}

TEST_F(DateCalendarTest, TodayCommitsAndStaysClearKeepsTheTextAndCloseKeepsAll) {
    openOn(u"Mon 2 Mar 2020");
    // Between cells, and from there to a button and back.
    slip({31, 80}, todayButton);
    slip(todayButton, {31, 80});
    EXPECT_EQ(host.take(), Journal{}) << "a click is a press and its release";
    press(todayButton);
    EXPECT_EQ(host.take(), (Journal{"DateUpdated"}));
    EXPECT_EQ(chosen(), "14 November, 2026");
    EXPECT_EQ(date(), "Sat 14 Nov 2026" + blanks);
    press(clearButton);
    EXPECT_EQ(host.take(), (Journal{"DateUpdated", "FocusHidden"}));
    EXPECT_EQ(date(), blanks);
    MemoryBag bag;
    control->save(bag);
    EXPECT_EQ(bag.read(u"TEXT", ValueType::text), Value(Text(u"Sat 14 Nov 2026"))) << "still shown";
    openOn(u"Mon 2 Mar 2020");
    press(closeButton);
    EXPECT_EQ(host.take(), (Journal{"FocusHidden"}));
    EXPECT_EQ(date(), "Mon 2 Mar 2020" + blanks);
}

TEST_F(DateCalendarTest, AHeldYearArrowStepsFasterAndFasterUntilItIsReleased) {
    openOn(u"Sat 14 Nov 2026");
    const auto hold = [this](Kind kind, PixelPoint at) {
        platform.mouse(panel()->id(), {kind, button::left, 0, at});
    };
    const auto yearAfter = [this](int32_t milliseconds) {
        platform.advance(std::chrono::milliseconds(milliseconds));
        return std::stoi(month().substr(10));
    };
    hold(Kind::down, yearsOn);
    EXPECT_EQ(month(), "November, 2027") << "at once";
    EXPECT_EQ(yearAfter(499), 2027);
    EXPECT_EQ(yearAfter(1), 2028);
    EXPECT_EQ(yearAfter(400), 2029);
    const int before = yearAfter(5000);
    EXPECT_EQ(yearAfter(400), before + 10) << "at last every 40 ms";
    hold(Kind::up, yearsOn);
    EXPECT_EQ(yearAfter(5000), before + 10);
    press(yearsBack);
    EXPECT_EQ(yearAfter(5000), before + 9) << "a tap is one step";
    hold(Kind::down, yearsBack);
    call(u"HidePopUp");
    platform.advance(std::chrono::seconds(5));
    call(u"ShowPopUp");
    EXPECT_EQ(month(), "November, 2026");
    EXPECT_EQ(yearAfter(5000), 2026);
}

TEST_F(DateCalendarTest, KeysOpenWalkChooseAndKeep) {
    enterOn(u"Sat 31 Jan 2026");
    EXPECT_EQ(pressed(key::down, shift::alt), (Journal{"KeyDown 40 4", "KeyUp 40 4"}));
    ASSERT_TRUE(open());
    platform.pressKey(key::right);
    EXPECT_EQ(chosen(), "1 February, 2026");
    platform.pressKey(key::left, shift::shift);
    EXPECT_EQ(chosen(), "1 February, 2026");
    EXPECT_EQ(pressed(key::escape), (Journal{"FocusHidden", "KeyDown 27 0", "KeyUp 27 0"}));
    EXPECT_EQ(date(), "Sat 31 Jan 2026" + blanks);
    platform.pressKey(key::f4);
    platform.keyDown(key::f4, 0, true);
    ASSERT_TRUE(open()) << "a held key opens once";
    platform.pressKey(key::home);
    EXPECT_EQ(pressed(key::enter), (Journal{"FocusHidden", "DateUpdated", "KeyDown 13 0", "KeyUp 13 0"}));
    EXPECT_EQ(date(), "Thu 1 Jan 2026" + blanks);
    platform.pressKey(key::f4);
    platform.pressKey(key::space);
    EXPECT_FALSE(open());
    platform.setFocus(0);
    EXPECT_EQ(date(), "Thu 1 Jan 2026" + blanks) << "no key was typed";
    // While nothing is open, Enter and Escape are the container's.
    enter();
    host.takesKeys = true;
    EXPECT_EQ(pressed(key::enter), (Journal{"offered 13", "KeyUp 13 0"}));
    EXPECT_EQ(pressed(key::escape), (Journal{"offered 27", "KeyUp 27 0"}));
}

TEST_F(DateCalendarTest, TabGoesRoundThePartsOfTheOpenCalendarAndEachShowsThatItIsTheOne) {
    enter();
    openOn(u"Sat 14 Nov 2026");
    const NativeWindow focusBefore = platform.focus();
    const auto part = [this] {
        const PixelRect day = Dpi().toPixels(cellBounds(26));
        std::string ringed;
        // Beside the left edges.
        for (const auto& [name, at] : {std::pair("days", PixelPoint{day.left - 2, day.top + 5}),
                                       {"month", {5, 15}},
                                       {"year", {94, 15}},
                                       {"today", {5, 209}},
                                       {"clear", {67, 209}},
                                       {"close", {129, 209}}}) {
            if (panel()->paint().colourAt(at) == system(SystemColour::highlight)) ringed += name;
        }
        return ringed;
    };
    const char* const parts[] = {"days", "month", "year", "today", "clear", "close", "days"};
    for (const char* expected : parts) {
        EXPECT_EQ(part(), expected);
        platform.pressKey(key::tab);
    }
    platform.pressKey(key::tab, shift::shift);
    platform.pressKey(key::tab, shift::shift);
    EXPECT_EQ(part(), "close");
    EXPECT_EQ(platform.focus(), focusBefore);
    for (const std::string& told : host.take()) EXPECT_EQ(told.rfind("Key", 0), 0u) << told;
    platform.pressKey(key::space);
    EXPECT_FALSE(open());
    call(u"ShowPopUp");
    EXPECT_EQ(part(), "days") << "each time anew";
}

TEST_F(DateCalendarTest, EachPartOfTheCalendarHasItsKeys) {
    const auto tabs = [this](int times) {
        for (; times > 0; --times) platform.pressKey(key::tab);
    };
    enter();
    openOn(u"Sat 14 Nov 2026");
    tabs(1);
    platform.pressKey(key::down);
    EXPECT_EQ(chosen(), "14 December, 2026");
    platform.type(u"m");
    EXPECT_EQ(chosen(), "14 March, 2026");
    for (const int16_t code : {key::space, key::home, key::enter}) platform.pressKey(code);
    EXPECT_EQ(chosen(), "14 January, 2026") << "out of the list that dropped down";
    tabs(1);
    platform.type(u"101");
    EXPECT_EQ(month(), "January, 101") << "as it was typed, until the calendar writes it";
    // Two digits get their century, and what is no year leaves the last that was.
    for (const auto& [typed, year] :
         {Case{u"", "0101"}, Case{u"2031", "2031"}, Case{u"26", "2026"}, Case{u"50", "1950"},
          Case{u"7", "2007"}, Case{u"\b", "2007"}, Case{u"203\b6", "0206"}}) {
        platform.type(typed);
        tabs(6);
        EXPECT_EQ(chosen(), std::string("14 January, ") + year);
    }
    platform.pressKey(key::deleteKey);
    platform.keyDown(key::up, 0);
    platform.keyDown(key::up, 0, true);
    EXPECT_EQ(chosen(), "14 January, 0208") << "held keys repeat";
    platform.pressKey(key::pageDown);
    EXPECT_EQ(chosen(), "14 February, 0208") << "pages turn wherever the keys are";
    platform.type(u"2030");
    platform.pressKey(key::enter);
    EXPECT_EQ(date(), "Thu 14 Feb 2030" + blanks);
    EXPECT_FALSE(open());
    // T and Delete from every part, once however long they are held.
    for (const auto& [code, what] :
         {std::pair<int16_t, const char*>('T', "Sat 14 Nov 2026"), {key::deleteKey, ""}}) {
        for (const int times : {0, 1, 3, 5}) {
            openOn(u"Mon 2 Mar 2020");
            tabs(times);
            host.take();
            platform.keyDown(code, 0);
            platform.keyDown(code, 0, true);
            platform.keyUp(code);
            const Journal told = host.takeEvents();
            EXPECT_EQ(std::count(told.begin(), told.end(), "DateUpdated"), 1) << code << " " << times;
            EXPECT_EQ(date(), what + blanks);
            call(u"HidePopUp");
        }
    }
}

TEST_F(DateCalendarTest, WhileThereIsNoYearThereAreNoDaysAndNothingTurns) {
    const auto drawnDays = [this] {
        call(u"CalendarUpdate");
        const PixelRect first = Dpi().toPixels(cellBounds(cellColumns)),
                        last = Dpi().toPixels(cellBounds(cellCount - cellColumns - 1));
        const PixelRect all{first.left, first.top, last.right, last.bottom};
        return std::ranges::count_if(panel()->paint().items(), [&](const headless::DrawnItem& item) {
            return !item.rect.empty() && item.kind == headless::DrawnItem::Kind::text &&
                   all.intersected(item.rect) == item.rect;
        });
    };
    enter();
    openOn(u"Sat 31 Oct 2026");
    press({105, 17});  // the mouse puts the keys into the year, too
    EXPECT_EQ(drawnDays(), 31);
    platform.type(u"20");
    press(nextMonth);
    press(monthList);
    for (const int16_t code : {key::home, key::down, key::enter, key::pageDown}) platform.pressKey(code);
    EXPECT_EQ(drawnDays(), 0);
    EXPECT_EQ(month(), "no days");
    // The year that comes next fills the month that was chosen meanwhile.
    platform.type(u"28");
    EXPECT_EQ(chosen(), "1 February, 2028");
    EXPECT_EQ(drawnDays(), 29);
}

TEST_F(DateCalendarTest, ScreenReadersFindTheDaysWhereTheyAreAtAnotherScale) {
    control->deactivate();
    platform.appearance().setDpi(Dpi(144));
    activate({100, 100, 312, 132});
    openOn(u"Sat 14 Nov 2026");
    EXPECT_EQ(days()[1].bounds, Dpi(144).toPixels(cellBounds(14)));
}

TEST_F(DateCalendarTest, TheWheelTurnsMonthsByWholeNotches) {
    openOn(u"Sat 14 Nov 2026");
    for (const int32_t delta : {-40, -40, -40, -240, 120})
        platform.wheel(panel()->id(), {delta, false, 0, {100, 100}});
    EXPECT_EQ(chosen(), "14 January, 2027");
    call(u"HidePopUp");
    ASSERT_TRUE(control->focus());
    platform.wheel(surface(), {120, false, 0, field});
    call(u"ShowPopUp");
    EXPECT_EQ(chosen(), "14 November, 2026");
}

TEST_F(DateCalendarTest, MarksShowTheChosenDayTodayAndTheCommittedDate) {
    const Rgb accent = system(SystemColour::highlight);
    enter();
    openOn(u"Mon 2 Mar 2020");
    call(u"HidePopUp");
    openOn(u"Mon 9 Nov 2026");
    constexpr int32_t first = 13;  // of November 2026
    EXPECT_EQ(fillOf(first + 8), accent);
    EXPECT_EQ(fillOf(first + 9), system(SystemColour::window));
    const PixelRect today = Dpi().toPixels(cellBounds(first + 13));
    EXPECT_EQ(panel()->paint().colourAt({today.left + 12, today.bottom - 2}), accent);
    EXPECT_EQ(edgeOf(first + 8), system(SystemColour::windowText));
    platform.pressKey(key::right);
    EXPECT_EQ(fillOf(first + 9), accent) << "painted again";
    platform.pressKey(key::left);
    EXPECT_EQ(fillOf(first + 8), accent);
    // The frame goes with the first refill, for a text that begins with its weekday.
    call(u"CalendarUpdate");
    EXPECT_EQ(edgeOf(first + 8), accent);
}

TEST_F(DateCalendarTest, SubNewDateReadsMonthAndYearOutOfAnyText) {
    openOn(u"Sat 14 Nov 2026");
    for (const auto& [text, expected] :
         {Case{u"Tue 3 Feb 2032", "February, 2032"}, Case{u"august 1987", "August, 1987"},
          Case{u"nothing", "August, 1987"}, Case{u"may be 99", "May, 1987"}, Case{u"1999", "May, 1999"},
          Case{u"", "May, 1999"}, Case{u"99", "May, 1999"},
          Case{u"Sat 14 Nov 2026        ", "November, 2026"}}) {
        put(u"Text", Text(text));
        call(u"subNEWDATE");
        EXPECT_EQ(month(), expected) << toUtf8(text);
    }
    EXPECT_EQ(chosen(), "14 November, 2026") << "of the day it reads nothing";
}

TEST_F(DateCalendarTest, LoadingShowsNothingForAnEmptyDateAndKeepsWhatWasStored) {
    put(u"Text", Text(u"Mon 2 Mar 2026"));
    MemoryBag saved, again;
    control->save(saved);
    EXPECT_EQ(saved.read(u"TEXT", ValueType::text), Value(Text(u"Mon 2 Mar 2026")));
    EXPECT_EQ(saved.read(u"SELECTEDCOLOR", ValueType::colour), Value(OleColour(SystemColour::highlight)));
    control->deactivate();
    place(DateCalendar::memberTable());
    host.take();
    control->load(saved);
    EXPECT_EQ(host.take(), Journal{});
    control->save(again);
    EXPECT_EQ(again.serialized(), saved.serialized());
    EXPECT_EQ(date(), blanks);
    // A control that has a date shows it in full.
    put(u"Text", Text(u"mar 5 2020"));
    control->load(saved);
    control->save(again = {});
    EXPECT_EQ(again.read(u"TEXT", ValueType::text), Value(Text(u"Thu 5 Mar 2020")));
    EXPECT_EQ(date(), "mar 5 2020" + blanks);
    activate({100, 100, 241, 121});
    call(u"ShowPopUp");
    EXPECT_EQ(month(), "March, 2020");
}

TEST_F(DateCalendarTest, StoredColoursAndToolTipHaveTheirEffect) {
    MemoryBag bag;
    bag.write(u"FILLCOLOR", OleColour(Rgb{0x112233}));
    bag.write(u"TOOLTIP", Text(u"Day of arrival"));
    control->load(bag);
    EXPECT_EQ(platform.surface(surface())->paint().colourAt({3, 3}), Rgb{0x112233});
    platform.mouse(surface(), {Kind::move, 0, 0, icon});
    EXPECT_EQ(platform.surface(surface())->toolTip(), u"Day of arrival");
    control->load(bag = {});
    platform.mouse(surface(), {Kind::move, 0, 0, {11, 11}});
    EXPECT_NE(platform.surface(surface())->toolTip().find(u"F4"), Text::npos);
}

TEST_F(DateCalendarTest, TheMouseIsTrackedInAndOut) {
    platform.mouse(surface(), {Kind::move, 0, 0, field});
    EXPECT_EQ(host.takeEvents(), (Journal{"MouseOut 0 0 900 150", "MouseMove 0 0 900 150"}));
    EXPECT_EQ(get(u"MousePosn"), Value(true));
    EXPECT_EQ(platform.capture(), 0u) << "the text keeps its mouse";
    platform.mouse(surface(), {Kind::move, 0, 0, icon});
    platform.mouse(surface(), {Kind::leave, 0, 0, {}});
    host.take();
    call(u"UserControlMouseOut", {int16_t{0}, int16_t{0}, 2116.0f, 5.0f});
    EXPECT_EQ(get(u"bMOUSEPOSLOC"), Value(false));
    call(u"UserControlMouseOut", {int16_t{0}, int16_t{0}, 2115.0f, 5.0f});
    EXPECT_EQ(get(u"bMOUSEPOSLOC"), Value(true)) << "the far edge is inside";
    put(u"MousePosn", false);
    put(u"Enabled", false);
    host.take();
    call(u"UserControl_Click");
    EXPECT_EQ(host.take(), Journal{});
    EXPECT_FALSE(open());
    EXPECT_EQ(platform.capture(), 0u);
    EXPECT_EQ(get(u"MousePosn"), Value(true)) << "a disabled click ends like any other";
}

}  // namespace
}  // namespace obk::test
