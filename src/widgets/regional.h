// What a person is used to where they live: how numbers and dates are written.
#pragma once

#include <cstdint>

namespace obk {

enum class DateOrder : uint8_t { dayMonthYear, monthDayYear, yearMonthDay };

struct RegionalFormats {
    char16_t decimalSeparator = u'.';
    DateOrder dateOrder = DateOrder::dayMonthYear;
    // 2049: "49" is the year 2049, "50" is 1950.
    int32_t lastYearOfTwoDigits = 2049;
};

}  // namespace obk
