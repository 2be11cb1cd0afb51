// The dates that the menu of quick dates gives.
#pragma once

#include "datecalendar/date_text.h"

namespace obk {

enum class QuickDate : uint8_t {
    today,
    tomorrow,
    saturday,  // the next one; never today
    sunday,
    nextWeek,  // 7 days on
    inTwoWeeks,
    nextMonth,        // 28 days on, and not the same day of the next month, on purpose
    firstOfNextWeek,  // the next Monday; never today
    firstOfNextMonth,
};

// What is no date comes back as it is.
Date quickDate(QuickDate which, const Date& today);

}  // namespace obk
