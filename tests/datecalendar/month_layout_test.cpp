#include "datecalendar/month_layout.h"

#include <gtest/gtest.h>

namespace obk::test {
namespace {

YearMonth month(int year, unsigned month) {
    return std::chrono::year(year) / std::chrono::month(month);
}

// Zeller's congruence: 0 is Saturday.
int zeller(int day, int monthOfYear, int year) {
    if (monthOfYear < 3) {
        monthOfYear += 12;
        --year;
    }
    return (day + 13 * (monthOfYear + 1) / 5 + year + year / 4 - year / 100 + year / 400) % 7;
}

TEST(MonthLayoutTest, EveryMonthOf1900To2100IsLaidOut) {
    const int common[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    for (int year = 1900; year <= 2100; ++year) {
        for (int m = 1; m <= 12; ++m) {
            const auto layout = monthLayout(month(year, static_cast<unsigned>(m)));
            ASSERT_TRUE(layout);
            const int fromMonday = (zeller(1, m, year) + 5) % 7;
            const int shown = common[m - 1] + (m == 2 && year % 4 == 0 ? 1 : 0);
            ASSERT_EQ(layout->lngFIRSTCELL, 7 + fromMonday) << year << " " << m;
            ASSERT_EQ(layout->lngDAYSINMONTH, shown) << year << " " << m;
            const int lastCell = 7 + fromMonday + shown - 1;
            ASSERT_EQ(layout->dayAt(7 + fromMonday), 1);
            ASSERT_EQ(layout->dayAt(7 + fromMonday - 1), 0);
            ASSERT_EQ(layout->dayAt(lastCell), shown);
            ASSERT_EQ(layout->dayAt(lastCell + 1), 0);
            ASSERT_LE(lastCell, 43);
        }
    }
}

TEST(MonthLayoutTest, OnlyMonthsOfFourDigitYearsAreLaidOut) {
    EXPECT_EQ(monthLayout(month(99, 12)), std::nullopt);
    EXPECT_EQ(monthLayout(month(10000, 1)), std::nullopt);
    EXPECT_EQ(monthLayout(month(2026, 13)), std::nullopt);
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

}  // namespace
}  // namespace obk::test
