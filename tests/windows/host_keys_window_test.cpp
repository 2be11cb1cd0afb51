// A host with a menu and shortcuts of its own: they work while any of the controls has the keyboard, and the
// keys that a control uses stay with it.
#include "panel_support.h"
#include "person_support.h"
#include "server_support.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>

namespace obk {
namespace {

using namespace testing_support;

struct Key {
    WORD code;
    UINT modifiers = 0;
};

// What every control leaves to its host, and then what some use, by these positions.
enum : size_t { f4 = 8, deletes, enter, space, copy, nextTab };
constexpr UINT ctrl = MOD_CONTROL, shift = MOD_SHIFT, alt = MOD_ALT;
constexpr Key shortcuts[] = {{'S', ctrl},       {'N', ctrl}, {'P', ctrl | shift}, {VK_F1},       {VK_F5},
                             {'S', ctrl | alt}, {'X', alt},  {VK_F4, alt},        {VK_F4},       {VK_DELETE},
                             {VK_RETURN},       {VK_SPACE},  {'C', ctrl},         {VK_TAB, ctrl}};

struct Situation {
    const char* name;
    const wchar_t* className;
    long cell = -1;             // the type of the grid's column
    std::vector<WORD> opening;  // after `method`, if there is one
    const wchar_t* method = nullptr;
    std::vector<size_t> claimed;
};

class HostKeys : public testing::TestWithParam<Situation> {
protected:
    HostKeys() {
        std::vector<ACCEL> entries;
        for (const Key& key : shortcuts) add(entries, key);
        shortcuts_ = CreateAcceleratorTableW(entries.data(), static_cast<int>(entries.size()));
        const HMENU bar = CreateMenu(), file = CreatePopupMenu();
        AppendMenuW(file, MF_STRING, 100, L"&Close");
        AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(file), L"&File");
        const HWND form = hosted.window.handle();
        SetMenu(form, bar);
        original_ = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrW(form, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure)));
        commands_.clear();
        menus_ = 0;
        hosted.loop.onUnclaimed = [this, form](MSG& message) {
            return TranslateAcceleratorW(form, shortcuts_, &message) != 0;
        };
        hosted.activate({10, 10, 410, 150});
        // Once the window has its menu.
        person.emplace(hosted.loop, form);
        prepare();
    }
    ~HostKeys() override {
        SetWindowLongPtrW(hosted.window.handle(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(original_));
        DestroyAcceleratorTable(shortcuts_);
    }
    // The keyboard in the control, in the state that the case is about.
    void prepare() {
        const auto object = hosted.object();
        if (GetParam().className == std::wstring(L"PageTab")) object.put(L"ActiveTabs", L"Home,&Help,Video");
        if (GetParam().cell >= 0) {
            object.call(L"ColsSet", {3L});
            object.call(L"ColTypeSet", {1L, GetParam().cell});
            object.call(L"ComboAdd", {L"Desk"});
            object.call(L"RowSetFocus", {0L});
            object.call(L"ColSetFocus", {1L});
        }
        if (GetParam().className == std::wstring(L"DateCalendar")) object.call(L"HidePopUp");
        hosted.form.enter(hosted.site);
        if (GetParam().method) object.call(GetParam().method);
        hosted.loop.pumpPending();
        for (const WORD code : GetParam().opening) person->key(code);
        ASSERT_TRUE(hosted.site.holdsWindow(GetFocus()));
        commands_.clear();
    }
    std::vector<size_t> pressed(const Key& key) {
        person->key(key.code, key.modifiers);
        return std::exchange(commands_, {});
    }

    HostedControl hosted{GetParam().className};

    std::optional<Person> person;
    static inline int menus_ = 0;

private:
    static void add(std::vector<ACCEL>& to, const Key& key) {
        const auto flag = [&key](UINT modifier, BYTE bit) {
            return key.modifiers & modifier ? bit : BYTE{0};
        };
        const auto held = static_cast<BYTE>(FVIRTKEY | flag(MOD_CONTROL, FCONTROL) | flag(MOD_SHIFT, FSHIFT) |
                                            flag(MOD_ALT, FALT));
        to.push_back({held, key.code, static_cast<WORD>(to.size())});
    }
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == WM_INITMENUPOPUP) ++menus_;
        // Seen is enough.
        if (message == WM_ENTERIDLE && wParam == MSGF_MENU) EndMenu();
        if (message == WM_COMMAND && HIWORD(wParam) == 1) commands_.push_back(LOWORD(wParam));
        return CallWindowProcW(original_, window, message, wParam, lParam);
    }

    static inline WNDPROC original_ = nullptr;
    static inline std::vector<size_t> commands_;
    HACCEL shortcuts_ = nullptr;
};

TEST_P(HostKeys, GoToTheHostButForThoseThatTheControlUses) {
    const auto press = [this](size_t at) {
        const auto& claimed = GetParam().claimed;
        const bool own = std::find(claimed.begin(), claimed.end(), at) != claimed.end();
        EXPECT_EQ(pressed(shortcuts[at]), own ? std::vector<size_t>{} : std::vector{at})
            << "key " << shortcuts[at].code << " with " << shortcuts[at].modifiers;
    };
    for (size_t at = 0; at < f4; ++at) press(at);
    person->key('F', MOD_ALT);
    EXPECT_EQ(menus_, 1);
    // A panel is closed by the menu, and a used key changes the state.
    const MenuKeys menus({});
    for (size_t at = f4; at < std::size(shortcuts); ++at) {
        prepare();
        press(at);
    }
}

INSTANTIATE_TEST_SUITE_P(
    EveryControl, HostKeys,
    testing::Values(
        Situation{"Number", L"UpDownTextBox", -1, {}, nullptr, {deletes, space, copy}},
        Situation{"Date", L"DateCalendar", -1, {}, nullptr, {f4, deletes, space, copy}},
        Situation{"OpenCalendar", L"DateCalendar", -1, {}, L"ShowPopUp", {f4, deletes, enter, space, copy}},
        Situation{"Button", L"ButtonPalette", -1, {}, nullptr, {f4, space}},
        Situation{"OpenPanel", L"ButtonPalette", -1, {}, L"ShowPopUp", {f4, space}},
        Situation{"WalkedPanel", L"ButtonPalette", -1, {VK_HOME}, L"ShowPopUp", {f4, enter, space}},
        Situation{"Tabs", L"PageTab", -1, {}, nullptr, {space, nextTab}},
        Situation{"Cells", L"GridEdit", 0, {}, nullptr, {deletes, enter, space, copy}},
        Situation{"TextEditor", L"GridEdit", 0, {}, L"BoxShow", {deletes, enter, space, copy}},
        Situation{"DateEditor", L"GridEdit", 1, {}, L"BoxShow", {f4, deletes, enter, space, copy}},
        Situation{"OpenDateEditor", L"GridEdit", 1, {VK_F4}, L"BoxShow", {f4, deletes, enter, space, copy}},
        Situation{"CheckEditor", L"GridEdit", 3, {}, L"BoxShow", {enter, space}},
        Situation{"ListEditor", L"GridEdit", 4, {}, L"BoxShow", {f4, enter, space}},
        Situation{"NumberEditor", L"GridEdit", 5, {}, L"BoxShow", {deletes, enter, space, copy}},
        Situation{"TimeEditor", L"GridEdit", 6, {}, L"BoxShow", {f4, enter, space}}),
    [](const auto& situation) { return std::string(situation.param.name); });

}  // namespace
}  // namespace obk
