// The date field as a person meets it: real keys and presses in our own container, its calendar a window of
// its own, its quick dates a menu of the system.
#include "container/text.h"
#include "datecalendar/month_layout.h"
#include "panel_support.h"
#include "person_support.h"
#include "server_support.h"
#include "two_scales_support.h"

#include <gtest/gtest.h>

namespace obk {
namespace {

using namespace testing_support;

// November 2026 begins on a Sunday, the last column of its first row.
constexpr int32_t firstCellOfNovember2026 = 13;
// Where a press meets the panel's children, in pixels at 96 DPI.
constexpr POINT monthList{40, 16}, yearsOn{180, 16}, previousMonth{36, 39}, nextMonth{158, 39},
    nextYear{178, 39}, clearButton{97, 209}, closeButton{159, 209};

class DateCalendarWindow : public PersonAtControl {
protected:
    DateCalendarWindow() : PersonAtControl(L"DateCalendar", {10, 10, 151, 31}) {
        edit = GetWindow(hosted.site.window(), GW_CHILD);
        object().put(L"Text", std::wstring(L"Fri 20 Nov 2026"));
    }
    // Without the blanks behind it.
    std::wstring date() const {
        const std::wstring text = object().value(L"Text").toText();
        return text.substr(0, text.find_last_not_of(L' ') + 1);
    }
    void keys(std::initializer_list<int> codes) {
        for (const int code : codes) person.key(static_cast<WORD>(code));
    }
    void typeAnew(std::wstring_view text) {
        person.key(L'A', MOD_CONTROL);
        person.type(text);
    }
    void enter() {
        person.click(edit, 30, 8);
        ASSERT_TRUE(person.waitFor([&] { return GetFocus() == edit; }));
        takeEvents();
    }
    void pressPanel(POINT at) {
        if (const HWND panel = openPanel()) person.click(panel, at.x, at.y);
    }
    void pressDay(int32_t cell) {
        const PixelRect rect = Dpi().toPixels(cellBounds(cell));
        pressPanel({rect.left + 5, rect.top + 5});
    }

