#include "datecalendar/date_text.h"

#include <algorithm>
#include <array>
#include <vector>

namespace obk {

namespace {

constexpr size_t abbreviationLength = 3;

constexpr std::array<TextView, 12> monthNames{u"January",   u"February", u"March",    u"April",
                                              u"May",       u"June",     u"July",     u"August",
                                              u"September", u"October",  u"November", u"December"};
constexpr std::array<TextView, 7> weekdayNames{u"Sunday",   u"Monday", u"Tuesday", u"Wednesday",
                                               u"Thursday", u"Friday", u"Saturday"};

// A date text has at most a weekday and three parts; one more shows that there are too many.
constexpr size_t mostWords = 5;

std::vector<TextView> wordsOf(TextView text) {
    constexpr TextView separators = u" ,-/.";
    std::vector<TextView> words;
    for (size_t at = 0; words.size() < mostWords;) {
        const size_t begin = text.find_first_not_of(separators, at);
        if (begin == TextView::npos) break;
        at = std::min(text.find_first_of(separators, begin), text.size());
        words.push_back(text.substr(begin, at - begin));
    }
    return words;
}

// The position of a name or of its abbreviation.
template <size_t Count>
std::optional<unsigned> positionOf(TextView word, const std::array<TextView, Count>& names) {
    for (size_t at = 0; at < Count; ++at) {
        if (equalIgnoringCase(word, names[at]) ||
            equalIgnoringCase(word, names[at].substr(0, abbreviationLength)))
            return static_cast<unsigned>(at);
    }
    return std::nullopt;
}

std::optional<int32_t> digits(TextView text, size_t most) {
    if (text.empty() || text.size() > most) return std::nullopt;
    int32_t value = 0;
    for (const char16_t unit : text) {
        if (unit < u'0' || unit > u'9') return std::nullopt;
        value = value * 10 + (unit - u'0');
    }
    return value;
}

bool writable(const Date& date) {
    return date.ok() && int{date.year()} >= firstYear && int{date.year()} <= lastYear;
}

}  // namespace

TextView monthName(std::chrono::month month) {
    return month.ok() ? monthNames[unsigned{month} - 1] : TextView();
}

TextView monthAbbreviation(std::chrono::month month) {
    return monthName(month).substr(0, abbreviationLength);
}

TextView weekdayName(std::chrono::weekday weekday) {
    return weekday.ok() ? weekdayNames[weekday.c_encoding()] : TextView();
}

Text yearText(int32_t year) {
    constexpr size_t width = 4;
    Text text = decimalText(year);
    if (text.size() < width) text.insert(0, width - text.size(), u'0');
    return text;
}

std::optional<int32_t> yearFromText(TextView text) {
    const auto year = digits(trimmed(text), 4);
    return year && *year >= firstYear && *year <= lastYear ? year : std::nullopt;
}

std::optional<Text> dateText(const Date& date) {
    if (!writable(date)) return std::nullopt;
    const std::chrono::weekday weekday{std::chrono::sys_days(date)};
    Text text(weekdayName(weekday).substr(0, abbreviationLength));
    text += u' ';
    text += decimalText(unsigned{date.day()});
    text += u' ';
    text += monthAbbreviation(date.month());
    text += u' ';
    text += yearText(int{date.year()});
    return text;
}

std::optional<Date> dateFromText(TextView text) {
    std::vector<TextView> words = wordsOf(text);
    if (words.size() == 4 && positionOf(words[0], weekdayNames)) words.erase(words.begin());
    if (words.size() != 3) return std::nullopt;
    auto month = positionOf(words[1], monthNames);
    auto day = digits(words[0], 2);
    if (!month) {
        month = positionOf(words[0], monthNames);
        day = digits(words[1], 2);
    }
    const auto year = yearFromText(words[2]);
    if (!month || !day || !year) return std::nullopt;
    const Date date{std::chrono::year(*year), std::chrono::month(*month + 1),
                    std::chrono::day(static_cast<unsigned>(*day))};
    return writable(date) ? std::optional(date) : std::nullopt;
}

std::optional<std::chrono::month> monthMentioned(TextView text) {
    using namespace std::chrono;
    const Text upper = upperAscii(text);
    for (const month each :
         {September, April, June, November, January, March, May, July, August, October, December, February}) {
        if (upper.find(upperAscii(monthAbbreviation(each))) != Text::npos) return each;
    }
    return std::nullopt;
}

}  // namespace obk
