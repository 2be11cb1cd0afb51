#include "updown/numeric_field.h"

#include "framework/number_format.h"
#include "framework/value.h"
#include "widgets/input.h"

#include <limits>

namespace obk {

namespace {

using Pattern = NumericField::Pattern;

std::optional<Text> written(double value, Pattern pattern) {
    return fixedText(value, pattern == Pattern::onePlace ? 1 : 0);
}

std::optional<Text> moved(TextView text, double amount, Pattern pattern) {
    const std::optional<double> value = numberFromText(text);
    return value ? written(*value + amount, pattern) : std::nullopt;
}

}  // namespace

int32_t NumericField::DecimalpointCheck(TextView Number) {
    return Number.find(u'.') == TextView::npos ? 0 : 1;
}

uint8_t NumericField::KeyLock(int32_t KeyAscii, bool Extra_Check, TextView Extra_sText) {
    // 190, the code of the full stop's key, is rejected like any other: key codes are no characters.
    const bool kept = KeyAscii == u'.' ? Extra_Check && DecimalpointCheck(Extra_sText) == 0
                                       : KeyAscii == key::backspace || (KeyAscii >= u'0' && KeyAscii <= u'9');
    return kept ? static_cast<uint8_t>(KeyAscii) : uint8_t{0};
}

std::optional<Text> NumericField::increased(TextView text) const {
    return moved(text, Interval, pattern());
}

std::optional<Text> NumericField::decreased(TextView text) const {
    return moved(text, -Interval, pattern());
}

bool NumericField::atMax(TextView text) const {
    return numberFromText(text).value_or(std::numeric_limits<double>::quiet_NaN()) >= Max;
}

bool NumericField::atMin(TextView text) const {
    return numberFromText(text).value_or(std::numeric_limits<double>::quiet_NaN()) <= Min;
}

std::optional<Text> NumericField::heldByMax(TextView text, Pattern writtenAs) const {
    const std::optional<double> value = numberFromText(text);
    return value && *value > Max ? written(Max, writtenAs) : std::nullopt;
}

std::optional<Text> NumericField::heldByMin(TextView text, Pattern writtenAs) const {
    const std::optional<double> value = numberFromText(text);
    return value && *value < Min ? written(Min, writtenAs) : std::nullopt;
}

}  // namespace obk
