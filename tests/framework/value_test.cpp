#include "framework/value.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace obk::test {
namespace {

// Independent of the library's own number writing.
struct Shown {
    static std::string printed(const char* format, auto number) {
        char buffer[64];
        std::snprintf(buffer, sizeof buffer, format, number);
        return buffer;
    }
    std::string operator()(const NoValue&) const { return "empty"; }
    std::string operator()(bool is) const { return is ? "True" : "False"; }
    std::string operator()(std::integral auto number) const { return std::to_string(number); }
    std::string operator()(float number) const { return printed("%.9g", static_cast<double>(number)); }
    std::string operator()(double number) const { return printed("%.17g", number); }
    std::string operator()(const Text& text) const { return "'" + toUtf8(text) + "'"; }
    std::string operator()(OleColour colour) const { return printed("%08x", colour.value); }
    std::string operator()(const FontRef& font) const { return font ? "font" : "no font"; }
    std::string operator()(const PictureRef& picture) const { return picture ? "picture" : "no picture"; }
    std::string operator()(const ObjectRef&) const { return "object"; }
};
std::string shown(const Value& value) {
    return std::visit(Shown(), value);
}

TEST(ValueTest, EveryTypeConvertsToEveryOtherOrIsRefused) {
    const FontRef font = std::make_shared<SharedFont>();
    const PictureRef picture = std::make_shared<SharedPicture>();
    struct Row {
        Value value;
        const char* as;
    };
    // As boolean, byte, integer, long, single, double, text, colour, font and picture; "-" is a refusal.
    const Row rows[] = {
        {{}, "False 0 0 0 0 0 '' 00000000 no font no picture"},
        {true, "True 255 -1 -1 -1 -1 '-1' ffffffff - -"},
        {false, "False 0 0 0 0 0 '0' 00000000 - -"},
        {uint8_t{255}, "True 255 255 255 255 255 '255' 000000ff - -"},
        {int16_t{-32768}, "True - -32768 -32768 -32768 -32768 '-32768' ffff8000 - -"},
        {int16_t{256}, "True - 256 256 256 256 '256' 00000100 - -"},
        {int32_t{32768}, "True - - 32768 32768 32768 '32768' 00008000 - -"},
        {INT32_MAX, "True - - 2147483647 2.14748365e+09 2147483647 '2147483647' 7fffffff - -"},
        {INT32_MIN, "True - - -2147483648 -2.14748365e+09 -2147483648 '-2147483648' 80000000 - -"},
        {0.1f, "True 0 0 0 0.100000001 0.10000000149011612 '0.1' 00000000 - -"},
        {0.5, "True 0 0 0 0.5 0.5 '0.5' 00000000 - -"},
        {1.5, "True 2 2 2 1.5 1.5 '1.5' 00000002 - -"},
        {2.5, "True 2 2 2 2.5 2.5 '2.5' 00000002 - -"},
        {-2.5, "True - -2 -2 -2.5 -2.5 '-2.5' fffffffe - -"},
        {-0.5, "True 0 0 0 -0.5 -0.5 '-0.5' 00000000 - -"},
        {255.49, "True 255 255 255 255.490005 255.49000000000001 '255.49' 000000ff - -"},
        {255.5, "True - 256 256 255.5 255.5 '255.5' 00000100 - -"},
        {-32768.5, "True - -32768 -32768 -32768.5 -32768.5 '-32768.5' ffff8000 - -"},
        {2147483647.5, "True - - - 2.14748365e+09 2147483647.5 '2147483647.5' 80000000 - -"},
        {4294967295.0, "True - - - 4.2949673e+09 4294967295 '4294967295' ffffffff - -"},
        {4294967296.0, "True - - - 4.2949673e+09 4294967296 '4294967296' - - -"},
        {1e39, "True - - - - 9.9999999999999994e+38 '1E+39' - - -"},
        {1e-320, "True 0 0 0 0 9.9998886718268301e-321 '9.99988867182683E-321' 00000000 - -"},
        {HUGE_VAL, "True - - - inf inf '1.#INF' - - -"},
        {std::nan(""), "True - - - nan nan '-1.#IND' - - -"},
        {Text(u"12"), "True 12 12 12 12 12 '12' 0000000c - -"},
        {Text(u" -1,234.5 "), "True - -1234 -1234 -1234.5 -1234.5 ' -1,234.5 ' fffffb2e - -"},
        {Text(u"0.0"), "False 0 0 0 0 0 '0.0' 00000000 - -"},
        {Text(u"tRUE"), "True - - - - - 'tRUE' - - -"},
        {Text(u"#FALSE#"), "False - - - - - '#FALSE#' - - -"},
        {Text(u"&H80000005"), "True - - -2147483643 -2.14748365e+09 -2147483643 '&H80000005' 80000005 - -"},
        {Text(u"2147483653"), "True - - - 2.14748365e+09 2147483653 '2147483653' 80000005 - -"},
        {Text(u""), "- - - - - - '' - - -"},
        {Text(u"ten"), "- - - - - - 'ten' - - -"},
        {OleColour(0x80000005u),
         "True - - -2147483643 -2.14748365e+09 -2147483643 '-2147483643' 80000005 - -"},
        {OleColour(0xFFu), "True 255 255 255 255 255 '255' 000000ff - -"},
        {font, "- - - - - - - - font -"},
        {FontRef(), "- - - - - - - - no font -"},
        {picture, "- - - - - - - - - picture"},
    };
    for (const Row& row : rows) {
        std::string as;
        for (uint8_t type = 1; type <= 10; ++type) {
            const auto value = converted(row.value, static_cast<ValueType>(type));
            as += (as.empty() ? "" : " ") + (value ? shown(*value) : "-");
        }
        EXPECT_EQ(as, row.as) << shown(row.value) << " of type " << row.value.index();
        EXPECT_EQ(shown(*converted(row.value, ValueType::empty)), shown(row.value));
    }
    EXPECT_EQ(std::get<FontRef>(*converted(font, ValueType::font)), font) << "objects keep their identity";
}

TEST(ValueTest, TextsAreNumbersInFullOrNotAtAll) {
    const std::pair<const char16_t*, double> numbers[] = {
        {u".5", 0.5},        {u"5.", 5},      {u"-.5", -0.5}, {u"+5", 5},
        {u"- 5", -5},        {u"\t5\xA0", 5}, {u"1e2", 100},  {u"1E+2", 100},
        {u"25d-1", 2.5},     {u"0,5", 5},     {u"&hff", 255}, {u"&o17", 15},
        {u"&HFFFFFFFF", -1}, {u"1e-400", 0},  {u"0e400", 0},  {u"0.1e309", 1e308},
    };
    for (const auto& [text, number] : numbers) EXPECT_EQ(numberFromText(text), number) << toUtf8(text);
    EXPECT_EQ(numberFromText(u"1.7976931348623157e308"), std::numeric_limits<double>::max());
    EXPECT_EQ(numberFromText(u"123456789012345678901234567890"), 123456789012345678901234567890.0);
    EXPECT_TRUE(std::signbit(*numberFromText(u"-0")));
    const Text manyZeros = u"0." + Text(400, u'0') + u"1e401", manyDigits = Text(400, u'9') + u"e-400";
    EXPECT_EQ(numberFromText(manyZeros), 1);
    EXPECT_NEAR(numberFromText(manyDigits).value_or(0), 1, 1e-9);

    for (const char16_t* text :
         {u"",      u" ",          u".",       u"-",        u"+",   u"1.2.3",       u"1.2,3",
          u",1",    u"1e",         u"1e+",     u"e5",       u"--1", u"1-",          u"+-1",
          u"1 2",   u"0x10",       u"&H",      u"&HG",      u"&O8", u"&H100000000", u"-&H1",
          u"1e400", u"-1e400",     u"0.5e400", u"0001e400", u"nan", u"inf",         u"\xFF11",
          u"\x661", u"\x2212\x31", u"1f",      u"$1",       u"True"})
        EXPECT_EQ(numberFromText(text), std::nullopt) << toUtf8(text);
    EXPECT_EQ(numberFromText(TextView(u"1\0", 2)), std::nullopt);
}

TEST(ValueTest, NumbersAreWrittenWithFifteenDigitsAndSinglesWithSeven) {
    const auto written = [](auto... numbers) { return toUtf8(((textFromNumber(numbers) + u" ") + ...)); };
    EXPECT_EQ(written(0.0, -0.0, 0.1 + 0.2, 1.0 / 3, -200.0 / 3),
              "0 0 0.3 0.333333333333333 -66.6666666666667 ");
    EXPECT_EQ(written(123456789012345.0, 1234567890123456.0), "123456789012345 1.23456789012346E+15 ");
    EXPECT_EQ(written(999999999999999.9, 1e15, 1e100), "1E+15 1E+15 1E+100 ");
    EXPECT_EQ(written(0.00001, 1.5e-300, -HUGE_VAL), "0.00001 1.5E-300 -1.#INF ");
    EXPECT_EQ(written(0.1f, 1234567.0f, 16777216.0f, 990.0f), "0.1 1234567 1.677722E+07 990 ");
    EXPECT_EQ(written(-0.25f), "-0.25 ");
}

TEST(ValueTest, WrittenNumbersReadBackToTheirFifteenDigits) {
    std::mt19937_64 random(1);
    for (int i = 0; i < 20000; ++i) {
        const double number =
            i % 2 ? std::bit_cast<double>(random()) : static_cast<double>(random() % 2000000) / 1000.0 - 1000;
        if (!std::isfinite(number) || std::abs(number) > 1e307) continue;
        const Text text = textFromNumber(number);
        char expected[64];
        std::snprintf(expected, sizeof expected, "%.14e", number);
        ASSERT_EQ(numberFromText(text), std::strtod(expected, nullptr) + 0.0) << toUtf8(text);
    }
}

TEST(ValueTest, TheLeadingNumberStopsAtTheFirstOtherCharacter) {
    const std::pair<Text, double> rows[] = {
        {u"", 0},        {u"abc", 0},         {u"5", 5},    {u"6.1 b", 6.1}, {u"4.10.2222", 4.1},
        {u"4.99", 4.99}, {u"10.0.19041", 10}, {u".5", 0.5}, {u"5.", 5},      {u"-5", 0},
        {u" 5", 0},      {u"5e3", 5},
    };
    for (const auto& [text, number] : rows) EXPECT_DOUBLE_EQ(leadingNumber(text), number) << toUtf8(text);
    EXPECT_DOUBLE_EQ(leadingNumber(u"6." + Text(400, u'1')), 6.0 + 1.0 / 9);
    EXPECT_DOUBLE_EQ(leadingNumber(Text(255, u' ')), 0);
}

}  // namespace
}  // namespace obk::test
