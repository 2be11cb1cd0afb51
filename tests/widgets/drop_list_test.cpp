#include "widgets/drop_list.h"

#include "platform/headless/headless_platform.h"
#include "widgets/container.h"

#include <gtest/gtest.h>

namespace obk::test {
namespace {

class DropListTest : public testing::Test {
protected:
    DropListTest() {
        for (const char16_t* item : {u"ash", u"beech", u"birch", u"oak"}) list.add(item);
        chosen = list.chosen.connect([this] { ++told; });
    }
    bool press(int16_t code, int16_t state = 0) {
        KeyEvent event{code, state, false};
        list.keyDown(event);
        return event.code == 0;
    }
    Text typed(TextView text) {
        for (const char16_t unit : text) list.keyPress(static_cast<int16_t>(unit));
        return list.text();
    }

    headless::HeadlessPlatform platform;
    Container root{platform, [] { return std::make_shared<int>(0); }};
    DropList list{root, u"Trees"};
    Connection chosen;
    int told = 0;
};

TEST_F(DropListTest, KeysChooseAndStayInTheList) {
    const std::tuple<int16_t, const char16_t*, int> rows[] = {
        {key::up, u"oak", 1},     {key::down, u"oak", 1}, {key::home, u"ash", 2},  {key::left, u"ash", 2},
        {key::down, u"beech", 3}, {key::end, u"oak", 4},  {key::pageUp, u"oak", 4}};
    for (const auto& [code, shown, times] : rows) {
        EXPECT_EQ(press(code), code != key::pageUp) << code;
        EXPECT_EQ(list.text(), shown) << code;
        EXPECT_EQ(told, times) << code;
    }
    EXPECT_FALSE(press(key::down, shift::control));
    list.clear();
    EXPECT_TRUE(press(key::down));
    EXPECT_EQ(list.text(), u"oak") << "what is shown stays without its list";
}

TEST_F(DropListTest, TypingFindsWhatBeginsSo) {
    EXPECT_EQ(typed(u"B"), u"beech");
    EXPECT_EQ(typed(u"b"), u"birch") << "one letter goes from one to the next";
    EXPECT_EQ(typed(u"b"), u"beech");
    platform.advance(std::chrono::milliseconds(1000));
    EXPECT_EQ(typed(u"bi"), u"birch") << "several letters are a beginning";
    EXPECT_EQ(typed(u"x"), u"birch");
    platform.advance(std::chrono::milliseconds(1000));
    EXPECT_EQ(typed(u"o"), u"oak");
}

TEST_F(DropListTest, ATextThatIsNoItemIsShownAndNotChosen) {
    list.show(u"pine");
    EXPECT_EQ(list.selected(), -1);
    EXPECT_EQ(list.text(), u"pine");
    list.show(u"birch");
    EXPECT_TRUE(list.remove(0));
    EXPECT_EQ(list.selected(), 1);
    EXPECT_TRUE(list.remove(1));
    EXPECT_EQ(list.selected(), -1);
    EXPECT_EQ(list.text(), u"birch");
    for (const int32_t none : {-1, 2, INT32_MAX}) EXPECT_FALSE(list.remove(none));
    EXPECT_EQ(told, 0);
}

}  // namespace
}  // namespace obk::test
