#include "datecalendar/quick_menu.h"

#include <gtest/gtest.h>

#include <array>

namespace obk::test {
namespace {

// Today, and what each command makes of it, in the order of the menu. From another calendar: each line was
// worked out by a program that knows none of these rules.
using Row = std::array<const char16_t*, 9>;
constexpr Row table[] = {
    {u"Mon 9 Nov 2026", u"Tue 10 Nov 2026", u"Sat 14 Nov 2026", u"Sun 15 Nov 2026", u"Mon 16 Nov 2026",
     u"Mon 23 Nov 2026", u"Mon 7 Dec 2026", u"Mon 16 Nov 2026", u"Tue 1 Dec 2026"},
    {u"Fri 13 Nov 2026", u"Sat 14 Nov 2026", u"Sat 14 Nov 2026", u"Sun 15 Nov 2026", u"Fri 20 Nov 2026",
     u"Fri 27 Nov 2026", u"Fri 11 Dec 2026", u"Mon 16 Nov 2026", u"Tue 1 Dec 2026"},
    {u"Sat 14 Nov 2026", u"Sun 15 Nov 2026", u"Sat 21 Nov 2026", u"Sun 15 Nov 2026", u"Sat 21 Nov 2026",
     u"Sat 28 Nov 2026", u"Sat 12 Dec 2026", u"Mon 16 Nov 2026", u"Tue 1 Dec 2026"},
    {u"Sun 15 Nov 2026", u"Mon 16 Nov 2026", u"Sat 21 Nov 2026", u"Sun 22 Nov 2026", u"Sun 22 Nov 2026",
     u"Sun 29 Nov 2026", u"Sun 13 Dec 2026", u"Mon 16 Nov 2026", u"Tue 1 Dec 2026"},
    {u"Sat 31 Jan 2026", u"Sun 1 Feb 2026", u"Sat 7 Feb 2026", u"Sun 1 Feb 2026", u"Sat 7 Feb 2026",
     u"Sat 14 Feb 2026", u"Sat 28 Feb 2026", u"Mon 2 Feb 2026", u"Sun 1 Feb 2026"},
    {u"Sun 31 Jan 2027", u"Mon 1 Feb 2027", u"Sat 6 Feb 2027", u"Sun 7 Feb 2027", u"Sun 7 Feb 2027",
     u"Sun 14 Feb 2027", u"Sun 28 Feb 2027", u"Mon 1 Feb 2027", u"Mon 1 Feb 2027"},
    {u"Thu 29 Feb 2024", u"Fri 1 Mar 2024", u"Sat 2 Mar 2024", u"Sun 3 Mar 2024", u"Thu 7 Mar 2024",
     u"Thu 14 Mar 2024", u"Thu 28 Mar 2024", u"Mon 4 Mar 2024", u"Fri 1 Mar 2024"},
    {u"Wed 28 Feb 1900", u"Thu 1 Mar 1900", u"Sat 3 Mar 1900", u"Sun 4 Mar 1900", u"Wed 7 Mar 1900",
     u"Wed 14 Mar 1900", u"Wed 28 Mar 1900", u"Mon 5 Mar 1900", u"Thu 1 Mar 1900"},
    {u"Tue 1 Dec 2026", u"Wed 2 Dec 2026", u"Sat 5 Dec 2026", u"Sun 6 Dec 2026", u"Tue 8 Dec 2026",
     u"Tue 15 Dec 2026", u"Tue 29 Dec 2026", u"Mon 7 Dec 2026", u"Fri 1 Jan 2027"},
    {u"Thu 31 Dec 2026", u"Fri 1 Jan 2027", u"Sat 2 Jan 2027", u"Sun 3 Jan 2027", u"Thu 7 Jan 2027",
     u"Thu 14 Jan 2027", u"Thu 28 Jan 2027", u"Mon 4 Jan 2027", u"Fri 1 Jan 2027"},
    {u"Sun 28 Feb 2100", u"Mon 1 Mar 2100", u"Sat 6 Mar 2100", u"Sun 7 Mar 2100", u"Sun 7 Mar 2100",
     u"Sun 14 Mar 2100", u"Sun 28 Mar 2100", u"Mon 1 Mar 2100", u"Mon 1 Mar 2100"}};

Date date(int year, unsigned month, unsigned day) {
    return std::chrono::year(year) / std::chrono::month(month) / std::chrono::day(day);
}

// The positions of the commands that give a date; between them stand separators.
constexpr size_t commands[] = {0, 1, 2, 3, 5, 6, 7, 9, 10};
constexpr size_t clear = 12;

TEST(QuickMenuTest, EveryCommandGivesTheDateOfTheTable) {
    for (const Row& row : table) {
        const Date today = dateFromText(row[0]).value();
        for (size_t at = 0; at < row.size(); ++at)
            EXPECT_EQ(quickMenuText(commands[at], today), row[at]) << toUtf8(row[0]) << ", command " << at;
    }
}

TEST(QuickMenuTest, ClearGivesTheEmptyTextAndSeparatorsGiveNothing) {
    const Date today = date(2026, 11, 14);
    EXPECT_EQ(quickMenuText(clear, today), u"");
    for (const size_t none : {4, 8, 11, 13, 100}) EXPECT_EQ(quickMenuText(none, today), std::nullopt) << none;
    EXPECT_EQ(quickMenu().size(), 13u);
}

TEST(QuickMenuTest, WhatIsNoDateOrBeyondTheLastYearHasNoText) {
    EXPECT_EQ(quickMenuText(1, date(9999, 12, 31)), std::nullopt);
    EXPECT_EQ(quickMenuText(10, date(9999, 12, 1)), std::nullopt);
    EXPECT_EQ(quickMenuText(2, date(2026, 2, 29)), std::nullopt);
}

}  // namespace
}  // namespace obk::test
