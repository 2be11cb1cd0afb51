#include "framework/number_format.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <random>

namespace obk::test {
namespace {

// By the C library, from the 15 digits that a person sees.
std::string roundedByLibrary(double number, int places) {
    char digits[40], text[40];
    std::snprintf(digits, sizeof digits, "%.14e", number);
    // A tie is lifted over the middle, which changes nothing else in 15 digits.
    std::snprintf(text, sizeof text, "%.*Lf", places, std::strtold(digits, nullptr) * (1 + 1e-17L));
    return text[0] == '-' && std::strtod(text, nullptr) == 0 ? text + 1 : text;
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
    EXPECT_EQ(written(-1.2345678901234567e20, 1), "-123456789012346000000.0");
    EXPECT_EQ(written(123456789012345678.0, 0), "123456789012346000");
    EXPECT_EQ(written(-2147483648.0, 0), "-2147483648");
    EXPECT_EQ(fixedText(1e308, 2)->size(), 309u + 3u);
    EXPECT_EQ(written(0.125, 300), "0.125" + std::string(297, '0'));
}

TEST(FixedTextTest, AgreesWithTheLibraryAndTakesEveryTieAwayFromZero) {
    std::mt19937_64 random(7);
    for (int i = 0; i < 60000; ++i) {
        // And its neighbours, which no decimal of this length tells apart from it.
        const double tie = (static_cast<double>(random() % 2000) + 0.5) / std::pow(10, random() % 7);
        const double ways[] = {std::bit_cast<double>(random()),
                               static_cast<double>(static_cast<int64_t>(random() % 200001) - 100000) / 1000.0,
                               tie, std::nextafter(tie, i % 8 < 4 ? 0 : 1e9)};
        const double number = ways[i % 4];
        const auto places = static_cast<int>(random() % 8);
        // Of larger ones the library shows digits that no person sees.
        if (!(std::abs(number) < 1e7)) continue;
        ASSERT_EQ(toUtf8(*fixedText(number, places)), roundedByLibrary(number, places)) << number;
    }
}

TEST(FixedTextTest, WhatCannotBeWrittenGivesNothing) {
    for (const double number : {HUGE_VAL, std::nan("")}) EXPECT_EQ(fixedText(number, 1), std::nullopt);
    for (const int32_t places : {-1, INT32_MAX}) EXPECT_EQ(fixedText(1, places), std::nullopt);
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
