#include "palette/button_palette.h"

#include "platform/headless/headless_surface.h"
#include "support/control_fixture.h"
#include "widgets/in_one_line.h"

namespace obk::test {
namespace {

using Kind = MouseEvent::Kind;
using headless::DrawnItem;

constexpr int32_t shades8x4x4 = 6;

class ButtonPaletteTest : public ControlFixture {
protected:
    void SetUp() override {
        place(ButtonPalette::memberTable());
        activate({100, 100, 175, 123});
        host.take();
    }
    headless::HeadlessSurface& face() { return *platform.surface(control->window()); }
    void show() {
        call(u"ShowPopUp");
        ASSERT_TRUE(open());
        host.take();
    }
    void showWithFocus() {
        ASSERT_TRUE(control->focus());
        show();
    }
    PaletteCell swatch(size_t index) {
        ColourPalette palette(*paletteFromNumber(std::get<int32_t>(get(u"Palette"))));
        palette.buildShades(palette.baseCells()[0]);
        return palette.cells()[index];
    }
    // The middle of a base cell, or of a shade behind them.
    PixelPoint cell(size_t index) {
        const PixelRect rect = swatch(index).rect;
        return {rect.left + rect.width() / 2, rect.top + rect.height() / 2};
    }
    std::string change(size_t index) { return "Change " + std::to_string(swatch(index).Color.value); }
    // What a host hears when a swatch is taken that was not active.
    std::string picked(size_t index) {
        return change(index) + ", FocusHidden, FocusHidden, Click, " + change(index);
    }

