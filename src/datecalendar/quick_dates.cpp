#include "datecalendar/quick_dates.h"

namespace obk {

namespace {

using std::chrono::days;
using std::chrono::sys_days;
using std::chrono::weekday;

sys_days next(weekday wanted, sys_days today) {
    const days ahead = wanted - weekday(today);
    return today + (ahead == days(0) ? days(7) : ahead);
}

}  // namespace

Date quickDate(QuickDate which, const Date& today) {
    if (!today.ok()) return today;
    const sys_days day(today);
    switch (which) {
        case QuickDate::today:
            break;
        case QuickDate::tomorrow:
            return day + days(1);
        case QuickDate::saturday:
            return next(std::chrono::Saturday, day);
        case QuickDate::sunday:
            return next(std::chrono::Sunday, day);
        case QuickDate::nextWeek:
            return day + days(7);
        case QuickDate::inTwoWeeks:
            return day + days(14);
        case QuickDate::nextMonth:
            return day + days(28);
        case QuickDate::firstOfNextWeek:
            return next(std::chrono::Monday, day);
        case QuickDate::firstOfNextMonth:
            return (today.year() / today.month() + std::chrono::months(1)) / 1;
    }
    return today;
}

}  // namespace obk
