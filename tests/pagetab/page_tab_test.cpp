#include "pagetab/page_tab.h"

#include "support/control_fixture.h"
#include "widgets/in_one_line.h"

#include <set>

namespace obk::test {
namespace {

using Kind = MouseEvent::Kind;

// Home, Help and Video at 96 DPI: 8 pixels a character at most, so 16 + 4 or 5 of them; no tab below 36.
class PageTabTest : public ControlFixture {
protected:
    void SetUp() override {
        place(PageTab::memberTable());
        activate({100, 100, 420, 125});
        host.take();
    }
    PageTab& strip() { return static_cast<PageTab&>(*control); }
    headless::HeadlessSurface& surface() { return *platform.surface(control->window()); }
    void setTabs(const char16_t* tabs, int32_t active) {
        put(u"ActiveTabs", Text(tabs));
        put(u"ActiveTab", active);
        host.take();
    }
    std::vector<AccessibleItem> tabs() { return parts(surface(), AccessibleItem::Role::pageTab); }
    std::vector<AccessibleItem> buttons() { return parts(surface(), AccessibleItem::Role::button); }
    static PixelPoint middle(const AccessibleItem& item) {
        return {(item.bounds.left + item.bounds.right) / 2, (item.bounds.top + item.bounds.bottom) / 2};
    }
    // The middle of a tab, as far as it shows.
    PixelPoint on(int32_t tab) { return middle(tabs().at(static_cast<size_t>(tab) - 1)); }
    bool shows(int32_t tab) { return !tabs().at(static_cast<size_t>(tab) - 1).bounds.empty(); }
    std::string captions() {
        std::vector<std::string> all;
        for (const AccessibleItem& tab : tabs()) all.push_back(toUtf8(tab.name));
        return inOneLine(all);
    }
    // Everything that the host was told.
    std::string told() { return inOneLine(host.take()); }
    // Without changes and mouse moves, which come as they like.
    std::string events() {
        Journal journal = host.take();
        std::erase_if(journal, [](const std::string& line) {
            return line.starts_with("MouseMove") || line.starts_with("changed") || line.starts_with("focus");
        });
        return inOneLine(journal);
    }
    // The events that a step of a person has led to.
    std::string mouse(Kind kind, PixelPoint at, int16_t mouseButton = button::left) {
        platform.mouse(control->window(), {kind, mouseButton, 0, at});
        return events();
    }
    std::string click(PixelPoint at, int16_t mouseButton = button::left) {
        platform.click(control->window(), at, mouseButton);
        return events();
    }
    void useFont(const char16_t* name, double size) {
        host.font = std::make_shared<SharedFont>(FontDescription{name, size, 400, 0, false, false, false});
    }
    static constexpr PixelPoint beside{300, 10};
};

std::string twips(PixelPoint at) {
    return std::to_string(at.x * 15) + " " + std::to_string(at.y * 15);
}

TEST_F(PageTabTest, APressChoosesAndTellsTheCaptionThenShow) {
    setTabs(u"Home,Help,Video", 1);
    const PixelPoint at = on(3);
    const std::string down = "MouseDown 1 0 " + twips(at) + " Video, ";
    platform.mouse(control->window(), {Kind::down, button::left, 0, at});
    EXPECT_EQ(told(), "focus in, " + down + "changed ActiveTab, Click Video, Show");
    EXPECT_EQ(text(u"ActiveTab"), "3");
    EXPECT_TRUE(surface().hasFocus());
    EXPECT_EQ(mouse(Kind::up, {at.x, 400}), "MouseUp 1 0 " + twips({at.x, 400})) << "also released elsewhere";
    EXPECT_EQ(platform.capture(), 0u);
    EXPECT_EQ(click(at), down + "Click Video, Show, MouseUp 1 0 " + twips(at))
        << "the active tab once more is a choice, too";
}

TEST_F(PageTabTest, OtherPressesChooseNothingButADoubleClickChoosesAnotherTab) {
    setTabs(u"Home,Help,Video", 2);
    const std::string at = twips(on(1));
    EXPECT_EQ(click(on(1), button::right), "MouseDown 2 0 " + at + " Help, MouseUp 2 0 " + at);
    EXPECT_EQ(platform.focus(), 0u) << "only a press with the left button takes it";
    EXPECT_EQ(click(beside), "MouseDownback 1 0 4500 150 Help, MouseUp 1 0 4500 150");
    platform.mouse(control->window(), {Kind::move, 0, 0, beside});
    EXPECT_EQ(told(), "MouseMove 0 0 4500 150");
    EXPECT_EQ(mouse(Kind::doubleClick, on(2)), "dlbClick");
    EXPECT_EQ(mouse(Kind::doubleClick, on(1), button::right), "");
    EXPECT_EQ(text(u"ActiveTab"), "2");
    EXPECT_EQ(mouse(Kind::doubleClick, on(3)), "Click Video, Show, dlbClick");
}

TEST_F(PageTabTest, KeysWalkTheTabs) {
    setTabs(u"Home,Help,&Video,E&xtra", 1);
    ASSERT_TRUE(control->focus());
    host.take();
    // What each key chooses: a tab, nothing (-), or nothing as the key is the container's.
    const auto chosenBy = [this](const std::vector<int16_t>& keys, int16_t state = 0) {
        std::vector<std::string> choices;
        for (const int16_t code : keys) {
            platform.pressKey(code, state);
            std::string heard = told();
            const bool chosen = heard.starts_with("changed ActiveTab, Click ") && heard.ends_with(", Show");
            choices.push_back(heard.empty() ? "-" : chosen ? heard.substr(25, heard.size() - 31) : heard);
            EXPECT_TRUE(surface().hasFocus());
        }
        return inOneLine(choices);
    };
    constexpr int16_t ctrl = shift::control;
    EXPECT_EQ(chosenBy({key::left, key::right, key::end, key::right, key::left, key::home, key::home}),
              "-, Help, E&xtra, -, &Video, Home, -");
    EXPECT_EQ(chosenBy({key::pageDown, key::tab, key::enter}), "offered 34, offered 9, offered 13");
    EXPECT_EQ(chosenBy({key::right}, shift::shift), "offered 39");
    EXPECT_EQ(chosenBy({key::tab}, ctrl), "Help");
    EXPECT_EQ(chosenBy({key::tab, key::tab}, ctrl | shift::shift), "Home, E&xtra");
    EXPECT_EQ(chosenBy({key::pageDown, key::pageUp, key::tab, 'S'}, ctrl), "Home, E&xtra, Home, offered 83");
    EXPECT_EQ(chosenBy({'H'}), "Help");
    EXPECT_EQ(chosenBy({'H'}, shift::shift), "Home");
    EXPECT_EQ(chosenBy({'V', 'V'}), "&Video, -");
    EXPECT_EQ(chosenBy({'X', 'X', 'Q'}, shift::alt), "E&xtra, -, offered 81");
    EXPECT_EQ(chosenBy({120}, shift::alt), "offered 120") << "F9, whose code is that of an x";
    control->useAccessKey(u'v');
    EXPECT_EQ(events(), "Click &Video, Show") << "from anywhere on the form";
    EXPECT_EQ(control->formKeys().size(), 4u);
    control->useFormKey({key::pageDown, shift::control});
    EXPECT_EQ(events(), "Click E&xtra, Show") << "likewise";
}

TEST_F(PageTabTest, TheContainerHearsOfOtherAccessKeys) {
    struct : JournalHost {
        void accessKeysChanged() override { journal.push_back("access keys"); }
    } other;
    setTabs(u"Home", 1);
    control->setHost(&other);
    strip().SetActiveTabs(u"&Home,Help");
    EXPECT_EQ(inOneLine(other.take()), "access keys, changed ActiveTab, changed ActiveTabs");
    strip().SetActiveTabs(u"Help,&Home");
    strip().AddTab(u"Video");
    EXPECT_EQ(inOneLine(other.take()), "changed ActiveTab, changed ActiveTabs") << "the same ones";
    strip().AddTab(u"E&xtra");
    EXPECT_EQ(inOneLine(other.take()), "access keys");
    MemoryBag bag;
    bag.write(u"TABSTRING", Text(u"&other"));
    control->load(bag);
    EXPECT_EQ(inOneLine(other.take()), "") << "loading is no news";
    control->setHost(nullptr);
}

TEST_F(PageTabTest, ARebuildSelectsTheTabThatTheHostLastSaw) {
    setTabs(u"a,b,c,d", 3);
    EXPECT_EQ(text(u"ActiveTab"), "3");
    click(on(4));
    host.take();
    put(u"ActiveTabs", Text(u"p,q,r,s,t"));
    EXPECT_EQ(told(), "changed ActiveTab, changed ActiveTabs");
    EXPECT_EQ(strip().ActiveTab(), 3) << "the host never saw that the user went to 4";
    put(u"ActiveTabs", Text(u"u,v"));
    EXPECT_EQ(told(), "changed ActiveTabs");
    EXPECT_TRUE(tabs()[1].is(AccessibleItem::selected)) << "it exists no more: the one added last";
    put(u"ActiveTabs", Text(u"x,y,z,last"));
    EXPECT_EQ(strip().ActiveTab(), 3) << "it is kept until a host reads another one";
}

TEST_F(PageTabTest, NamesSelectExactlyAndTheLastOneWins) {
    setTabs(u"Home,Help,Home,home", 2);
    call(u"ActiveTabNameSet", {Text(u"Home")});
    EXPECT_EQ(told(), "changed ActiveTab, changed ActiveTab") << "one after the other";
    EXPECT_EQ(text(u"ActiveTab"), "3");
    for (const char16_t* other : {u"HOME", u" Home"}) call(u"ActiveTabNameSet", {Text(other)});
    put(u"ActiveTab", 5);
    EXPECT_EQ(told(), "") << "there is no such tab";
    EXPECT_EQ(call(u"ActiveTabNameGet", {4}), Value(Text(u"home")));
    put(u"ActiveTab", 0);
    EXPECT_EQ(told(), "changed ActiveTab");
    surface().paint();
    EXPECT_EQ(text(u"ActiveTab"), "0") << "none is active";
    control->focus();
    platform.pressKey(key::left);
    EXPECT_EQ(text(u"ActiveTab"), "1");
}

TEST_F(PageTabTest, AddedTabsAreTrimmedNamedAndActiveAndNotPartOfTheTabString) {
    setTabs(u"Home", 1);
    for (const char16_t* caption : {u"  Help ", u"   ", u"a,b\r\nc"}) call(u"AddTab", {Text(caption)});
    EXPECT_EQ(captions(), "Home, Help, Tab 3, a,b  c");
    EXPECT_EQ(text(u"ActiveTab"), "4");
    EXPECT_TRUE(tabs()[3].is(AccessibleItem::selected));
    EXPECT_EQ(text(u"ActiveTabs"), "Home");
}

TEST_F(PageTabTest, PageColoursFollowTheActiveTab) {
    const auto page = [this] { return surface().paint().colourAt({310, 24}); };
    put(u"strPUBSKINCOLORPAGE", Text(u"255||16711680"));
    setTabs(u"a,b,c,d", 1);
    EXPECT_EQ(get(u"PageColor"), Value(OleColour(255u)));
    EXPECT_EQ(page(), Rgb{255});
    put(u"PageMainColor", OleColour(0x00FF00u));
    host.take();
    put(u"ActiveTab", 2);
    EXPECT_EQ(get(u"PageColor"), Value(OleColour(0x00FF00u))) << "an empty field is none";
    EXPECT_EQ(told(), "changed PageColor, changed ActiveTab");
    put(u"ActiveTab", 2);
    EXPECT_EQ(told(), "changed ActiveTab") << "the same colour once more";
    click(on(3));
    EXPECT_EQ(page(), Rgb{16711680});
    EXPECT_EQ(text(u"lngSELECTEDPAGECOLOR"), "16711680");
    put(u"PageColor", OleColour(0x123456u));
    EXPECT_EQ(page(), Rgb{16711680}) << "the tab's own";
    // The selected tab is of one piece with its page; the others are parted from it by a line.
    EXPECT_EQ(surface().paint().colourAt({on(3).x, 22}), Rgb{16711680});
    EXPECT_NE(surface().paint().colourAt({on(1).x, 22}), Rgb{16711680});
    put(u"ActiveTab", 4);
    EXPECT_EQ(page(), Rgb{0x00FF00}) << "beyond the list";
    EXPECT_EQ(text(u"lngSELECTEDPAGECOLOR"), "0");
    put(u"ActiveTab", 0);
    EXPECT_EQ(page(), Rgb{0x00FF00}) << "that of no tab";
    // Storing alone shows with the next drawing, and goes with the next laying out.
    put(u"PageColor", OleColour(0x123456u));
    EXPECT_EQ(page(), Rgb{0x123456});
    put(u"TextColor", OleColour(0u));
    EXPECT_EQ(page(), Rgb{0x00FF00});
}

TEST_F(PageTabTest, LoadingLaysOutAndSavingWritesInAnOrderOfItsOwn) {
    MemoryBag bag;
    bag.write(u"TABSTRING", Text(u"a,b,c"));
    bag.write(u"ActiveTab", Text(u"2"));
    bag.write(u"BackColorTAB", OleColour(SystemColour::highlight));
    bag.write(u"PageColor", OleColour(0x111111u));
    control->load(bag);
    EXPECT_EQ(told(), "");
    EXPECT_EQ(captions(), "a, b, c");
    EXPECT_EQ(get(u"PageColor"), Value(OleColour(SystemColour::buttonFace))) << "laying out puts it anew";
    EXPECT_EQ(text(u"ActiveTab"), "2");
    put(u"TextColor", OleColour(1u));
    put(u"BackColorPage", OleColour(2u));
    put(u"PageMainColor", OleColour(3u));
    useFont(u"Verdana", 10);
    MemoryBag saved;
    control->save(saved);
    std::vector<std::string> written;
    for (const auto& [key, value] : saved.entries()) written.push_back(toUtf8(key));
    EXPECT_EQ(inOneLine(written),
              "Font, ActiveTab, TABSTRING, BackColorTAB, BackColorPage, PageColor, TextColor");
    // The tab colour has become the colour that the system's was.
    EXPECT_EQ(saved.read(u"BackColorTAB", ValueType::colour), Value(OleColour(Rgb::of(0, 120, 215))));
}

TEST_F(PageTabTest, TabsThatDoNotFitScrollByButtonsAndWheel) {
    setTabs(u"Tab 1,Tab 2,Tab 3,Tab 4,Tab 5,Tab 6,Tab 7,Tab 8,Tab 9", 1);
    ASSERT_EQ(buttons().size(), 2u);
    EXPECT_TRUE(buttons()[0].is(AccessibleItem::disabled));
    EXPECT_TRUE(shows(1) && !shows(9));
    mouse(Kind::down, middle(buttons()[1]));
    platform.advance(std::chrono::milliseconds(499));
    EXPECT_TRUE(!shows(1) && shows(2)) << "at once, and again when it is held";
    platform.advance(std::chrono::milliseconds(5000));
    EXPECT_TRUE(shows(9) && buttons()[1].is(AccessibleItem::disabled));
    mouse(Kind::up, middle(buttons()[1]));
    const PixelPoint over = on(9);
    for (const int32_t delta : {120, 60, 60, 32000})
        platform.wheel(control->window(), {delta, false, 0, over});
    EXPECT_TRUE(shows(1));
    platform.wheel(control->window(), {240, true, 0, middle(buttons()[0])});
    EXPECT_TRUE(!shows(2) && shows(3)) << "the wheel turns sideways, too, and above the buttons";
    // Whatever is selected is brought into view; a wider strip needs no buttons.
    put(u"ActiveTab", 9);
    EXPECT_TRUE(shows(9));
    control->setBounds({0, 0, 120, 25});
    EXPECT_TRUE(shows(9) && !shows(5));
    mouse(Kind::down, middle(buttons()[0]));
    control->setBounds({0, 0, 40, 25});
    EXPECT_EQ(platform.capture(), 0u) << "there is no button any more";
    control->setBounds({0, 0, 700, 25});
    EXPECT_TRUE(buttons().empty() && shows(1));
    EXPECT_FALSE(surface().surfaceClient().wheel({120, false, 0, {10, 10}}))
        << "nothing to scroll: the host's";
}

TEST_F(PageTabTest, CutCaptionsHaveToolTips) {
    put(u"ActiveTabs", Text(u"Short,") + Text(60, u'&') + Text(20, u'x'));
    mouse(Kind::move, on(1), 0);
    EXPECT_EQ(surface().toolTip(), u"");
    mouse(Kind::move, on(2), 0);
    EXPECT_EQ(surface().toolTip(), Text(30, u'&') + Text(20, u'x'));
    mouse(Kind::move, beside, 0);
    EXPECT_EQ(surface().toolTip(), u"");
    put(u"ActiveTabs", Text(u"First,Second,Third,Fourth,Fifth,Sixth,Seventh,Eighth"));
    std::set<Text> shown;
    for (int32_t x = 0; x < buttons()[0].bounds.left; ++x) {
        mouse(Kind::move, {x, 10}, 0);
        shown.insert(surface().toolTip());
    }
    EXPECT_EQ(shown, (std::set<Text>{u"", u"Sixth"})) << "the tab that the buttons cut";
}

TEST_F(PageTabTest, EachStateLooksDifferentInEachLook) {
    const auto drawn = [this](int32_t tab) {
        const PixelRect rect = tabs().at(static_cast<size_t>(tab) - 1).bounds.inset(-2);
        std::string look;
        for (const headless::DrawnItem& item : surface().paint().items()) {
            if (item.rect.intersected(rect).empty()) continue;
            look += std::to_string(static_cast<int>(item.kind)) + " " +
                    std::to_string(item.rect.left - rect.left) + "," + std::to_string(item.rect.top) + "," +
                    std::to_string(item.rect.bottom) + " " + std::to_string(item.colour.value) + "\n";
        }
        return look;
    };
    std::set<std::string> all;
    for (const char* version : {"6.3", "4.10"}) {
        for (const bool contrast : {false, true}) {
            platform.registry().setString(u"SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion",
                                          u"CurrentVersion", version);
            platform.systemVersion.reset();
            platform.appearance().setHighContrast(contrast);
            control = PageTab::memberTable().create(platform);
            activate({100, 100, 420, 125});
            setTabs(u"aaaaaa,bbbbbb,cccccc", 1);
            const std::string plain = drawn(3);
            std::set<std::string> looks{plain};
            const auto isNew = [&](const char* state, int32_t tab) {
                EXPECT_TRUE(looks.insert(drawn(tab)).second)
                    << state << " in " << version << (contrast ? " strong" : "");
            };
            isNew("selected", 1);
            mouse(Kind::move, on(3), 0);
            isNew("hovered", 3);
            mouse(Kind::leave, {-1, -1}, 0);
            control->focus();
            isNew("focused", 1);
            call(u"ImageHLight");
            isNew("selected and highlighted", 1);
            call(u"ImageDis");
            isNew("disabled", 3);
            isNew("selected and disabled", 1);
            for (const char16_t* back : {u"ImageSel", u"ObjectMouseUp"}) {
                call(u"ImageDis");
                call(back);
                EXPECT_EQ(drawn(3), plain);
            }
            all.insert(looks.begin(), looks.end());
        }
    }
    EXPECT_EQ(all.size(), 3u * 7u) << "strong colours are the same in both looks";
}

TEST_F(PageTabTest, HoverFollowsTheMouseAndTheTabsUnderIt) {
    setTabs(u"Tab 1,Tab 2,Tab 3,Tab 4,Tab 5,Tab 6,Tab 7,Tab 8,Tab 9", 1);
    const auto fill = [this](int32_t tab) { return surface().paint().colourAt({on(tab).x, on(tab).y + 8}); };
    const Rgb quiet = fill(3);
    mouse(Kind::move, on(2), 0);
    EXPECT_NE(fill(2), quiet);
    platform.wheel(control->window(), {-120, false, 0, on(2)});
    EXPECT_EQ(fill(2), quiet);
    EXPECT_NE(fill(3), quiet) << "it is under the mouse now";
    platform.mouse(control->window(), {Kind::leave, 0, 0, {-5, -5}});
    EXPECT_EQ(fill(3), quiet);
    mouse(Kind::move, on(3), 0);
    call(u"ObjectMouseUp");
    EXPECT_EQ(fill(3), quiet);
}

TEST_F(PageTabTest, AHostReadingRightToLeftSeesTheMirrorImage) {
    setTabs(u"aaaa,bbbb,cccc", 1);
    const PixelRect first = tabs()[0].bounds;
    host.readsRightToLeft = true;
    control->setSize(control->width(), control->height());
    EXPECT_EQ(tabs()[0].bounds.right, 320 - first.left);
    host.take();
    platform.mouse(control->window(), {Kind::move, 0, 0, {319 - 4, 4}});
    EXPECT_EQ(told(), "MouseMove 0 0 60 60") << "x counts from there";
    control->focus();
    platform.pressKey(key::left);
    EXPECT_EQ(text(u"ActiveTab"), "2") << "to the left is onward";
}

TEST_F(PageTabTest, FontsAndScalesMakeRoom) {
    setTabs(u"aaaaaaaa,bbbbbbbb", 1);
    control->setBounds({0, 0, 900, 60});
    const int32_t narrow = tabs()[0].bounds.width();
    useFont(u"Verdana", 12);
    control->ambientFontChanged();
    const PixelRect before = tabs()[0].bounds;
    EXPECT_GT(before.width(), narrow) << "captions without a font of their own have the container's";
    call(u"SetFont", {Text(u"Arial"), Text(u"16")});
    EXPECT_GT(tabs()[0].bounds.width(), before.width());
    EXPECT_GT(tabs()[0].bounds.height(), before.height());
    const int32_t wide = tabs()[1].bounds.width();
    call(u"AddTab", {Text(u"cccccccc")});
    EXPECT_EQ(tabs()[2].bounds.width(), wide);
    platform.setDpi(control->window(), Dpi(192));
    EXPECT_GT(tabs()[0].bounds.width(), 3 * wide / 2);
}

TEST_F(PageTabTest, AHostMayRebuildTheTabsInsideEveryEvent) {
    for (const char* event : {"Click", "Show", "MouseDown", "MouseUp"}) {
        setTabs(u"a,b,c,d", 1);
        host.on = {{event, [this](std::span<Value>) { put(u"ActiveTabs", Text(u"x,y")); }}};
        const PixelPoint at = on(3);
        EXPECT_EQ(click(at), "MouseDown 1 0 " + twips(at) + " c, Click c, Show, MouseUp 1 0 " + twips(at));
        EXPECT_EQ(captions(), "x, y") << event;
    }
    // Choosing in turn: each Click keeps its own caption.
    setTabs(u"a,b,c", 1);
    host.on = {};
    host.on["Click"] = [this](std::span<Value> arguments) {
        if (arguments[0] == Value(Text(u"b"))) platform.pressKey(key::end);
    };
    const std::string at = twips(on(2));
    EXPECT_EQ(click(on(2)), "MouseDown 1 0 " + at + " b, Click b, Click c, Show, Show, MouseUp 1 0 " + at);
    EXPECT_EQ(text(u"ActiveTab"), "3");
}

}  // namespace
}  // namespace obk::test
