#include "widgets/surface.h"

#include "platform/headless/headless_platform.h"
#include "platform/headless/headless_surface.h"
#include "support/accessible_walk.h"
#include "support/quiet_surface_owner.h"
#include "widgets/decoration.h"
#include "widgets/in_one_line.h"
#include "widgets/text_box.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>

namespace obk::test {
namespace {

using Kind = MouseEvent::Kind;
using Journal = std::vector<std::string>;

// Writes down what reaches it; paints itself in its own colour.
class Probe : public Widget {
public:
    Probe(Container& parent, Journal& journal, std::string name, Rgb colour = {})
        : Widget(parent), journal_(journal), name_(std::move(name)), colour_(colour) {}

    void mouse(const MouseEvent& event) override {
        const char* kinds[] = {"down", "up", "move", "double", "leave"};
        journal_.push_back(name_ + " " + kinds[static_cast<int>(event.kind)] + " " +
                           std::to_string(event.at.x) + "," + std::to_string(event.at.y));
        if (onMouse) onMouse(event);
    }
    void captureLost() override { journal_.push_back(name_ + " lost"); }
    void paint(Canvas& canvas, const PixelRect& bounds) override {
        // As widgets may, carelessly beyond its edges.
        canvas.fillRect(bounds.inset(-5), colour_);
    }
    bool accessibleWhole() const override { return true; }
    AccessibleItem accessible(AccessiblePart) const override {
        return itemOf(AccessibleItem::Role::graphic, fromUtf8(name_));
    }
    std::function<void(const MouseEvent&)> onMouse;

private:
    Journal& journal_;
    std::string name_;
    Rgb colour_;
};

// 100 x 60 pixels: a is at the left, b lies over the right of it, c is inside a frame at the bottom.
class SurfaceTest : public testing::Test, protected QuietSurfaceOwner {
protected:
    SurfaceTest() {
        root.move({{0}, {0}, {1500}, {900}});
        a->move({{0}, {0}, {600}, {300}});
        b.move({{450}, {150}, {450}, {300}});
        frame.move({{0}, {600}, {300}, {300}});
        c.move({{150}, {150}, {900}, {900}});
        openSurface();
    }
    void focusEntered() override { journal.push_back("entered"); }
    void focusLeft() override { journal.push_back("left"); }
    void surfaceCaptureLost() override { journal.push_back("owner lost"); }
    void surfaceChanged() override { journal.push_back("changed"); }
    AccessibleItem describeSurface() const override {
        AccessibleItem item;
        item.role = AccessibleItem::Role::client;
        item.name = u"all";
        return item;
    }

    std::string take() { return inOneLine(std::exchange(journal, {})); }
    // What was told of an event.
    std::string mouse(Kind kind, PixelPoint at) {
        platform.mouse(surface.window(), {kind, 1, 0, at});
        return take();
    }
    void openSurface() {
        EXPECT_TRUE(surface.open({SurfacePlacement::Kind::control, 1000, {0, 0, 100, 60}}));
    }
    headless::HeadlessSurface& peer() { return *platform.surface(surface.window()); }

