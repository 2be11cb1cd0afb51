// What a person is used to where they live: how numbers and dates are written.
#pragma once

#include "base/text.h"

#include <chrono>
#include <cstdint>
#include <utility>
#include <vector>

namespace obk {

// How the user writes dates.
struct DateForms {
    enum class Order : uint8_t { monthDayYear, dayMonthYear, yearMonthDay };
    Order order = Order::monthDayYear;
    int32_t lastOfTwoDigits = 2049;  // the last of the hundred years that two digits stand for
    // In the user's language: whole, short, and as they stand beside a day.
    std::vector<std::pair<Text, std::chrono::month>> monthNames;
};

struct RegionalFormats {
    char16_t decimalSeparator = u'.';
    DateForms dates;
};

}  // namespace obk
