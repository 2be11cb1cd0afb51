#include "updown/numeric_field.h"

#include "updown/shift_color.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace obk::test {
namespace {

TEST(KeyLockTest, OnlyDigitsBackspaceAndOnePointPass) {
    const std::string kept = "0123456789\b", keptWithPoint = kept + ".";
    for (int32_t code = -1000; code <= 1000; ++code) {
        const auto in = [code](const std::string& set) {
            return code > 0 && code < 256 && set.find(static_cast<char>(code)) != std::string::npos ? code
                                                                                                    : 0;
        };
        ASSERT_EQ(NumericField::KeyLock(code, true, u"125"), in(keptWithPoint)) << code;
        ASSERT_EQ(NumericField::KeyLock(code, true, u""), in(keptWithPoint)) << code;
        ASSERT_EQ(NumericField::KeyLock(code, true, u"12.5"), in(kept)) << code;
        ASSERT_EQ(NumericField::KeyLock(code, false, u"125"), in(kept)) << code;
    }
    // What would be a digit or a point if only its low byte counted.
    for (const int32_t code : {256 + '5', 65536 + '.', INT32_MIN + '0', INT32_MAX})
        EXPECT_EQ(NumericField::KeyLock(code, true, u""), 0) << code;
}

TEST(DecimalpointCheckTest, OnlyAFullStopCounts) {
    for (const char16_t* text : {u".", u"1.", u"a.b.c"}) EXPECT_EQ(NumericField::DecimalpointCheck(text), 1);
    for (const char16_t* text : {u"", u"1,5", u"\x3002", u"\x2E00"})
        EXPECT_EQ(NumericField::DecimalpointCheck(text), 0);
}

TEST(StepTest, TheSumIsWrittenInThePatternAndTextsThatAreNoNumberGiveNothing) {
    struct Row {
        const char16_t* text;
        double interval;
        const char* whole;
        const char* onePlace;
    };
    const Row rows[] = {
        {u"9", 1, "10", "10.0"},           {u"1", 0.25, "1", "1.3"},
        {u"1", -0.25, "1", "0.8"},         {u"0.5", 0, "1", "0.5"},
        {u"-0.5", 0, "-1", "-0.5"},        {u"0", -1, "-1", "-1.0"},
        {u"0.5", -0.54, "0", "0.0"},       {u"1,234", 1, "1235", "1235.0"},
        {u" 7 ", 1, "8", "8.0"},           {u"1e3", -1, "999", "999.0"},
        {u"", 1, "none", "none"},          {u".", 1, "none", "none"},
        {u"1.2.3", 1, "none", "none"},     {u"ten", 1, "none", "none"},
        {u"0.1", 0.2, "0", "0.3"},         {u"99.95", 0, "100", "100.0"},
        {u"1e308", 1e308, "none", "none"}, {u"1", std::numeric_limits<double>::quiet_NaN(), "none", "none"},
    };
    for (const Row& row : rows) {
        NumericField field;
        for (const auto& [decimals, expected] :
             {std::pair(false, row.whole), std::pair(true, row.onePlace)}) {
            field.AllowDecpoint = decimals;
            field.Interval = row.interval;
            EXPECT_EQ(toUtf8(field.increased(row.text).value_or(u"none")), expected)
                << toUtf8(row.text) << " + " << row.interval;
            field.Interval = -row.interval;
            EXPECT_EQ(toUtf8(field.decreased(row.text).value_or(u"none")), expected)
                << toUtf8(row.text) << " - " << -row.interval;
        }
    }
    EXPECT_EQ(NumericField().increased(u"2.6"), u"3")
        << "a new field has no interval, and writes all the same";
}

// Channel by channel in floating point; what leaves 32 bits is a failed statement and stays 0.
int32_t shiftedByHand(double colour, double amount, bool isXp) {
    if (colour == 0) return 0;
    const auto fits = [](double value) { return value >= INT32_MIN && value <= INT32_MAX; };
    const double blue = std::fmod(std::trunc(colour / 65536), 256),
                 green = std::fmod(std::trunc(colour / 256), 256);
    const double red = colour - std::floor(colour / 256) * 256;
    const auto channel = [&](double value) {
        return fits(value) ? std::min(std::max(value, 0.0), 255.0) : 0.0;
    };
    const double newBlue = !isXp                 ? channel(blue + amount)
                           : fits(blue * amount) ? channel(blue + std::trunc(blue * amount / 192))
                                                 : 0.0;
    const double newRed = channel(red + amount) - 4, newGreen = channel(green + amount) - 4;
    return newRed < 0 || newGreen < 0 ? 0 : static_cast<int32_t>(newRed + newGreen * 256 + newBlue * 65536);
}

TEST(ShiftColorTest, RedAndGreenAreLoweredByFourAfterClampingAndBlueIsNot) {
    EXPECT_EQ(ShiftColor(0, 50, false), 0);
    EXPECT_EQ(ShiftColor(0xFAFAFA, 20, false), 0xFFFBFB);
    EXPECT_EQ(ShiftColor(0x606464, 0, true), 0x606060);
    EXPECT_EQ(ShiftColor(0x606464, 48, true), 0x789090);
    EXPECT_EQ(ShiftColor(0x000003, 0, false), 0) << "red would be negative";
    EXPECT_EQ(ShiftColor(0x010404, -1, false), 0);
    const int32_t channels[] = {0, 1, 3, 4, 5, 96, 127, 128, 250, 255};
    for (const int32_t red : channels) {
        for (const int32_t green : channels) {
            for (const int32_t blue : channels) {
                for (const int32_t amount :
                     {INT32_MIN, -8421505, -255, -97, -1, 0, 1, 50, 192, 8421505, INT32_MAX}) {
                    for (const bool isXp : {false, true}) {
                        for (const uint32_t high : {0u, 0x80000000u, 0xFF000000u}) {
                            const auto colour = static_cast<int32_t>(
                                high | static_cast<uint32_t>(blue << 16 | green << 8 | red));
                            ASSERT_EQ(ShiftColor(colour, amount, isXp), shiftedByHand(colour, amount, isXp))
                                << std::hex << colour << std::dec << " by " << amount << (isXp ? " XP" : "");
                        }
                    }
                }
            }
        }
    }
}

}  // namespace
}  // namespace obk::test
