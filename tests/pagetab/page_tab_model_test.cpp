#include "pagetab/page_tab_model.h"

#include "base/caption_text.h"
#include "pagetab/tab_string.h"
#include "widgets/in_one_line.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>
#include <limits>

namespace obk {
namespace {

using Captions = std::vector<std::string>;

void rebuild(PageTabModel& model, TextView tabString) {
    model.strTABSTRING = tabString;
    model.rebuild();
}

Captions captionsOf(const PageTabModel& tabs) {
    Captions captions;
    for (int32_t index = 1; index <= tabs.count(); ++index) captions.push_back(toUtf8(tabs.caption(index)));
    return captions;
}

TEST(PageTabModel, TabStringsAreCountedOneWayAndTakenApartAnother) {
    using Row = std::pair<const char16_t*, Captions>;
    // A line counts as a tab; its caption is taken from between the commas all the same. Half a line break is
    // none.
    for (const auto& [tabString, captions] :
         {Row{u"", {}}, Row{u"   ", {}}, Row{u" Home , Help ", {"Home", "Help"}},
          Row{u"a,,b", {"a", "Tab 2", "b"}}, Row{u",", {"Tab 1", "Tab 2"}}, Row{u"a,b,", {"a", "b", "Tab 3"}},
          Row{u"a\r\nb\r\nc", {"a\r\nb\r\nc", "0", "0"}}, Row{u"a,b\r\nc", {"a", "b\r\nc", "0"}},
          Row{u"a-\r\nb", {"a-\r\nb", "0"}}, Row{u"\r\n", {"\r\n", "0"}}, Row{u"  \r\n ", {"\r\n", "0"}},
          Row{u"--\r\n-", {"--\r\n-", "0"}}, Row{u"a\rb\nc", {"a\rb\nc"}},
          Row{u"a\n\rb,c", {"a\n\rb", "c"}}}) {
        EXPECT_EQ(countCaptions(tabString), static_cast<int32_t>(captions.size())) << toUtf8(tabString);
        PageTabModel tabs;
        tabs.add(u"of before");
        rebuild(tabs, tabString);
        EXPECT_EQ(captionsOf(tabs), captions) << toUtf8(tabString);
        EXPECT_EQ(tabs.active(), tabs.count()) << "the one added last";
    }
}

TEST(PageTabModel, PageColoursAreNumbersAndMissingOnesNought) {
    constexpr TextView colours = u"255| 16711680 ||-2147483633|red|4294967295|99999999999|7";
    const uint32_t expected[] = {0, 255, 16711680, 0, 0x8000000F, 0, 0xFFFFFFFF, 0, 7, 0};
    for (int32_t tab = 0; tab < 10; ++tab)
        EXPECT_EQ(pageColourOf(colours, tab).value, expected[tab]) << "tab " << tab;
}

TEST(PageTabModel, OnlyTabsAndNoneCanBeSelected) {
    PageTabModel tabs;
    EXPECT_FALSE(tabs.select(1));
    rebuild(tabs, u"a,b,c");
    for (const int32_t index : {-1, 4, INT32_MIN, INT32_MAX, 2, 0}) {
        const bool exists = index == 0 || index == 2;
        tabs.pieces = PageTabModel::Pieces::disabled;
        EXPECT_EQ(tabs.select(index), exists);
        EXPECT_EQ(tabs.active(), exists ? index : 3);
        EXPECT_EQ(tabs.pieces, exists ? PageTabModel::Pieces::selected : PageTabModel::Pieces::disabled);
        EXPECT_EQ(tabs.caption(index), index == 2 ? u"b" : u"");
    }
    const uint32_t measured = tabs.revision();
    tabs.add(u"d");
    tabs.select(1);
    EXPECT_EQ(tabs.revision(), measured) << "the captions before need not be measured anew";
}

TEST(PageTabModel, AFontIsForThePresentCaptionsAndThoseToCome) {
    const FontDescription strip{u"Tahoma", 8.25, 700, 0, true, false, false};
    PageTabModel tabs;
    const auto shown = [&] {
        std::vector<std::string> fonts;
        for (int32_t index = 1; index <= tabs.count(); ++index) {
            const FontDescription font = tabs.tab(index).font.over(strip);
            EXPECT_EQ(font.weight, 700) << "only name and size are a caption's own";
            fonts.push_back(toUtf8(font.name) + " " + std::to_string(font.size).substr(0, 4));
        }
        return test::inOneLine(fonts);
    };
    tabs.add(u"a");
    EXPECT_EQ(shown(), "Tahoma 8.25");
    tabs.setFont(u"Arial", 0);
    tabs.add(u"b");
    EXPECT_EQ(shown(), "Arial 8.25, Arial 8.25");
    tabs.setFont(u"", 12);
    tabs.add(u"c");
    EXPECT_EQ(shown(), "Arial 12.0, Arial 12.0, Tahoma 12.0") << "without a name a new one has the strip's";
    tabs.setFont(u"Verdana", std::nullopt);
    rebuild(tabs, u"x");
    EXPECT_EQ(shown(), "Verdana 12.0") << "a size that is none leaves the one before";
    tabs.setFont(u"", INT32_MAX);
    EXPECT_EQ(shown(), "Verdana 1638");
}

TEST(PageTabModel, TenThousandCaptionsCostTenTimesAThousand) {
    // Of the process, which the load of the machine does not lengthen.
    const auto timeOf = [](int32_t count) {
        Text tabString;
        for (int32_t tab = 0; tab < count; ++tab) tabString += u"xxxxxxxxxxxxxxxxxxx,";
        auto best = std::numeric_limits<std::clock_t>::max();
        for (int run = 0; run < 5; ++run) {
            PageTabModel tabs;
            const std::clock_t start = std::clock();
            rebuild(tabs, tabString);
            best = std::min(best, std::clock() - start);
            EXPECT_EQ(tabs.count(), count + 1);
        }
        return static_cast<double>(best);
    };
    // A cost that grows with the square would be a hundred times as much.
    EXPECT_LT(timeOf(10000), 40 * timeOf(1000));
}

TEST(CaptionText, AmpersandsMarkAccessKeys) {
    using Row = std::tuple<const char16_t*, const char*, char16_t>;  // 0: no key
    for (const auto& [caption, plain, key] :
         {Row{u"Home", "Home", 0}, Row{u"&Home", "Home", u'H'}, Row{u"Ho&me", "Home", u'M'},
          Row{u"R&&D", "R&D", 0}, Row{u"R&&&D", "R&D", u'D'}, Row{u"&&", "&", 0}, Row{u"&", "", 0},
          Row{u"a&", "a", 0}, Row{u"& x", " x", 0}, Row{u"&a&b", "ab", u'A'}, Row{u"a\r\nb\tc", "a  b c", 0},
          Row{u"", "", 0}}) {
        EXPECT_EQ(toUtf8(plainCaption(caption)), plain) << toUtf8(caption);
        EXPECT_EQ(accessKeyOf(caption).value_or(0), key) << toUtf8(caption);
    }
    EXPECT_LE(lineOfCaption(Text(100000, u'x')).size(), 1000u) << "no more than a screen can show";
}

TEST(CaptionText, ACharacterCallsTheNextTabThatItMeans) {
    PageTabModel tabs;
    rebuild(tabs, u"Home,Help,&Video,E&xtra,&&more,help");
    // From a tab by a character to another: round again, or itself when there is no other; 0 for none.
    const std::tuple<int32_t, char16_t, int32_t> calls[] = {{2, u'H', 6}, {6, u'h', 1}, {3, u'v', 3},
                                                            {1, u'e', 4}, {1, u'&', 5}, {1, u'z', 0}};
    for (const auto& [from, character, to] : calls) {
        tabs.select(from);
        EXPECT_EQ(tabs.calledBy(character).value_or(0), to) << from << " to " << to;
    }
    EXPECT_EQ(tabs.withAccessKey(u'h'), std::nullopt) << "a first letter is no access key";
    EXPECT_EQ(tabs.withAccessKey(u'x'), 4);
    EXPECT_EQ(tabs.accessKeys(), u"VX");
}

}  // namespace
}  // namespace obk
