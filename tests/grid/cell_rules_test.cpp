#include "grid/cell_rules.h"

#include <gtest/gtest.h>

#include <cmath>

namespace obk {
namespace {

TEST(CellRules, AMarkIsTheLetterTrueOrOne) {
    for (const char16_t* value :
         {u"a", u"true", u"TRUE", u"TrUe", u"1", u"1.0", u"01", u"1x", u"1.0.5", u" 1", u"+1", u" + 1"})
        EXPECT_EQ(checkText(value), u"a") << toUtf8(value);
    for (const char16_t* value : {u"", u"0", u"2", u"yes", u"A", u"-1", u"1.1", u"11", u"a ", u"tru", u"x1"})
        EXPECT_EQ(checkText(value), u"") << toUtf8(value);
}

TEST(CellRules, AColumnIsNeverMadeASliver) {
    EXPECT_EQ(usableColumnWidth(200.4), 200);
    EXPECT_EQ(usableColumnWidth(200.5), 200);
    EXPECT_EQ(usableColumnWidth(201.5), 202);
    for (const double none : {200.0, -500.0, 0.0, std::nan(""), HUGE_VAL, 3e9})
        EXPECT_EQ(usableColumnWidth(none), std::nullopt) << none;
}

TEST(CellRules, AFontSizeIsANumberInFull) {
    EXPECT_EQ(fontSizeFromText(u"12"), 12.0f);
    EXPECT_EQ(fontSizeFromText(u" 8.25 "), 8.25f);
    for (const char16_t* none : {u"", u"12pt", u"large", u"1e300"})
        EXPECT_EQ(fontSizeFromText(none), std::nullopt) << toUtf8(none);
}

}  // namespace
}  // namespace obk
