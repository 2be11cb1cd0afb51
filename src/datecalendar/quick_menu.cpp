#include "datecalendar/quick_menu.h"

#include <array>

namespace obk {

namespace {

using std::chrono::days;
using std::chrono::sys_days;

template <int Days>
Date in(sys_days today) {
    return today + days(Days);
}

// Never today.
template <unsigned Weekday>
Date next(sys_days today) {
    const days ahead = std::chrono::weekday(Weekday) - std::chrono::weekday(today);
    return today + (ahead == days(0) ? days(7) : ahead);
}

Date firstOfNextMonth(sys_days today) {
    const Date date(today);
    return (date.year() / date.month() + std::chrono::months(1)) / 1;
}

struct Line {
    TextView caption;                        // none: a separator
    Date (*date)(sys_days today) = nullptr;  // null: what is written is empty
};

constexpr unsigned sunday = 0, monday = 1, saturday = 6;

// Each access key once.
constexpr std::array lines{
    Line{u"&Today", in<0>},
    Line{u"To&morrow", in<1>},
    Line{u"&Saturday", next<saturday>},
    Line{u"S&unday", next<sunday>},
    Line{},
    Line{u"&Next week", in<7>},
    Line{u"In two &weeks", in<14>},
    Line{u"Next m&onth", in<28>},  // and not the same day of the next month: it is meant
    Line{},
    Line{u"&First day of next week", next<monday>},
    Line{u"First &day of next month", firstOfNextMonth},
    Line{},
    Line{u"&Clear"},
};

}  // namespace

std::vector<MenuItem> quickMenu() {
    std::vector<MenuItem> menu;
    menu.reserve(lines.size());
    for (const Line& line : lines) menu.push_back({Text(line.caption)});
    return menu;
}

std::optional<Text> quickMenuText(size_t position, const Date& today) {
    if (position >= lines.size() || lines[position].caption.empty()) return std::nullopt;
    const auto date = lines[position].date;
    if (!date) return Text();
    return today.ok() ? dateText(date(today)) : std::nullopt;
}

}  // namespace obk
