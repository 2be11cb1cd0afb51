#include "datecalendar/quick_dates.h"

#include <gtest/gtest.h>

namespace obk::test {
namespace {

struct Row {
    int year;
    unsigned month, day;
    // In the order of the menu.
    std::vector<const char*> dates;
};

// From another calendar: each line was worked out by a program that knows none of these rules.
const Row table[] = {
    {2026,
     11,
     9,
     {"Mon 9 Nov 2026", "Tue 10 Nov 2026", "Sat 14 Nov 2026", "Sun 15 Nov 2026", "Mon 16 Nov 2026",
      "Mon 23 Nov 2026", "Mon 7 Dec 2026", "Mon 16 Nov 2026", "Tue 1 Dec 2026"}},
    {2026,
     11,
     10,
     {"Tue 10 Nov 2026", "Wed 11 Nov 2026", "Sat 14 Nov 2026", "Sun 15 Nov 2026", "Tue 17 Nov 2026",
      "Tue 24 Nov 2026", "Tue 8 Dec 2026", "Mon 16 Nov 2026", "Tue 1 Dec 2026"}},
    {2026,
     11,
     11,
     {"Wed 11 Nov 2026", "Thu 12 Nov 2026", "Sat 14 Nov 2026", "Sun 15 Nov 2026", "Wed 18 Nov 2026",
      "Wed 25 Nov 2026", "Wed 9 Dec 2026", "Mon 16 Nov 2026", "Tue 1 Dec 2026"}},
    {2026,
     11,
     12,
     {"Thu 12 Nov 2026", "Fri 13 Nov 2026", "Sat 14 Nov 2026", "Sun 15 Nov 2026", "Thu 19 Nov 2026",
      "Thu 26 Nov 2026", "Thu 10 Dec 2026", "Mon 16 Nov 2026", "Tue 1 Dec 2026"}},
    {2026,
     11,
     13,
     {"Fri 13 Nov 2026", "Sat 14 Nov 2026", "Sat 14 Nov 2026", "Sun 15 Nov 2026", "Fri 20 Nov 2026",
      "Fri 27 Nov 2026", "Fri 11 Dec 2026", "Mon 16 Nov 2026", "Tue 1 Dec 2026"}},
    {2026,
     11,
     14,
     {"Sat 14 Nov 2026", "Sun 15 Nov 2026", "Sat 21 Nov 2026", "Sun 15 Nov 2026", "Sat 21 Nov 2026",
      "Sat 28 Nov 2026", "Sat 12 Dec 2026", "Mon 16 Nov 2026", "Tue 1 Dec 2026"}},
    {2026,
     11,
     15,
     {"Sun 15 Nov 2026", "Mon 16 Nov 2026", "Sat 21 Nov 2026", "Sun 22 Nov 2026", "Sun 22 Nov 2026",
      "Sun 29 Nov 2026", "Sun 13 Dec 2026", "Mon 16 Nov 2026", "Tue 1 Dec 2026"}},
    {2026,
     1,
     31,
     {"Sat 31 Jan 2026", "Sun 1 Feb 2026", "Sat 7 Feb 2026", "Sun 1 Feb 2026", "Sat 7 Feb 2026",
      "Sat 14 Feb 2026", "Sat 28 Feb 2026", "Mon 2 Feb 2026", "Sun 1 Feb 2026"}},
    {2027,
     1,
     31,
     {"Sun 31 Jan 2027", "Mon 1 Feb 2027", "Sat 6 Feb 2027", "Sun 7 Feb 2027", "Sun 7 Feb 2027",
      "Sun 14 Feb 2027", "Sun 28 Feb 2027", "Mon 1 Feb 2027", "Mon 1 Feb 2027"}},
    {2024,
     1,
     31,
     {"Wed 31 Jan 2024", "Thu 1 Feb 2024", "Sat 3 Feb 2024", "Sun 4 Feb 2024", "Wed 7 Feb 2024",
      "Wed 14 Feb 2024", "Wed 28 Feb 2024", "Mon 5 Feb 2024", "Thu 1 Feb 2024"}},
    {2024,
     2,
     28,
     {"Wed 28 Feb 2024", "Thu 29 Feb 2024", "Sat 2 Mar 2024", "Sun 3 Mar 2024", "Wed 6 Mar 2024",
      "Wed 13 Mar 2024", "Wed 27 Mar 2024", "Mon 4 Mar 2024", "Fri 1 Mar 2024"}},
    {2024,
     2,
     29,
     {"Thu 29 Feb 2024", "Fri 1 Mar 2024", "Sat 2 Mar 2024", "Sun 3 Mar 2024", "Thu 7 Mar 2024",
      "Thu 14 Mar 2024", "Thu 28 Mar 2024", "Mon 4 Mar 2024", "Fri 1 Mar 2024"}},
    {2023,
     2,
     28,
     {"Tue 28 Feb 2023", "Wed 1 Mar 2023", "Sat 4 Mar 2023", "Sun 5 Mar 2023", "Tue 7 Mar 2023",
      "Tue 14 Mar 2023", "Tue 28 Mar 2023", "Mon 6 Mar 2023", "Wed 1 Mar 2023"}},
    {1900,
     2,
     28,
     {"Wed 28 Feb 1900", "Thu 1 Mar 1900", "Sat 3 Mar 1900", "Sun 4 Mar 1900", "Wed 7 Mar 1900",
      "Wed 14 Mar 1900", "Wed 28 Mar 1900", "Mon 5 Mar 1900", "Thu 1 Mar 1900"}},
    {2026,
     4,
     30,
     {"Thu 30 Apr 2026", "Fri 1 May 2026", "Sat 2 May 2026", "Sun 3 May 2026", "Thu 7 May 2026",
      "Thu 14 May 2026", "Thu 28 May 2026", "Mon 4 May 2026", "Fri 1 May 2026"}},
    {2026,
     12,
     1,
     {"Tue 1 Dec 2026", "Wed 2 Dec 2026", "Sat 5 Dec 2026", "Sun 6 Dec 2026", "Tue 8 Dec 2026",
      "Tue 15 Dec 2026", "Tue 29 Dec 2026", "Mon 7 Dec 2026", "Fri 1 Jan 2027"}},
    {2026,
     12,
     31,
     {"Thu 31 Dec 2026", "Fri 1 Jan 2027", "Sat 2 Jan 2027", "Sun 3 Jan 2027", "Thu 7 Jan 2027",
      "Thu 14 Jan 2027", "Thu 28 Jan 2027", "Mon 4 Jan 2027", "Fri 1 Jan 2027"}},
    {1999,
     12,
     31,
     {"Fri 31 Dec 1999", "Sat 1 Jan 2000", "Sat 1 Jan 2000", "Sun 2 Jan 2000", "Fri 7 Jan 2000",
      "Fri 14 Jan 2000", "Fri 28 Jan 2000", "Mon 3 Jan 2000", "Sat 1 Jan 2000"}},
    {2100,
     2,
     28,
     {"Sun 28 Feb 2100", "Mon 1 Mar 2100", "Sat 6 Mar 2100", "Sun 7 Mar 2100", "Sun 7 Mar 2100",
      "Sun 14 Mar 2100", "Sun 28 Mar 2100", "Mon 1 Mar 2100", "Mon 1 Mar 2100"}},
};

Date date(int year, unsigned month, unsigned day) {
    return std::chrono::year(year) / std::chrono::month(month) / std::chrono::day(day);
}

TEST(QuickDatesTest, EveryCommandGivesTheDateOfTheTable) {
    for (const Row& row : table) {
        for (size_t at = 0; at < row.dates.size(); ++at) {
            const auto text =
                dateText(quickDate(static_cast<QuickDate>(at), date(row.year, row.month, row.day)));
            EXPECT_EQ(toUtf8(text.value_or(u"")), row.dates[at]) << row.dates[0] << ", command " << at;
        }
    }
}

TEST(QuickDatesTest, BeyondTheLastYearThereIsNoDateText) {
    EXPECT_EQ(dateText(quickDate(QuickDate::tomorrow, date(9999, 12, 31))), std::nullopt);
    EXPECT_EQ(dateText(quickDate(QuickDate::firstOfNextMonth, date(9999, 12, 1))), std::nullopt);
    EXPECT_EQ(dateText(quickDate(QuickDate::saturday, date(2026, 2, 29))), std::nullopt);
}

}  // namespace
}  // namespace obk::test
