#include "framework/value.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace obk::test {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

// Independent of the library's own number writing; "-" is a refusal.
std::string shown(const std::optional<Value>& value) {
    if (!value) return "-";
    char buffer[64];
    const auto print = [&buffer](const char* format, auto number) {
        std::snprintf(buffer, sizeof buffer, format, number);
        return std::string(buffer);
    };
    switch (typeOf(*value)) {
        case ValueType::empty:
            return "empty";
        case ValueType::boolean:
            return std::get<bool>(*value) ? "True" : "False";
        case ValueType::byte:
            return print("%d", std::get<uint8_t>(*value));
        case ValueType::integer:
            return print("%d", std::get<int16_t>(*value));
        case ValueType::longInteger:
            return print("%d", std::get<int32_t>(*value));
        case ValueType::single:
            return print("%.9g", static_cast<double>(std::get<float>(*value)));
        case ValueType::doubleFloat:
            return print("%.17g", std::get<double>(*value));
        case ValueType::text:
            return "'" + toUtf8(std::get<Text>(*value)) + "'";
        case ValueType::colour:
            return print("%08x", std::get<OleColour>(*value).value);
        case ValueType::font:
            return std::get<FontRef>(*value) ? "font" : "no font";
        case ValueType::picture:
            return std::get<PictureRef>(*value) ? "picture" : "no picture";
        case ValueType::object:
            return std::get<ObjectRef>(*value) ? "object" : "no object";
    }
    return "?";
}

