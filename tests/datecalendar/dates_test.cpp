// What the calendar knows of dates without a calendar on the screen: their texts, months as cells, quick
// dates.
#include "datecalendar/month_layout.h"
#include "datecalendar/quick_menu.h"

#include <gtest/gtest.h>

#include <set>

namespace obk::test {
namespace {

Date dayOf(int year, unsigned month, unsigned day) {
    return std::chrono::year(year) / std::chrono::month(month) / std::chrono::day(day);
}

TEST(DateTextTest, DatesAreWrittenWithWeekdayDayMonthAndYear) {
    // The calendar of today runs back without a gap.
    for (const char16_t* text : {u"Sat 14 Nov 2026", u"Mon 2 Mar 2026", u"Tue 29 Feb 2000",
                                 u"Sun 10 Oct 1582", u"Fri 1 Jan 0100", u"Fri 31 Dec 9999"}) {
        const auto date = dateFromText(TextView(text).substr(4));
        EXPECT_EQ(date ? dateText(*date) : std::nullopt, text) << toUtf8(text);
    }
    for (const Date& none : {dayOf(1900, 2, 29), dayOf(2026, 4, 31), dayOf(2026, 13, 1), dayOf(2026, 1, 0),
                             dayOf(99, 12, 31), dayOf(10000, 1, 1)})
        EXPECT_EQ(dateText(none), std::nullopt);
}

TEST(DateTextTest, DaysOfTwoCenturiesReadBackFromTheirTexts) {
    // Counted on from a day that is known: 1 December 1899 was a Friday.
    size_t weekday = 4;
    const TextView names[] = {u"Mon ", u"Tue ", u"Wed ", u"Thu ", u"Fri ", u"Sat ", u"Sun "};
    for (std::chrono::sys_days each = dayOf(1899, 12, 1); each <= std::chrono::sys_days(dayOf(2101, 1, 31));
         each += std::chrono::days(5), weekday = (weekday + 5) % 7) {
        const Text text = dateText(each).value();
        ASSERT_EQ(text.substr(0, 4), names[weekday]) << toUtf8(text);
        ASSERT_EQ(dateFromText(text), Date(each)) << toUtf8(text);
        ASSERT_EQ(dateFromText(text.substr(4) + Text(displayBlanks)), Date(each)) << toUtf8(text);
        ASSERT_EQ(monthMentioned(text), Date(each).month()) << toUtf8(text);
    }
}

TEST(DateTextTest, TypedDatesAreReadInTheWaysPeopleWriteThem) {
    for (const char16_t* text : {u"14 Nov 2026", u"14 nov 2026", u"  14   NOVEMBER  2026 ", u"Nov 14, 2026",
                                 u"november 14 2026", u"Saturday, 14 November 2026", u"sat 14 Nov 2026",
                                 u"Mon 14 Nov 2026", u"14-Nov-2026", u"14.Nov.2026"})
        EXPECT_EQ(dateFromText(text), dayOf(2026, 11, 14)) << toUtf8(text);
    EXPECT_EQ(dateFromText(u"1 Jan 100"), dayOf(100, 1, 1));
    EXPECT_EQ(dateFromText(u"1 May 2026"), dayOf(2026, 5, 1)) << "abbreviation and name are the same word";
    for (const TextView text : {u"",
                                u" ",
                                u"hello",
                                u"2026",
                                u"Nov 2026",
                                u"14 2026",
                                u"14 Nov",
                                u"29 Feb 2026",
                                u"29 Feb 1900",
                                u"31 Apr 2026",
                                u"0 Nov 2026",
                                u"32 Nov 2026",
                                u"14 Novem 2026",
                                u"14 Nov 26",
                                u"14 Nov 99",
                                u"14 Nov 12026",
                                u"+1 Nov 2026",
                                u"1 Nov 2026 5",
                                u"1 2 3 4 5 6",
                                u"14/11/2026",
                                u"14 Nov \u0662026",
                                u"Sat Sat 1 Nov 2026"})
        EXPECT_EQ(dateFromText(text), std::nullopt) << toUtf8(text);
    EXPECT_EQ(dateFromText(Text(100000, u'1')), std::nullopt);
    EXPECT_EQ(dateFromText(Text(100000, u' ')), std::nullopt);
}

TEST(DateTextTest, TheMonthIsFoundAnywhereInTheFixedOrder) {
    EXPECT_EQ(monthMentioned(u"some mayor"), std::chrono::May);
    EXPECT_EQ(monthMentioned(u"from January to June"), std::chrono::June) << "looked for before January";
    EXPECT_EQ(monthMentioned(u"feb dec"), std::chrono::December);
    EXPECT_EQ(monthMentioned(u"14/11/2026"), std::nullopt);
}

TEST(DateTextTest, YearsHaveThreeOrFourDigitsAndStayInRange) {
    EXPECT_EQ(yearFromText(u" 2026 "), 2026);
    EXPECT_EQ(yearFromText(u"0100"), 100);
    EXPECT_EQ(yearFromText(u"9999"), 9999);
    for (const char16_t* text : {u"", u"99", u"0099", u"10000", u"2026.0", u"-100", u"20 6", u"MMXX"})
        EXPECT_EQ(yearFromText(text), std::nullopt) << toUtf8(text);
}

TEST(MonthLayoutTest, EveryMonthOf1900To2100IsLaidOut) {
    const int32_t common[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    int32_t weekday = 0;  // 1 January 1900 was a Monday
    for (int year = 1900; year <= 2100; ++year) {
        for (unsigned month = 1; month <= 12; ++month) {
            const bool leapDay = month == 2 && year % 4 == 0;
            const int32_t shown = common[month - 1] + leapDay;
            ASSERT_EQ(monthLayout(std::chrono::year(year) / month), (MonthLayout{7 + weekday, shown}))
                << year << " " << month;
            weekday = (weekday + shown - (leapDay && year % 100 == 0 && year % 400 != 0)) % 7;
        }
    }
    for (const auto& [cell, day] : {std::pair(12, 0), {13, 1}, {42, 30}, {43, 0}})
        EXPECT_EQ((MonthLayout{13, 30}).dayAt(cell), day) << cell;
    for (const auto& [year, month] : {std::pair(99, 12), {10000, 1}, {2026, 13}})
        EXPECT_EQ(monthLayout(std::chrono::year(year) / month), std::nullopt) << year;
}

TEST(MonthLayoutTest, CellsAreWhereTheyAreAndTheGapsAreNone) {
    EXPECT_EQ(cellBounds(0), (TwipsRect{{105}, {765}, {360}, {270}}));
    EXPECT_EQ(cellBounds(16), (TwipsRect{{885}, {1395}, {360}, {270}}));
    EXPECT_EQ(cellBounds(55), (TwipsRect{{2445}, {2970}, {360}, {270}}));
    for (const int32_t dotsPerInch : {96, 120, 144, 168, 192}) {
        const Dpi dpi(dotsPerInch);
        for (int32_t cell = 0; cell < cellCount; ++cell) {
            const PixelRect rect = dpi.toPixels(cellBounds(cell));
            EXPECT_EQ(cellAt({rect.left, rect.top}, dpi), cell);
            EXPECT_EQ(cellAt({rect.right - 1, rect.bottom - 1}, dpi), cell);
            EXPECT_EQ(cellAt({rect.right, rect.top}, dpi), std::nullopt);
            EXPECT_EQ(cellAt({rect.left, rect.bottom}, dpi), std::nullopt);
        }
    }
}

// The positions of the menu's commands that give a date; between them stand separators.
constexpr size_t commands[] = {0, 1, 2, 3, 5, 6, 7, 9, 10};

// Today, and how many days on each command goes, in the order of the menu. From another calendar: each line
// was worked out by a program that knows none of these rules.
const struct {
    const char16_t* today;
    int after[std::size(commands)];
} table[] = {
    {u"Mon 9 Nov 2026", {0, 1, 5, 6, 7, 14, 28, 7, 22}},
    {u"Fri 13 Nov 2026", {0, 1, 1, 2, 7, 14, 28, 3, 18}},
    {u"Sat 14 Nov 2026", {0, 1, 7, 1, 7, 14, 28, 2, 17}},
    {u"Sun 15 Nov 2026", {0, 1, 6, 7, 7, 14, 28, 1, 16}},
    {u"Sat 31 Jan 2026", {0, 1, 7, 1, 7, 14, 28, 2, 1}},
    {u"Thu 29 Feb 2024", {0, 1, 2, 3, 7, 14, 28, 4, 1}},
    {u"Wed 28 Feb 1900", {0, 1, 3, 4, 7, 14, 28, 5, 1}},
    {u"Thu 31 Dec 2026", {0, 1, 2, 3, 7, 14, 28, 4, 1}},
};

TEST(QuickMenuTest, EveryCommandGivesTheDateOfTheTable) {
    for (const auto& [text, after] : table) {
        const std::chrono::sys_days today = dateFromText(text).value();
        for (size_t at = 0; at < std::size(commands); ++at)
            EXPECT_EQ(quickMenuText(commands[at], today), dateText(today + std::chrono::days(after[at])))
                << toUtf8(text) << ", command " << at;
    }
    const Date today = dayOf(2026, 11, 14);
    EXPECT_EQ(quickMenuText(12, today), u"") << "clears";
    for (const size_t none : {4, 8, 11, 13, 100}) EXPECT_EQ(quickMenuText(none, today), std::nullopt) << none;
    // What is no date, and beyond the last year.
    EXPECT_EQ(quickMenuText(2, dayOf(2026, 2, 29)), std::nullopt);
    EXPECT_EQ(quickMenuText(1, dayOf(9999, 12, 31)), std::nullopt);
    EXPECT_EQ(quickMenuText(10, dayOf(9999, 12, 1)), std::nullopt);
    std::set<char16_t> accessKeys;
    for (const MenuItem& line : quickMenu()) {
        if (line.caption.empty()) continue;
        EXPECT_TRUE(accessKeys.insert(upperAscii(line.caption.at(line.caption.find(u'&') + 1))).second)
            << toUtf8(line.caption);
    }
}

}  // namespace
}  // namespace obk::test
