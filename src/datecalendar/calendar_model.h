// The date field without a widget: the text that is the date, the month and the day that its calendar shows,
// and what keys, turns and choices make of them.
#pragma once

#include "base/event.h"
#include "datecalendar/month_layout.h"
#include "widgets/input.h"
#include "widgets/platform.h"

namespace obk {

class CalendarModel {
public:
    // The clock is borrowed, and asked whenever it matters which day it is and how dates are written.
    explicit CalendarModel(Clock& clock);

    // The committed date is a text, whatever that says. Blanks around it are kept, and read by nobody.
    void commit(TextView text);
    TextView date() const { return trimmed(strDATETEXT); }
    // What the text box was last changed to, by whatever wrote or loaded it, or by a person.
    void write(Text text);
    void type(TextView text);
    const Text& typed() const { return strTYPEDTEXT; }
    // Whether a person has changed the text since the date was committed last.
    bool edited() const { return edited_; }
    // Today that stands in for an empty date, since the calendar was opened on it, goes again.
    void endStandIn();

    std::chrono::month month() const { return month_; }
    // As it was typed. While it is no year there are no days, and nothing turns or is chosen.
    const Text& year() const { return year_; }
    const FilledMonth& filled() const { return filled_; }
    // The text of the chosen day. Throws StatementFailed where it has none: while there is no year, and for a
    // day that only the calendar knows, such as 29 February 1900.
    Text chosenText() const;

    void CalendarUpdate() { refill(); }
    // The month and the year that the date's text mentions; either stays where there is none.
    void subNEWDATE();
    // `framed` is the day that has the frame where the date's text gives it to none; 0 for no day.
    void show(YearMonth month, int32_t framed = 0);
    // The date's month, its day chosen and framed; today stands in for an empty date. A text that is no date
    // behind its weekday is read as people write dates. Throws StatementFailed for any other one, with
    // nothing else changed.
    void showDate();

    void chooseMonth(std::chrono::month month);
    // Without effect while the calendar is being refilled: what shows it echoes its year then.
    void typeYear(TextView year);
    // A year of one or two digits gets its century; anything else that is none gives way to the last that
    // was.
    void endYear();
    // Without effect beyond the years of date texts.
    void turn(int32_t months);
    // What a key does while the calendar is open: moves the chosen day, or turns months and years. Whether it
    // is such a key; at the ends of time it is one without effect.
    bool walk(const KeyEvent& event);
    void chooseCell(int32_t cell);
    void chooseToday();

    Event<> changed;  // `month`, `year` and `filled` may be others now

private:
    std::optional<YearMonth> shownMonth() const;
    int32_t mentionedDay(YearMonth shown) const;
    void refill(int32_t framed = 0);

    Clock& clock_;
    Text strDATETEXT;
    Text strTYPEDTEXT;
    bool edited_ = false;
    bool standsIn_ = false;
    std::chrono::month month_;
    Text year_;
    int32_t lastYear_ = firstYear;  // that was one
    int32_t lngDAY = 0;             // below 1: none yet, so that today's is taken
    FilledMonth filled_;
    bool blnCALENDARBUSY = false;
};

}  // namespace obk
