#include "datecalendar/typed_date.h"

#include "base/letter_case.h"

#include <algorithm>
#include <vector>

namespace obk {

namespace {

constexpr size_t longestYear = 4;

bool isDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

bool isLetter(char16_t unit) {
    constexpr char16_t firstBeyondAscii = 0x80, noBreakSpace = 0xA0;
    // Blanks and marks of direction, which the system's own dates are sprinkled with.
    const bool blank = unit == noBreakSpace || (unit >= 0x2000 && unit <= 0x206F);
    return (upperAscii(unit) >= u'A' && upperAscii(unit) <= u'Z') || (unit >= firstBeyondAscii && !blank);
}

// The longest pieces of one kind, in their order.
std::vector<TextView> piecesOf(TextView text, bool (*isKind)(char16_t)) {
    std::vector<TextView> pieces;
    for (auto at = text.begin(); (at = std::find_if(at, text.end(), isKind)) != text.end();) {
        const auto end = std::find_if_not(at, text.end(), isKind);
        pieces.emplace_back(at, end);
        at = end;
    }
    return pieces;
}

Text upper(TextView text) {
    Text result(text);
    std::transform(result.begin(), result.end(), result.begin(), upperSimple);
    return result;
}

// Whether the letters of a name, which may be several words or end in a full stop, follow each other here.
bool holds(const std::vector<TextView>& words, TextView name) {
    const std::vector<TextView> wanted = piecesOf(name, isLetter);
    const auto same = [](TextView left, TextView right) { return upper(left) == upper(right); };
    return !wanted.empty() &&
           std::search(words.begin(), words.end(), wanted.begin(), wanted.end(), same) != words.end();
}

bool isEnglish(TextView word, std::chrono::month month) {
    const TextView name = monthName(month);
    return word.size() >= monthAbbreviation(month).size() && word.size() <= name.size() &&
           equalIgnoringCase(word, name.substr(0, word.size()));
}

// The user's own names first: what begins an English month may be a weekday there.
std::optional<std::chrono::month> monthNamed(const std::vector<TextView>& words, const DateForms& forms) {
    for (const auto& [name, month] : forms.monthNames) {
        // One that has digits is found by them.
        if (std::none_of(name.begin(), name.end(), isDigit) && holds(words, name)) return month;
    }
    for (const TextView word : words) {
        for (unsigned month = 1; month <= 12; ++month) {
            if (isEnglish(word, std::chrono::month(month))) return std::chrono::month(month);
        }
    }
    return std::nullopt;
}

unsigned numberFrom(TextView digits) {
    unsigned value = 0;
    for (const char16_t digit : digits) value = value * 10 + (digit - u'0');
    return value;
}

}  // namespace

std::optional<int32_t> yearOfTwoDigits(TextView digits, const DateForms& forms) {
    constexpr int32_t century = 100;
    if (digits.empty() || digits.size() > 2 || !std::all_of(digits.begin(), digits.end(), isDigit))
        return std::nullopt;
    const int32_t latest =
        forms.lastOfTwoDigits / century * century + static_cast<int32_t>(numberFrom(digits));
    const int32_t year = latest > forms.lastOfTwoDigits ? latest - century : latest;
    return year >= firstYear ? std::optional(year) : std::nullopt;
}

std::optional<Date> typedDate(TextView text, const DateForms& forms) {
    using Order = DateForms::Order;
    std::vector<TextView> numbers = piecesOf(text, isDigit);
    constexpr size_t isoLength = 8;
    if (numbers.size() == 1 && numbers[0].size() == isoLength)
        numbers = {numbers[0].substr(0, 4), numbers[0].substr(4, 2), numbers[0].substr(6)};
    const auto named = monthNamed(piecesOf(text, isLetter), forms);
    if (numbers.size() != (named ? 2 : 3)) return std::nullopt;
    const bool yearFirst =
        numbers.front().size() > 2 || (numbers.back().size() <= 2 && forms.order == Order::yearMonthDay);
    const TextView year = yearFirst ? numbers.front() : numbers.back();
    // What stands before such a year may be the name of an era, which it is counted in.
    if (yearFirst && year.size() < longestYear && std::any_of(text.data(), year.data(), isLetter))
        return std::nullopt;
    numbers.erase(yearFirst ? numbers.begin() : numbers.end() - 1);
    const auto isShort = [](TextView number) { return number.size() <= 2; };
    if (year.size() > longestYear || !std::all_of(numbers.begin(), numbers.end(), isShort))
        return std::nullopt;
    const bool monthFirst = yearFirst || forms.order != Order::dayMonthYear;
    const auto month = named ? *named : std::chrono::month{numberFrom(numbers[monthFirst ? 0 : 1])};
    const auto day = numberFrom(numbers[!named && monthFirst ? 1 : 0]);
    const auto inFull =
        year.size() > 2 ? static_cast<int32_t>(numberFrom(year)) : yearOfTwoDigits(year, forms);
    if (!inFull) return std::nullopt;
    const Date date = std::chrono::year{*inFull} / month / std::chrono::day{day};
    return date.ok() ? std::optional(date) : std::nullopt;
}

}  // namespace obk
