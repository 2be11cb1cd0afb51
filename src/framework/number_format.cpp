#include "framework/number_format.h"

#include "framework/value.h"

#include <array>
#include <charconv>
#include <cmath>
#include <string>

namespace obk {

std::optional<Text> fixedText(double number, int32_t places) {
    constexpr int32_t mostPlaces = 300;
    constexpr int significantDigits = 15;
    if (!std::isfinite(number) || places < 0 || places > mostPlaces) return std::nullopt;

    std::array<char, 40> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::abs(number),
                                   std::chars_format::scientific, significantDigits - 1)
                         .ptr;
    // "d.ddde±xx": the digits without their point, and the place of the point among them.
    const std::string_view scientific(buffer.data(), static_cast<size_t>(end - buffer.data()));
    const size_t exponentAt = scientific.find('e');
    int exponent = 0;
    std::from_chars(scientific.data() + exponentAt + (scientific[exponentAt + 1] == '+' ? 2 : 1), end,
                    exponent);
    std::string digits(1, scientific[0]);
    digits += scientific.substr(2, exponentAt - 2);
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
