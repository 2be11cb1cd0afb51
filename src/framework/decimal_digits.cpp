#include "framework/decimal_digits.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace obk {

// By the C library's conversion: the tables of the C++ library's own make a server larger by a twelfth.
DecimalDigits decimalDigits(double number, int count) {
    std::array<char, 40> written{};
    std::snprintf(written.data(), written.size(), "%.*e", count - 1, std::abs(number));
    DecimalDigits found;
    const char* at = written.data();
    // The point between them is that of the process.
    for (; *at != 'e'; ++at) {
        if (*at >= '0' && *at <= '9') found.digits.push_back(*at);
    }
    found.exponent = static_cast<int>(std::strtol(at + 1, nullptr, 10));
    return found;
}

}  // namespace obk
