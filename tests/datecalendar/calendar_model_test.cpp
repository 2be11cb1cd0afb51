#include "datecalendar/calendar_model.h"

#include "base/attempt.h"
#include "platform/headless/headless_machine.h"

#include <gtest/gtest.h>

namespace obk::test {
namespace {

class CalendarModelTest : public ::testing::Test {
protected:
    void openOn(const char16_t* text) {
        model.commit(text);
        model.showDate();
    }
    // The chosen day as it is marked: "14 November, 2026".
    std::string chosen() const {
        return std::to_string(model.filled().chosen) + " " + toUtf8(model.filled().heading);
    }
    std::string month() const { return toUtf8(model.filled().heading); }
    int32_t framed() const { return model.filled().framed; }
    bool press(int16_t code, int16_t shift = 0) { return model.walk({code, shift, false}); }
    int32_t framedAfter(int16_t code, int16_t shift = 0) {
        press(code, shift);
        return framed();
    }
    int32_t framedTurned(int32_t months) {
        model.turn(months);
        return framed();
    }

    headless::ManualClock clock;  // Saturday, 14 November 2026
    CalendarModel model{clock};
};

TEST_F(CalendarModelTest, AtFirstItShowsTodaysMonthAndDay) {
    EXPECT_EQ(chosen(), "14 November, 2026");
    EXPECT_EQ(model.filled().today, 14);
    EXPECT_EQ(framed(), 0);
    EXPECT_EQ(model.date(), u"");
    // Another day begins while the calendar stands: the mark follows, the choice does not.
    clock.setToday(std::chrono::year(2026) / 11 / 15);
    model.CalendarUpdate();
    EXPECT_EQ(chosen(), "14 November, 2026");
    EXPECT_EQ(model.filled().today, 15);
    model.turn(12);
    EXPECT_EQ(model.filled().today, 0);
}

TEST_F(CalendarModelTest, KeysWalkByDaysWeeksMonthsAndYears) {
    struct Row {
        const char16_t* from;
        int16_t code, shift;
        const char* to;
    };
    for (const Row& row : {Row{u"Sat 31 Jan 2026", key::right, 0, "1 February, 2026"},
                           Row{u"Sun 1 Feb 2026", key::left, 0, "31 January, 2026"},
                           Row{u"Sat 3 Jan 2026", key::up, 0, "27 December, 2025"},
                           // Shown, though it is no date.
                           Row{u"Wed 28 Feb 1900", key::right, 0, "29 February, 1900"},
                           Row{u"Thu 1 Mar 1900", key::left, 0, "29 February, 1900"},
                           Row{u"Sat 28 Feb 2026", key::down, 0, "7 March, 2026"},
                           Row{u"Sat 7 Mar 2026", key::end, 0, "31 March, 2026"},
                           Row{u"Sat 7 Mar 2026", key::home, 0, "1 March, 2026"},
                           Row{u"Sat 31 Jan 2026", key::pageDown, 0, "28 February, 2026"},
                           Row{u"Tue 31 Mar 2026", key::pageUp, 0, "28 February, 2026"},
                           Row{u"Thu 29 Feb 2024", key::pageDown, shift::control, "28 February, 2025"},
                           Row{u"Sat 28 Feb 2026", key::pageUp, shift::control, "28 February, 2025"},
                           Row{u"Sat 28 Feb 2026", key::home, shift::control, "1 January, 2026"},
                           Row{u"Sat 28 Feb 2026", key::end, shift::control, "31 December, 2026"},
                           // At the ends of time a key is taken and has no effect.
                           Row{u"Fri 31 Dec 9999", key::right, 0, "31 December, 9999"},
                           Row{u"Fri 31 Dec 9999", key::pageDown, 0, "31 December, 9999"},
                           Row{u"Fri 1 Jan 0100", key::up, 0, "1 January, 0100"}}) {
        openOn(row.from);
        EXPECT_TRUE(press(row.code, row.shift));
        EXPECT_EQ(chosen(), row.to) << toUtf8(row.from) << " " << row.code;
    }
    openOn(u"Sat 14 Nov 2026");
    for (const KeyEvent& other :
         {KeyEvent{key::left, shift::shift}, KeyEvent{key::left, shift::control},
          KeyEvent{key::pageUp, shift::shift}, KeyEvent{key::space}, KeyEvent{int16_t{key::down + 1}},
          KeyEvent{key::enter}, KeyEvent{key::pageDown, shift::control | shift::alt}})
        EXPECT_FALSE(model.walk(other)) << other.code << " " << other.shift;
    EXPECT_EQ(chosen(), "14 November, 2026");
}

TEST_F(CalendarModelTest, TheFrameStaysUntilTheFirstRefillAndWhileKeysWalkInsideTheMonth) {
    openOn(u"Mon 9 Nov 2026");
    EXPECT_EQ(framed(), 9);
    EXPECT_EQ(framedAfter(key::right), 9);
    EXPECT_EQ(chosen(), "10 November, 2026");
    model.CalendarUpdate();
    EXPECT_EQ(framed(), 0);
    EXPECT_EQ(framedAfter(key::right), 0);
    openOn(u"Mon 9 Nov 2026");
    EXPECT_EQ(framedAfter(key::pageDown), 0);
    EXPECT_EQ(framedAfter(key::pageUp), 0) << "it does not come back with the month";
    openOn(u"Mon 9 Nov 2026");
    EXPECT_EQ(framedAfter(key::pageUp, shift::control), 0);
}

TEST_F(CalendarModelTest, ATextThatBeginsWithTheMonthKeepsTheFrame) {
    model.commit(u"Nov 11, 2026");
    model.CalendarUpdate();
    EXPECT_EQ(framed(), 11);
    EXPECT_EQ(framedTurned(1), 0);
    EXPECT_EQ(framedTurned(-1), 11);
    EXPECT_EQ(framedAfter(key::home), 11);
    EXPECT_EQ(framedTurned(12), 0) << "the year is compared, too";
    model.typeYear(u" 2026");
    EXPECT_EQ(framed(), 11);
    model.commit(u"Nov whenever, 2026");
    model.CalendarUpdate();
    EXPECT_EQ(framed(), 0);
    model.commit(u"Jan 7, 0101");
    model.show(std::chrono::year(101) / 1);
    EXPECT_EQ(framed(), 7);
    model.typeYear(u"101");
    EXPECT_EQ(framed(), 0) << "as text";
    // While the calendar is open a host may change the date; the next walk shows it.
    openOn(u"Mon 9 Nov 2026");
    model.commit(u"Nov 11, 2026");
    EXPECT_EQ(framedAfter(key::right), 11);
}

TEST_F(CalendarModelTest, OpeningReadsDatesAsPeopleWriteThem) {
    using Order = DateForms::Order;
    DateForms german{
        Order::dayMonthYear, 2049, {{u"M\u00e4rz", std::chrono::March}, {u"Mrz.", std::chrono::March}}};
    DateForms spanish{
        Order::dayMonthYear, 2029, {{u"febrero", std::chrono::February}, {u"marzo", std::chrono::March}}};
    DateForms japanese{
        Order::yearMonthDay, 2049, {{u"1\u6708", std::chrono::January}, {u"3\u6708", std::chrono::March}}};
    struct Row {
        const DateForms forms;
        std::vector<const char16_t*> texts;
        const char* read;
    };
    const Row rows[] = {
        {{},
         {u"3/2/2026", u"3/2/26", u"2 Mar 2026", u"Monday, March 2, 2026", u"2026-03-02", u"20260302",
          u"on the 2nd of march '26, at noon"},
         "2 March, 2026"},
        {{}, {u"3/2/50"}, "2 March, 1950"},
        {{}, {u"Sept 3, 2026"}, "3 September, 2026"},
        {german,
         {u"02.03.26", u"2026-03-02", u"Montag, 2. M\u00c4RZ 2026", u"2. mrz 2026", u"march 2, 2026"},
         "2 March, 2026"},
        {spanish, {u"mar., 3 de febrero de 2026"}, "3 February, 2026"},
        {spanish, {u"3/2/30"}, "3 February, 1930"},
        {japanese, {u"2026\u5e743\u67082\u65e5", u"26/03/02"}, "2 March, 2026"},
    };
    for (const auto& [forms, texts, read] : rows) {
        clock.setDateForms(forms);
        for (const char16_t* text : texts) {
            openOn(u"Fri 20 Nov 2026");
            openOn(text);
            EXPECT_EQ(chosen(), read) << toUtf8(text);
            EXPECT_EQ(model.date(), text);
        }
    }
    // A year of an era's, and two digits of another calendar's.
    const DateForms otherYears{Order::dayMonthYear, 99, {}};
    const std::pair<DateForms, const char16_t*> others[] = {
        {japanese, u"\u4ee4\u548c 8\u5e743\u67082\u65e5"},
        {japanese, u"R8/3/2"},
        {japanese, u"\u6c11\u570b115\u5e743\u67082\u65e5"},
        {otherYears, u"2.3.47"}};
    for (const auto& [forms, text] : others) {
        clock.setDateForms(forms);
        EXPECT_THROW(openOn(text), StatementFailed) << toUtf8(text);
    }
}

TEST_F(CalendarModelTest, OpeningShowsTheDateBehindItsWeekdayAndTakesTodayForAnEmptyOne) {
    model.commit(u"   ");
    model.showDate();
    EXPECT_EQ(model.date(), u"Sat 14 Nov 2026");
    EXPECT_EQ(framed(), 14);
    openOn(u"Thu 29 Feb 2024");
    for (const char16_t* none : {u"x", u"Feb", u"Nov 14", u"Wed 31 Nov 2026", u"14.15.2026", u"1.2.3.2026",
                                 u"259-3-2026", u"20261314", u"7 Nov 20266"}) {
        model.commit(none);
        EXPECT_THROW(model.showDate(), StatementFailed) << toUtf8(none);
        EXPECT_EQ(chosen(), "29 February, 2024") << toUtf8(none);
        EXPECT_EQ(model.date(), none);
    }
    model.commit(u"");
    clock.setToday(std::chrono::year(10000) / 1 / 1);
    EXPECT_THROW(model.showDate(), StatementFailed);
    EXPECT_EQ(model.date(), u"");
}

}  // namespace
}  // namespace obk::test
