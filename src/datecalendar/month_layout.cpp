#include "datecalendar/month_layout.h"

#include <algorithm>

namespace obk {

namespace {

bool inRange(YearMonth month) {
    return month.ok() && int{month.year()} >= firstYear && int{month.year()} <= lastYear;
}

}  // namespace

int32_t MonthLayout::dayAt(int32_t cell) const {
    const int32_t day = cell - lngFIRSTCELL + 1;
    return day >= 1 && day <= lngDAYSINMONTH ? day : 0;
}

int32_t daysShown(YearMonth month) {
    if (month.month() == std::chrono::February) return int{month.year()} % 4 == 0 ? 29 : 28;
    return static_cast<int32_t>(unsigned{(month / std::chrono::last).day()});
}

std::optional<MonthLayout> monthLayout(YearMonth month) {
    if (!inRange(month)) return std::nullopt;
    const std::chrono::weekday first{std::chrono::sys_days(month / 1)};
    const auto offset = static_cast<int32_t>((first - std::chrono::Monday).count());
    return MonthLayout{cellColumns + offset, daysShown(month)};
}

std::optional<YearMonth> turned(YearMonth from, int32_t months) {
    if (!inRange(from)) return std::nullopt;
    constexpr int32_t most = monthsOfYear * (lastYear - firstYear + 1);
    if (months < -most || months > most) return std::nullopt;
    const YearMonth to = from + std::chrono::months(months);
    return inRange(to) ? std::optional(to) : std::nullopt;
}

std::optional<ShownDay> moved(const ShownDay& from, int32_t by) {
    const int32_t day = from.day + by;
    if (day < 1) {
        const auto before = turned(from.month, -1);
        return before ? std::optional(ShownDay{*before, day + daysShown(*before)}) : std::nullopt;
    }
    if (day > daysShown(from.month)) {
        const auto after = turned(from.month, 1);
        return after ? std::optional(ShownDay{*after, day - daysShown(from.month)}) : std::nullopt;
    }
    return ShownDay{from.month, day};
}

std::optional<ShownDay> turned(const ShownDay& from, int32_t months) {
    const auto to = turned(from.month, months);
    return to ? std::optional(ShownDay{*to, std::min(from.day, daysShown(*to))}) : std::nullopt;
}

TwipsRect cellBounds(int32_t cell) {
    const int32_t row = cell / cellColumns;
    const int32_t column = cell % cellColumns;
    return {{105.0 + 390 * column}, {765.0 + 315 * row}, {360}, {270}};
}

std::optional<int32_t> cellAt(PixelPoint point, Dpi dpi) {
    for (int32_t cell = 0; cell < cellCount; ++cell) {
        if (dpi.toPixels(cellBounds(cell)).contains(point)) return cell;
    }
    return std::nullopt;
}

}  // namespace obk