    HWND edit = nullptr;
};

TEST_F(DateCalendarWindow, TheListOfMonthsTakesNothingFromTheCalendar) {
    enter();
    person.key(VK_F4);
    const HWND panel = openPanel();
    ASSERT_TRUE(panel);
    takeEvents();
    person.moveTo(panel, monthList.x, monthList.y);
    person.press();
    person.release();
    EXPECT_NE(GetCapture(), panel) << "the list has it";
    EXPECT_EQ(GetFocus(), edit);
    keys({VK_HOME, VK_DOWN, VK_RETURN});
    EXPECT_EQ(openPanel(), panel);
    EXPECT_EQ(GetCapture(), panel);
    EXPECT_EQ(takeEvents().find(L"Date"), std::wstring::npos);
    person.turnWheel(WHEEL_DELTA);  // from February 2026 back to January, which begins on a Thursday
    pressDay(10);
    EXPECT_EQ(date(), L"Thu 1 Jan 2026");
}

TEST_F(DateCalendarWindow, EnterAToolBarAndAMenuStoreOnceWhatWasTyped) {
    enter();
    typeAnew(L"MON 2 MAR 2026");
    takeEvents();
    // The form hears of Enter, and its default button, when the date is what was typed.
    std::wstring formSees;
    hosted.loop.onUnclaimed = [&](MSG& message) {
        if (message.message == WM_KEYDOWN && message.wParam == VK_RETURN) formSees = date();
        return false;
    };
    person.key(VK_RETURN);
    hosted.loop.onUnclaimed = nullptr;
    EXPECT_EQ(formSees, L"mon 2 mar 2026");
    EXPECT_EQ(takeEvents().find(L"FocusHidden DateUpdated"), 0u);
    person.key(VK_RETURN);
    EXPECT_EQ(takeEvents().find(L"DateUpdated"), std::wstring::npos);
    EXPECT_EQ(GetFocus(), edit);
    // So do a tool bar and a menu, which take no focus.
    const HWND form = hosted.window.handle();
    const HWND tool = CreateWindowExW(0, L"STATIC", L"Save", WS_CHILD | WS_VISIBLE | SS_NOTIFY, 200, 200, 60,
                                      20, form, nullptr, nullptr, nullptr);
    person.type(L"7");
    takeEvents();
    person.moveTo(tool, 10, 10);
    person.press();
    EXPECT_EQ(takeEvents(), L"FocusHidden DateUpdated");
    EXPECT_EQ(GetFocus(), edit);
    person.release();
    person.type(L"8");
    takeEvents();
    SendMessageW(form, WM_ENTERMENULOOP, FALSE, 0);  // as the system does for a form with a menu
    hosted.loop.pumpPending();
    EXPECT_EQ(takeEvents(), L"FocusHidden DateUpdated");
    SetFocus(other);
    hosted.loop.pumpPending();
    EXPECT_EQ(takeEvents(), L"FocusHidden FocusLost MouseUp") << "nothing was typed since";
}

TEST_F(DateCalendarWindow, AnOpenCalendarKeepsItsKeysFromTheFieldAlsoWhileTheyAreHeld) {
    const auto text = [&] {
        wchar_t shown[64]{};
        GetWindowTextW(edit, shown, 64);
        return std::wstring(shown);
    };
    enter();
    putOnClipboard({{CF_UNICODETEXT, std::wstring(L"pasted\0", 7)}});
    person.key(L'A', MOD_CONTROL);
    keys({VK_F4, L'X', L'7', VK_BACK});
    for (const WORD code : {L'Z', L'X', L'V'}) person.key(code, MOD_CONTROL);
    person.key(VK_INSERT, MOD_SHIFT);
    EXPECT_TRUE(openPanel());
    EXPECT_EQ(text(), L"Fri 20 Nov 2026        ");
    for (const WORD held : {WORD{VK_SPACE}, WORD{VK_RETURN}, WORD{VK_ESCAPE}}) {
        if (!openPanel()) person.key(VK_F4);
        ASSERT_TRUE(openPanel());
        person.key(VK_RIGHT);
        takeEvents();
        person.hold(held, 4);
        const std::wstring chosen = held == VK_ESCAPE ? L"" : L"DateUpdated ";
        EXPECT_EQ(takeEvents(), L"FocusHidden " + chosen + L"KeyDown KeyDown KeyDown KeyDown KeyUp");
        EXPECT_FALSE(openPanel());
        EXPECT_EQ(text(), object().value(L"Text").toText());
        EXPECT_NE(text().front(), L' ');
    }
}

TEST_F(DateCalendarWindow, TheCalendarIsFilledInWithTheKeyboardAlone) {
    enter();
    keys({VK_F4, VK_TAB});
    person.type(L"f");  // in the list of months
    person.key(VK_TAB);
    person.type(L"2031");
    person.key(VK_TAB);
    person.key(VK_TAB, MOD_SHIFT);
    person.key(VK_UP);
    EXPECT_EQ(GetFocus(), edit);
    EXPECT_TRUE(openPanel());
    keys({VK_TAB, VK_TAB, VK_TAB, VK_TAB, VK_HOME, VK_RETURN});  // round to the days
    EXPECT_EQ(date(), L"Sun 1 Feb 2032");
    // As the user's system writes dates.
    typeAnew(L"2026.3.2");
    keys({VK_F4, VK_RIGHT, VK_SPACE});
    EXPECT_EQ(date(), L"Tue 3 Mar 2026");
    keys({VK_F4, VK_DELETE});
    EXPECT_EQ(date(), L"");
    keys({VK_F4, L'T'});
    EXPECT_NE(date(), L"");
    keys({VK_ESCAPE, VK_TAB});
    EXPECT_TRUE(person.waitFor([&] { return GetFocus() == other; })) << "closed, it leaves Tab to the form";
}

TEST_F(DateCalendarWindow, TheQuickDatesAreAMenuForMouseAndKeys) {
    enter();
    {
        MenuKeys keys{{L'F'}};
        person.rightClick(edit, 30, 8);
        EXPECT_TRUE(person.waitFor([&] { return keys.menusSeen() == 1; }));
        hosted.loop.pumpPending();
    }
    EXPECT_EQ(takeEvents().find(L"MouseDown MouseUp DateUpdated"), 0u);
    EXPECT_EQ(date().substr(0, 4), L"Mon ");
    {
        // The menu key, and Shift+F10 in its place; the menu covers nothing of the field.
        MenuKeys keys{{VK_END, VK_RETURN}, {VK_ESCAPE}};
        person.key(VK_APPS);
        EXPECT_TRUE(person.waitFor([&] { return keys.menusSeen() == 1; }));
        RECT overlap{};
        const RECT menu = keys.place();
        const RECT field = windowRect(edit);
        EXPECT_FALSE(IntersectRect(&overlap, &menu, &field));
        hosted.loop.pumpPending();
        EXPECT_EQ(date(), L"") << "the last line clears";
        person.key(VK_F10, MOD_SHIFT);
        EXPECT_TRUE(person.waitFor([&] { return keys.menusSeen() == 2; }));
        hosted.loop.pumpPending();
        EXPECT_EQ(date(), L"") << "dismissed";
    }
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(DateCalendarWindow, NoPartOfTheCalendarTakesTheFocusWhoeverAsks) {
    enter();
    constexpr POINT parts[] = {monthList, {110, 16},     {146, 11}, {146, 21},   {164, 16},  yearsOn,
                               {16, 39},  previousMonth, {97, 39},  nextMonth,   nextYear,   {16, 58},
                               {33, 80},  {16, 60},      {35, 209}, clearButton, closeButton};
    for (const POINT& at : parts) {
        SCOPED_TRACE(testing::Message() << at.x << "," << at.y);
        if (!openPanel()) person.key(VK_F4);
        const HWND panel = openPanel();
        ASSERT_TRUE(panel);
        const MenuKeys keys{{VK_ESCAPE}};
        person.moveTo(panel, at.x, at.y);
        person.press();
        EXPECT_TRUE(keepsFocusFromPanel(panel, edit));
        sendMouse(MOUSEEVENTF_LEFTUP);
        hosted.loop.pumpPending();
        EXPECT_EQ(GetFocus(), edit);
    }
    // So the keyboard goes on with what the mouse has begun.
    object().put(L"Text", std::wstring(L"Fri 20 Nov 2026"));
    person.key(VK_F4);
    pressPanel({146, 11});
    keys({VK_RIGHT, VK_RETURN});
    EXPECT_EQ(date(), L"Sun 21 Nov 2027");
}

TEST_F(DateCalendarWindow, OnAMonitorOfAnotherScaleTheCalendarIsWholeAndAnswers) {
    hosted.site.moveTo({240, 10, 381, 31});
    const RECT form = windowRect(hosted.window.handle());
    for (const TwoScales::Tells tells : {TwoScales::Tells::moved, TwoScales::Tells::shown}) {
        SCOPED_TRACE(static_cast<int>(tells));
        TwoScales scales((form.left + form.right) / 2 + 40, 144, tells);
        object().put(L"Text", std::wstring(L"Fri 20 Nov 2026"));
        for (int time = 0; time < 2; ++time) {
            const HWND panel = open();
            ASSERT_TRUE(panel);
            EXPECT_EQ(GetCapture(), panel);
            RECT area{};
            GetClientRect(panel, &area);
            EXPECT_EQ(area.right, Dpi(144).toPixels(Twips{2910}));
            EXPECT_EQ(area.bottom, Dpi(144).toPixels(Twips{3405}));
            const PixelRect day = Dpi(144).toPixels(cellBounds(firstCellOfNovember2026 + time));
            person.click(panel, day.left + 5, day.bottom - 5);
            EXPECT_EQ(takeEvents(), L"FocusHidden DateUpdated");
            EXPECT_EQ(date().substr(4, 2), time == 0 ? L"1 " : L"2 ");
        }
        // Its scale changes while it is open.
        const HWND panel = open();
        ASSERT_TRUE(panel);
        scales.move(10000);
        EXPECT_EQ(openPanel(), panel);
        EXPECT_EQ(windowRect(panel).right - windowRect(panel).left, 194);
        EXPECT_EQ(takeEvents(), L"");
        pressDay(firstCellOfNovember2026 + 8);
        EXPECT_EQ(date(), L"Mon 9 Nov 2026");
        takeEvents();
    }
}

TEST_F(DateCalendarWindow, AHostLetsGoInsideFocusHiddenWhateverTheScalesDo) {
    enum : unsigned { shown = 1, moves = 2, destroys = 4, button = 8, all = 16 };
    for (unsigned way = 0; way < all; ++way) {
        SCOPED_TRACE(way);
        HostedControl doomed(way & button ? L"ButtonPalette" : L"DateCalendar");
        doomed.activate({240, 10, 381, 31});
        const HWND form = doomed.window.handle();
        doomed.site.events().on(L"FocusHidden", [&](container::EventCall&) {
            if (way & destroys)
                DestroyWindow(form);
            else
                doomed.site.close();
        });
        const RECT place = windowRect(form);
        TwoScales scales((place.left + place.right) / 2 + 40, 144,
                         way & shown ? TwoScales::Tells::shown : TwoScales::Tells::moved);
        doomed.object().call(L"ShowPopUp");
        doomed.loop.pumpPending();
        const HWND panel = openPanel();
        ASSERT_TRUE(panel);
        if (way & moves) {
            SetWindowPos(form, nullptr, 200, 40, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        } else {
            scales.move(0);
            doomed.object().call(L"HidePopUp");
        }
        doomed.loop.pumpPending();
        EXPECT_FALSE(openPanel());
        EXPECT_FALSE(IsWindow(panel));
        EXPECT_EQ(GetCapture(), nullptr);
    }
}

TEST(TextFieldWindow, GlyphsAreWholeInLargeFonts) {
    for (const wchar_t* name : {L"DateCalendar", L"UpDownTextBox"}) {
        HostedControl hosted(name);
        hosted.activate({10, 10, 390, 110});
        const HWND face = hosted.site.window(), edit = GetWindow(face, GW_CHILD);
        const container::Dispatch font(hosted.object().value(L"Font").toObject().get());
        for (const double size : {8.25, 14.0, 36.0}) {
            font.put(L"Size", size);
            const HDC dc = GetDC(edit);
            const HGDIOBJ before =
                SelectObject(dc, reinterpret_cast<HFONT>(SendMessageW(edit, WM_GETFONT, 0, 0)));
            TEXTMETRICW metrics{};
            GetTextMetricsW(dc, &metrics);
            SelectObject(dc, before);
            ReleaseDC(edit, dc);
            const RECT line = windowRect(edit), field = windowRect(face);
            EXPECT_GE(line.bottom - line.top, metrics.tmHeight) << container::toUtf8(name) << size;
            EXPECT_NEAR(line.top + line.bottom, field.top + field.bottom, 5)
                << container::toUtf8(name) << size;
        }
    }
}

class DateCellWindow : public PersonAtControl {
protected:
    DateCellWindow() : PersonAtControl(L"GridEdit", {10, 10, 490, 250}) {}
};

TEST_F(DateCellWindow, OpensItsCalendarOnTheMonitorOfTheCellAndNotOfTheGrid) {
    object().call(L"ColsSet", {7L});
    for (long col = 0; col < 7; ++col) object().call(L"ColTypeSet", {col, 1L});
    object().call(L"RowAddQuick", {L"", 0L});
    object().call(L"RowSetFocus", {0L});
    object().call(L"ColSetFocus", {6L});
    object().call(L"BoxShow");
    hosted.loop.pumpPending();
    const HWND cell = GetFocus();
    ASSERT_TRUE(hosted.site.holdsWindow(cell));
    const int line = static_cast<int>(windowRect(cell).left) - 30;
    ASSERT_GT(line, (windowRect(face()).left + windowRect(face()).right) / 2);
    const TwoScales scales(line, 144, TwoScales::Tells::moved);
    person.key(VK_F4);
    const HWND panel = openPanel();
    ASSERT_TRUE(panel);
    EXPECT_GE(windowRect(panel).left, line);
    EXPECT_EQ(windowRect(panel).right - windowRect(panel).left, Dpi(144).toPixels(Twips{2910}));
}

}  // namespace
}  // namespace obk