    // The events since the last look, or everything.
    std::string events() { return inOneLine(host.takeEvents()); }
    std::string told() { return inOneLine(host.take()); }
    // The events that a step of a person has led to.
    std::string press(int16_t code, int16_t state = 0) {
        platform.pressKey(code, state);
        return events();
    }
    std::string mouse(Kind kind, PixelPoint at, int16_t mouseButton = button::left) {
        platform.mouse(control->window(), {kind, mouseButton, 0, at});
        return events();
    }
    std::string panelMouse(Kind kind, PixelPoint at, int16_t mouseButton = button::left) {
        platform.mouse(panel()->id(), {kind, mouseButton, 0, at});
        return events();
    }
    void pick(PixelPoint at) {
        for (const Kind kind : {Kind::down, Kind::up}) platform.mouse(panel()->id(), {kind, 1, 0, at});
    }
    PixelSize panelSize() { return {panel()->bounds().width(), panel()->bounds().height()}; }
    Rgb ground() { return face().paint().colourAt({50, 3}); }
    // The first thing of a kind that the button shows.
    std::optional<DrawnItem> drawn(DrawnItem::Kind kind) {
        for (const DrawnItem& item : face().paint().items())
            if (item.kind == kind) return item;
        return {};
    }
};

TEST_F(ButtonPaletteTest, AClickOpensThePanelBelowAndASecondOneClosesIt) {
    const Rgb closed = ground();
    click({20, 10});
    EXPECT_EQ(events(), "MouseDown 1 0 20 10, MouseUp 1 0 20 10, Click");
    ASSERT_TRUE(open());
    EXPECT_NE(ground(), closed) << "it looks pressed as long as the panel is open";
    // The press falls outside the panel, which has the mouse; its release on the button is no click.
    EXPECT_EQ(mouse(Kind::down, {20, 10}), "FocusHidden");
    EXPECT_EQ(mouse(Kind::move, {20, 10}), "MouseOut 1 0 20 10, MouseMove 1 0 20 10");
    EXPECT_EQ(mouse(Kind::up, {20, 10}), "MouseUp 1 0 20 10");
    EXPECT_FALSE(open());
    platform.click(control->window(), {65, 11});
    EXPECT_TRUE(open()) << "a click on its arrow is one on the button";
    call(u"HidePopUp");
    put(u"bPOSITIONDEFAULT", false);
    control->setBounds({100, 500, 175, 523});
    show();
    EXPECT_EQ(panel()->bounds().bottom, 500) << "it goes up when asked";
}

TEST_F(ButtonPaletteTest, APickRaisesChangeThenTwoHidingsThenClickAndChange) {
    show();
    pick(cell(8));
    EXPECT_EQ(told(), "changed ActiveColor, changed ActiveText, " + change(8) +
                          ", FocusHidden, FocusHidden, changed ?, changed Text, Click, " + change(8));
    EXPECT_EQ(text(u"Color"), std::to_string(swatch(8).Color.value));
    EXPECT_EQ(text(u"Text"), "PASTEL COPPER");
    EXPECT_EQ(platform.capture(), 0u);
    // The same swatch once more is neither active anew nor chosen anew.
    show();
    pick(cell(8));
    EXPECT_EQ(told(), "FocusHidden, FocusHidden");
}

TEST_F(ButtonPaletteTest, ADragRaisesChangeForEachFurtherSwatch) {
    show();
    EXPECT_EQ(panelMouse(Kind::move, cell(3), 0), "") << "hovering is no news";
    EXPECT_EQ(panelMouse(Kind::down, cell(8)), change(8));
    EXPECT_EQ(panelMouse(Kind::move, cell(9)), change(9));
    EXPECT_EQ(panelMouse(Kind::move, {cell(9).x + 1, cell(9).y}), "");
    EXPECT_EQ(panelMouse(Kind::up, cell(9)), "FocusHidden, FocusHidden, Click, " + change(9));
    // Released outside it goes back to the chosen colour, in a gap to nothing.
    show();
    EXPECT_EQ(panelMouse(Kind::down, cell(8)), change(8));
    EXPECT_EQ(panelMouse(Kind::up, {-30, -30}), "FocusHidden, " + change(9));
    EXPECT_EQ(text(u"ActiveText"), "PASTEL COPPER");
    show();
    EXPECT_EQ(panelMouse(Kind::down, {1, 1}), "");
    EXPECT_EQ(panelMouse(Kind::up, {1, 1}), "FocusHidden");
}

TEST_F(ButtonPaletteTest, APressOutsideHidesAndBelowTheStripsTopHidesTwice) {
    show();
    const auto [width, height] = panelSize();
    const std::pair<PixelPoint, const char*> presses[] = {
        {{-5, 20}, "FocusHidden"},
        {{50, height + 50}, "FocusHidden, FocusHidden"},
        {{-5, height - 20}, "FocusHidden, FocusHidden"},
        {{width - 10, height - 20}, "FocusHidden"},  // inside, but near the edge
    };
    for (const auto& [at, expected] : presses) {
        show();
        EXPECT_EQ(panelMouse(Kind::down, at), expected) << at.x << "," << at.y;
    }
}

TEST_F(ButtonPaletteTest, TheRightButtonChoosesASwatchAndOpensNothing) {
    show();
    panelMouse(Kind::down, cell(8), button::right);
    EXPECT_EQ(panelMouse(Kind::move, cell(9), button::right), "");
    EXPECT_EQ(panelMouse(Kind::up, cell(9), button::right), "FocusHidden, FocusHidden, Click, " + change(9));
    EXPECT_EQ(text(u"ActiveText"), "PASTEL COPPER") << "where it was pressed";
    click({5, 5}, Kind::down, button::right);
    EXPECT_EQ(events(), "MouseDown 2 0 5 5, MouseUp 2 0 5 5");
    EXPECT_FALSE(open());
    EXPECT_EQ(get(u"MousePosn"), Value(true));
}

TEST_F(ButtonPaletteTest, WithoutAPanelOfItsOwnAClickRaisesPopUp) {
    put(u"PopupEnabled", false);
    call(u"UserControl_Click");
    EXPECT_EQ(events(), "PopUp, Click");
    EXPECT_EQ(panel(), nullptr);
    platform.click(control->window(), {5, 5});
    events();
    click({5, 5}, Kind::doubleClick);
    EXPECT_EQ(events(), "MouseDown 1 0 1 1, DblClick, MouseUp 1 0 5 5, PopUp, Click") << "pressed once more";
    call(u"HidePopUp");
    EXPECT_EQ(events(), "FocusHidden") << "the host is told although nothing was to hide";
}

TEST_F(ButtonPaletteTest, KeysOpenCloseAndMoveOn) {
    ASSERT_TRUE(control->focus());
    host.take();
    EXPECT_EQ(press(key::down), "Click, KeyDown 40 0, KeyUp 40 0");
    EXPECT_TRUE(open());
    EXPECT_EQ(press(key::pageDown), "FocusHidden, Click, KeyDown 34 0, KeyUp 34 0");
    EXPECT_EQ(press(key::down, shift::shift), "KeyDown 40 1, KeyUp 40 1");
    EXPECT_FALSE(open());
    EXPECT_EQ(press(key::space), "KeyDown 32 0, MouseDown 1 1 1 1, MouseUp 1 1 1 1, Click, KeyUp 32 0");
    EXPECT_TRUE(open()) << "a press of Space toggles once";
    EXPECT_EQ(press(key::escape), "FocusHidden, KeyDown 27 0, KeyUp 27 0");
    EXPECT_FALSE(open());
    platform.pressKey(key::left);
    EXPECT_EQ(told(), "KeyDown 37 0, offered 9, KeyUp 37 0");
    // F4 and Alt with an arrow as in any field that drops something down, whichever button was pressed last.
    click({20, 10}, Kind::down, button::right);
    for (const auto& [code, state] :
         {std::pair(key::f4, int16_t{0}), {key::f4, 0}, {key::down, shift::alt}, {key::up, shift::alt}}) {
        const bool before = open();
        host.take();
        for (const bool held : {false, true}) platform.keyDown(code, state, held);
        platform.keyUp(code, state);
        EXPECT_NE(open(), before);
        const Journal heard = host.takeEvents();
        EXPECT_EQ(std::count(heard.begin(), heard.end(), "Click"), 1);
    }
    // With Ctrl or Alt, Space is a shortcut that nobody had.
    platform.pressKey(key::space, shift::control);
    EXPECT_FALSE(open());
    EXPECT_EQ(told(), "offered 32, KeyDown 32 2, KeyUp 32 2");
    // A closed panel leaves Escape to the container first.
    host.takesKeys = true;
    platform.pressKey(key::escape);
    EXPECT_EQ(told(), "offered 27, KeyUp 27 0");
}

TEST_F(ButtonPaletteTest, TheContainerHearsOfEachOtherAccessKeyAndADisabledButtonOfNone) {
    put(u"Caption", Text(u"   &ground"));
    EXPECT_EQ(control->accessKeys(), u"G");
    put(u"Enabled", false);
    host.take();
    control->useAccessKey(u'g');
    EXPECT_EQ(told(), "");
    struct : JournalHost {
        void accessKeysChanged() override { journal.push_back("access keys"); }
    } other;
    control->setHost(&other);
    put(u"Caption", Text(u"&Other"));
    put(u"Caption", Text(u"An&other"));
    EXPECT_EQ(inOneLine(other.take()), "changed Text, access keys, changed Text");
    control->setHost(&host);
}

TEST_F(ButtonPaletteTest, AWalkMovesTheFrameAndChoosesLikeAPressAndRelease) {
    showWithFocus();
    EXPECT_EQ(press(key::home), "KeyDown 36 0, KeyUp 36 0");
    press(key::pageDown);
    press(key::right);  // EARTH COPPER
    EXPECT_TRUE(open());
    EXPECT_EQ(press(key::enter), picked(15) + ", KeyDown 13 0, KeyUp 13 0");
    EXPECT_EQ(text(u"Text"), "EARTH COPPER");
    // Space chooses too, and its release opens nothing, also where Space has opened the panel.
    press(key::space);
    ASSERT_TRUE(open());
    press(key::end);
    EXPECT_TRUE(press(key::space).ends_with("KeyUp 32 0"));
    EXPECT_EQ(text(u"Text"), "BLACK");
    EXPECT_FALSE(open());
    // Below the last swatch is the strip.
    show();
    platform.answerColour([](const ColourQuestion&) { return std::optional(Rgb::of(1, 2, 3)); });
    press(key::end);
    press(key::down);
    EXPECT_EQ(press(key::enter), "FocusHidden, ChangeCustom 197121, KeyDown 13 0, KeyUp 13 0");
}

TEST_F(ButtonPaletteTest, TheStripAsksForAColourOfOnesOwn) {
    put(u"Color", OleColour(Rgb::of(10, 20, 30)));
    show();
    const PixelPoint strip{panelSize().width / 2, panelSize().height - 17};
    panelMouse(Kind::move, strip, 0);
    EXPECT_EQ(panel()->cursor(), Cursor::hand);
    platform.answerColour([](const ColourQuestion& question) {
        EXPECT_EQ(question.start, Rgb::of(10, 20, 30));
        EXPECT_TRUE(question.full);
        return std::optional(Rgb::of(1, 2, 3));
    });
    pick(strip);
    EXPECT_EQ(told(), "FocusHidden, changed ?, changed Text, ChangeCustom 197121");
    EXPECT_EQ(get(u"Color"), Value(OleColour(Rgb::of(1, 2, 3))));
    EXPECT_EQ(text(u"Text"), "EARTH RED") << "the chosen swatch stays";
    show();
    panelMouse(Kind::down, {1, 1});
    EXPECT_EQ(panelMouse(Kind::up, {-1, 1}), "FocusHidden, Change 1971210") << "as does its colour";
    // Cancelled: everything runs with the colour it started from, be it one by reference.
    put(u"Color", OleColour(SystemColour::highlight));
    show();
    platform.answerColour([](const ColourQuestion&) { return std::optional<Rgb>(); });
    EXPECT_EQ(panelMouse(Kind::down, strip), "FocusHidden, ChangeCustom -2147483635");
    EXPECT_EQ(get(u"Color"), Value(OleColour(SystemColour::highlight)));
}

TEST_F(ButtonPaletteTest, AnotherPaletteWhileOpenResizesThePanelAndKeepsTheNearestColour) {
    show();
    const PixelSize before = panelSize();
    put(u"Palette", 0);
    EXPECT_TRUE(open());
    EXPECT_LT(panelSize().width, before.width);
    EXPECT_EQ(text(u"Text"), "DARK RED");
    put(u"Palette", 12);
    EXPECT_EQ(text(u"Palette"), "0") << "no such palette";
    pick(cell(0));
    EXPECT_EQ(text(u"Text"), "RED");
}

TEST_F(ButtonPaletteTest, APressOrADragOverABaseColourBringsItsShades) {
    put(u"Palette", shades8x4x4);
    show();
    panelMouse(Kind::down, cell(3), button::right);  // GREEN
    panelMouse(Kind::move, cell(4), 0);
    panelMouse(Kind::up, cell(8));
    EXPECT_EQ(text(u"Text"), "BARLEY GREEN") << "moving without a button brings none";
    show();
    panelMouse(Kind::down, cell(3));
    panelMouse(Kind::move, cell(7));
    panelMouse(Kind::up, cell(9));
    EXPECT_EQ(text(u"Text"), "CHROME") << "of white";
}

TEST_F(ButtonPaletteTest, AHeldKeyThatChoosesOrClosesDoesNothingMoreUntilItIsReleased) {
    host.takesKeys = true;
    for (const int16_t held : {key::space, key::enter, key::escape}) {
        SCOPED_TRACE(held);
        showWithFocus();
        for (int time = 0; time < 2; ++time) platform.pressKey(key::right);
        platform.keyDown(held);
        EXPECT_FALSE(open());
        host.take();
        for (int time = 0; time < 2; ++time) platform.keyDown(held, 0, true);
        platform.keyUp(held);
        const std::string code = std::to_string(held) + " 0";
        EXPECT_EQ(host.take(), (Journal{"KeyDown " + code, "KeyDown " + code, "KeyUp " + code}));
        EXPECT_FALSE(open());
    }
}

TEST_F(ButtonPaletteTest, LosingTheFocusHidesThePanelAndTellsBothLosses) {
    showWithFocus();
    platform.setFocus(0);
    EXPECT_EQ(events(), "FocusHidden, FocusLost, FocusLost, MouseUp 1 0 0 0");
    EXPECT_FALSE(open());
    call(u"UserControl_ExitFocus");
    EXPECT_EQ(events(), "FocusLost, MouseUp 1 0 0 0");
}

TEST_F(ButtonPaletteTest, HoverIsTrackedWithTheCaptureOnceThePressIsOver) {
    EXPECT_EQ(mouse(Kind::move, {5, 5}, 0), "MouseMove 0 0 5 5") << "not before the first press has ended";
    put(u"PopupEnabled", false);
    platform.click(control->window(), {5, 5});
    host.take();
    EXPECT_EQ(mouse(Kind::move, {6, 6}, 0), "MouseOut 0 0 6 6, MouseMove 0 0 6 6");
    EXPECT_EQ(platform.capture(), control->window());
    EXPECT_EQ(get(u"MousePosn"), Value(true));
    mouse(Kind::move, {75, 23}, 0);
    EXPECT_EQ(platform.capture(), control->window()) << "the far edge is inside";
    mouse(Kind::move, {76, 5}, 0);
    EXPECT_EQ(platform.capture(), 0u);
    EXPECT_EQ(get(u"bMOUSEPOSLOC"), Value(false));
    call(u"UserControlMouseOut", {int16_t{0}, int16_t{0}, 1.0f, 1.0f});
    EXPECT_EQ(platform.capture(), control->window());
    call(u"UserControl_Click");
    EXPECT_EQ(platform.capture(), 0u);
}

TEST_F(ButtonPaletteTest, ScreenReadersHearOfTheColourThatShows) {
    EXPECT_EQ(everyItem(face())[0].value, u"BLACK") << "although another one is chosen";
    put(u"ShowButtonColor", false);
    EXPECT_EQ(everyItem(face())[0].value, u"EARTH RED");
    show();
    EXPECT_EQ(everyItem(*panel()).size(), 1u + 192u + 1u) << "the line above the last button is none";
}

TEST_F(ButtonPaletteTest, TheHoverFrameAndTheChosenSwatchAreDrawnApart) {
    show();
    panelMouse(Kind::move, cell(8), 0);
    put(u"Color", swatch(7).Color);
    const headless::RecordingCanvas shown = panel()->paint();
    const PixelRect hovered = swatch(8).rect, chosen = swatch(7).rect;  // EARTH RED
    EXPECT_EQ(shown.colourAt({hovered.left - 1, hovered.top + 5}), system(SystemColour::highlight));
    EXPECT_EQ(shown.colourAt({chosen.left - 1, chosen.top + 5}), system(SystemColour::windowText));
    EXPECT_EQ(shown.colourAt({hovered.right, hovered.top + 5}), system(SystemColour::highlight));
    put(u"Color", OleColour(Rgb::of(1, 2, 3)));
    EXPECT_NE(panel()->paint().colourAt({chosen.left - 1, chosen.top + 5}), system(SystemColour::windowText))
        << "painted anew, and no swatch has that colour";
}

TEST_F(ButtonPaletteTest, ColoursOfAHostsOwnShowUntilTheFirstRepaint) {
    const Rgb pink = Rgb::of(250, 200, 210);
    put(u"BackColor", OleColour(pink));
    put(u"BackcolorCustom", true);
    MemoryBag bag;
    control->save(bag);
    control->load(bag);
    put(u"ForeColor", OleColour(pink));
    const auto caption = [this] { return drawn(DrawnItem::Kind::text)->style.colour; };
    EXPECT_EQ(ground(), pink);
    EXPECT_EQ(caption(), pink);
    call(u"SetTheme");
    EXPECT_EQ(ground(), Rgb::of(240, 240, 240));
    EXPECT_EQ(caption(), system(SystemColour::buttonText));
    for (const char16_t* kept : {u"ForeColor", u"BackColor"}) EXPECT_EQ(get(kept), Value(OleColour(pink)));
    put(u"BackcolorCustom", false);
    call(u"SetTheme");
    EXPECT_EQ(ground(), pink);
}

TEST_F(ButtonPaletteTest, TheAsymmetriesOfStoredFormsAreKept) {
    const Value mask = OleColour(Rgb::of(255, 0, 255));
    put(u"MaskHLightColor", mask);
    put(u"Caption", Text(u"Ink"));
    put(u"PictureVisible", true);
    put(u"Color", OleColour(Rgb::of(1, 2, 3)));
    EXPECT_EQ(told(), "changed MaskHLightColor, changed Text, changed PictureVisible, changed Color");
    MemoryBag bag;
    control->save(bag);
    EXPECT_EQ(bag.read(u"MASKHLIGHT", ValueType::colour), mask);
    control->load(bag);
    EXPECT_EQ(get(u"MaskHLightColor"), Value(OleColour(SystemColour::buttonFace)));
    bag = {};
    bag.write(u"TOOLTIP", Text(u"Choose an ink"));
    control->load(bag);
    EXPECT_EQ(text(u"Caption"), "Button");
    EXPECT_EQ(get(u"BackColor"), Value(OleColour(Rgb::of(240, 240, 240))));
    mouse(Kind::move, {5, 5}, 0);
    EXPECT_EQ(face().toolTip(), u"Choose an ink");
}

TEST_F(ButtonPaletteTest, MaskedPixelsOfAPictureAreLeftOut) {
    using Pixels = std::vector<uint32_t>;
    const auto picture = std::make_shared<SharedPicture>(PixelSize{2, 1}, Pixels{0xFFFF00FFu, 0xFF112233u});
    put(u"Picture", picture);
    put(u"PictureVisible", true);
    const auto shown = [this] {
        const auto item = drawn(DrawnItem::Kind::picture);
        return item ? item->picture->pixels() : Pixels();
    };
    EXPECT_EQ(shown(), (Pixels{0xFFFF00FFu, 0xFF112233u}));
    put(u"MaskHLightColor", OleColour(Rgb::of(255, 0, 255)));
    EXPECT_EQ(shown(), (Pixels{0, 0xFF112233u}));
    put(u"MaskHLightColor", OleColour(Rgb::of(0x11, 0x22, 0x33)));
    EXPECT_EQ(shown(), (Pixels{0xFFFF00FFu, 0}));
    put(u"Enabled", false);
    const Pixels grey = shown();
    EXPECT_NE(grey, (Pixels{0xFFFF00FFu, 0}));
    put(u"BackcolorCustom", true);
    put(u"BackColor", OleColour(Rgb::of(0, 0, 0)));
    EXPECT_NE(shown(), grey) << "greyed towards another ground";
    put(u"PictureVisible", false);
    EXPECT_EQ(shown(), Pixels());
    EXPECT_EQ(get(u"Picture"), Value(PictureRef(picture))) << "the host's own picture stays what it was";
}

}  // namespace
}  // namespace obk::test
