// Dates as people type and paste them into cells.
#pragma once

#include "datecalendar/date_text.h"
#include "widgets/regional.h"

namespace obk {

// Out of English month names, of numbers in the user's order, and of numbers with the year of four digits
// first, and of nothing else: a text that only mentions a date stays as it is. A year of two digits is one of
// the hundred up to the last that the user knows. Nothing for any other text, for a day that the month does
// not have, and where the year could be more than one of the numbers.
std::optional<Date> cellDate(TextView text, const DateForms& forms);

}  // namespace obk
