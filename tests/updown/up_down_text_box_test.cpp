#include "support/control_fixture.h"
#include "updown/up_down_text_box.h"

namespace obk::test {
namespace {

class UpDownTextBoxTest : public ControlFixture {
protected:
    void SetUp() override
    {
        place(UpDownTextBox::memberTable());
        put(u"Interval", 1.0);
        host.take();
    }
    // With a window, and the keyboard in it.
    void edit()
    {
        activate();
        ASSERT_TRUE(control->focus());
        host.take();
    }
};

TEST_F(UpDownTextBoxTest, ArrowAndPageKeysStepBeforeTheHostSeesThem)
{
    put(u"Text", Text(u"9"));
    edit();
    platform.pressKey(key::up);
    EXPECT_EQ(host.takeEvents(), (Journal{"DownClick", "Change", "KeyDown 38 0", "KeyUp 38 0"}));
    EXPECT_EQ(text(u"Text"), "10");
    platform.pressKey(key::pageUp);
    EXPECT_EQ(host.takeEvents(), (Journal{"DownClick", "Change", "Change", "KeyDown 33 0", "KeyUp 33 0"}));
    EXPECT_EQ(text(u"Text"), "10");
    platform.pressKey(key::down);
    platform.pressKey(key::pageDown);
    EXPECT_EQ(host.takeEvents(), (Journal{"UpClick", "Change", "KeyDown 40 0", "KeyUp 40 0", "UpClick", "Change",
                                          "KeyDown 34 0", "KeyUp 34 0"}));
    EXPECT_EQ(text(u"Text"), "8");
}

TEST_F(UpDownTextBoxTest, LeavingTheControlWritesAnOutOfRangeValueWithOneDecimal)
{
    edit();
    put(u"Text", Text(u"15"));
    host.take();
    platform.setFocus(0);
    EXPECT_EQ(text(u"Text"), "10.0");
    EXPECT_EQ(host.take(), (Journal{"Change", "focus out"}));
}

} // namespace
} // namespace obk::test
