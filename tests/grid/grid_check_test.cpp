#include "grid/grid_check.h"
#include "platform/headless/headless_check_box.h"
#include "support/control_fixture.h"

#include <gtest/gtest.h>

namespace obk {
namespace {

using headless::HeadlessCheckBox;
using test::Journal;

// A host's bag that tells capital letters from small ones.
class ExactBag : public PropertyBag {
public:
    std::optional<Value> read(TextView key, ValueType) override {
        const auto found = values.find(Text(key));
        return found == values.end() ? std::nullopt : std::optional(found->second);
    }
    void write(TextView key, const Value& value) override { values[Text(key)] = value; }

    std::map<Text, Value> values;
};

class GridCheckTest : public test::ControlFixture {
protected:
    void SetUp() override {
        place(GridCheck::memberTable());
        host.take();
    }
    HeadlessCheckBox& box() const {
        return dynamic_cast<HeadlessCheckBox&>(*platform.surface(control->window())->childAt(inBox));
    }
    int32_t value() { return toLong(get(u"Value")).value_or(-1); }
    int32_t valueOf(const std::map<Text, Value>& stored) {
        ExactBag bag;
        bag.values = stored;
        const auto loaded = GridCheck::memberTable().create(platform);
        loaded->load(bag);
        return dynamic_cast<GridCheck&>(*loaded).Value();
    }

    static constexpr PixelRect cell{0, 0, 64, 16};
    static constexpr PixelPoint inBox{30, 8};
};

TEST_F(GridCheckTest, StandsInTheMiddleOfItsWidth) {
    const auto left = [this](double width) {
        control->setSize({width}, {240});
        headless::RecordingCanvas canvas(Dpi(1440), {0, 0, 2000, 2000});
        control->draw(canvas, {0, 0, static_cast<int32_t>(width), 240});
        for (const auto& item : canvas.items()) {
            if (item.colour == Rgb::of(255, 255, 255)) return item.rect.left;
        }
        return -1;
    };
    // At 1440 DPI a pixel is a twip.
    EXPECT_EQ(left(1000), 422);
    EXPECT_EQ(left(657), 250);
}

TEST_F(GridCheckTest, APersonTurnsTheMarkOverWithTheMouseAndTheBlankKey) {
    activate(cell);
    const auto expectMark = [this](int32_t expected, const Journal& told) {
        EXPECT_EQ(host.takeEvents(), told);
        EXPECT_EQ(value(), expected);
        EXPECT_EQ(box().checked(), expected == 1);
    };
    platform.click(control->window(), inBox);
    expectMark(1, {"MouseMove 0 0 45 105", "MouseDown 1 0 45 105", "MouseUp 1 0 45 105", "Click"});
    platform.type(u" ");
    expectMark(0, {"KeyDown 32 0", "KeyPress 32", "KeyUp 32 0", "Click"});
    platform.type(u"x");
    expectMark(0, {"KeyDown 88 0", "KeyPress 120", "KeyUp 88 0"});
    // Pressed inside and released outside.
    platform.mouse(control->window(), {MouseEvent::Kind::down, button::left, 0, inBox});
    platform.mouse(control->window(), {MouseEvent::Kind::up, button::left, 0, {1, 1}});
    EXPECT_EQ(value(), 0);
    put(u"Value", int16_t{1});
    control->deactivate();
    activate(cell);
    EXPECT_TRUE(box().checked()) << "so is its next window";
}

TEST_F(GridCheckTest, OnlyMarksAreTakenAndEveryPutIsTold) {
    for (const int32_t wanted : {1, 1, 0, 2, -1, 1, 2}) put(u"Value", wanted);
    EXPECT_EQ(host.take(), (Journal(7, "changed Value")));
    EXPECT_EQ(value(), 1);
}

TEST_F(GridCheckTest, EitherSpellingOfTheValueLoadsAndTheSecondStands) {
    EXPECT_EQ(valueOf({{u"VALUE", int16_t{1}}, {u"Value", int16_t{0}}}), 0);
    EXPECT_EQ(valueOf({{u"VALUE", int16_t{0}}, {u"Value", int16_t{1}}}), 1);
    EXPECT_EQ(valueOf({{u"VALUE", int16_t{1}}}), 1);
    EXPECT_EQ(valueOf({{u"Value", Text(u"1")}}), 1);
    EXPECT_EQ(valueOf({}), 0);

    ExactBag saved;
    put(u"Value", int16_t{1});
    put(u"Enabled", false);
    put(u"BackColor", OleColour(0x123456u));
    control->save(saved);
    EXPECT_EQ(saved.values, (std::map<Text, Value>{{u"ENABLED", false},
                                                   {u"VALUE", int16_t{1}},
                                                   {u"Value", int16_t{1}},
                                                   {u"Backcolor", OleColour(0x123456u)}}));
}

}  // namespace
}  // namespace obk
