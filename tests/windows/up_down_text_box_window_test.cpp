// The numeric text box as a person meets it: real keys and presses in our own container.
#include "person_support.h"
#include "server_support.h"

#include <gtest/gtest.h>

namespace obk {
namespace {

using namespace testing_support;
using container::Variant;

class UpDownTextBoxWindow : public PersonAtControl {
protected:
    UpDownTextBoxWindow() : PersonAtControl(L"UpDownTextBox", {10, 10, 110, 31}) {
        object().put(L"Interval", 1.0);
        object().put(L"Max", 50);
        edit = GetWindow(face(), GW_CHILD);
    }
    std::wstring text() const {
        Variant value = object().value(L"Text");
        return V_VT(&value.get()) == VT_BSTR ? V_BSTR(&value.get()) : L"?";
    }
    // What the window itself shows.
    std::wstring shown() const {
        wchar_t buffer[64]{};
        GetWindowTextW(edit, buffer, 64);
        return buffer;
    }
    void enter() {
        person.click(edit, 20, 8);
        ASSERT_EQ(GetFocus(), edit);
        person.key('A', MOD_CONTROL);
        takeEvents();
    }
    RECT surface() const {
        RECT area{};
        GetClientRect(hosted.site.window(), &area);
        return area;
    }

    HWND edit = nullptr;
};

TEST_F(UpDownTextBoxWindow, TypingIsFilteredAndReported) {
    object().put(L"AllowDecpoint", true);
    object().put(L"Text", L"7");
    enter();
    person.type(L"1a2.-5.");
    EXPECT_EQ(text(), L"12.5");
    EXPECT_EQ(shown(), L"12.5");
    std::vector<short> typed;
    for (const auto& record : hosted.site.events().journal()) {
        if (record.name == L"KeyPress") typed.push_back(V_I2(&record.arguments[0].get()));
    }
    EXPECT_EQ(typed, (std::vector<short>{'1', 0, '2', '.', 0, '5', 0}));
    EXPECT_EQ(hosted.site.events().count(L"Change"), 4u);
}

TEST_F(UpDownTextBoxWindow, AHostChangesOrDiscardsWhatIsTyped) {
    hosted.site.events().on(L"KeyPress", [](container::EventCall& call) {
        Variant typed = call.value(0);
        if (V_I2(&typed.get()) == '1') call.set(0, short{'9'});
        if (V_I2(&typed.get()) == '2') call.set(0, short{0});
    });
    enter();
    person.type(L"123");
    EXPECT_EQ(text(), L"93");
}

TEST_F(UpDownTextBoxWindow, TheClipboardWorksInAFilteredField) {
    object().put(L"Text", L"42");
    enter();
    person.key('C', MOD_CONTROL);
    object().put(L"Text", L"7");
    person.key('A', MOD_CONTROL);
    person.key('V', MOD_CONTROL);
    EXPECT_EQ(text(), L"42");
    person.key('Z', MOD_CONTROL);
    EXPECT_EQ(text(), L"7");
}

TEST_F(UpDownTextBoxWindow, KeysAndWheelStep) {
    object().put(L"Text", L"5");
    enter();
    person.key(VK_UP);
    EXPECT_EQ(takeEvents(), L"DownClick Change KeyDown KeyUp");
    person.key(VK_NEXT);
    EXPECT_EQ(takeEvents(), L"UpClick Change KeyDown KeyUp");
    EXPECT_EQ(shown(), L"5");
    person.turnWheel(WHEEL_DELTA * 2);
    EXPECT_EQ(text(), L"7");
    object().put(L"AllowArrowKeys", false);
    person.turnWheel(WHEEL_DELTA);
    EXPECT_EQ(text(), L"7");
    person.key(VK_DOWN);
    EXPECT_EQ(text(), L"6");
}

TEST_F(UpDownTextBoxWindow, AHeldSpinnerButtonRepeatsUntilItIsReleased) {
    object().put(L"Text", L"5");
    person.moveTo(hosted.site.window(), surface().right - 8, 5);
    person.press();
    EXPECT_EQ(text(), L"6");
    EXPECT_EQ(GetFocus(), edit);
    EXPECT_TRUE(person.waitFor([&] { return text() == L"8"; }));
    person.release();
    const std::wstring released = text();
    person.wait(std::chrono::milliseconds(300));
    EXPECT_EQ(text(), released);
    EXPECT_EQ(GetCapture(), nullptr);
    object().put(L"Text", L"5");
    takeEvents();
    person.click(hosted.site.window(), surface().right - 8, surface().bottom - 5);
    EXPECT_EQ(text(), L"4");
    EXPECT_EQ(takeEvents(), L"MouseDown UpClick Change");
}

TEST_F(UpDownTextBoxWindow, LeavingTheFieldHoldsItsRange) {
    enter();
    person.type(L"99");
    person.click(other, 5, 5);
    EXPECT_EQ(GetFocus(), other);
    EXPECT_EQ(text(), L"50.0");
    object().put(L"Text", L"50");
    enter();
    person.key(VK_TAB);
    EXPECT_TRUE(person.waitFor([&] { return GetFocus() == other; }));
    EXPECT_EQ(text(), L"50");
    person.key(VK_TAB, MOD_SHIFT);
    EXPECT_TRUE(person.waitFor([&] { return GetFocus() == edit; }));
}

}  // namespace
}  // namespace obk
