// The tab strip as a person meets it: real keys and presses in our own container.
#include "person_support.h"
#include "pixels_support.h"
#include "server_support.h"

#include "container/stored_value.h"
#include "platform/win32/display.h"

#include <gtest/gtest.h>

#include <oleacc.h>
#include <olectl.h>

namespace obk {
namespace {

using namespace testing_support;

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
    // Where a part that shows is, in the strip's client area.
    RECT placeOf(long part) const {
        ComPtr<IAccessible> accessible;
        AccessibleObjectFromWindow(strip(), static_cast<DWORD>(OBJID_CLIENT), IID_IAccessible,
                                   reinterpret_cast<void**>(accessible.put()));
        VARIANT child{};
        child.vt = VT_I4;
        child.lVal = part;
        long left = 0, top = 0, width = 0, height = 0;
        accessible->accLocation(&left, &top, &width, &height, child);
        RECT place{left, top, left + width, top + height};
        MapWindowPoints(nullptr, strip(), reinterpret_cast<POINT*>(&place), 2);
        return place;
    }
    bool shows(long tab) const { return placeOf(tab).right > placeOf(tab).left; }
    // The tab that the host was told of as chosen by a person; 0 for another story.
    long chosen() { return takeEvents() == L"Click Show" ? active() : 0; }
};

TEST_F(PageTabWindow, AnAccessKeyCallsItsTabFromTheWholeForm) {
    const auto control = hosted.site.query<IOleControl>();
    CONTROLINFO info{};
    info.cb = sizeof info;
    ASSERT_EQ(control->GetControlInfo(&info), S_OK);
    EXPECT_EQ(info.cAccel, 1 + 4) << "and what turns pages";
    EXPECT_TRUE(pressAltInOther('H'));
    EXPECT_EQ(chosen(), 2);
    person.key(VK_TAB, MOD_CONTROL);
    EXPECT_EQ(chosen(), 3);
    person.key(VK_PRIOR, MOD_CONTROL);
    EXPECT_EQ(chosen(), 2);
    EXPECT_EQ(GetFocus(), other);
    setTabs(L"", 0);
    ASSERT_EQ(control->GetControlInfo(&info), S_OK);
    EXPECT_EQ(info.cAccel, 0);
}

TEST_F(PageTabWindow, ButtonsScrollTabsThatDoNotFitOnceForAPressAndOnWhileHeld) {
    for (const bool mirrored : {false, true}) {
        hosted.site.setAmbient(DISPID_AMBIENT_RIGHTTOLEFT, mirrored);
        setTabs(L"alpha,bravo,charlie,delta,echo,foxtrot,golf,hotel,india,juliet,kilo,lima", 1);
        RECT area{};
        GetClientRect(strip(), &area);
        // Two buttons at the end of the reading direction; the outer one goes on.
        const int y = (placeOf(1).top + placeOf(1).bottom) / 2;
        const auto at = [&](int fromEnd) {
            return static_cast<int>(mirrored ? fromEnd : area.right - fromEnd);
        };
        ASSERT_TRUE(shows(1) && !shows(12));
        const auto holdUntilShown = [&](int fromEnd, long tab) {
            person.moveTo(strip(), at(fromEnd), y);
            person.press();
            EXPECT_TRUE(person.waitFor([&] { return shows(tab); }));
            person.release();
        };
        person.click(strip(), at(10), y);
        EXPECT_TRUE(!shows(1) && shows(2)) << "one tab";
        holdUntilShown(11, 12);
        for (int more = 0; more < 3; ++more) person.click(strip(), at(10), y);
        const RECT end = placeOf(12);
        person.click(strip(), at(10), y);
        EXPECT_EQ(placeOf(12).left, end.left) << "there is no more";
        holdUntilShown(27, 1);
        EXPECT_EQ(active(), 1);
        EXPECT_EQ(takeEvents().find(L"Click"), std::wstring::npos) << "scrolling is no choice";
    }
}

// At some sizes letters reach beyond the width that the system measures for them.
TEST_F(PageTabWindow, CaptionsAreWholeAtEverySizeOfTheFont) {
    object().put(L"TextColor", 0L);
    setTabs(L"Generall,Remindersl,x", 3);
    for (int pixels = 10; pixels < 24; ++pixels) {
        container::StoredFont font;
        font.name = L"Tahoma";
        font.size = pixels * 72.0 / win32::systemDpi().dotsPerInch();
        hosted.site.setAmbient(DISPID_AMBIENT_FONT, container::makeFont(font).get());
        DrawnPixels shown(330, 60), whole(330, 60);
        SendMessageW(strip(), WM_PRINTCLIENT, reinterpret_cast<WPARAM>(shown.dc()), PRF_CLIENT);
        const HFONT logical = CreateFontW(-pixels, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                                          0, 0, 0, 0, font.name.c_str());
        const HGDIOBJ before = SelectObject(whole.dc(), logical);
        SetBkMode(whole.dc(), TRANSPARENT);
        for (long tab : {1, 2}) {
            whole.clear(0xFFFFFF);
            const std::wstring caption = tab == 1 ? L"Generall" : L"Remindersl";
            ExtTextOutW(whole.dc(), 5, 5, 0, nullptr, caption.data(), static_cast<UINT>(caption.size()),
                        nullptr);
            EXPECT_EQ(shown.colours(placeOf(tab))[0], whole.colours(whole.all())[0])
                << caption << " at " << pixels << " pixels";
        }
        DeleteObject(SelectObject(whole.dc(), before));
    }
}

}  // namespace
}  // namespace obk
