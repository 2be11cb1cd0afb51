#include "framework/hosted_control.h"
#include "datecalendar/date_calendar.h"
#include "framework/pop_up_panel.h"
#include "framework/table_builder.h"
#include "palette/button_arrow.h"
#include "support/control_fixture.h"
#include "updown/up_down_text_box.h"
#include "widgets/pop_up_placement.h"

namespace obk::test {
namespace {

// A control with two hosted ones.
class Outer final : public Control {
public:
    explicit Outer(Platform& platform) : Control(platform), field(*this, root()), arrow(*this, root()) {}
    static const ControlTable& memberTable() {
        static const ControlTable table =
            TableBuilder<Outer>({.name = u"Outer", .help = u"Hosts others"}).build();
        return table;
    }
    const ControlTable& table() const override { return memberTable(); }

    Hosted<UpDownTextBox> field;
    Hosted<ButtonArrow> arrow;

private:
    void initialize() override { setSize({4500}, {900}); }
    void resize() override {
        field.move({{1500}, {300}, {1500}, {300}});
        arrow.move({{3000}, {0}, {600}, {600}});
    }
};

class HostedControlTest : public ControlFixture {
protected:
    void SetUp() override {
        place(Outer::memberTable());
        activate({0, 0, 300, 60});
    }
    Outer& outer() { return static_cast<Outer&>(*control); }
};

TEST_F(HostedControlTest, AControlOfFixedSizeKeepsItAndItsWidgetFollows) {
    EXPECT_EQ(outer().arrow.bounds(), (TwipsRect{{3000}, {0}, {185}, {210}}));
    outer().arrow.move({{3100}, {0}, {50}, {5000}});
    EXPECT_EQ(outer().arrow.bounds(), (TwipsRect{{3100}, {0}, {185}, {210}}));
    EXPECT_EQ(outer().arrow->height(), Twips{210});
}

TEST_F(HostedControlTest, AnotherFontOfTheContainerReachesTheHostedControl) {
    MemoryBag none;
    outer().field->load(none);
    host.font = std::make_shared<SharedFont>(FontDescription{u"Courier New", 12});
    control->ambientFontChanged();
    EXPECT_EQ(outer().field->Font()->description().name, u"Courier New");
}

TEST_F(HostedControlTest, KeysOfAHostedControlAreOfferedToTheOutermostContainer) {
    control->focus();
    ASSERT_TRUE(outer().field->hasFocus());
    host.take();
    platform.pressKey(key::tab);
    EXPECT_EQ(host.take(), (Journal{"offered 9"}));
    platform.pressKey(key::up);
    EXPECT_EQ(outer().field->Text(), u"1");  // without an interval a step goes nowhere
}

TEST_F(HostedControlTest, ItsPanelOpensOnItsOwnMonitorAndNotOnThatOfTheWholeSurface) {
    platform.setMonitors({{{0, 0, 700, 800}}, {{700, 0, 1400, 800}}});
    activate({100, 20, 1000, 80});
    Hosted<DateCalendar> cell(outer(), outer().root());
    cell.move({{9300}, {0}, {900}, {300}});  // from pixel 720 of the screen on
    cell->ShowPopUp();
    ASSERT_TRUE(open());
    EXPECT_EQ(panel()->bounds().left, 720);
}

// A control with a field in its panel.
class WithPanel final : public Control {
public:
    explicit WithPanel(Platform& platform)
        : Control(platform), panel(*this, sizeAt), field(*this, panel.root()) {}
    static PixelSize sizeAt(Dpi scale) { return {scale.scaled(100), scale.scaled(40)}; }
    static const ControlTable& memberTable() {
        static const ControlTable table =
            TableBuilder<WithPanel>({.name = u"WithPanel", .help = u"Drops a field down"}).build();
        return table;
    }
    const ControlTable& table() const override { return memberTable(); }

    PopUpPanel panel;
    Hosted<UpDownTextBox> field;

private:
    void resize() override { field.move({{150}, {150}, {1200}, {300}}); }
};

TEST_F(HostedControlTest, WhatIsInAPanelTakesTheScaleOfEachMonitorThatItOpensOn) {
    platform.setMonitors({{{0, 0, 700, 800}, Dpi(96)}, {{700, 0, 1400, 800}, Dpi(144)}});
    place(WithPanel::memberTable());
    PopUpPanel& panel = static_cast<WithPanel&>(*control).panel;
    for (const auto& [left, scale] : {std::pair(100, Dpi(96)), {720, Dpi(144)}, {100, Dpi(96)}}) {
        activate({left, 20, left + 300, 80});
        ASSERT_TRUE(panel.show(PopUpSide::below));
        const auto* const shown = platform.surface(panel.window());
        EXPECT_EQ(shown->bounds().width(), scale.scaled(100));
        EXPECT_EQ(shown->children().front()->bounds().left, scale.toPixels(Twips{150}) + 2);
        panel.hide();
    }
}

TEST(PopUpPlacement, GoesBelowElseAboveElseBesideAndStaysWholeOnTheMonitor) {
    struct Case {
        const char* name;
        PixelRect anchor;
        PixelSize size;
        PixelRect area;
        PopUpSide first;
        PixelPoint expected;
        bool rightToLeft = false;
    };
    const PixelRect screen{0, 0, 800, 600};
    const PixelRect left{-1024, -200, 0, 568};  // a monitor to the left of the first one, and higher
    const Case cases[] = {
        {"room below", {100, 100, 175, 123}, {200, 150}, screen, PopUpSide::below, {100, 123}},
        {"asked for above", {100, 300, 175, 323}, {200, 150}, screen, PopUpSide::above, {100, 150}},
        {"no room above", {100, 100, 175, 123}, {200, 150}, screen, PopUpSide::above, {100, 123}},
        {"bottom edge", {100, 500, 175, 523}, {200, 150}, screen, PopUpSide::below, {100, 350}},
        {"exactly to the bottom", {100, 427, 175, 450}, {200, 150}, screen, PopUpSide::below, {100, 450}},
        {"right edge", {700, 100, 775, 123}, {200, 150}, screen, PopUpSide::below, {600, 123}},
        {"left of the monitor", {-20, 100, 55, 123}, {200, 150}, screen, PopUpSide::below, {0, 123}},
        {"to the right", {100, 280, 175, 303}, {200, 500}, screen, PopUpSide::below, {175, 100}},
        {"to the left", {620, 280, 695, 303}, {200, 500}, screen, PopUpSide::below, {420, 100}},
        {"nowhere beside it", {300, 280, 500, 303}, {700, 500}, screen, PopUpSide::below, {100, 100}},
        {"larger than the monitor", {300, 280, 500, 303}, {900, 700}, screen, PopUpSide::below, {0, 0}},
        {"negative, at the right", {-80, 500, -5, 523}, {200, 150}, left, PopUpSide::below, {-200, 350}},
        {"right to left", {300, 100, 375, 123}, {200, 150}, screen, PopUpSide::below, {175, 123}, true},
        {"that to the left", {300, 280, 375, 303}, {200, 500}, screen, PopUpSide::below, {100, 100}, true},
    };
    for (const auto& [name, anchor, size, area, first, at, rightToLeft] : cases) {
        EXPECT_EQ(placePopUp(anchor, size, area, first, rightToLeft),
                  (PixelRect{at.x, at.y, at.x + size.width, at.y + size.height}))
            << name;
    }
}

}  // namespace
}  // namespace obk::test
