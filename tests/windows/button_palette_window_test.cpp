// The colour button as a person meets it: real keys and presses in our own container, its panel a window of
// its own.
#include "palette/colour_palette.h"
#include "panel_support.h"
#include "person_support.h"
#include "server_support.h"
#include "two_scales_support.h"

#include <gtest/gtest.h>

#include <optional>

namespace obk {
namespace {

using namespace testing_support;

// The middle of a base cell.
POINT cellAt(size_t index, Dpi dpi = {}) {
    ColourPalette cells(enQUILLPalette::QP24X8);
    cells.setScale(dpi);
    const PixelRect rect = cells.baseCells()[index].rect;
    return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
}

long colourOf(size_t index) {
    return static_cast<long>(ColourPalette(enQUILLPalette::QP24X8).baseCells()[index].Color.value);
}

// Of those that show.
std::wstring toolTipText() {
    std::wstring text;
    for (const HWND tip : shownToolTips()) {
        wchar_t said[64]{};
        GetWindowTextW(tip, said, 64);
        text += said;
    }
    return text;
}

class ButtonPaletteWindow : public PersonAtControl {
protected:
    ButtonPaletteWindow() : PersonAtControl(L"ButtonPalette", {10, 10, 85, 33}) {}
    HWND button() const { return face(); }
    long colour() const { return object().value(L"Color").toLong().value_or(-1); }
    // Presses the strip of the open panel and answers the chooser.
    void useStrip(std::optional<COLORREF> colour, const std::function<void()>& first = {}) {
        const HWND panel = open();
        ASSERT_TRUE(panel);
        const RECT area = windowRect(panel);
        const ChooserAnswer answer(colour, first);
        person.moveTo(panel, (area.right - area.left) / 2, area.bottom - area.top - 17);
        person.press();
        sendMouse(MOUSEEVENTF_LEFTUP);
        hosted.loop.pumpPending();
        EXPECT_GE(answer.seen(), 1);
        EXPECT_EQ(GetCapture(), nullptr);
    }
};

TEST_F(ButtonPaletteWindow, LeftLeavesTheButtonBackwards) {
    SetFocus(button());
    person.key(VK_LEFT);
    EXPECT_TRUE(person.waitFor([&] { return GetFocus() == other; }));
    EXPECT_EQ(takeEvents(), L"KeyDown FocusLost FocusLost MouseUp");
}

TEST_F(ButtonPaletteWindow, KeysWalkItAndNameEachSwatchAtOnceWhereverTheMouseRests) {
    SetFocus(button());
    person.key(VK_F4);
    ASSERT_TRUE(openPanel());
    const RECT area = windowRect(openPanel());
    person.key(VK_ESCAPE);
    POINT mouse = cellAt(8);
    SetCursorPos(area.left + mouse.x, area.top + mouse.y);
    // The system tells a window that comes beneath the mouse, and whenever windows have changed, as here.
    const auto named = [&] {
        PostMessageW(openPanel(), WM_MOUSEMOVE, 0, MAKELPARAM(mouse.x, mouse.y));
        hosted.loop.pumpPending();
        return toolTipText();
    };
    person.key(VK_F4);
    ASSERT_TRUE(openPanel());
    EXPECT_EQ(named(), L"");
    person.key(VK_HOME);
    EXPECT_EQ(named(), L"PASTEL RED");
    person.moveTo(openPanel(), ++mouse.x, mouse.y);
    EXPECT_TRUE(person.waitFor([] { return toolTipText() == L"PASTEL COPPER"; }));
    person.key(VK_HOME);
    EXPECT_EQ(named(), L"PASTEL RED");
    person.key(VK_F4);
    EXPECT_FALSE(openPanel());
    EXPECT_EQ(toolTipText(), L"");
    person.key(VK_DOWN, MOD_ALT);
    EXPECT_TRUE(openPanel());
    for (const WORD code : {WORD{VK_HOME}, WORD{VK_RIGHT}}) person.key(code);
    takeEvents();
    person.hold(VK_SPACE, 4);
    EXPECT_EQ(takeEvents(),
              L"Change FocusHidden FocusHidden Click Change KeyDown KeyDown KeyDown KeyDown KeyUp")
        << "however long it is held, Space picks once and opens nothing again";
    EXPECT_EQ(colour(), colourOf(8));
    EXPECT_EQ(GetFocus(), button());
}

TEST(ButtonPalettePanel, StaysWholeOnTheScreenAtEveryEdge) {
    RECT work{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    for (const POINT& place : {POINT{work.left - 40, work.top}, {work.right - 60, work.bottom - 40}}) {
        SCOPED_TRACE(testing::Message() << place.x << "," << place.y);
        HostedControl hosted(L"ButtonPalette");
        // Placed before it is active: an active form that moves may lose the focus of the display, which the
        // system tells later and which closes the panel.
        SetWindowPos(hosted.window.handle(), nullptr, place.x, place.y, 0, 0,
                     SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
        const Person person(hosted.loop, hosted.window.handle());
        hosted.activate({10, 10, 85, 33});
        hosted.object().call(L"ShowPopUp");
        hosted.loop.pumpPending();
        const HWND panel = openPanel();
        ASSERT_TRUE(panel);
        const RECT area = windowRect(panel), anchor = windowRect(hosted.site.window());
        RECT common{};
        EXPECT_FALSE(IntersectRect(&common, &area, &anchor));
        EXPECT_TRUE(IntersectRect(&common, &area, &work) && EqualRect(&common, &area));
    }
}

TEST_F(ButtonPaletteWindow, OnAMonitorOfAnotherScaleThePanelIsWholeAndAnswers) {
    hosted.site.moveTo({160, 10, 235, 33});
    const RECT form = windowRect(hosted.window.handle());
    TwoScales scales((form.left + form.right) / 2 + 40, 144, TwoScales::Tells::moved);
    SetFocus(button());
    HWND panel = open();
    ASSERT_TRUE(panel);
    EXPECT_EQ(GetCapture(), panel);
    EXPECT_GT(windowRect(panel).right - windowRect(panel).left, cellAt(191, Dpi(144)).x);
    person.click(panel, cellAt(8, Dpi(144)).x, cellAt(8, Dpi(144)).y);
    EXPECT_EQ(takeEvents(), L"Change FocusHidden FocusHidden Click Change");
    EXPECT_EQ(colour(), colourOf(8));
    EXPECT_EQ(GetFocus(), button());
    // Its scale changes while a walk of the keys is under way.
    panel = open();
    person.key(VK_RIGHT);
    scales.move(10000);
    EXPECT_EQ(openPanel(), panel);
    person.key(VK_RIGHT);
    person.key(VK_RETURN);
    EXPECT_EQ(colour(), colourOf(16));
}

TEST_F(ButtonPaletteWindow, ItsAccessKeyPressesItFromTheWholeForm) {
    object().put(L"Caption", L"&Ink");
    EXPECT_TRUE(pressAltInOther('I'));
    hosted.loop.pumpPending();
    EXPECT_TRUE(openPanel());
    EXPECT_EQ(GetFocus(), button());
}

TEST_F(ButtonPaletteWindow, TheStripOpensTheSystemsChooser) {
    object().put(L"Color", 0x00302010L);
    for (const std::optional<COLORREF> answer : {std::optional(RGB(1, 2, 3)), {}}) {
        useStrip(answer);
        EXPECT_EQ(takeEvents(), L"FocusHidden ChangeCustom");
        EXPECT_EQ(colour(), 0x00030201L) << "cancelled, it is the one that it started from";
    }
}

TEST_F(ButtonPaletteWindow, TwoButtonsOpenedOneAfterTheOtherDoNotDisturbEachOther) {
    container::ControlSite second(hosted.form, {});
    hosted.form.add(second);
    ASSERT_EQ(second.adopt(hosted.server.create(L"ButtonPalette"), {}), S_OK);
    ASSERT_EQ(second.activate({200, 10, 275, 33}), S_OK);
    ASSERT_TRUE(open());
    second.object().call(L"ShowPopUp");
    hosted.loop.pumpPending();
    EXPECT_EQ(takeEvents(), L"FocusHidden");
    const HWND panel = openPanel();
    ASSERT_TRUE(panel);
    EXPECT_EQ(windowRect(panel).left, windowRect(second.window()).left);
    EXPECT_EQ(GetCapture(), panel);
    second.close();
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(ButtonPaletteWindow, AHostLetsGoOfTheControlWhileTheChooserIsOpen) {
    useStrip(RGB(1, 2, 3), [&] { hosted.site.close(); });
    EXPECT_FALSE(FindWindowW(L"#32770", L"Custom"));
    EXPECT_FALSE(openPanel());
    EXPECT_TRUE(IsWindowEnabled(hosted.window.handle()));
}

}  // namespace
}  // namespace obk
