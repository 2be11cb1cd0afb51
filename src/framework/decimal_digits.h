// The decimal digits of a number.
#pragma once

#include <string>

namespace obk {

// A number's amount as d.ddd × 10^exponent: its digits without the point. Negative numbers have those of
// their amount.
struct DecimalDigits {
    std::string digits;
    int exponent = 0;
};

// `count` significant digits (1 to 17), rounded as the number's exact value is. Only for finite numbers.
DecimalDigits decimalDigits(double number, int count);

}  // namespace obk
