#include "palette/button_palette.h"

#include "platform/headless/headless_surface.h"
#include "support/control_fixture.h"

namespace obk::test {
namespace {

constexpr int32_t flat24x8 = 4;
constexpr int32_t shades8x4x4 = 6;

class ButtonPaletteTest : public ControlFixture {
protected:
    void SetUp() override {
        place(ButtonPalette::memberTable());
        activate({100, 100, 175, 123});
        host.take();
    }
    ButtonPalette& button() { return static_cast<ButtonPalette&>(*control); }
    NativeWindow surface() { return control->window(); }
    void show() {
        call(u"ShowPopUp");
        ASSERT_TRUE(open());
        host.take();
    }
    // The middle of a base cell, or of a shade behind them.
    PixelPoint cell(size_t index, int32_t palette = flat24x8) {
        ColourPalette cells(static_cast<enQUILLPalette>(palette));
        const size_t count = cells.baseCells().size();
        cells.buildShades(cells.baseCells()[0]);
        const PixelRect rect =
            index < count ? cells.baseCells()[index].rect : cells.shadeCells()[index - count].rect;
        return {rect.left + rect.width() / 2, rect.top + rect.height() / 2};
    }
    std::string colourOf(size_t index, int32_t palette = flat24x8) {
        return std::to_string(
            ColourPalette(static_cast<enQUILLPalette>(palette)).baseCells()[index].Color.value);
    }
    // Nothing where a host has taken the panel away meanwhile.
    void onPanel(MouseEvent::Kind kind, PixelPoint at, int16_t mouseButton = button::left) {
        if (panel()) platform.mouse(panel()->id(), {kind, mouseButton, 0, at});
    }
    void pick(PixelPoint at) {
        onPanel(MouseEvent::Kind::down, at);
        onPanel(MouseEvent::Kind::up, at);
    }
    PixelSize panelSize() { return {panel()->bounds().width(), panel()->bounds().height()}; }
};

using Kind = MouseEvent::Kind;

TEST_F(ButtonPaletteTest, AClickOpensThePanelBelowAndASecondOneClosesIt) {
    const auto ground = [this] { return platform.surface(surface())->paint().colourAt({50, 3}); };
    const Rgb closed = ground();
    click({20, 10});
    EXPECT_EQ(host.takeEvents(), (Journal{"MouseDown 1 0 20 10", "MouseUp 1 0 20 10", "Click"}));
    ASSERT_TRUE(open());
    EXPECT_EQ(panel()->bounds().left, 100);
    EXPECT_EQ(panel()->bounds().top, 123);
    EXPECT_EQ(platform.capture(), panel()->id());
    EXPECT_NE(ground(), closed) << "it looks pressed as long as the panel is open";
    // The press falls outside the panel, which has the mouse; its release on the button is no click.
    for (const Kind kind : {Kind::down, Kind::move, Kind::up})
        platform.mouse(surface(), {kind, button::left, 0, {20, 10}});
    EXPECT_EQ(host.takeEvents(),
              (Journal{"FocusHidden", "MouseOut 1 0 20 10", "MouseMove 1 0 20 10", "MouseUp 1 0 20 10"}));
    EXPECT_FALSE(open());
    EXPECT_EQ(platform.capture(), 0u);
    platform.click(surface(), {65, 11});
    EXPECT_TRUE(open()) << "a click on its arrow is one on the button";
}

TEST_F(ButtonPaletteTest, APickRaisesChangeThenTwoHidingsThenClickAndChange) {
    show();
    pick(cell(8));
    const std::string colour = colourOf(8);
    EXPECT_EQ(host.take(),
              (Journal{"changed ActiveColor", "changed ActiveText", "Change " + colour, "FocusHidden",
                       "FocusHidden", "changed ?", "changed Text", "Click", "Change " + colour}));
    EXPECT_EQ(text(u"Color"), colour);
    EXPECT_EQ(text(u"Text"), "PASTEL COPPER");
    EXPECT_EQ(platform.capture(), 0u);
    // The same swatch once more is neither active anew nor chosen anew.
    show();
    pick(cell(8));
    EXPECT_EQ(host.take(), (Journal{"FocusHidden", "FocusHidden"}));
}

TEST_F(ButtonPaletteTest, ADragRaisesChangeForEachFurtherSwatch) {
    show();
    onPanel(Kind::move, cell(3), 0);
    EXPECT_EQ(host.takeEvents(), Journal{}) << "hovering is no news";
    onPanel(Kind::down, cell(8));
    onPanel(Kind::move, cell(9));
    onPanel(Kind::move, {cell(9).x + 1, cell(9).y});
    onPanel(Kind::up, cell(9));
    EXPECT_EQ(host.takeEvents(), (Journal{"Change " + colourOf(8), "Change " + colourOf(9), "FocusHidden",
                                          "FocusHidden", "Click", "Change " + colourOf(9)}));
}

TEST_F(ButtonPaletteTest, AReleaseOutsideGoesBackToTheChosenColour) {
    show();
    const std::string chosen = "Change " + std::to_string(Rgb::of(85, 0, 0).value);
    onPanel(Kind::down, cell(8));
    onPanel(Kind::up, {-30, -30});
    EXPECT_EQ(host.takeEvents(), (Journal{"Change " + colourOf(8), "FocusHidden", chosen}));
    EXPECT_EQ(text(u"ActiveText"), "PASTEL COPPER");
    // In a gap nothing is chosen and nothing goes back.
    show();
    onPanel(Kind::down, {1, 1});
    onPanel(Kind::up, {1, 1});
    EXPECT_EQ(host.takeEvents(), (Journal{"FocusHidden"}));
}

TEST_F(ButtonPaletteTest, APressOutsideHidesAndBelowTheStripsTopHidesTwice) {
    show();
    onPanel(Kind::down, {-5, 20});
    EXPECT_EQ(host.takeEvents(), (Journal{"FocusHidden"}));
    show();
    onPanel(Kind::down, {50, panelSize().height + 50});
    EXPECT_EQ(host.takeEvents(), (Journal{"FocusHidden", "FocusHidden"}));
    show();
    onPanel(Kind::down, {-5, panelSize().height - 20});
    EXPECT_EQ(host.takeEvents(), (Journal{"FocusHidden", "FocusHidden"}));
    show();
    onPanel(Kind::down, {panelSize().width - 10, panelSize().height - 20});
    EXPECT_EQ(host.takeEvents(), (Journal{"FocusHidden"})) << "inside, but near the edge";
}

TEST_F(ButtonPaletteTest, TheRightButtonMakesASwatchActiveAndChoosesIt) {
    show();
    onPanel(Kind::down, cell(8), button::right);
    onPanel(Kind::move, cell(9), button::right);
    onPanel(Kind::up, cell(9), button::right);
    EXPECT_EQ(host.takeEvents(), (Journal{"Change " + colourOf(8), "FocusHidden", "FocusHidden", "Click",
                                          "Change " + colourOf(9)}));
}

TEST_F(ButtonPaletteTest, TheRightButtonOnTheButtonOpensNothing) {
    click({5, 5}, Kind::down, button::right);
    EXPECT_EQ(host.takeEvents(), (Journal{"MouseDown 2 0 5 5", "MouseUp 2 0 5 5"}));
    EXPECT_FALSE(open());
    EXPECT_EQ(get(u"MousePosn"), Value(true));
}

TEST_F(ButtonPaletteTest, WithoutAPanelOfItsOwnAClickRaisesPopUp) {
    put(u"PopupEnabled", false);
    host.take();
    call(u"UserControl_Click");
    EXPECT_EQ(host.takeEvents(), (Journal{"PopUp", "Click"}));
    EXPECT_EQ(panel(), nullptr);
}

TEST_F(ButtonPaletteTest, HidingAHiddenPanelStillTellsTheHost) {
    call(u"HidePopUp");
    EXPECT_EQ(host.takeEvents(), (Journal{"FocusHidden"}));
}

TEST_F(ButtonPaletteTest, KeysOpenCloseAndMoveOn) {
    ASSERT_TRUE(control->focus());
    host.take();
    platform.pressKey(key::down);
    EXPECT_EQ(host.takeEvents(), (Journal{"Click", "KeyDown 40 0", "KeyUp 40 0"}));
    EXPECT_TRUE(open());
    platform.pressKey(key::pageDown);
    EXPECT_EQ(host.takeEvents(), (Journal{"FocusHidden", "Click", "KeyDown 34 0", "KeyUp 34 0"}));
    platform.pressKey(key::down, shift::shift);
    EXPECT_EQ(host.takeEvents(), (Journal{"KeyDown 40 1", "KeyUp 40 1"}));
    EXPECT_FALSE(open());
    platform.pressKey(key::space);
    EXPECT_EQ(host.takeEvents(),
              (Journal{"KeyDown 32 0", "MouseDown 1 1 1 1", "MouseUp 1 1 1 1", "Click", "KeyUp 32 0"}));
    EXPECT_TRUE(open()) << "a press of Space toggles once";
    platform.pressKey(key::escape);
    EXPECT_EQ(host.takeEvents(), (Journal{"FocusHidden", "KeyDown 27 0", "KeyUp 27 0"}));
    EXPECT_FALSE(open());
    platform.pressKey(key::left);
    EXPECT_EQ(host.take(), (Journal{"KeyDown 37 0", "offered 9", "KeyUp 37 0"}));
    // F4 and Alt with an arrow as in any field that drops something down, whichever button was pressed last.
    click({20, 10}, Kind::down, button::right);
    for (const auto& [code, state] :
         {std::pair(key::f4, int16_t{0}), {key::f4, 0}, {key::down, shift::alt}, {key::up, shift::alt}}) {
        const bool before = open();
        host.take();
        for (const bool held : {false, true}) platform.keyDown(code, state, held);
        platform.keyUp(code, state);
        EXPECT_NE(open(), before);
        const Journal told = host.takeEvents();
        EXPECT_EQ(std::count(told.begin(), told.end(), "Click"), 1);
    }
    // With Ctrl or Alt, Space is a shortcut that nobody had.
    platform.pressKey(key::space, shift::control);
    EXPECT_FALSE(open());
    EXPECT_EQ(host.take(), (Journal{"offered 32", "KeyDown 32 2", "KeyUp 32 2"}));
    // A closed panel leaves Escape to the container first.
    host.takesKeys = true;
    platform.pressKey(key::escape);
    EXPECT_EQ(host.take(), (Journal{"offered 27", "KeyUp 27 0"}));
}

TEST_F(ButtonPaletteTest, ItsAccessKeyPressesIt) {
    for (const auto& [caption, keys] : std::initializer_list<std::pair<const char16_t*, const char16_t*>>{
             {u"Ground && &text", u"T"}, {u"Ground && text", u""}, {u"   &ground", u"G"}}) {
        put(u"Caption", Text(caption));
        EXPECT_EQ(control->accessKeys(), keys);
    }
    host.take();
    control->useAccessKey(u'g');
    EXPECT_TRUE(open());
    EXPECT_TRUE(control->hasFocus());
    EXPECT_EQ(host.takeEvents().back(), "Click");
    put(u"Enabled", false);
    host.take();
    control->useAccessKey(u'g');
    EXPECT_EQ(host.take(), Journal{});
    struct : JournalHost {
        void accessKeysChanged() override { journal.push_back("access keys"); }
    } told;
    control->setHost(&told);
    put(u"Caption", Text(u"&Other"));
    put(u"Caption", Text(u"An&other"));
    EXPECT_EQ(told.take(), (Journal{"changed Text", "access keys", "changed Text"})) << "each other one";
    control->setHost(&host);
}

TEST_F(ButtonPaletteTest, AWalkMovesTheFrameAndChoosesLikeAPressAndRelease) {
    ASSERT_TRUE(control->focus());
    show();
    platform.pressKey(key::home);  // PASTEL RED
    EXPECT_EQ(host.takeEvents(), (Journal{"KeyDown 36 0", "KeyUp 36 0"}));
    platform.pressKey(key::pageDown);
    platform.pressKey(key::right);  // EARTH COPPER
    EXPECT_TRUE(open());
    host.take();
    platform.pressKey(key::enter);
    const std::string colour = colourOf(15);
    EXPECT_EQ(host.take(), (Journal{"changed ActiveColor", "changed ActiveText", "Change " + colour,
                                    "FocusHidden", "FocusHidden", "changed ?", "changed Text", "Click",
                                    "Change " + colour, "KeyDown 13 0", "KeyUp 13 0"}));
    EXPECT_EQ(text(u"Text"), "EARTH COPPER");
    // Space chooses too, and its release opens nothing, also where Space has opened the panel.
    platform.pressKey(key::space);
    ASSERT_TRUE(open());
    platform.pressKey(key::end);
    host.take();
    platform.pressKey(key::space);
    EXPECT_EQ(text(u"Text"), "BLACK");
    EXPECT_FALSE(open());
    EXPECT_EQ(host.takeEvents().back(), "KeyUp 32 0");
}

TEST_F(ButtonPaletteTest, AWalkReachesTheStrip) {
    ASSERT_TRUE(control->focus());
    show();
    int asked = 0;
    platform.answerColour([&asked](const ColourQuestion&) {
        ++asked;
        return std::optional(Rgb::of(1, 2, 3));
    });
    platform.pressKey(key::end);
    platform.pressKey(key::down);
    host.take();
    platform.pressKey(key::enter);
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(host.takeEvents(),
              (Journal{"FocusHidden", "ChangeCustom 197121", "KeyDown 13 0", "KeyUp 13 0"}));
}

TEST_F(ButtonPaletteTest, TheStripAsksForAColourOfOnesOwn) {
    put(u"Color", OleColour(Rgb::of(10, 20, 30)));
    show();
    const PixelPoint strip{panelSize().width / 2, panelSize().height - 17};
    onPanel(Kind::move, strip, 0);
    EXPECT_EQ(panel()->cursor(), Cursor::hand);
    platform.answerColour([](const ColourQuestion& question) {
        EXPECT_EQ(question.start, Rgb::of(10, 20, 30));
        EXPECT_TRUE(question.full);
        return std::optional(Rgb::of(1, 2, 3));
    });
    onPanel(Kind::down, strip);
    EXPECT_EQ(host.take(), (Journal{"FocusHidden", "changed ?", "changed Text", "ChangeCustom 197121"}));
    EXPECT_EQ(get(u"Color"), Value(OleColour(Rgb::of(1, 2, 3))));
    EXPECT_EQ(text(u"Text"), "EARTH RED") << "the chosen swatch stays";
    show();
    onPanel(Kind::down, {1, 1});
    onPanel(Kind::up, {-1, 1});
    EXPECT_EQ(host.takeEvents(), (Journal{"FocusHidden", "Change 1971210"})) << "as does its colour";
    // Cancelled: everything runs with the colour it started from, be it one by reference.
    put(u"Color", OleColour(SystemColour::highlight));
    show();
    platform.answerColour([](const ColourQuestion&) { return std::optional<Rgb>(); });
    onPanel(Kind::down, strip);
    EXPECT_EQ(host.takeEvents(), (Journal{"FocusHidden", "ChangeCustom -2147483635"}));
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
    host.take();
    pick(cell(0, 0));
    EXPECT_EQ(text(u"Text"), "RED");
}

TEST_F(ButtonPaletteTest, APressOrADragOverABaseColourBringsItsShades) {
    put(u"Palette", shades8x4x4);
    show();
    onPanel(Kind::down, cell(3, shades8x4x4), button::right);  // GREEN
    onPanel(Kind::move, cell(4, shades8x4x4), 0);
    onPanel(Kind::up, cell(8, shades8x4x4));
    EXPECT_EQ(text(u"Text"), "BARLEY GREEN") << "moving without a button brings none";
    show();
    onPanel(Kind::down, cell(3, shades8x4x4));
    onPanel(Kind::move, cell(7, shades8x4x4));
    onPanel(Kind::up, cell(9, shades8x4x4));
    EXPECT_EQ(text(u"Text"), "CHROME") << "of white";
}

TEST_F(ButtonPaletteTest, AHeldKeyThatChoosesOrClosesDoesNothingMoreUntilItIsReleased) {
    ASSERT_TRUE(control->focus());
    host.takesKeys = true;
    for (const int16_t held : {key::space, key::enter, key::escape}) {
        SCOPED_TRACE(held);
        show();
        platform.pressKey(key::right);
        platform.pressKey(key::right);
        host.take();
        platform.keyDown(held);
        EXPECT_FALSE(open());
        host.take();
        for (int time = 0; time < 3; ++time) platform.keyDown(held, 0, true);
        platform.keyUp(held);
        const std::string told = std::to_string(held) + " 0";
        EXPECT_EQ(host.take(),
                  (Journal{"KeyDown " + told, "KeyDown " + told, "KeyDown " + told, "KeyUp " + told}));
        EXPECT_FALSE(open());
    }
}

TEST_F(ButtonPaletteTest, LosingTheFocusHidesThePanelAndTellsBothLosses) {
    ASSERT_TRUE(control->focus());
    show();
    platform.setFocus(0);
    EXPECT_EQ(host.takeEvents(), (Journal{"FocusHidden", "FocusLost", "FocusLost", "MouseUp 1 0 0 0"}));
    EXPECT_FALSE(open());
    call(u"UserControl_ExitFocus");
    EXPECT_EQ(host.takeEvents(), (Journal{"FocusLost", "MouseUp 1 0 0 0"}));
}

TEST_F(ButtonPaletteTest, HoverIsTrackedWithTheCaptureOnceThePressIsOver) {
    platform.mouse(surface(), {Kind::move, 0, 0, {5, 5}});
    EXPECT_EQ(host.takeEvents(), (Journal{"MouseMove 0 0 5 5"})) << "not before the first press has ended";
    put(u"PopupEnabled", false);
    platform.click(surface(), {5, 5});
    host.take();
    platform.mouse(surface(), {Kind::move, 0, 0, {6, 6}});
    EXPECT_EQ(host.takeEvents(), (Journal{"MouseOut 0 0 6 6", "MouseMove 0 0 6 6"}));
    EXPECT_EQ(platform.capture(), surface());
    EXPECT_EQ(get(u"MousePosn"), Value(true));
    platform.mouse(surface(), {Kind::move, 0, 0, {75, 23}});
    EXPECT_EQ(platform.capture(), surface()) << "the far edge is inside";
    platform.mouse(surface(), {Kind::move, 0, 0, {76, 5}});
    EXPECT_EQ(platform.capture(), 0u);
    EXPECT_EQ(get(u"bMOUSEPOSLOC"), Value(false));
    call(u"UserControlMouseOut", {int16_t{0}, int16_t{0}, 1.0f, 1.0f});
    EXPECT_EQ(platform.capture(), surface());
    call(u"UserControl_Click");
    EXPECT_EQ(platform.capture(), 0u);
}

TEST_F(ButtonPaletteTest, ADoubleClickPressesOnceMore) {
    put(u"PopupEnabled", false);
    platform.click(surface(), {5, 5});
    host.take();
    click({5, 5}, Kind::doubleClick);
    EXPECT_EQ(host.takeEvents(),
              (Journal{"MouseDown 1 0 1 1", "DblClick", "MouseUp 1 0 5 5", "PopUp", "Click"}));
}

TEST_F(ButtonPaletteTest, ThePanelGoesUpWhenAsked) {
    put(u"bPOSITIONDEFAULT", false);
    control->setBounds({100, 500, 175, 523});
    show();
    EXPECT_EQ(panel()->bounds().bottom, 500);
}

TEST_F(ButtonPaletteTest, ThePanelScalesInWholePixelsWithEqualCells) {
    platform.appearance().setDpi(Dpi(168));
    control->deactivate();
    activate({100, 100, 231, 140});
    show();
    const headless::RecordingCanvas drawn = panel()->paint();
    ColourPalette cells(enQUILLPalette::QP24X8);
    cells.setScale(Dpi(168));
    for (const PaletteCell& each : cells.baseCells()) {
        EXPECT_EQ(each.rect.width(), 21);
        EXPECT_EQ(each.rect.height(), 21);
        EXPECT_EQ(drawn.colourAt({each.rect.left + 10, each.rect.top + 10}), each.Color)
            << toUtf8(each.Name());
    }
    EXPECT_EQ(cells.baseCells()[0].rect.left, 11);  // 10.5 pixels, rounded
    pick({cells.baseCells()[8].rect.left, cells.baseCells()[8].rect.top});
    EXPECT_EQ(text(u"Text"), "PASTEL COPPER");
}

TEST_F(ButtonPaletteTest, SwatchesAreNamedInToolTipsAndForScreenReaders) {
    ASSERT_TRUE(control->focus());
    show();
    onPanel(Kind::move, cell(8), 0);
    EXPECT_EQ(panel()->toolTip(), u"PASTEL COPPER");
    const auto items = everyItem(*panel());
    ASSERT_EQ(items.size(), 1u + 192u + 1u);
    EXPECT_EQ(items[9].name, u"PASTEL COPPER");
    EXPECT_EQ(items.back().name, u"More colors");
    const auto own = everyItem(*platform.surface(surface()));
    EXPECT_EQ(own[0].role, AccessibleItem::Role::splitButton);
    EXPECT_EQ(own[0].name, u"Button");
    EXPECT_EQ(own[0].value, u"BLACK") << "as it shows, although another one is chosen";
    put(u"ShowButtonColor", false);
    EXPECT_EQ(everyItem(*platform.surface(surface()))[0].value, u"EARTH RED");
    platform.pressKey(key::home);
    EXPECT_EQ(toUtf8(panel()->toolTip()),
              toUtf8(ColourPalette(enQUILLPalette::QP24X8).baseCells()[0].Name()));
    EXPECT_EQ(panel()->toolTipShown(), ToolTipShown::atOnce) << "keys leave no mouse to rest";
    call(u"HidePopUp");
    EXPECT_EQ(panel()->toolTip(), u"");
}

TEST_F(ButtonPaletteTest, TheHoverFrameAndTheChosenSwatchAreDrawnApart) {
    show();
    onPanel(Kind::move, cell(8), 0);
    const ColourPalette cells(enQUILLPalette::QP24X8);
    put(u"Color", cells.baseCells()[7].Color);
    const headless::RecordingCanvas drawn = panel()->paint();
    const PixelRect hovered = cells.baseCells()[8].rect;
    const PixelRect chosen = cells.baseCells()[7].rect;  // EARTH RED
    EXPECT_EQ(drawn.colourAt({hovered.left - 1, hovered.top + 5}), system(SystemColour::highlight));
    EXPECT_EQ(drawn.colourAt({chosen.left - 1, chosen.top + 5}), system(SystemColour::windowText));
    EXPECT_EQ(drawn.colourAt({hovered.right, hovered.top + 5}), system(SystemColour::highlight));
    put(u"Color", OleColour(Rgb::of(1, 2, 3)));
    EXPECT_NE(panel()->paint().colourAt({chosen.left - 1, chosen.top + 5}), system(SystemColour::windowText))
        << "painted anew, and no swatch has that colour";
}

TEST_F(ButtonPaletteTest, ColoursOfAHostsOwnShowUntilTheFirstRepaint) {
    const OleColour pink = Rgb::of(250, 200, 210);
    put(u"BackColor", pink);
    put(u"BackcolorCustom", true);
    MemoryBag bag;
    control->save(bag);
    control->load(bag);
    put(u"ForeColor", pink);
    const auto ground = [this] { return platform.surface(surface())->paint().colourAt({50, 3}); };
    const auto caption = [this] {
        for (const headless::DrawnItem& item : platform.surface(surface())->paint().items()) {
            if (item.kind == headless::DrawnItem::Kind::text) return item.style.colour;
        }
        return Rgb{};
    };
    EXPECT_EQ(ground(), Rgb::of(250, 200, 210));
    EXPECT_EQ(caption(), Rgb::of(250, 200, 210));
    call(u"SetTheme");
    EXPECT_EQ(ground(), Rgb::of(240, 240, 240));
    EXPECT_EQ(caption(), system(SystemColour::buttonText));
    EXPECT_EQ(get(u"ForeColor"), Value(pink));
    EXPECT_EQ(get(u"BackColor"), Value(pink));
    put(u"BackcolorCustom", false);
    call(u"SetTheme");
    EXPECT_EQ(ground(), Rgb::of(250, 200, 210));
}

TEST_F(ButtonPaletteTest, TheAsymmetriesOfStoredFormsAreKept) {
    put(u"MaskHLightColor", OleColour(Rgb::of(255, 0, 255)));
    put(u"Caption", Text(u"Ink"));
    EXPECT_EQ(host.take(), (Journal{"changed MaskHLightColor", "changed Text"}));
    put(u"PictureVisible", true);
    put(u"Color", OleColour(Rgb::of(1, 2, 3)));
    EXPECT_EQ(host.take(), (Journal{"changed PictureVisible", "changed Color"}));
    MemoryBag bag;
    control->save(bag);
    EXPECT_EQ(bag.read(u"MASKHLIGHT", ValueType::colour), Value(OleColour(Rgb::of(255, 0, 255))));
    EXPECT_EQ(bag.read(u"TEXT", ValueType::text), Value(Text(u"Ink")));
    EXPECT_EQ(bag.read(u"SHOWPICTURE", ValueType::boolean), Value(true));
    EXPECT_EQ(bag.read(u"SELECTEDCOLOR", ValueType::colour), Value(OleColour(Rgb::of(1, 2, 3))));
    control->load(bag);
    EXPECT_EQ(get(u"MaskHLightColor"), Value(OleColour(SystemColour::buttonFace)));
    EXPECT_EQ(text(u"Caption"), "Ink");
    EXPECT_EQ(get(u"Color"), Value(OleColour(Rgb::of(1, 2, 3))));
    bag = {};
    bag.write(u"TOOLTIP", Text(u"Choose an ink"));
    control->load(bag);
    EXPECT_EQ(text(u"Caption"), "Button");
    EXPECT_EQ(get(u"BackColor"), Value(OleColour(Rgb::of(240, 240, 240))));
    platform.mouse(surface(), {Kind::move, 0, 0, {5, 5}});
    EXPECT_EQ(platform.surface(surface())->toolTip(), u"Choose an ink");
}

TEST_F(ButtonPaletteTest, MaskedPixelsOfAPictureAreLeftOut) {
    const auto picture =
        std::make_shared<SharedPicture>(PixelSize{2, 1}, std::vector<uint32_t>{0xFFFF00FFu, 0xFF112233u});
    put(u"Picture", picture);
    put(u"PictureVisible", true);
    using Pixels = std::vector<uint32_t>;
    const auto drawn = [this] {
        for (const headless::DrawnItem& item : platform.surface(surface())->paint().items())
            if (item.kind == headless::DrawnItem::Kind::picture) return item.picture->pixels();
        return Pixels();
    };
    EXPECT_EQ(drawn(), (Pixels{0xFFFF00FFu, 0xFF112233u}));
    put(u"MaskHLightColor", OleColour(Rgb::of(255, 0, 255)));
    EXPECT_EQ(drawn(), (Pixels{0, 0xFF112233u}));
    put(u"MaskHLightColor", OleColour(Rgb::of(0x11, 0x22, 0x33)));
    EXPECT_EQ(drawn(), (Pixels{0xFFFF00FFu, 0}));
    put(u"Enabled", false);
    const Pixels grey = drawn();
    EXPECT_NE(grey, (Pixels{0xFFFF00FFu, 0}));
    put(u"BackcolorCustom", true);
    put(u"BackColor", OleColour(Rgb::of(0, 0, 0)));
    EXPECT_NE(drawn(), grey) << "greyed towards another ground";
    put(u"PictureVisible", false);
    EXPECT_EQ(drawn(), Pixels());
    EXPECT_EQ(get(u"Picture"), Value(PictureRef(picture))) << "the host's own picture stays what it was";
}

}  // namespace
}  // namespace obk::test
