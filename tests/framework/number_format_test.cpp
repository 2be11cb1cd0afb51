#include "framework/number_format.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <random>

namespace obk::test {
namespace {

// Whole-number arithmetic on the 15 digits that the C library prints.
std::string roundedByHand(double number, int places) {
    char digits[40];
    std::snprintf(digits, sizeof digits, "%.14e", std::abs(number));
    const int exponent = std::atoi(digits + 17);
    const long long significant = std::stoll(std::string(1, digits[0]) + std::string(digits + 2, 14));
    std::string units;  // of the last place
    const int shift = exponent - 14 + places;
    if (shift >= 0) {
        units = std::to_string(significant) + std::string(static_cast<size_t>(shift), '0');
    } else if (shift < -16) {
        units = "0";
    } else {
        long long power = 1;
        for (int i = 0; i < -shift; ++i) power *= 10;
        units = std::to_string((2 * significant + power) / (2 * power));
    }
    const auto count = static_cast<size_t>(places);
    units.erase(0, std::min(units.find_first_not_of('0'), units.size()));
    const bool zero = units.empty();
    if (units.size() <= count) units.insert(0, count + 1 - units.size(), '0');
    if (places > 0) units.insert(units.size() - count, ".");
    return (number < 0 && !zero ? "-" : "") + units;
}

TEST(FixedTextTest, HalvesGoAwayFromZeroOnTheDigitsAPersonSees) {
    const auto written = [](double number, int32_t places) {
        return toUtf8(fixedText(number, places).value_or(u"none"));
    };
    EXPECT_EQ(written(1.005, 2), "1.01");
    EXPECT_EQ(written(-0.5, 0), "-1");
    EXPECT_EQ(written(-0.0, 2), "0.00");
    EXPECT_EQ(written(5e-324, 1), "0.0");
    EXPECT_EQ(written(1e15, 1), "1000000000000000.0");
    EXPECT_EQ(written(1e21, 0), "1000000000000000000000");
    EXPECT_EQ(written(123456789012345678.0, 0), "123456789012346000");
    EXPECT_EQ(written(-2147483648.0, 0), "-2147483648");
    EXPECT_EQ(written(0.999999999999999999, 0), "1");
    EXPECT_EQ(fixedText(1e308, 2)->size(), 309u + 3u);
    EXPECT_EQ(written(0.125, 300), "0.125" + std::string(297, '0'));
}

TEST(FixedTextTest, AgreesWithWholeNumberArithmetic) {
    std::mt19937_64 random(7);
    for (int i = 0; i < 60000; ++i) {
        double number = 0;
        switch (i % 4) {
            case 0:
                number = std::bit_cast<double>(random());
                break;
            case 1:
                number = static_cast<double>(static_cast<int64_t>(random() % 200001) - 100000) / 1000.0;
                break;
            // Ties and their neighbours, which no decimal of this length tells apart.
            case 2:
                number = (static_cast<double>(random() % 2000) + 0.5) / std::pow(10, random() % 7);
                break;
            default:
                number = std::nextafter(static_cast<double>(random() % 1000) + 0.5, i % 8 < 4 ? 0 : 1e9);
        }
        if (!std::isfinite(number)) continue;
        const auto places = static_cast<int>(random() % 8);
        ASSERT_EQ(toUtf8(*fixedText(number, places)), roundedByHand(number, places))
            << number << ", " << places;
    }
}

TEST(FixedTextTest, WhatCannotBeWrittenGivesNothing) {
    for (const double number : {std::numeric_limits<double>::infinity(), std::nan("")})
        EXPECT_EQ(fixedText(number, 1), std::nullopt);
    EXPECT_EQ(fixedText(1, -1), std::nullopt);
    EXPECT_EQ(fixedText(1, std::numeric_limits<int32_t>::max()), std::nullopt);
}

TEST(DatepTest, NoPlacesMeanTwo) {
    EXPECT_EQ(Datep(u"3", 2), u"3.00");
    EXPECT_EQ(Datep(u"3", 0), u"3.00");
    EXPECT_EQ(Datep(u" 1,234.5 ", 1), u"1234.5");
    EXPECT_EQ(Datep(u"29.125", 1), u"29.1");
    EXPECT_EQ(Datep(u"x", 2), std::nullopt);
    EXPECT_EQ(Datep(u"1", -3), std::nullopt);
}

}  // namespace
}  // namespace obk::test
