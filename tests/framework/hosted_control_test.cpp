#include "framework/hosted_control.h"
#include "framework/pop_up_panel.h"
#include "framework/table_builder.h"
#include "palette/button_arrow.h"
#include "support/control_fixture.h"
#include "updown/up_down_text_box.h"
#include "widgets/text_box.h"

namespace obk::test {
namespace {

// A control with a field of its own, a hosted one beside it and another one in its panel.
class Outer final : public Control {
public:
    explicit Outer(Platform& platform)
        : Control(platform),
          own(root()),
          beside(*this, root()),
          arrow(*this, root()),
          panel(*this,
                [](Dpi scale) {
                    return PixelSize{scale.scaled(100), scale.scaled(40)};
                }),
          inPanel(*this, panel.root()) {
        connections_.push_back(beside->Change.connect([this] { Told(); }));
        connections_.push_back(panel.dismissed.connect([this] { panel.hide(); }));
    }
    static const ControlTable& memberTable();
    const ControlTable& table() const override { return memberTable(); }

    Event<> Told;
    TextBox own;
    Hosted<UpDownTextBox> beside;
    Hosted<ButtonArrow> arrow;
    PopUpPanel panel;
    Hosted<UpDownTextBox> inPanel;
    int entered = 0, left = 0;

private:
    void initialize() override { setSize({4500}, {900}); }
    void resize() override {
        own.move({{0}, {0}, {1500}, {300}});
        beside.move({{1500}, {300}, {1500}, {300}});
        arrow.move({{3000}, {0}, {600}, {600}});
        inPanel.move({{150}, {150}, {1200}, {300}});
    }
    void enterFocus() override { ++entered; }
    void exitFocus() override { ++left; }

