#include "grid/cell_date.h"

#include <algorithm>
#include <array>
#include <utility>

namespace obk {

namespace {

struct Number {
    int32_t value = 0;
    size_t digits = 0;
};

// Three numbers with one and the same mark between them.
std::optional<std::array<Number, 3>> threeNumbers(TextView text) {
    const size_t at = text.find_first_of(u"./-");
    if (at == TextView::npos) return std::nullopt;
    const char16_t mark = text[at];
    std::array<Number, 3> numbers{};
    size_t number = 0;
    for (const char16_t unit : text) {
        if (unit == mark && ++number < numbers.size()) continue;
        if (unit < u'0' || unit > u'9' || ++numbers[number].digits > 4) return std::nullopt;
        numbers[number].value = numbers[number].value * 10 + (unit - u'0');
    }
    return number + 1 == numbers.size() ? std::optional(numbers) : std::nullopt;
}

std::optional<int32_t> yearOf(Number year, int32_t lastOfTwoDigits) {
    if (year.digits == 4) return year.value;
    if (year.digits != 2) return std::nullopt;
    return lastOfTwoDigits - (lastOfTwoDigits - year.value) % 100;
}

std::optional<Date> numericDate(TextView text, const DateForms& forms) {
    const auto numbers = threeNumbers(text);
    if (!numbers) return std::nullopt;
    auto [first, second, third] = *numbers;
    const bool yearFirst = first.digits == 4;
    if (!yearFirst && forms.order == DateForms::Order::yearMonthDay) {
        if (third.digits == 4) return std::nullopt;
    } else if (!yearFirst) {
        if (forms.order == DateForms::Order::monthDayYear) std::swap(first, second);
        std::swap(first, third);
    }
    const auto year = yearOf(first, forms.lastOfTwoDigits);
    const auto shortNumber = [](Number number) { return number.digits == 1 || number.digits == 2; };
    if (!year || !shortNumber(second) || !shortNumber(third)) return std::nullopt;
    return std::chrono::year(*year) / std::chrono::month(static_cast<unsigned>(second.value)) /
           std::chrono::day(static_cast<unsigned>(third.value));
}

// With a year of two digits at its end.
std::optional<Date> shortNamedDate(TextView text, const DateForms& forms) {
    const auto isDigit = [](char16_t unit) { return unit >= u'0' && unit <= u'9'; };
    size_t start = text.size();
    while (start > 0 && isDigit(text[start - 1])) --start;
    if (text.size() - start != 2 || forms.order == DateForms::Order::yearMonthDay) return std::nullopt;
    const Number year{(text[start] - u'0') * 10 + (text[start + 1] - u'0'), 2};
    return dateFromText(Text(text.substr(0, start)) + yearText(*yearOf(year, forms.lastOfTwoDigits)));
}

}  // namespace

std::optional<Date> cellDate(TextView text, const DateForms& forms) {
    text = trimmed(text);
    if (const auto date = dateFromText(text)) return date;
    if (const auto date = numericDate(text, forms)) return date;
    return shortNamedDate(text, forms);
}

}  // namespace obk