    headless::HeadlessPlatform platform;
    Journal journal;
    Container root{platform, [] { return std::make_shared<int>(0); }};
    Surface surface{root, *this};
    std::unique_ptr<Probe> a = std::make_unique<Probe>(root, journal, "a", Rgb{0xA});
    Probe b{root, journal, "b", Rgb{0xB}};
    Container frame{root};
    Probe c{frame, journal, "c", Rgb{0xC}};
};

TEST_F(SurfaceTest, TheTopmostVisibleWidgetIsHitAndPaintedInsideItsParent) {
    const auto canvas = peer().paint();
    constexpr uint32_t ground = 0xF0F0F0;
    const std::tuple<PixelPoint, const Widget*, uint32_t> rows[] = {
        {{0, 0}, &*a, 0xA},  {{29, 19}, &*a, 0xA}, {{30, 9}, &*a, 0xA},       {{30, 10}, &b, 0xB},
        {{39, 19}, &b, 0xB}, {{59, 29}, &b, 0xB},  {{60, 29}, &root, ground}, {{9, 50}, &frame, ground},
        {{10, 50}, &c, 0xC}, {{19, 59}, &c, 0xC},  {{20, 59}, &root, ground}};
    for (const auto& [at, widget, colour] : rows) {
        EXPECT_EQ(root.hitTest(at), widget) << at.x << "," << at.y;
        EXPECT_EQ(canvas.colourAt(at).value, colour) << at.x << "," << at.y;
    }
    for (const PixelPoint outside : {PixelPoint{-1, 0}, {100, 0}, {0, 60}})
        EXPECT_EQ(root.hitTest(outside), nullptr) << outside.x << "," << outside.y;
    b.setVisible(false);
    EXPECT_EQ(root.hitTest({35, 15}), &*a);
    frame.setVisible(false);
    EXPECT_EQ(root.hitTest({15, 55}), &root);
}

TEST_F(SurfaceTest, AWidgetHearsWhenTheMouseLeavesIt) {
    EXPECT_EQ(mouse(Kind::move, {5, 5}), "a move 5,5");
    EXPECT_EQ(mouse(Kind::move, {35, 12}), "a leave 35,12, b move 5,2");
    EXPECT_EQ(mouse(Kind::leave, {200, 5}), "b leave 170,-5");
    EXPECT_EQ(mouse(Kind::leave, {200, 5}), "");
    EXPECT_EQ(mouse(Kind::move, {12, 52}), "c move 2,2");
}

TEST_F(SurfaceTest, ACapturingWidgetHearsEverythingUntilItReleasesOrLosesIt) {
    mouse(Kind::move, {5, 5});
    surface.capture(*a);
    EXPECT_EQ(mouse(Kind::move, {35, 15}), "a move 35,15") << "no leaving meanwhile";
    EXPECT_EQ(mouse(Kind::up, {-3, 500}), "a up -3,500");
    surface.releaseCapture(b);
    EXPECT_TRUE(surface.captured(*a)) << "only its own";
    platform.stealCapture();
    EXPECT_EQ(take(), "a lost, owner lost");
    EXPECT_EQ(mouse(Kind::move, {35, 15}), "a leave 35,15, b move 5,5");
    surface.capture(b);
    surface.releaseCapture(b);
    EXPECT_EQ(platform.capture(), 0u);
    EXPECT_EQ(take(), "");
}

TEST_F(SurfaceTest, AWidgetMayGoWhileItIsHoveredOrHasTheCaptureOrTheKeyboard) {
    mouse(Kind::move, {5, 5});
    surface.capture(*a);
    surface.focus(*a);
    a.reset();
    EXPECT_EQ(platform.capture(), 0u);
    platform.pressKey('A');
    take();
    EXPECT_EQ(mouse(Kind::move, {35, 15}), "b move 5,5");
    a = std::make_unique<Probe>(root, journal, "a");
    a->move({{0}, {0}, {450}, {150}});
    mouse(Kind::move, {5, 5});
    // Leaving b closes the surface that a would get the move from.
    mouse(Kind::move, {35, 15});
    b.onMouse = [this](const MouseEvent& event) {
        if (event.kind == Kind::leave) surface.close();
    };
    EXPECT_EQ(mouse(Kind::move, {5, 5}), "b leave -25,-5, left");
}

TEST_F(SurfaceTest, AMenuAnswersWhatWasChosenAndTheHeldCaptureRestsMeanwhile) {
    const std::vector<MenuItem> items{{u"&One"}, {}, {u"&Two", false}, {u"T&hree"}};
    std::optional<size_t> wanted;
    platform.answerMenu([&](std::span<const MenuItem> shown, const PixelRect& beside) {
        EXPECT_EQ(shown.size(), items.size());
        EXPECT_EQ(beside, (PixelRect{5, 6, 25, 16}));
        EXPECT_FALSE(surface.holdsCapture());
        return wanted;
    });
    const auto choose = [&] { return surface.chooseFromMenu(items, {5, 6, 25, 16}); };
    surface.holdCapture();
    // A separator, a grey item and none cannot be chosen.
    for (const size_t answer : {0u, 1u, 2u, 3u, 4u}) {
        wanted = answer;
        EXPECT_EQ(choose(), answer == 0 || answer == 3 ? wanted : std::nullopt);
        EXPECT_TRUE(surface.holdsCapture());
        EXPECT_EQ(platform.capture(), surface.window());
    }
    EXPECT_EQ(take(), "") << "no capture was lost";
    surface.endCapture();
    choose();
    EXPECT_EQ(platform.capture(), 0u) << "nor is one taken that was not held";
}

TEST_F(SurfaceTest, WhatEndsTheCaptureOrTheSurfaceWhileAMenuIsOpenEndsItForGood) {
    const std::vector<MenuItem> items{{u"&One"}};
    for (const bool closes : {false, true}) {
        surface.holdCapture();
        platform.answerMenu([&](std::span<const MenuItem>, const PixelRect&) -> std::optional<size_t> {
            surface.endCapture();
            if (closes) surface.close();
            return 0;
        });
        EXPECT_EQ(surface.chooseFromMenu(items, {0, 0, 1, 1}), 0u);
        EXPECT_EQ(platform.capture(), 0u);
    }
    EXPECT_EQ(surface.chooseFromMenu(items, {0, 0, 1, 1}), std::nullopt) << "there is no window any more";
}

TEST_F(SurfaceTest, OnlyWhatChangesIsPaintedAnew) {
    peer().paint();
    b.invalidate();
    for (const headless::DrawnItem& item : peer().paint().items())
        EXPECT_EQ(item.rect.intersected({30, 10, 60, 30}), item.rect) << "only what is invalid";
    c.setVisible(false);
    EXPECT_EQ(peer().invalid(), (PixelRect{10, 50, 20, 60})) << "no more than showed of it";
    for (const headless::DrawnItem& item : peer().paint().items()) EXPECT_NE(item.colour.value, 0xCu);
    c.setVisible(true);
    EXPECT_EQ(peer().invalid(), (PixelRect{10, 50, 20, 60}));
    peer().paint();
    b.move({{0}, {0}, {150}, {150}});
    EXPECT_EQ(peer().invalid(), (PixelRect{0, 0, 60, 30})) << "where it was and where it is";
}

TEST_F(SurfaceTest, ScreenReadersHearOfTheVisiblePartsInTheirPlaces) {
    b.setEnabled(false);
    a->setVisible(false);
    std::vector<AccessibleItem> items = everyItem(peer());
    ASSERT_EQ(items.size(), 3u);
    EXPECT_EQ(items[0].name, u"all");
    EXPECT_EQ(items[1].name, u"b");
    EXPECT_TRUE(items[1].is(AccessibleItem::disabled));
    EXPECT_EQ(items[2].bounds, (PixelRect{10, 50, 20, 60})) << "what its frame lets show";
    frame.setVisible(false);
    EXPECT_EQ(everyItem(peer()).size(), 2u);
    platform.listen(true);
    std::optional<Probe> part(std::in_place, root, journal, "gone");
    surface.announce(AccessibleEvent::state, {&*part, {}});
    part.emplace(root, journal, "in its place");
    EXPECT_TRUE(platform.takeHeard().empty()) << "nothing has happened to that one";
}

TEST_F(SurfaceTest, AFieldHasItsWindowFromTheFirstTimeThatItIsSeen) {
    TextBox field(root);
    field.move({{900}, {0}, {300}, {285}});
    field.setVisible(false);
    surface.close();
    openSurface();
    field.setText(u"abc");
    field.setSelection({1, 1});
    EXPECT_FALSE(field.takeFocus());
    EXPECT_EQ(platform.windowCount(), 1u) << "that of the surface";
    field.setVisible(true);
    ASSERT_TRUE(field.takeFocus());
    platform.type(u"x");
    EXPECT_EQ(field.text(), u"axc");
    field.setVisible(false);
    field.setVisible(true);
    EXPECT_EQ(platform.windowCount(), 2u) << "and keeps it";
}

TEST_F(SurfaceTest, WhoeverHearsThatAFieldLostTheFocusMayCloseTheWindow) {
    TextBox field(root);
    const Connection closes = field.focusWent.connect([this] { surface.close(); });
    constexpr TwipsRect inSight{{900}, {0}, {300}, {285}}, outOfSight{{3000}, {0}, {300}, {285}};
    const std::function<void()> losses[] = {[&] { field.setEnabled(false); }, [&] { field.move(outOfSight); },
                                            [&] { field.setVisible(false); }};
    for (const auto& lose : losses) {
        field.move(inSight);
        field.setEnabled(true);
        field.setVisible(true);
        surface.close();
        openSurface();
        ASSERT_TRUE(field.takeFocus());
        lose();
        EXPECT_FALSE(surface.isOpen());
        EXPECT_EQ(platform.windowCount(), 0u);
    }
}

}  // namespace
}  // namespace obk::test
