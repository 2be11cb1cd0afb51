#include "base/text.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace obk::test {
namespace {

// Runs of replacement characters count as one: how many bytes of damage make one is nobody's business.
Text withoutRuns(Text text) {
    const auto both = [](char16_t one, char16_t next) { return one == 0xFFFD && next == one; };
    text.erase(std::unique(text.begin(), text.end(), both), text.end());
    return text;
}

TEST(TextTest, WellFormedTextSurvivesBothWays) {
    const std::pair<std::string, Text> rows[] = {
        {"", u""},
        {std::string("a\0b", 3), Text(u"a\0b", 3)},
        {"\x7F\xC2\x80\xDF\xBF", u"\x7F\x80\x7FF"},
        {"\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF", u"\x800\xD7FF\xE000\xFFFF"},
        {"\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", u"\U00010000\U0010FFFF"},
    };
    for (const auto& [utf8, text] : rows) {
        EXPECT_EQ(fromUtf8(utf8), text);
        EXPECT_EQ(toUtf8(text), utf8);
    }
}

TEST(TextTest, IllFormedUtf8IsReplacedAndWhatFollowsIsKept) {
    for (const char* damage : {
             "\x80", "\xBF\xBF",                                                  // continuations alone
             "\xC0\x80", "\xC1\xBF",                                              // overlong
             "\xE0\x9F\xBF", "\xF0\x8F\xBF\xBF", "\xED\xA0\x80", "\xED\xBF\xBF",  // surrogates
             "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFE", "\xFF", "\xC3", "\xE2\x82",
             "\xF0\x9F\x98",  // cut short
         }) {
        const std::string bytes = damage;
        EXPECT_EQ(withoutRuns(fromUtf8("a" + bytes + "z")), u"a\xFFFDz") << testing::PrintToString(bytes);
        EXPECT_EQ(withoutRuns(fromUtf8(bytes)), u"\xFFFD") << testing::PrintToString(bytes);
    }
}

TEST(TextTest, LoneSurrogatesAreReplacedOneByOne) {
    const char16_t high = 0xD83D, low = 0xDE00;
    const std::string replaced = "\xEF\xBF\xBD";
    EXPECT_EQ(toUtf8(Text{high}), replaced);
    for (const char16_t next : {low, high}) EXPECT_EQ(toUtf8(Text{low, next}), replaced + replaced);
    EXPECT_EQ(toUtf8(Text{high, u'a', low}), replaced + "a" + replaced);
    EXPECT_EQ(toUtf8(Text{high, high, low}), replaced + "\xF0\x9F\x98\x80");
}

TEST(TextTest, CaseIsIgnoredForAsciiLettersOnly) {
    EXPECT_TRUE(equalIgnoringCase(u"BackColor", u"bACKcOLOR"));
    EXPECT_FALSE(equalIgnoringCase(u"[", u"{"));
    EXPECT_FALSE(equalIgnoringCase(u"@", u"`"));
    EXPECT_FALSE(equalIgnoringCase(u"\xE4", u"\xC4"));
    EXPECT_FALSE(equalIgnoringCase(u"Max", u"MaxLength"));
}

TEST(TextTest, TrimmingTakesBlanksOnly) {
    EXPECT_EQ(trimmed(u"  a b  "), u"a b");
    EXPECT_EQ(trimmed(u"\t a"), u"\t a");
    EXPECT_EQ(trimmed(u"   "), u"");
    EXPECT_EQ(trimmed(u""), u"");
}

}  // namespace
}  // namespace obk::test
