// Any text as a date: what is read is a day of the calendar, and writes and reads back as itself. As a year
// and as a host's text it leaves the calendar on a month with a chosen day, or on one without days.
#include "datecalendar/calendar_model.h"
#include "datecalendar/quick_menu.h"
#include "datecalendar/typed_date.h"
#include "fuzz_values.h"
#include "platform/headless/headless_machine.h"

#include <algorithm>

using namespace obk;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Text text;
    for (size_t at = 0; at < size; ++at) text += static_cast<char16_t>(data[at]);
    headless::ManualClock clock;
    CalendarModel model(clock);
    model.commit(text);
    model.typeYear(text);
    model.subNEWDATE();
    const FilledMonth& month = model.filled();
    const int32_t days = month.layout.lngDAYSINMONTH;
    fuzz::require(month.chosen >= std::min(days, 1) && month.chosen <= days, "a day is chosen");
    fuzz::require(month.framed >= 0 && month.framed <= days, "a day is framed");
    const auto typed = typedDate(text, clock.dateForms());
    fuzz::require(!typed || typed->ok(), "what is typed is a date of the calendar");
    const auto date = dateFromText(text);
    if (!date) return 0;
    fuzz::require(date->ok(), "a date of the calendar");
    const auto written = dateText(*date);
    fuzz::require(written && dateFromText(*written) == date, "dates come back from their texts");
    fuzz::require(monthMentioned(*written) == date->month(), "a date text mentions its month alone");
    const auto layout = monthLayout(date->year() / date->month());
    const auto day = static_cast<int32_t>(unsigned{date->day()});
    fuzz::require(layout && layout->dayAt(layout->lngFIRSTCELL + day - 1) == day, "every day has a cell");
    for (size_t line = 0; line <= quickMenu().size(); ++line) {
        const auto quick = quickMenuText(line, *date);
        fuzz::require(!quick || quick->empty() || dateFromText(*quick), "quick dates are dates");
    }
    return 0;
}
