#include "grid/number_typing.h"

#include "framework/number_format.h"
#include "framework/value.h"
#include "widgets/text_box.h"

#include <algorithm>

namespace obk {

namespace {

constexpr char16_t point = u'.', minus = u'-';

// The text but for what typing replaces.
Text withoutSelection(const TextBox& line) {
    const TextSelection selected = line.selection();
    Text rest = line.text();
    rest.erase(static_cast<size_t>(selected.start), static_cast<size_t>(selected.length));
    return rest;
}

void turnSign(TextBox& line) {
    const TextSelection selected = line.selection();
    const bool replaced = selected.length > 0 && withoutSelection(line).empty();
    const Text before = replaced ? Text() : line.text();
    const bool negative = !before.empty() && before.front() == minus;
    line.setText(negative ? before.substr(1) : minus + before);
    const int32_t start = replaced ? 0 : selected.start;
    line.setSelection({std::max(start + (negative ? -1 : 1), 0), replaced ? 0 : selected.length});
}

}  // namespace

NumberEntry::Step NumberTyping::stepOf(const KeyEvent& event) const {
    if (event.shift != shift::alt) return Step::none;
    return event.code == key::up ? Step::up : event.code == key::down ? Step::down : Step::none;
}

std::optional<Text> NumberTyping::stepped(TextView text, Step step) const {
    constexpr ptrdiff_t exactDigits = 15;
    const std::optional<double> number = text.empty() ? 0 : numberFromText(text);
    const ptrdiff_t digits =
        std::count_if(text.begin(), text.end(), [](char16_t unit) { return unit >= u'0' && unit <= u'9'; });
    if (!number || digits > exactDigits) return std::nullopt;
    const size_t at = text.find(point);
    const auto decimals = at == TextView::npos ? 0 : static_cast<int32_t>(text.size() - at - 1);
    return fixedText(*number + static_cast<int>(step), decimals);
}

int16_t NumberTyping::filtered(int16_t character, const TextBox& line) const {
    if ((character >= u'0' && character <= u'9') || character == key::backspace || character == minus)
        return character;
    const bool separates = character == point || character == static_cast<int16_t>(decimalSeparator_);
    return separates && withoutSelection(line).find(point) == Text::npos ? int16_t{point} : int16_t{0};
}

int16_t NumberTyping::written(int16_t character, TextBox& line) const {
    if (character == minus) {
        turnSign(line);
        return 0;
    }
    const TextSelection selected = line.selection();
    if (character >= point && selected.start == 0 && selected.length == 0 && line.text().starts_with(minus))
        line.setSelection({1, 0});
    return character;
}

std::optional<Text> numberCellText(TextView text, char16_t decimalSeparator) {
    text = trimmed(text);
    Text number(text);
    const size_t comma = text.find(u',');
    if (decimalSeparator == u',' && comma != TextView::npos) {
        number = text.substr(0, comma);
        std::erase(number, point);
        number += point;
        number += text.substr(comma + 1);
        if (number.find(u',') != Text::npos) return std::nullopt;
    }
    return numberFromText(number) ? std::optional(std::move(number)) : std::nullopt;
}

}  // namespace obk
