#include "datecalendar/quick_menu.h"

#include <gtest/gtest.h>

namespace obk::test {
namespace {

// Today, and how many days on each command goes, in the order of the menu. From another calendar: each line
// was worked out by a program that knows none of these rules.
const struct {
    const char16_t* today;
    int after[9];
} table[] = {
    {u"Mon 9 Nov 2026", {0, 1, 5, 6, 7, 14, 28, 7, 22}},
    {u"Fri 13 Nov 2026", {0, 1, 1, 2, 7, 14, 28, 3, 18}},
    {u"Sat 14 Nov 2026", {0, 1, 7, 1, 7, 14, 28, 2, 17}},
    {u"Sun 15 Nov 2026", {0, 1, 6, 7, 7, 14, 28, 1, 16}},
    {u"Sat 31 Jan 2026", {0, 1, 7, 1, 7, 14, 28, 2, 1}},
    {u"Sun 31 Jan 2027", {0, 1, 6, 7, 7, 14, 28, 1, 1}},
    {u"Thu 29 Feb 2024", {0, 1, 2, 3, 7, 14, 28, 4, 1}},
    {u"Wed 28 Feb 1900", {0, 1, 3, 4, 7, 14, 28, 5, 1}},
    {u"Tue 1 Dec 2026", {0, 1, 4, 5, 7, 14, 28, 6, 31}},
    {u"Thu 31 Dec 2026", {0, 1, 2, 3, 7, 14, 28, 4, 1}},
    {u"Sun 28 Feb 2100", {0, 1, 6, 7, 7, 14, 28, 1, 1}},
};

Date date(int year, unsigned month, unsigned day) {
    return std::chrono::year(year) / std::chrono::month(month) / std::chrono::day(day);
}

// The positions of the commands that give a date; between them stand separators.
constexpr size_t commands[] = {0, 1, 2, 3, 5, 6, 7, 9, 10};
constexpr size_t clear = 12;

TEST(QuickMenuTest, EveryCommandGivesTheDateOfTheTable) {
    for (const auto& [text, after] : table) {
        const std::chrono::sys_days today = dateFromText(text).value();
        for (size_t at = 0; at < std::size(commands); ++at)
            EXPECT_EQ(quickMenuText(commands[at], today), dateText(today + std::chrono::days(after[at])))
                << toUtf8(text) << ", command " << at;
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
