// Dates as the texts that hosts know, "Sat 14 Nov 2026": English, whatever the user's language.
#pragma once

#include "base/text.h"

#include <chrono>
#include <cstdint>
#include <optional>

namespace obk {

using Date = std::chrono::year_month_day;

// The years that a date text can have.
constexpr int32_t firstYear = 100;
constexpr int32_t lastYear = 9999;

// What a date text is followed by wherever it is shown or handed to a host.
constexpr TextView displayBlanks = u"        ";

// "January"; empty for what is no month. Its abbreviation is the first three letters.
TextView monthName(std::chrono::month month);
TextView monthAbbreviation(std::chrono::month month);
// "Saturday"; empty for what is no weekday.
TextView weekdayName(std::chrono::weekday weekday);

// Four digits.
Text yearText(int32_t year);
// Nothing for a text that is not all digits, blanks at its ends aside, or outside the years above.
std::optional<int32_t> yearFromText(TextView text);

// "Sat 14 Nov 2026". Nothing for what is no date in the calendar, or outside the years above.
std::optional<Text> dateText(const Date& date);

// Reads day, month and year, or month, day and year: "14 Nov 2026", "november 14, 2026"; a weekday before
// them is passed over, right or wrong. Months are names or their abbreviations, in any case; years have three
// or four digits. Nothing for any other text, and for a day that the month does not have.
std::optional<Date> dateFromText(TextView text);

// The month whose abbreviation occurs anywhere in the text, even inside a word; the first one in the fixed
// order of the look-up when there are several.
std::optional<std::chrono::month> monthMentioned(TextView text);

}  // namespace obk
