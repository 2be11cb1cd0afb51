#include "grid/cell_values.h"

#include "grid/cell_date.h"
#include "grid/cell_rules.h"
#include "grid/number_typing.h"

#include <algorithm>
#include <array>

namespace obk {

namespace {

constexpr int32_t hoursOfHalfDay = 12;

Text twoDigits(int32_t number) {
    return (number < 10 ? u"0" : u"") + decimalText(number);
}

// `hour` is 0 to 23.
Text timeText(int32_t hour, int32_t minute, int32_t second) {
    const int32_t shown = hour % hoursOfHalfDay == 0 ? hoursOfHalfDay : hour % hoursOfHalfDay;
    return decimalText(shown) + u":" + twoDigits(minute) + u":" + twoDigits(second) +
           (hour < hoursOfHalfDay ? u" am" : u" pm");
}

// Takes a number of so many digits at most off the start.
std::optional<int32_t> takeNumber(TextView& text, size_t most) {
    int32_t number = 0;
    size_t digits = 0;
    for (; digits < text.size() && digits < most && text[digits] >= u'0' && text[digits] <= u'9'; ++digits)
        number = number * 10 + (text[digits] - u'0');
    text.remove_prefix(digits);
    return digits > 0 ? std::optional(number) : std::nullopt;
}

std::optional<Text> listItem(TextView text, std::span<const Text> items) {
    const auto found = std::find_if(items.begin(), items.end(),
                                    [text](const Text& item) { return equalIgnoringCase(item, text); });
    return found == items.end() ? std::nullopt : std::optional(*found);
}

}  // namespace

const std::vector<Text>& timeList() {
    static const std::vector<Text> list = [] {
        std::vector<Text> times;
        for (int32_t hour = 0; hour < 2 * hoursOfHalfDay; ++hour) {
            for (const int32_t minute : {0, 30}) times.push_back(timeText(hour, minute, 0));
        }
        return times;
    }();
    return list;
}

std::optional<Text> timeText(TextView text) {
    text = trimmed(text);
    std::array<int32_t, 3> parts{};  // hour, minute, second
    for (size_t part = 0; part < parts.size(); ++part) {
        if (part > 0) {
            if (text.empty() || text.front() != u':') {
                if (part == 1) return std::nullopt;
                break;
            }
            text.remove_prefix(1);
        }
        const auto number = takeNumber(text, 2);
        if (!number) return std::nullopt;
        parts[part] = *number;
    }
    text = trimmed(text);
    auto& [hour, minute, second] = parts;
    const bool am = equalIgnoringCase(text, u"am"), pm = equalIgnoringCase(text, u"pm");
    if ((!am && !pm && !text.empty()) || minute > 59 || second > 59) return std::nullopt;
    if (am || pm) {
        if (hour < 1 || hour > hoursOfHalfDay) return std::nullopt;
        hour = hour % hoursOfHalfDay + (pm ? hoursOfHalfDay : 0);
    }
    if (hour >= 2 * hoursOfHalfDay) return std::nullopt;
    return timeText(hour, minute, second);
}

std::optional<Text> cellText(ColumnType type, TextView text, std::span<const Text> listItems,
                             const RegionalFormats& formats) {
    if (type == ColumnType::readOnly) return std::nullopt;
    if (text.empty()) return Text();
    switch (type) {
        case ColumnType::text:
            return Text(text);
        case ColumnType::date:
            if (const auto date = cellDate(text, formats.dates)) return dateText(*date);
            return std::nullopt;
        case ColumnType::checkBox:
            return checkText(trimmed(text));
        case ColumnType::list:
            return listItem(trimmed(text), listItems);
        case ColumnType::number:
            return numberCellText(text, formats.decimalSeparator);
        case ColumnType::time:
            return timeText(text);
        case ColumnType::readOnly:
            break;
    }
    return std::nullopt;
}

}  // namespace obk
