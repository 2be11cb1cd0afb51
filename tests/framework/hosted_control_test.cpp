#include "framework/hosted_control.h"
#include "framework/table_builder.h"
#include "palette/button_arrow.h"
#include "support/control_fixture.h"
#include "updown/up_down_text_box.h"
#include "widgets/pop_up_placement.h"
#include "widgets/text_box.h"

namespace obk::test {
namespace {

// A control with a field of its own, and two hosted ones beside it.
class Outer final : public Control {
public:
    explicit Outer(Platform& platform)
        : Control(platform), own(root()), beside(*this, root()), arrow(*this, root()) {
        told_ = beside->Change.connect([this] { Told(); });
    }
    static const ControlTable& memberTable() {
        static const ControlTable table = TableBuilder<Outer>({.name = u"Outer", .help = u"Hosts others"})
                                              .event<&Outer::Told>(1, u"Told", u"The hosted control changed")
                                              .build();
        return table;
    }
    const ControlTable& table() const override { return memberTable(); }

    Event<> Told;
    TextBox own;
    Hosted<UpDownTextBox> beside;
    Hosted<ButtonArrow> arrow;
    int entered = 0, left = 0;

private:
    void initialize() override { setSize({4500}, {900}); }
    void resize() override {
        own.move({{0}, {0}, {1500}, {300}});
        beside.move({{1500}, {300}, {1500}, {300}});
        arrow.move({{3000}, {0}, {600}, {600}});
    }
    void enterFocus() override { ++entered; }
    void exitFocus() override { ++left; }

    Connection told_;
};

class HostedControlTest : public ControlFixture {
protected:
    void SetUp() override {
        place(Outer::memberTable());
        activate({0, 0, 300, 60});
    }
    Outer& outer() { return static_cast<Outer&>(*control); }
    // The text window at a point of the surface; 0 for none.
    NativeWindow textAt(PixelPoint at) {
        const headless::HeadlessWindow* found = platform.surface(control->window())->childAt(at);
        return found ? found->id() : 0;
    }
    static constexpr PixelPoint inBeside{104, 30};
};

TEST_F(HostedControlTest, TheHostedControlLivesOnTheOuterSurfaceAtTheWidgetsPlace) {
    EXPECT_EQ(platform.windowCount(), 3u) << "the surface and the text windows of both fields";
    EXPECT_EQ(outer().beside->width(), Twips{1500});
    EXPECT_EQ(outer().beside->root().pixelBounds(), (PixelRect{100, 20, 200, 40}));
    EXPECT_NE(textAt(inBeside), 0u);
    outer().beside->SetText(u"7");
    EXPECT_EQ(host.takeEvents(), (Journal{"Told"}));
    outer().beside.setVisible(false);
    EXPECT_EQ(textAt(inBeside), 0u);
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
    platform.setFocus(textAt(inBeside));
    outer().beside->SetText(u"15");
    host.take();
    platform.setFocus(textAt({5, 5}));
    EXPECT_EQ(outer().beside->Text(), u"10.0");
    EXPECT_EQ(outer().left, 0);
    EXPECT_EQ(host.take(), (Journal{"Told"}));
    platform.setFocus(0);
    EXPECT_EQ(outer().left, 1);
    EXPECT_EQ(outer().entered, 1);
    EXPECT_EQ(host.take(), (Journal{"focus out"}));
}

TEST_F(HostedControlTest, KeysOfAHostedControlAreOfferedToTheOutermostContainer) {
    platform.setFocus(textAt(inBeside));
    host.take();
    platform.pressKey(key::tab);
    EXPECT_EQ(host.take(), (Journal{"offered 9"}));
    platform.pressKey(key::up);
    EXPECT_EQ(outer().beside->Text(), u"1");  // without an interval a step goes nowhere
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
