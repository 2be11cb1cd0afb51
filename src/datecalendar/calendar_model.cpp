#include "datecalendar/calendar_model.h"

#include "base/attempt.h"
#include "base/scoped_value.h"
#include "datecalendar/typed_date.h"

#include <algorithm>
#include <utility>

namespace obk {

namespace {

int32_t dayOf(const Date& date) {
    return static_cast<int32_t>(unsigned{date.day()});
}

YearMonth monthOf(const Date& date) {
    return date.year() / date.month();
}

std::optional<ShownDay> walked(const ShownDay& from, int16_t code, bool byYear) {
    const int32_t page = byYear ? monthsOfYear : 1;
    switch (code) {
        case key::left:
            return moved(from, -1);
        case key::right:
            return moved(from, 1);
        case key::up:
            return moved(from, -cellColumns);
        case key::down:
            return moved(from, cellColumns);
        case key::home:
            return ShownDay{byYear ? from.month.year() / std::chrono::January : from.month, 1};
        case key::end: {
            const YearMonth last = byYear ? from.month.year() / std::chrono::December : from.month;
            return ShownDay{last, daysShown(last)};
        }
        default:
            return turned(from, code == key::pageUp ? -page : page);
    }
}

}  // namespace

CalendarModel::CalendarModel(Clock& clock) : clock_(clock) {
    show(monthOf(clock_.today()));
}

void CalendarModel::commit(TextView text) {
    strDATETEXT = text;
    edited_ = false;
    standsIn_ = false;
}

void CalendarModel::write(Text text) {
    strTYPEDTEXT = std::move(text);
    edited_ = false;
}

void CalendarModel::type(TextView text) {
    strTYPEDTEXT = text;
    edited_ = true;
}

void CalendarModel::endStandIn() {
    if (standsIn_) commit({});
}

std::optional<YearMonth> CalendarModel::shownMonth() const {
    const auto year = yearFromText(year_);
    return year ? std::optional(std::chrono::year(*year) / month_) : std::nullopt;
}

Text CalendarModel::chosenText() const {
    const auto month = shownMonth();
    const auto text =
        month ? dateText(*month / std::chrono::day(static_cast<unsigned>(lngDAY))) : std::nullopt;
    if (!text) throw StatementFailed("the chosen day is no date");
    return *text;
}

void CalendarModel::subNEWDATE() {
    constexpr size_t yearLength = 4;
    const TextView text = date();
    attempt([&] { month_ = monthMentioned(text).value_or(month_); });
    attempt([&] {
        const auto year = yearFromText(text.substr(text.size() - std::min(text.size(), yearLength)));
        if (year) year_ = yearText(*year);
    });
    refill();
}

void CalendarModel::showDate() {
    constexpr size_t weekdayAndBlank = 4;
    if (date().empty()) {
        const auto today = dateText(clock_.today());
        if (!today) throw StatementFailed("today has no date text");
        strDATETEXT = *today;
        standsIn_ = true;
    }
    const TextView text = date();
    auto shown = dateFromText(text.substr(std::min(text.size(), weekdayAndBlank)));
    if (!shown) shown = typedDate(text, clock_.dateForms());
    if (!shown) throw StatementFailed("the text is no date");
    lngDAY = dayOf(*shown);
    show(monthOf(*shown), lngDAY);
}

void CalendarModel::chooseMonth(std::chrono::month month) {
    month_ = month;
    refill();
}

void CalendarModel::typeYear(TextView year) {
    if (blnCALENDARBUSY) return;
    year_ = year;
    refill();
}

void CalendarModel::endYear() {
    auto year = yearFromText(year_);
    if (!year) year = yearOfTwoDigits(year_, clock_.dateForms());
    const int32_t shown = year.value_or(lastYear_);
    if (yearText(shown) != year_) show(std::chrono::year(shown) / month_);
}

void CalendarModel::turn(int32_t months) {
    const auto from = shownMonth();
    if (const auto to = from ? turned(*from, months) : std::nullopt) show(*to);
}

bool CalendarModel::walk(const KeyEvent& event) {
    // These keys have successive codes.
    const bool goesFar = event.code >= key::pageUp && event.code <= key::home;
    const bool byYear = goesFar && event.shift == shift::control;
    const bool walks = event.code >= key::pageUp && event.code <= key::down;
    const auto month = shownMonth();
    if (!walks || !month || (event.shift != 0 && !byYear)) return false;
    const auto to = walked({*month, lngDAY}, event.code, byYear);
    if (!to) return true;
    lngDAY = to->day;
    // A walk inside the month leaves the frame where it is.
    show(to->month, to->month == *month ? filled_.framed : 0);
    return true;
}

void CalendarModel::chooseCell(int32_t cell) {
    lngDAY = filled_.layout.dayAt(cell);
}

void CalendarModel::chooseToday() {
    const Date today = clock_.today();
    lngDAY = dayOf(today);
    show(monthOf(today));
}

void CalendarModel::show(YearMonth month, int32_t framed) {
    month_ = month.month();
    year_ = yearText(int{month.year()});
    refill(framed);
}

void CalendarModel::refill(int32_t framed) {
    const ScopedFlag busy(blnCALENDARBUSY);
    const auto month = shownMonth();
    if (month) lastYear_ = int{month->year()};
    filled_ = {};
    filled_.layout.lngDAYSINMONTH = 0;
    filled_.heading = Text(monthName(month_)) + u", " + year_;
    if (const auto layout = month ? monthLayout(*month) : std::nullopt) {
        const Date today = clock_.today();
        if (lngDAY > layout->lngDAYSINMONTH) lngDAY = 1;
        if (lngDAY < 1) lngDAY = dayOf(today);
        const int32_t mentioned = mentionedDay(*month);
        filled_.layout = *layout;
        filled_.chosen = lngDAY;
        filled_.today = *month == monthOf(today) ? dayOf(today) : 0;
        filled_.framed = mentioned != 0 ? mentioned : framed;
    }
    changed();
}

// The day that the date's text gives the frame to in the month shown; 0 for none. The month is looked for at
// the start of the text, where the texts of this control have the weekday: of theirs the frame shows from the
// opening of the calendar until the first refill. It is meant.
int32_t CalendarModel::mentionedDay(YearMonth shown) const {
    const TextView text = date();
    if (text.substr(0, 3).find(monthAbbreviation(shown.month())) == TextView::npos) return 0;
    const auto committed = dateFromText(text);
    return committed && year_.find(yearText(int{committed->year()})) != Text::npos ? dayOf(*committed) : 0;
}

}  // namespace obk
