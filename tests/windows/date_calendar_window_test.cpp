// The date field as a person meets it: real keys and presses in our own container, its calendar a window of
// its own, its quick dates a menu of the system.
#include "datecalendar/month_layout.h"
#include "panel_support.h"
#include "person_support.h"
#include "server_support.h"
#include "two_scales_support.h"

#include <gtest/gtest.h>

namespace obk {
namespace {

using namespace testing_support;

constexpr const wchar_t* blanks = L"        ";
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
    std::wstring date() const { return object().value(L"Text").toText(); }
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
    for (const int code : {VK_HOME, VK_DOWN, VK_RETURN}) person.key(static_cast<WORD>(code));
    EXPECT_EQ(openPanel(), panel);
    EXPECT_EQ(GetCapture(), panel);
    EXPECT_EQ(takeEvents().find(L"Date"), std::wstring::npos);
    person.turnWheel(WHEEL_DELTA);  // from February 2026 back to January, which begins on a Thursday
    pressDay(10);
    EXPECT_EQ(date(), std::wstring(L"Thu 1 Jan 2026") + blanks);
}

TEST_F(DateCalendarWindow, EnterStoresAndF4ReadsWhatWasTyped) {
    enter();
    person.key(L'A', MOD_CONTROL);
    person.type(L"MON 2 MAR 2026");
    takeEvents();
    // The form hears of Enter, and its default button, when the date is what was typed.
    std::wstring formSees;
    hosted.loop.onUnclaimed = [&](MSG& message) {
        if (message.message == WM_KEYDOWN && message.wParam == VK_RETURN) formSees = date();
        return false;
    };
    person.key(VK_RETURN);
    hosted.loop.onUnclaimed = nullptr;
    EXPECT_EQ(formSees, std::wstring(L"mon 2 mar 2026") + blanks);
    EXPECT_EQ(date(), std::wstring(L"mon 2 mar 2026") + blanks);
    EXPECT_EQ(takeEvents().find(L"FocusHidden DateUpdated"), 0u);
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
    SetFocus(edit);
    person.key(L'A', MOD_CONTROL);
    person.type(L"WED 4 MAR 2026");
    person.key(VK_F4);
    person.key(VK_RIGHT);
    person.key(VK_RETURN);
    EXPECT_EQ(date(), std::wstring(L"Thu 5 Mar 2026") + blanks);
}

TEST_F(DateCalendarWindow, AnOpenCalendarKeepsItsKeysFromTheFieldAlsoWhileTheyAreHeld) {
    const auto text = [&] {
        wchar_t shown[64]{};
        GetWindowTextW(edit, shown, 64);
        return std::wstring(shown);
    };
    enter();
    person.key(VK_F4);
    for (const WORD code : {WORD{L'X'}, WORD{L'7'}, WORD{VK_BACK}}) person.key(code);
    EXPECT_EQ(text(), std::wstring(L"Fri 20 Nov 2026") + blanks);
    for (const WORD held : {WORD{VK_SPACE}, WORD{VK_RETURN}}) {
        if (!openPanel()) person.key(VK_F4);
        ASSERT_TRUE(openPanel());
        person.key(VK_RIGHT);
        takeEvents();
        person.hold(held, 4);
        const std::wstring events = takeEvents();
        EXPECT_EQ(events, L"FocusHidden DateUpdated KeyDown KeyDown KeyDown KeyDown KeyUp");
        EXPECT_FALSE(openPanel());
        EXPECT_EQ(text(), date());
        EXPECT_EQ(text().substr(0, 1).find(L' '), std::wstring::npos);
    }
}

TEST_F(DateCalendarWindow, TheCalendarIsFilledInWithTheKeyboardAlone) {
    enter();
    person.key(VK_F4);
    person.key(VK_TAB);
    person.type(L"f");  // in the list of months
    person.key(VK_TAB);
    person.type(L"2031");
    person.key(VK_TAB);
    person.key(VK_TAB, MOD_SHIFT);
    person.key(VK_UP);
    EXPECT_EQ(GetFocus(), edit);
    EXPECT_TRUE(openPanel());
    for (int time = 0; time < 4; ++time) person.key(VK_TAB);  // round to the days
    person.key(VK_HOME);
    person.key(VK_RETURN);
    EXPECT_EQ(date(), std::wstring(L"Sun 1 Feb 2032") + blanks);
    // As the user's system writes dates.
    person.key(L'A', MOD_CONTROL);
    person.type(L"2026.3.2");
    person.key(VK_F4);
    person.key(VK_RIGHT);
    person.key(VK_SPACE);
    EXPECT_EQ(date(), std::wstring(L"Tue 3 Mar 2026") + blanks);
    person.key(VK_F4);
    person.key(VK_DELETE);
    EXPECT_EQ(date(), blanks);
    person.key(VK_F4);
    person.key(L'T');
    EXPECT_NE(date(), blanks);
    person.key(VK_ESCAPE);
    person.key(VK_TAB);
    EXPECT_TRUE(person.waitFor([&] { return GetFocus() == other; })) << "closed, it leaves Tab to the form";
}

TEST_F(DateCalendarWindow, CalendarUpdateShowsNoDaysWhileThereIsNoYear) {
    enter();
    person.key(VK_F4);
    const HWND panel = openPanel();
    ASSERT_TRUE(panel);
    const auto ink = [&] {
        hosted.loop.pumpPending();
        const PixelRect first = Dpi().toPixels(cellBounds(cellColumns)),
                        last = Dpi().toPixels(cellBounds(cellCount - cellColumns - 1));
        const HDC dc = GetDC(panel);
        int pixels = 0;
        for (int y = first.top; y < last.bottom; ++y) {
            for (int x = first.left; x < last.right; ++x)
                pixels += GetPixel(dc, x, y) != GetSysColor(COLOR_WINDOW);
        }
        ReleaseDC(panel, dc);
        return pixels;
    };
    const int days = ink();
    EXPECT_GT(days, 100);
    person.key(VK_TAB);
    person.key(VK_TAB);
    person.type(L"2");
    object().call(L"CalendarUpdate");
    EXPECT_EQ(ink(), 0);
    person.type(L"031");
    object().call(L"CalendarUpdate");
    EXPECT_GT(ink(), 100);
}

TEST_F(DateCalendarWindow, AClickThatTheHostMakesOnADisabledFieldEndsLikeAnyOther) {
    object().put(L"Enabled", false);
    object().put(L"MousePosn", false);
    person.moveTo(face(), 10, 10);
    takeEvents();
    person.click(face(), 10, 10);
    object().call(L"UserControl_Click");
    hosted.loop.pumpPending();
    EXPECT_FALSE(openPanel());
    EXPECT_EQ(takeEvents(), L"");
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_EQ(object().value(L"MousePosn").toBool(), true);
}

TEST_F(DateCalendarWindow, APressOutsideHidesTheCalendarOnce) {
    SetFocus(edit);
    person.key(VK_F4);
    ASSERT_TRUE(openPanel());
    takeEvents();
    person.click(other, 5, 5);
    EXPECT_EQ(takeEvents(), L"FocusHidden");
    EXPECT_FALSE(openPanel());
    SetFocus(other);
    hosted.loop.pumpPending();
    EXPECT_EQ(takeEvents(), L"FocusLost MouseUp") << "which is no news of the calendar";
}

TEST_F(DateCalendarWindow, GlyphsAreWholeInLargeFonts) {
    hosted.site.moveTo({10, 10, 390, 110});
    const container::Dispatch font(object().value(L"Font").toObject().get());
    for (const double size : {8.25, 36.0}) {
        font.put(L"Size", size);
        const HDC dc = GetDC(edit);
        const HGDIOBJ before =
            SelectObject(dc, reinterpret_cast<HFONT>(SendMessageW(edit, WM_GETFONT, 0, 0)));
        TEXTMETRICW metrics{};
        GetTextMetricsW(dc, &metrics);
        SelectObject(dc, before);
        ReleaseDC(edit, dc);
        const RECT line = windowRect(edit), field = windowRect(face());
        EXPECT_GE(line.bottom - line.top, metrics.tmHeight) << size;
        EXPECT_NEAR(line.top + line.bottom, field.top + field.bottom, 5) << size;
    }
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
        EXPECT_EQ(date(), blanks) << "the last line clears";
        person.key(VK_F10, MOD_SHIFT);
        EXPECT_TRUE(person.waitFor([&] { return keys.menusSeen() == 2; }));
        hosted.loop.pumpPending();
        EXPECT_EQ(date(), blanks) << "dismissed";
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
    person.key(VK_RIGHT);
    person.key(VK_RETURN);
    EXPECT_EQ(date(), std::wstring(L"Sun 21 Nov 2027") + blanks);
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
        EXPECT_EQ(date(), std::wstring(L"Mon 9 Nov 2026") + blanks);
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
