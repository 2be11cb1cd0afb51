// A container that reads from right to left gets the mirror image, with its places counted from there.
#include "datecalendar/month_layout.h"
#include "library/library.h"
#include "platform/headless/headless_text_box.h"
#include "support/control_fixture.h"

namespace obk::test {
namespace {

using Kind = MouseEvent::Kind;

constexpr PixelRect bounds{500, 100, 641, 121};
constexpr int32_t width = 141;

class RightToLeft : public ControlFixture {
protected:
    void begin(const char16_t* name, bool rightToLeft) {
        host.readsRightToLeft = rightToLeft;
        place(*library().control(name));
        activate(bounds);
    }
    // Everything that is painted or is a window of its own; a mirrored picture is put the right way round.
    static std::vector<std::string> picture(headless::HeadlessSurface& of, bool mirrored) {
        std::vector<std::string> lines;
        const int32_t all = of.bounds().width();
        const auto add = [&](const std::string& what, const PixelRect& place) {
            const PixelRect seen =
                mirrored ? PixelRect{all - place.right, place.top, all - place.left, place.bottom} : place;
            lines.push_back(what + " " + std::to_string(seen.left) + "," + std::to_string(seen.top) + "-" +
                            std::to_string(seen.right) + "," + std::to_string(seen.bottom));
        };
        for (const headless::DrawnItem& item : of.paint().items()) {
            const bool isText = item.kind == headless::DrawnItem::Kind::text;
            HorizontalAlignment side = item.style.horizontal;
            if (isText && mirrored) side = obk::mirrored(side);
            EXPECT_EQ(item.style.rightToLeft, mirrored && isText);
            add(std::to_string(static_cast<int>(item.kind)) + " " + std::to_string(item.colour.value) + " " +
                    toUtf8(item.text) + " " + std::to_string(static_cast<int>(side)),
                item.rect);
        }
        for (const headless::HeadlessWindow* child : of.children()) {
            const auto* box = dynamic_cast<const headless::HeadlessTextBox*>(child);
            const HorizontalAlignment side = box ? box->flow().alignment : HorizontalAlignment::centre;
            add("window " + std::to_string(static_cast<int>(mirrored ? obk::mirrored(side) : side)),
                child->bounds());
        }
        for (const AccessibleItem& item : everyItem(of)) add(toUtf8(item.name), item.bounds);
        return lines;
    }
};

class RightToLeftTest : public RightToLeft, public testing::WithParamInterface<const char16_t*> {};

INSTANTIATE_TEST_SUITE_P(Every, RightToLeftTest,
                         testing::Values(u"UpDownTextBox", u"ButtonPalette", u"DateCalendar"),
                         [](const auto& row) { return toUtf8(row.param); });

TEST_P(RightToLeftTest, IsTheMirrorImageAndCountsFromThere) {
    std::vector<std::string> pictures[2], panels[2];
    Journal told[2];
    for (const bool mirrored : {false, true}) {
        // A container may turn round while the control shows.
        begin(GetParam(), !mirrored);
        const bool drops = control->table().member(u"ShowPopUp") != nullptr;
        if (drops) call(u"ShowPopUp"), call(u"HidePopUp");
        host.readsRightToLeft = mirrored;
        control->setSize(control->width(), control->height());
        pictures[mirrored] = picture(*platform.surface(control->window()), mirrored);
        host.take();
        for (const int32_t x : {60, 135})
            click({mirrored ? width - 1 - x : x, 10}, Kind::down, button::right);
        told[mirrored] = host.takeEvents();
        if (drops) {
            call(u"ShowPopUp");
            ASSERT_TRUE(open());
            panels[mirrored] = picture(*panel(), mirrored);
            const PixelRect place = panel()->bounds();
            EXPECT_EQ(mirrored ? place.right : place.left, mirrored ? bounds.right : bounds.left);
        }
    }
    EXPECT_EQ(pictures[0], pictures[1]);
    EXPECT_EQ(panels[0], panels[1]);
    EXPECT_EQ(told[0], told[1]);
    EXPECT_GE(told[0].size(), 2u);
}

TEST_F(RightToLeft, ANumberKeepsItsSignBeforeIt) {
    host.readsRightToLeft = true;
    place(*library().control(u"GridEdit"));
    activate({0, 0, 400, 150});
    call(u"CellTextSet", {1, 1, Text(u"-12.5")});
    call(u"CellTextSet", {0, 0, Text(u"- oak")});
    int32_t seen = 0;
    for (const headless::DrawnItem& item : platform.surface(control->window())->paint().items()) {
        if (item.text != u"-12.5" && item.text != u"- oak") continue;
        EXPECT_EQ(item.style.rightToLeft, item.text == u"- oak");
        ++seen;
    }
    EXPECT_EQ(seen, 2);
}

TEST_F(RightToLeft, TheArrowsGoWhereTheyPoint) {
    begin(u"DateCalendar", true);
    ASSERT_TRUE(control->focus());
    put(u"Text", Text(u"Sat 14 Nov 2026"));
    call(u"ShowPopUp");
    platform.pressKey(key::left);
    platform.pressKey(key::enter);
    EXPECT_EQ(text(u"Text"), "Sun 15 Nov 2026        ");
    call(u"ShowPopUp");
    const PixelRect monday = Dpi().toPixels(cellBounds(14));
    platform.click(panel()->id(), {panel()->bounds().width() - monday.left - 5, monday.top + 5});
    EXPECT_EQ(text(u"Text"), "Mon 2 Nov 2026        ");
    begin(u"ButtonPalette", true);
    ASSERT_TRUE(control->focus());
    call(u"ShowPopUp");
    for (const int16_t code : {key::home, key::left, key::enter}) platform.pressKey(code);
    EXPECT_EQ(text(u"Text"), "PASTEL COPPER");
}

}  // namespace
}  // namespace obk::test
