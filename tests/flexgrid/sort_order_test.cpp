#include "flexgrid/sort_order.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace obk {
namespace {

std::vector<Text> sorted(const std::vector<Text>& texts, SortDirection direction,
                         const SortKeyOf& alphabet = {}) {
    std::vector<Text> result;
    const auto text = [&texts](uint32_t place) -> TextView { return texts[place]; };
    for (const uint32_t place : sortedOrder(static_cast<uint32_t>(texts.size()), text, direction, alphabet))
        result.push_back(texts[place]);
    return result;
}

// It must come out of every rotation of itself, and reversed when descending.
void expectOrder(const std::vector<Text>& list, const SortKeyOf& alphabet = {}) {
    const std::vector<Text> reversed(list.rbegin(), list.rend());
    std::vector<Text> shuffled = list;
    for (size_t turn = 0; turn < list.size(); ++turn) {
        std::rotate(shuffled.begin(), shuffled.begin() + 1, shuffled.end());
        EXPECT_EQ(sorted(shuffled, SortDirection::ascending, alphabet), list);
        EXPECT_EQ(sorted(shuffled, SortDirection::descending, alphabet), reversed);
    }
}

// Each list in its order.
TEST(SortOrder, PutsTextsBeforeDigitsThenNumbersThenOtherTexts) {
    const std::vector<Text> lists[] = {
        {u"",   u" ",     u"#9",  u"-",       u"-x",    u"-2",   u"-1.5", u"0", u".5", u"1", u"2",
         u"10", u"1,000", u"1e4", u"&H10000", u"1.2.3", u"12ab", u"2a",   u"A", u"b",  u"C"},
        {u"alpha", u"ALPHA1", u"Beta", u"beta b", u"gamma", u"GAMMAA"},
        // Equal in their first four units, or only longer.
        {u"names", u"NAMESAKE", u"nameT", u"namet\x01"},
        {Text(u"ab"), Text(u"ab\0", 3), Text(u"ab\0\0", 4), Text(u"ab\0\0c", 5)},
        // Beyond ASCII, and the largest unit there is.
        {u"z", u"\xE0", u"\xC1", u"\x3B1", u"\x391\x3B2", u"\x439", u"\xFFFF"},
        {u"-1e300", u"-999999999999999", u"-0.000001", u"0.000001", u"123456789012345678", u"1e300"},
    };
    for (const std::vector<Text>& list : lists) expectOrder(list);
}

TEST(SortOrder, KeepsTheOrderOfEqualsInBothDirections) {
    const std::vector<Text> texts = {u"1.0", u"b", u"1", u"B", u"-0", u"+1", u"0", u"b"};
    const std::vector<Text> ascending = {u"-0", u"0", u"1.0", u"1", u"+1", u"b", u"B", u"b"};
    const std::vector<Text> descending = {u"b", u"B", u"b", u"1.0", u"1", u"+1", u"-0", u"0"};
    EXPECT_EQ(sorted(texts, SortDirection::ascending), ascending);
    EXPECT_EQ(sorted(texts, SortDirection::descending), descending);
    // Also where they already stand the other way round.
    EXPECT_EQ(sorted(ascending, SortDirection::descending), descending);
    EXPECT_EQ(sorted(descending, SortDirection::ascending), ascending);
}

TEST(SortOrder, AnAlphabetComparesTextsAndTheirUnitsBreakTies) {
    // Letters without their case, "\xE4" beside "a".
    const SortKeyOf alphabet = [](TextView text, std::string& key) {
        for (const char16_t unit : text)
            key.push_back(unit == u'\xE4' ? 'A' : static_cast<char>(unit < u'a' ? unit : unit - u'a' + u'A'));
    };
    expectOrder({u"", u"-", u"2", u"10", u"AB", u"Ab", u"ab", u"ab", u"\u00E4b", u"abacus", u"b"}, alphabet);
}

}  // namespace
}  // namespace obk
