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
constexpr int32_t monthsOfYear = 12;

struct MonthLayout {
    int32_t lngFIRSTCELL = cellColumns;  // of day 1: 7 to 13
    int32_t lngDAYSINMONTH = 31;

    // 0 for a cell without a day.
    int32_t dayAt(int32_t cell) const;
    int32_t cellOf(int32_t day) const { return lngFIRSTCELL + day - 1; }
    friend bool operator==(const MonthLayout&, const MonthLayout&) = default;
};

// A month as it is shown; days that are marked are 0 for none.
struct FilledMonth {
    MonthLayout layout;
    Text heading;  // "November, 2026"
    int32_t chosen = 0;
    int32_t today = 0;
    int32_t framed = 0;  // the committed date's
};

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

// The same day of another month, or the last one of a month that lacks it.
std::optional<ShownDay> turned(const ShownDay& from, int32_t months);

// Where a cell is in the panel, in twips.
TwipsRect cellBounds(int32_t cell);
// The cell around a point of the panel; nothing in the gaps and outside.
std::optional<int32_t> cellAt(PixelPoint point, Dpi dpi);

}  // namespace obk
