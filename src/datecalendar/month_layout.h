// One month as cells of a calendar, and how months and years are turned.
#pragma once

#include "base/units.h"
#include "datecalendar/date_text.h"

namespace obk {

using YearMonth = std::chrono::year_month;

// Cells run from Monday to Sunday, row by row. The first row never holds a day, nor does the last one.
constexpr int32_t cellColumns = 7;
constexpr int32_t cellRows = 8;
constexpr int32_t cellCount = cellColumns * cellRows;

struct MonthLayout {
    int32_t firstCell = cellColumns;  // of day 1: 7 to 13
    int32_t days = 31;

    // 0 for a cell without a day.
    int32_t dayAt(int32_t cell) const;
    friend bool operator==(const MonthLayout&, const MonthLayout&) = default;
};

// By the calendar. 0 for what is no month.
int32_t daysInMonth(YearMonth month);
// As the panel shows it: every year that 4 divides has a 29 February there, 1900 and 2100 too. It is meant.
int32_t daysShown(YearMonth month);
// Nothing for what is no month, or outside the years of date texts.
std::optional<MonthLayout> monthLayout(YearMonth month);

// Months and years wrap into each other. Nothing beyond the years of date texts.
std::optional<YearMonth> turned(YearMonth from, int32_t months);

// A day that the panel shows.
struct ShownDay {
    YearMonth month;
    int32_t day = 1;
    friend bool operator==(const ShownDay&, const ShownDay&) = default;
};
// `by` days on from a day that is shown, over the ends of the months as the panel shows them; at most a month
// at a time. Nothing beyond the years of date texts.
std::optional<ShownDay> moved(const ShownDay& from, int32_t by);

// Where a cell is in the panel, in twips.
TwipsRect cellBounds(int32_t cell);
// The cell around a point of the panel; nothing in the gaps and outside.
std::optional<int32_t> cellAt(PixelPoint point, Dpi dpi);

}  // namespace obk
