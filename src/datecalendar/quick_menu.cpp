#include "datecalendar/quick_menu.h"

#include <array>

namespace obk {

namespace {

struct Line {
    enum class Kind : uint8_t { date, clear, separator };
    TextView caption;
    Kind kind = Kind::separator;
    QuickDate date = QuickDate::today;
};

constexpr Line separator{};
constexpr auto date = Line::Kind::date;

// Each access key once.
constexpr std::array lines{
    Line{u"&Today", date, QuickDate::today},
    Line{u"To&morrow", date, QuickDate::tomorrow},
    Line{u"&Saturday", date, QuickDate::saturday},
    Line{u"S&unday", date, QuickDate::sunday},
    separator,
    Line{u"&Next week", date, QuickDate::nextWeek},
    Line{u"In two &weeks", date, QuickDate::inTwoWeeks},
    Line{u"Next m&onth", date, QuickDate::nextMonth},
    separator,
    Line{u"&First day of next week", date, QuickDate::firstOfNextWeek},
    Line{u"First &day of next month", date, QuickDate::firstOfNextMonth},
    separator,
    Line{u"&Clear", Line::Kind::clear},
};

}  // namespace

std::vector<MenuItem> quickMenu() {
    std::vector<MenuItem> menu;
    for (const Line& line : lines) menu.push_back({Text(line.caption)});
    return menu;
}

std::optional<Text> quickMenuText(size_t position, const Date& today) {
    if (position >= lines.size()) return std::nullopt;
    const Line& line = lines[position];
    switch (line.kind) {
        case Line::Kind::date:
            return dateText(quickDate(line.date, today));
        case Line::Kind::clear:
            return Text();
        case Line::Kind::separator:
            break;
    }
    return std::nullopt;
}

}  // namespace obk
