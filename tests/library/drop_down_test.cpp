// What holds for every control that drops a panel down.
#include "library/library.h"
#include "support/control_fixture.h"

namespace obk::test {
namespace {

class DropDownTest : public ControlFixture, public testing::WithParamInterface<const char16_t*> {};

INSTANTIATE_TEST_SUITE_P(Every, DropDownTest, testing::Values(u"ButtonPalette", u"DateCalendar"),
                         [](const auto& row) { return toUtf8(row.param); });

TEST_P(DropDownTest, TheControlItselfHidesThePanelOnce) {
    place(*library().control(GetParam()));
    const PixelRect bounds{100, 100, 241, 121}, moved{120, 100, 261, 121};
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"the control moved", [&] { control->setBounds(moved); }},
        {"disabled", [this] { put(u"Enabled", false); }},
        {"no window", [this] { control->deactivate(); }},
    };
    for (const auto& [name, way] : ways) {
        put(u"Enabled", true);
        activate(bounds);
        call(u"ShowPopUp");
        ASSERT_TRUE(open()) << name;
        host.take();
        way();
        const Journal told = host.takeEvents();
        EXPECT_EQ(std::count(told.begin(), told.end(), "FocusHidden"), 1) << name;
        EXPECT_FALSE(open()) << name;
        EXPECT_EQ(platform.capture(), 0u) << name;
    }
}

TEST_P(DropDownTest, ThereIsNoPanelWithoutAPlaceAndAWindow) {
    place(*library().control(GetParam()));
    const auto opens = [this] {
        call(u"ShowPopUp");
        return open();
    };
    EXPECT_FALSE(opens());
    EXPECT_EQ(platform.windowCount(), 0u);
    control->window();  // parked: without a place on the screen
    EXPECT_FALSE(opens());
    activate({10, 20, 10, 20});
    EXPECT_FALSE(opens()) << "nothing of the control shows";
    activate({10, 20, 151, 41});
    EXPECT_TRUE(opens());
    control->deactivate();
    EXPECT_EQ(platform.windowCount(), 0u);
}

}  // namespace
}  // namespace obk::test
