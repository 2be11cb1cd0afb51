// The tab strip as a person meets it: real keys and presses in our own container.
#include "person_support.h"
#include "resource_count.h"
#include "server_support.h"

#include <gtest/gtest.h>

#include <oleacc.h>
#include <olectl.h>

#include <algorithm>
#include <iterator>

namespace obk {
namespace {

using namespace testing_support;
using container::Variant;

constexpr const wchar_t* longSet =
    L"Tab 1,Tab 2,Tab 3,Tab 4,Tab 5,Tab 6,Tab 7,Tab 8,Tab 9,Tab 10,Tab 11,Tab 12";

class PageTabWindow : public PersonAtControl {
protected:
    PageTabWindow() : PersonAtControl(L"PageTab", {10, 10, 330, 36}) { setTabs(L"Home,&Help,Video", 1); }
    HWND strip() const { return face(); }
    long active() const { return object().value(L"ActiveTab").toLong().value_or(-1); }
    void setTabs(const wchar_t* tabs, long index) {
        object().put(L"ActiveTabs", tabs);
        object().put(L"ActiveTab", index);
        hosted.loop.pumpPending();
        takeEvents();
    }
    // "Click(Home) Show"; without mouse moves, which the system reports as often as it likes.
    std::wstring takeEvents() {
        std::wstring told;
        for (const auto& record : hosted.site.events().journal()) {
            if (record.name == L"MouseMove") continue;
            told += (told.empty() ? L"" : L" ") + record.name;
            if (record.name == L"Click") told += L"(" + record.arguments.at(0).toText() + L")";
        }
        hosted.site.events().clearJournal();
        return told;
    }
    ComPtr<IAccessible> accessible() const {
        ComPtr<IAccessible> found;
        AccessibleObjectFromWindow(strip(), static_cast<DWORD>(OBJID_CLIENT), IID_IAccessible,
                                   reinterpret_cast<void**>(found.put()));
        return found;
    }
    // Where a part that shows is, in the strip's client area.
    RECT placeOf(long part) const {
        VARIANT child{};
        child.vt = VT_I4;
        child.lVal = part;
        long left = 0, top = 0, width = 0, height = 0;
        accessible()->accLocation(&left, &top, &width, &height, child);
        RECT place{left, top, left + width, top + height};
        MapWindowPoints(nullptr, strip(), reinterpret_cast<POINT*>(&place), 2);
        return place;
    }
    POINT middleOf(long part) const {
        const RECT place = placeOf(part);
        return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
    }
    bool shows(long tab) const {
        const RECT place = placeOf(tab);
        return IsRectEmpty(&place) == FALSE;
    }
    void clickTab(long tab) {
        const POINT at = middleOf(tab);
        person.click(strip(), at.x, at.y);
    }
    COLORREF pixel(POINT at) const {
        UpdateWindow(strip());
        const HDC dc = GetDC(strip());
        const COLORREF colour = GetPixel(dc, at.x, at.y);
        ReleaseDC(strip(), dc);
        return colour;
    }
};

TEST_F(PageTabWindow, APressChoosesTheTabAndTakesTheFocus) {
    clickTab(3);
    EXPECT_EQ(takeEvents(), L"MouseDown Click(Video) Show MouseUp");
    EXPECT_EQ(active(), 3);
    EXPECT_EQ(GetFocus(), strip());
    EXPECT_EQ(GetCapture(), nullptr);
    person.click(strip(), 300, 12);
    EXPECT_EQ(takeEvents(), L"MouseDownback MouseUp");
    const POINT at = middleOf(1);
    person.moveTo(strip(), at.x, at.y);
    person.press(MOUSEEVENTF_RIGHTDOWN);
    person.release(MOUSEEVENTF_RIGHTUP);
    EXPECT_EQ(takeEvents(), L"MouseDown MouseUp");
    EXPECT_EQ(active(), 3);
    // A press that is dragged off the strip ends there.
    person.press();
    person.moveTo(other, 5, 5);
    person.release();
    EXPECT_EQ(takeEvents(), L"MouseDown Click(Home) Show MouseUp");
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(PageTabWindow, TheKeyboardDoesWhatTheMouseDoes) {
    clickTab(1);
    takeEvents();
    person.moveTo(other, 5, 5);
    person.key(VK_RIGHT);
    EXPECT_EQ(takeEvents(), L"Click(&Help) Show");
    person.key(VK_END);
    EXPECT_EQ(takeEvents(), L"Click(Video) Show");
    person.key(VK_TAB, MOD_CONTROL);
    EXPECT_EQ(takeEvents(), L"Click(Home) Show");
    person.key(VK_TAB, MOD_CONTROL | MOD_SHIFT);
    EXPECT_EQ(takeEvents(), L"Click(Video) Show");
    person.type(L"h");
    EXPECT_EQ(takeEvents(), L"Click(Home) Show");
    EXPECT_EQ(GetFocus(), strip());
    person.key(VK_TAB);
    EXPECT_TRUE(person.waitFor([&] { return GetFocus() == other; }));
    EXPECT_EQ(takeEvents(), L"");
}

TEST_F(PageTabWindow, AnAccessKeyCallsItsTabFromTheWholeForm) {
    SetFocus(other);
    hosted.loop.pumpPending();
    const auto control = hosted.site.query<IOleControl>();
    CONTROLINFO info{};
    info.cb = sizeof info;
    ASSERT_EQ(control->GetControlInfo(&info), S_OK);
    EXPECT_EQ(info.cAccel, 1);
    // As if Alt were held: held for real, its release would open the form's menu.
    BYTE keys[256]{};
    GetKeyboardState(keys);
    BYTE withAlt[256];
    std::copy(std::begin(keys), std::end(keys), withAlt);
    withAlt[VK_MENU] = 0x80;
    SetKeyboardState(withAlt);
    MSG message{};
    message.hwnd = other;
    message.message = WM_SYSKEYDOWN;
    message.wParam = 'H';
    message.lParam = 0x20000001;
    EXPECT_TRUE(hosted.form.translate(message));
    SetKeyboardState(keys);
    EXPECT_EQ(takeEvents(), L"Click(&Help) Show");
    EXPECT_EQ(GetFocus(), other);
    setTabs(L"Home", 1);
    ASSERT_EQ(control->GetControlInfo(&info), S_OK);
    EXPECT_EQ(info.cAccel, 0);
}

TEST_F(PageTabWindow, TabsScrollByHeldButtonsAndTheWheel) {
    setTabs(longSet, 1);
    ASSERT_TRUE(shows(1));
    ASSERT_FALSE(shows(12));
    const long forward = 14;  // after twelve tabs and the button that goes back
    const POINT at = middleOf(forward);
    person.moveTo(strip(), at.x, at.y);
    person.press();
    EXPECT_FALSE(shows(1));
    EXPECT_TRUE(person.waitFor([&] { return shows(12); })) << "held";
    person.release();
    EXPECT_EQ(takeEvents(), L"") << "scrolling is no choice";
    person.moveTo(strip(), 60, 12);
    person.turnWheel(360);
    EXPECT_TRUE(person.waitFor([&] { return !shows(12); }));
    object().put(L"ActiveTab", 12L);
    EXPECT_TRUE(shows(12));
}

TEST_F(PageTabWindow, TheTabUnderTheMouseIsHighlightedUntilItLeaves) {
    const POINT below{placeOf(2).left + 3, placeOf(2).bottom - 4};
    const COLORREF quiet = pixel(below);
    person.moveTo(strip(), middleOf(2).x, middleOf(2).y);
    EXPECT_TRUE(person.waitFor([&] { return pixel(below) != quiet; }));
    person.moveTo(other, 5, 5);
    EXPECT_TRUE(person.waitFor([&] { return pixel(below) == quiet; }));
}

TEST_F(PageTabWindow, ScreenReadersHearTabsAndWhichOneIsSelected) {
    const auto strips = accessible();
    ASSERT_TRUE(strips);
    const auto longOf = [](const VARIANT& value) { return value.vt == VT_I4 ? value.lVal : -1; };
    VARIANT child{};
    child.vt = VT_I4;
    VARIANT answer{};
    ASSERT_EQ(strips->get_accRole(child, &answer), S_OK);
    EXPECT_EQ(longOf(answer), ROLE_SYSTEM_PAGETABLIST);
    for (long tab = 1; tab <= 3; ++tab) {
        child.lVal = tab;
        ASSERT_EQ(strips->get_accRole(child, &answer), S_OK);
        EXPECT_EQ(longOf(answer), ROLE_SYSTEM_PAGETAB);
        ASSERT_EQ(strips->get_accState(child, &answer), S_OK);
        EXPECT_EQ((longOf(answer) & STATE_SYSTEM_SELECTED) != 0, tab == 1);
    }
    Bstr name;
    child.lVal = 2;
    ASSERT_EQ(strips->get_accName(child, name.put()), S_OK);
    EXPECT_EQ(name.text(), L"Help");
    ASSERT_EQ(strips->accDoDefaultAction(child), S_OK);
    EXPECT_EQ(active(), 2);
}

TEST_F(PageTabWindow, ARightToLeftFormHasItsTabsAtTheRight) {
    const RECT before = placeOf(1);
    hosted.site.setAmbient(DISPID_AMBIENT_RIGHTTOLEFT, true);
    RECT client{};
    GetClientRect(strip(), &client);
    EXPECT_EQ(placeOf(1).right, client.right - before.left);
    EXPECT_GT(placeOf(1).left, placeOf(2).left);
}

TEST(PageTabResources, RebuildingAndScrollingLeavesNothing) {
    expectNothingIsLeft([] {
        HostedControl hosted(L"PageTab");
        hosted.activate({10, 10, 200, 36});
        for (const wchar_t* tabs : {longSet, L"a,b", L"", longSet}) {
            hosted.object().put(L"ActiveTabs", tabs);
            hosted.object().call(L"SetFont", {Variant(L"Tahoma"), Variant(L"10")});
            UpdateWindow(hosted.site.window());
        }
    });
}

}  // namespace
}  // namespace obk