    std::vector<Connection> connections_;
};

const ControlTable& Outer::memberTable() {
    static const ControlTable table = TableBuilder<Outer>({.name = u"Outer", .help = u"Hosts others"})
                                          .event<&Outer::Told>(1, u"Told", u"The hosted control changed")
                                          .build();
    return table;
}

class HostedControlTest : public ControlFixture {
protected:
    void SetUp() override { place(Outer::memberTable()); }
    Outer& outer() { return static_cast<Outer&>(*control); }
    // The text window whose left top corner is at a point of a surface.
    NativeWindow textAt(NativeWindow surface, PixelPoint at) {
        const headless::HeadlessWindow* found = platform.surface(surface)->childAt(at);
        return found ? found->id() : 0;
    }
};

TEST_F(HostedControlTest, TheHostedControlLivesOnTheOuterSurfaceAtTheWidgetsPlace) {
    activate({0, 0, 300, 60});
    const size_t surfaces = platform.windowCount();
    EXPECT_EQ(surfaces,
              3u);  // the surface and the text windows of both fields; a panel's comes when it is shown
    EXPECT_EQ(outer().beside->width(), Twips{1500});
    EXPECT_EQ(outer().beside->root().pixelBounds(), (PixelRect{100, 20, 200, 40}));
    EXPECT_NE(textAt(control->window(), {104, 30}), 0u);
    outer().beside->SetText(u"7");
    EXPECT_EQ(host.takeEvents(), (Journal{"Told"}));
    outer().beside.setVisible(false);
    EXPECT_EQ(textAt(control->window(), {104, 30}), 0u);
}

TEST_F(HostedControlTest, AControlOfFixedSizeKeepsItAndItsWidgetFollows) {
    EXPECT_EQ(outer().arrow.bounds(), (TwipsRect{{3000}, {0}, {185}, {210}}));
    outer().arrow.move({{3100}, {0}, {50}, {5000}});
    EXPECT_EQ(outer().arrow.bounds(), (TwipsRect{{3100}, {0}, {185}, {210}}));
    EXPECT_EQ(outer().arrow->height(), Twips{210});
}

TEST_F(HostedControlTest, AnotherFontOfTheContainerReachesTheHostedControl) {
    MemoryBag none;
    outer().beside->load(none);
    host.font = std::make_shared<SharedFont>(FontDescription{u"Courier New", 12});
    control->ambientFontChanged();
    EXPECT_EQ(outer().beside->Font()->description().name, u"Courier New");
}

TEST_F(HostedControlTest, LeavingTheHostedControlChecksItsRangeThoughTheFocusStaysInTheOuterOne) {
    activate({0, 0, 300, 60});
    const NativeWindow hosted = textAt(control->window(), {104, 30});
    const NativeWindow own = textAt(control->window(), {5, 5});
    platform.setFocus(hosted);
    outer().beside->SetText(u"15");
    host.take();
    platform.setFocus(own);
    EXPECT_EQ(outer().beside->Text(), u"10.0");
    EXPECT_EQ(outer().left, 0);
    EXPECT_EQ(host.take(), (Journal{"Told"}));
    platform.setFocus(0);
    EXPECT_EQ(outer().left, 1);
    EXPECT_EQ(outer().entered, 1);
    EXPECT_EQ(host.take(), (Journal{"focus out"}));
}

TEST_F(HostedControlTest, KeysOfAHostedControlAreOfferedToTheOutermostContainer) {
    activate({0, 0, 300, 60});
    platform.setFocus(textAt(control->window(), {104, 30}));
    host.take();
    platform.pressKey(key::tab);
    EXPECT_EQ(host.take(), (Journal{"offered 9"}));
    platform.pressKey(key::up);
    EXPECT_EQ(outer().beside->Text(), u"1");  // without an interval a step goes nowhere
}

class PopUpPanelTest : public HostedControlTest {
protected:
    PopUpPanel& panel() { return outer().panel; }
    PixelRect place() { return platform.surface(panel().window())->bounds(); }
};

TEST_F(PopUpPanelTest, HasAWindowOnlyOnceItCanBeShown) {
    EXPECT_FALSE(panel().show(PopUpSide::below));
    control->window();  // parked: without a place on the screen
    EXPECT_FALSE(panel().show(PopUpSide::below));
    activate({10, 20, 10, 20});
    EXPECT_FALSE(panel().show(PopUpSide::below)) << "nothing of the control shows";
    activate({10, 20, 310, 80});
    const size_t before = platform.windowCount();
    EXPECT_TRUE(panel().show(PopUpSide::below));
    EXPECT_EQ(place(), (PixelRect{10, 80, 110, 120}));
    panel().hide();
    EXPECT_GT(platform.windowCount(), before);
    control->deactivate();
    EXPECT_EQ(platform.windowCount(), 0u);
    EXPECT_EQ(panel().window(), 0u);
    activate({0, 0, 300, 60});
    platform.refuseWindows(true);
    EXPECT_FALSE(panel().show(PopUpSide::below));
    EXPECT_EQ(platform.capture(), 0u);
}

TEST_F(PopUpPanelTest, HoldsTheCaptureWhileItIsOpenAndGivesUpOnlyItsOwn) {
    activate({0, 0, 300, 60});
    panel().show(PopUpSide::below);
    EXPECT_EQ(platform.capture(), panel().window());
    std::vector<PixelPoint> seen;
    const Connection connection =
        panel().mouseElsewhere.connect([&seen](const MouseEvent& event) { seen.push_back(event.at); });
    platform.mouse(control->window(), {MouseEvent::Kind::down, button::left, 0, {5, 5}});
    EXPECT_EQ(seen, (std::vector<PixelPoint>{{5, -55}}));
    panel().renewCapture();
    EXPECT_TRUE(panel().visible());
    EXPECT_TRUE(panel().holdsCapture());
    panel().hide();
    EXPECT_EQ(platform.capture(), 0u);
    panel().show(PopUpSide::below);
    platform.stealCapture();
    EXPECT_FALSE(panel().visible());
}

TEST_F(PopUpPanelTest, APressOnAFieldInsideTakesNoFocusAndTheSpinnersCaptureComesBack) {
    activate({0, 0, 300, 60});
    control->focus();
    const NativeWindow focus = platform.focus();
    panel().show(PopUpSide::below);
    const NativeWindow window = panel().window();
    platform.click(window, {14, 14});
    EXPECT_EQ(platform.focus(), focus);
    EXPECT_TRUE(panel().visible());
    outer().inPanel->SetInterval(1);
    outer().inPanel->SetText(u"3");
    platform.mouse(window, {MouseEvent::Kind::down, button::left, 0, {82, 14}});
    EXPECT_EQ(outer().inPanel->Text(), u"4");
    platform.mouse(window, {MouseEvent::Kind::up, button::left, 0, {82, 14}});
    EXPECT_EQ(platform.capture(), window);
    EXPECT_TRUE(panel().visible());
}

TEST_F(PopUpPanelTest, TakesTheScaleOfItsMonitorWheneverItIsToldAndStaysOpen) {
    using Told = headless::HeadlessPlatform::ScaleTold;
    const auto monitors = [](int32_t right) {
        return std::vector<headless::HeadlessPlatform::Monitor>{{{0, 0, 700, 800}, Dpi(96)},
                                                                {{700, 0, 1400, 800}, Dpi(right)}};
    };
    const auto fieldInside = [this] {
        return platform.surface(panel().window())->children().front()->bounds();
    };
    int dismissed = 0;
    const Connection connection = panel().dismissed.connect([&] { ++dismissed; });
    for (const Told told : {Told::moved, Told::shown}) {
        SCOPED_TRACE(static_cast<int>(told));
        platform.setMonitors(monitors(144), told);
        // Made on one monitor, shown on the other one, and on the first one again.
        for (const auto& [left, width] : {std::pair(100, 100), {720, 150}, {100, 100}, {720, 150}}) {
            activate({left, 20, left + 300, 80});
            dismissed = 0;
            ASSERT_TRUE(panel().show(PopUpSide::below));
            EXPECT_EQ(place(), (PixelRect{left, 80, left + width, 80 + width * 2 / 5}));
            EXPECT_EQ(fieldInside().left, Dpi(width * 96 / 100).toPixels(Twips{150}) + 2);
            EXPECT_EQ(platform.capture(), panel().window());
            if (left == 720) {
                platform.setMonitors(monitors(192), told);
                EXPECT_EQ(place(), (PixelRect{720, 80, 920, 160})) << "while it is open";
                platform.setMonitors(monitors(144), told);
                EXPECT_EQ(place(), (PixelRect{720, 80, 870, 140}));
            }
            EXPECT_EQ(dismissed, 0);
            panel().hide();
        }
        control->deactivate();
    }
}

TEST_F(PopUpPanelTest, OpensOnTheMonitorOfItsControlAndNotOfTheWholeSurface) {
    platform.setMonitors({{{0, 0, 700, 800}}, {{700, 0, 1400, 800}}});
    activate({100, 20, 1000, 80});
    class Field final : public Control {
    public:
        explicit Field(Platform& platform)
            : Control(platform), panel(*this, [](Dpi) {
                  return PixelSize{100, 40};
              }) {}
        static const ControlTable& memberTable() {
            static const ControlTable table =
                TableBuilder<Field>({.name = u"Field", .help = u"Drops a panel down"}).build();
            return table;
        }
        const ControlTable& table() const override { return memberTable(); }
        void resize() override {}
        PopUpPanel panel;
    };
    Hosted<Field> cell(outer(), outer().root());
    cell.move({{9300}, {0}, {900}, {300}});  // from pixel 720 of the screen on
    ASSERT_TRUE(cell->panel.show(PopUpSide::below));
    EXPECT_EQ(platform.surface(cell->panel.window())->bounds().left, 720);
    cell->panel.hide();
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
        {"negative", {-1000, -150, -925, -127}, {200, 150}, left, PopUpSide::below, {-1000, -127}},
        {"negative, at the right", {-80, 500, -5, 523}, {200, 150}, left, PopUpSide::below, {-200, 350}},
        {"right to left", {300, 100, 375, 123}, {200, 150}, screen, PopUpSide::below, {175, 123}, true},
        {"that to the left", {300, 280, 375, 303}, {200, 500}, screen, PopUpSide::below, {100, 100}, true},
    };
    for (const Case& row : cases) {
        const PixelRect placed = placePopUp(row.anchor, row.size, row.area, row.first, row.rightToLeft);
        EXPECT_EQ(placed, (PixelRect{row.expected.x, row.expected.y, row.expected.x + row.size.width,
                                     row.expected.y + row.size.height}))
            << row.name;
    }
}

}  // namespace
}  // namespace obk::test
