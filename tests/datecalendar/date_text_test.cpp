#include "datecalendar/date_text.h"

#include <gtest/gtest.h>

namespace obk::test {
namespace {

using std::chrono::day;
using std::chrono::month;
using std::chrono::year;

Date dayOf(int y, unsigned m, unsigned d) {
    return year(y) / month(m) / day(d);
}

std::string written(int y, unsigned m, unsigned d) {
    return toUtf8(dateText(dayOf(y, m, d)).value_or(u"none"));
}

TEST(DateTextTest, DatesAreWrittenWithWeekdayDayMonthAndYear) {
    EXPECT_EQ(written(2026, 11, 14), "Sat 14 Nov 2026");
    EXPECT_EQ(written(2026, 3, 2), "Mon 2 Mar 2026");
    EXPECT_EQ(written(2000, 2, 29), "Tue 29 Feb 2000");
    EXPECT_EQ(written(1582, 10, 10), "Sun 10 Oct 1582") << "the calendar of today runs back without a gap";
    EXPECT_EQ(written(100, 1, 1), "Fri 1 Jan 0100");
    EXPECT_EQ(written(9999, 12, 31), "Fri 31 Dec 9999");
}

TEST(DateTextTest, WhatIsNoDateAndYearsOutOfRangeAreNotWritten) {
    for (const Date& none : {dayOf(1900, 2, 29), dayOf(2026, 4, 31), dayOf(2026, 13, 1), dayOf(2026, 1, 0),
                             dayOf(99, 12, 31), dayOf(10000, 1, 1)})
        EXPECT_EQ(dateText(none), std::nullopt);
}

TEST(DateTextTest, DaysOfTwoCenturiesReadBackFromTheirTexts) {
    std::chrono::sys_days each = dayOf(1899, 12, 1);
    const std::chrono::sys_days last = dayOf(2101, 1, 31);
    // Counted on from a day that is known: 1 December 1899 was a Friday.
    size_t weekday = 4;
    const char* const names[] = {"Mon", "Tue", "Wed", "Thu", "Fri", "Sat", "Sun"};
    for (; each <= last; each += std::chrono::days(5), weekday = (weekday + 5) % 7) {
        const auto text = dateText(each);
        ASSERT_TRUE(text);
        ASSERT_EQ(toUtf8(*text).substr(0, 4), std::string(names[weekday]) + " ");
        ASSERT_EQ(dateFromText(*text), Date(each)) << toUtf8(*text);
        ASSERT_EQ(dateFromText(text->substr(4) + Text(displayBlanks)), Date(each));
        ASSERT_EQ(monthMentioned(*text), Date(each).month());
    }
}

TEST(DateTextTest, TypedDatesAreReadInTheWaysPeopleWriteThem) {
    const Date wanted = dayOf(2026, 11, 14);
    for (const char16_t* text : {u"14 Nov 2026", u"14 nov 2026", u"  14   NOVEMBER  2026 ", u"Nov 14, 2026",
                                 u"november 14 2026", u"Saturday, 14 November 2026", u"sat 14 Nov 2026",
                                 u"Mon 14 Nov 2026", u"14-Nov-2026", u"14.Nov.2026"})
        EXPECT_EQ(dateFromText(text), wanted) << toUtf8(text);
    EXPECT_EQ(dateFromText(u"1 Jan 100"), dayOf(100, 1, 1));
    EXPECT_EQ(dateFromText(u"Mon 7 Jan 0101"), dayOf(101, 1, 7));
    EXPECT_EQ(dateFromText(u"1 May 2026"), dayOf(2026, 5, 1)) << "abbreviation and name are the same word";
}

TEST(DateTextTest, OtherTextsAreNoDates) {
    const auto isNone = [](TextView text) { EXPECT_EQ(dateFromText(text), std::nullopt) << toUtf8(text); };
    for (const TextView text : {u"", u" ", u"hello", u"2026", u"Nov 2026", u"14 2026", u"14 Nov"})
        isNone(text);
    for (const TextView text :
         {u"29 Feb 2026", u"29 Feb 1900", u"31 Apr 2026", u"0 Nov 2026", u"32 Nov 2026", u"14 Novem 2026",
          u"14 Nov 26", u"14 Nov 99", u"14 Nov 12026", u"+1 Nov 2026", u"1 Nov 2026 5", u"1 2 3 4 5 6",
          u"14/11/2026", u"14 Nov \u0662026", u"Sat Sat 1 Nov 2026"})
        isNone(text);
    EXPECT_EQ(dateFromText(Text(100000, u'1')), std::nullopt);
    EXPECT_EQ(dateFromText(Text(100000, u' ')), std::nullopt);
}

TEST(DateTextTest, TheMonthIsFoundAnywhereInTheFixedOrder) {
    EXPECT_EQ(monthMentioned(u"some mayor"), std::chrono::May);
    EXPECT_EQ(monthMentioned(u"from January to June"), std::chrono::June)
        << "June is looked for before January";
    EXPECT_EQ(monthMentioned(u"feb dec"), std::chrono::December);
    EXPECT_EQ(monthMentioned(u"14/11/2026"), std::nullopt);
    EXPECT_EQ(monthMentioned(u""), std::nullopt);
}

TEST(DateTextTest, YearsHaveThreeOrFourDigitsAndStayInRange) {
    EXPECT_EQ(yearFromText(u" 2026 "), 2026);
    EXPECT_EQ(yearFromText(u"0100"), 100);
    EXPECT_EQ(yearFromText(u"9999"), 9999);
    for (const char16_t* text : {u"", u"99", u"0099", u"10000", u"2026.0", u"-100", u"20 6", u"MMXX"})
        EXPECT_EQ(yearFromText(text), std::nullopt) << toUtf8(text);
    EXPECT_EQ(yearText(100), u"0100");
}

}  // namespace
}  // namespace obk::test
