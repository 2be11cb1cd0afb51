// Reads a date as people write one, where the fixed English form does not fit.
#pragma once

#include "datecalendar/date_text.h"
#include "widgets/platform.h"

namespace obk {

// The user's short and long form, ISO ("2026-03-02", "20260302"), and three numbers or two beside the name of
// a month, in the user's language or in English, anywhere among other words. The number of more than two
// digits is the year; without one the user's order says which is, and the system which century. Nothing for
// any other text, for a day that the month does not have, and for a short year behind a word, which may be an
// era's.
std::optional<Date> typedDate(TextView text, const DateForms& forms);

// With the century that the system gives it; nothing for what is not one digit or two, and where that is no
// year of a date text.
std::optional<int32_t> yearOfTwoDigits(TextView digits, const DateForms& forms);

}  // namespace obk
