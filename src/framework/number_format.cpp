#include "framework/number_format.h"

#include "framework/decimal_digits.h"
#include "framework/value.h"

#include <cmath>
#include <string>

namespace obk {

std::optional<Text> fixedText(double number, int32_t places) {
    constexpr int32_t mostPlaces = 300;
    constexpr int significantDigits = 15;
    if (!std::isfinite(number) || places < 0 || places > mostPlaces) return std::nullopt;

    auto [digits, exponent] = decimalDigits(number, significantDigits);
    int pointAt = exponent + 1;

    if (pointAt <= 0) {
        const int zeros = 1 - pointAt;
        digits.insert(0, static_cast<size_t>(zeros), '0');
        pointAt = 1;
    }
    const auto kept = static_cast<size_t>(pointAt) + static_cast<size_t>(places);
    const bool up = kept < digits.size() && digits[kept] >= '5';
    digits.resize(kept, '0');
    if (up) {
        size_t at = kept;
        while (at > 0 && digits[at - 1] == '9') digits[--at] = '0';
        if (at > 0) {
            ++digits[at - 1];
        } else {
            digits.insert(digits.begin(), '1');
            ++pointAt;
        }
    }
    const bool isZero = digits.find_first_not_of('0') == std::string::npos;
    std::string text = std::signbit(number) && !isZero ? "-" : "";
    text += digits.substr(0, static_cast<size_t>(pointAt));
    if (places > 0) text += "." + digits.substr(static_cast<size_t>(pointAt));
    return fromUtf8(text);
}

std::optional<Text> Datep(TextView text, int32_t places) {
    constexpr int32_t usualPlaces = 2;
    const std::optional<double> number = numberFromText(text);
    return number ? fixedText(*number, places == 0 ? usualPlaces : places) : std::nullopt;
}

}  // namespace obk