TEST(ValueTest, EveryTypeConvertsToEveryOtherOrIsRefused) {
    const FontRef font = std::make_shared<SharedFont>();
    const PictureRef picture = std::make_shared<SharedPicture>();
    struct Row {
        Value value;
        // boolean, byte, integer, long, single, double, text, colour, font, picture
        std::array<std::string, 10> as;
    };
    const std::string no = "-";
    const Row rows[] = {
        {{}, {"False", "0", "0", "0", "0", "0", "''", "00000000", "no font", "no picture"}},
        {true, {"True", "255", "-1", "-1", "-1", "-1", "'-1'", "ffffffff", no, no}},
        {false, {"False", "0", "0", "0", "0", "0", "'0'", "00000000", no, no}},
        {uint8_t{255}, {"True", "255", "255", "255", "255", "255", "'255'", "000000ff", no, no}},
        {int16_t{-32768},
         {"True", no, "-32768", "-32768", "-32768", "-32768", "'-32768'", "ffff8000", no, no}},
        {int16_t{256}, {"True", no, "256", "256", "256", "256", "'256'", "00000100", no, no}},
        {int32_t{32768}, {"True", no, no, "32768", "32768", "32768", "'32768'", "00008000", no, no}},
        {std::numeric_limits<int32_t>::max(),
         {"True", no, no, "2147483647", "2.14748365e+09", "2147483647", "'2147483647'", "7fffffff", no, no}},
        {std::numeric_limits<int32_t>::min(),
         {"True", no, no, "-2147483648", "-2.14748365e+09", "-2147483648", "'-2147483648'", "80000000", no,
          no}},
        {0.1f, {"True", "0", "0", "0", "0.100000001", "0.10000000149011612", "'0.1'", "00000000", no, no}},
        {0.5, {"True", "0", "0", "0", "0.5", "0.5", "'0.5'", "00000000", no, no}},
        {1.5, {"True", "2", "2", "2", "1.5", "1.5", "'1.5'", "00000002", no, no}},
        {2.5, {"True", "2", "2", "2", "2.5", "2.5", "'2.5'", "00000002", no, no}},
        {-2.5, {"True", no, "-2", "-2", "-2.5", "-2.5", "'-2.5'", "fffffffe", no, no}},
        {-0.5, {"True", "0", "0", "0", "-0.5", "-0.5", "'-0.5'", "00000000", no, no}},
        {255.49,
         {"True", "255", "255", "255", "255.490005", "255.49000000000001", "'255.49'", "000000ff", no, no}},
        {255.5, {"True", no, "256", "256", "255.5", "255.5", "'255.5'", "00000100", no, no}},
        {-32768.5,
         {"True", no, "-32768", "-32768", "-32768.5", "-32768.5", "'-32768.5'", "ffff8000", no, no}},
        {2147483647.5,
         {"True", no, no, no, "2.14748365e+09", "2147483647.5", "'2147483647.5'", "80000000", no, no}},
        {4294967295.0,
         {"True", no, no, no, "4.2949673e+09", "4294967295", "'4294967295'", "ffffffff", no, no}},
        {4294967296.0, {"True", no, no, no, "4.2949673e+09", "4294967296", "'4294967296'", no, no, no}},
        {1e39, {"True", no, no, no, no, "9.9999999999999994e+38", "'1E+39'", no, no, no}},
        {1e-320,
         {"True", "0", "0", "0", "0", "9.9998886718268301e-321", "'9.99988867182683E-321'", "00000000", no,
          no}},
        {infinity, {"True", no, no, no, "inf", "inf", "'1.#INF'", no, no, no}},
        {std::nan(""), {"True", no, no, no, "nan", "nan", "'-1.#IND'", no, no, no}},
        {Text(u"12"), {"True", "12", "12", "12", "12", "12", "'12'", "0000000c", no, no}},
        {Text(u" -1,234.5 "),
         {"True", no, "-1234", "-1234", "-1234.5", "-1234.5", "' -1,234.5 '", "fffffb2e", no, no}},
        {Text(u"0.0"), {"False", "0", "0", "0", "0", "0", "'0.0'", "00000000", no, no}},
        {Text(u"tRUE"), {"True", no, no, no, no, no, "'tRUE'", no, no, no}},
        {Text(u"#FALSE#"), {"False", no, no, no, no, no, "'#FALSE#'", no, no, no}},
        {Text(u"&H80000005"),
         {"True", no, no, "-2147483643", "-2.14748365e+09", "-2147483643", "'&H80000005'", "80000005", no,
          no}},
        {Text(u"2147483653"),
         {"True", no, no, no, "2.14748365e+09", "2147483653", "'2147483653'", "80000005", no, no}},
        {Text(u""), {no, no, no, no, no, no, "''", no, no, no}},
        {Text(u"ten"), {no, no, no, no, no, no, "'ten'", no, no, no}},
        {OleColour(0x80000005u),
         {"True", no, no, "-2147483643", "-2.14748365e+09", "-2147483643", "'-2147483643'", "80000005", no,
          no}},
        {OleColour(0xFFu), {"True", "255", "255", "255", "255", "255", "'255'", "000000ff", no, no}},
        {font, {no, no, no, no, no, no, no, no, "font", no}},
        {FontRef(), {no, no, no, no, no, no, no, no, "no font", no}},
        {picture, {no, no, no, no, no, no, no, no, no, "picture"}},
    };
    for (const Row& row : rows) {
        for (size_t at = 0; at < row.as.size(); ++at) {
            const auto type = static_cast<ValueType>(at + 1);
            EXPECT_EQ(shown(converted(row.value, type)), row.as[at])
                << shown(row.value) << " (" << row.value.index() << ") to type " << at + 1;
        }
        EXPECT_EQ(shown(converted(row.value, ValueType::empty)), shown(row.value));
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
    EXPECT_EQ(numberFromText(u"1,234,567.8"), 1234567.8);
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
    const std::pair<double, const char16_t*> doubles[] = {
        {0, u"0"},
        {-0.0, u"0"},
        {0.1 + 0.2, u"0.3"},
        {1.0 / 3, u"0.333333333333333"},
        {-200.0 / 3, u"-66.6666666666667"},
        {123456789012345, u"123456789012345"},
        {1234567890123456, u"1.23456789012346E+15"},
        {999999999999999.9, u"1E+15"},
        {1e15, u"1E+15"},
        {1e100, u"1E+100"},
        {0.00001, u"0.00001"},
        {1.5e-300, u"1.5E-300"},
        {-infinity, u"-1.#INF"},
    };
    for (const auto& [number, text] : doubles) EXPECT_EQ(toUtf8(textFromNumber(number)), toUtf8(text));
    const std::pair<float, const char16_t*> singles[] = {{0.1f, u"0.1"},
                                                         {1234567.0f, u"1234567"},
                                                         {16777216.0f, u"1.677722E+07"},
                                                         {990.0f, u"990"},
                                                         {-0.25f, u"-0.25"}};
    for (const auto& [number, text] : singles) EXPECT_EQ(toUtf8(textFromNumber(number)), toUtf8(text));
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
        {u"", 0},        {u"abc", 0},         {u"5", 5},    {u"6.1", 6.1}, {u"4.10.2222", 4.1},
        {u"4.99", 4.99}, {u"10.0.19041", 10}, {u".5", 0.5}, {u"5.", 5},    {u"-5", 0},
        {u" 5", 0},      {u"5e3", 5},
    };
    for (const auto& [text, number] : rows) EXPECT_DOUBLE_EQ(leadingNumber(text), number) << toUtf8(text);
    EXPECT_DOUBLE_EQ(leadingNumber(u"6.1 (build)"), 6.1);
    EXPECT_DOUBLE_EQ(leadingNumber(u"6." + Text(400, u'1')), 6.0 + 1.0 / 9);
    EXPECT_DOUBLE_EQ(leadingNumber(Text(255, u' ')), 0);
}

}  // namespace
}  // namespace obk::test
