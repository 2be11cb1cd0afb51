// What holds for every control in its window, and a button that is held down in one.
#include "container/stored_value.h"
#include "container/text.h"
#include "container/type_members.h"
#include "counted_pairs.h"
#include "panel_support.h"
#include "person_support.h"
#include "resource_count.h"
#include "server_support.h"

#include <olectl.h>
#include <shlwapi.h>

#include <algorithm>
#include <functional>
#include <set>
#include <utility>

namespace obk {
namespace {

using namespace testing_support;
using container::Variant;

// A form with one control that has something to work on, another field, and perhaps another form elsewhere.
struct Host final : HostedControl {
    explicit Host(const std::wstring& className, HWND otherForm = nullptr)
        : HostedControl(className), name(className), elsewhere(otherForm) {
        prepare(*this, name);
        activate(placeOf(name));
    }
    void call(const wchar_t* method, const container::Arguments& arguments = {}) {
        object().call(method, arguments);
        loop.pumpPending();
    }
    // A grid's columns have one type each.
    void openEditor(long col) { call(L"GridSetFocus", {col, 0}); }
    void end() {
        site.close();
        loop.pumpPending();
        EXPECT_FALSE(openPanel());
        EXPECT_EQ(GetCapture(), nullptr);
    }

    const std::wstring name;
    const container::TypeMembers members = container::TypeMembers::of(site.control().get());
    const HWND field = window.addEdit(270);
    const HWND elsewhere;
};

// What a person does who has not met the control before, as long as it is there. `unheard` events are left to
// be brought about.
void work(Host& host, const std::set<std::wstring>& unheard) {
    Person person(host.loop, host.window.handle());
    const MenuKeys menus{{VK_RETURN}, {VK_RETURN}, {VK_RETURN}};
    const ChooserAnswer chooser(std::nullopt);
    const HWND window = host.site.window();
    RECT area{};
    GetClientRect(window, &area);
    const int low = std::min(30, static_cast<int>(area.bottom) - 6);
    // What the mouse comes to may be gone before the click.
    const auto click = [&](HWND at, int x, int y) {
        if (IsWindowVisible(at)) person.moveTo(at, x, y);
        if (IsWindowVisible(at)) person.click(at, x, y);
    };
    const auto doubleClick = [](HWND at, int x, int y) {
        SendMessageW(at, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(x, y));
        SendMessageW(at, WM_LBUTTONUP, 0, MAKELPARAM(x, y));
    };
    const auto clickDropped = [&](int x, int y) {
        host.call(L"ShowPopUp");
        click(openPanel(), x, y);
    };
    const auto clickStrip = [&] {
        // The chooser takes its time to open, and the keyboard from a host that hears of that.
        if (!unheard.contains(L"ChangeCustom") || unheard.contains(L"FocusLost")) return;
        const RECT panel = windowRect(openPanel());
        click(openPanel(), (panel.right - panel.left) / 2, panel.bottom - panel.top - 17);
    };
    std::vector<std::function<void()>> steps{
        [&] { click(window, area.right - 12, 10); },
        [&] { click(window, 10, low); },
        [&] { click(window, 10, 10); },
        [&] { click(openPanel(), 20, 100); },
        [&] { person.moveTo(window, 11, 11); },
        [&] { person.moveTo(host.field, 5, 5); },
        [&] { person.rightClick(window, 10, 10), host.loop.pumpPending(); },
        [&] { doubleClick(window, 10, low); },
        [&] { clickDropped(20, 100); },
        [&] { clickDropped(30, 30); },
        [&] { host.object().put(L"PopupEnabled", false); },
        [&] { click(window, 10, 10); },
        [&] { host.object().put(L"PopupEnabled", true); },
        [&] { host.call(L"ShowPopUp"); },
        clickStrip,
        [&] { host.site.uiActivate(); },
    };
    for (const int code : {VK_RIGHT, VK_LEFT, VK_UP, int{'5'}, VK_SPACE, VK_RETURN, VK_ESCAPE, VK_INSERT,
                           VK_DELETE, VK_DOWN, VK_F4})
        steps.emplace_back([&, code] { person.key(static_cast<WORD>(code)); });
    if (host.name == L"GridEdit") {
        const std::function<void()> own[] = {
            [&] { host.openEditor(4); },
            [&] {
                Variant left;
                host.object().call(L"CellCurrentLeft", {}, &left);
                person.click(window, static_cast<int>(left.toLong().value_or(0) / 15) + 12, low);
            },
            [&] { openPanel() ? void() : person.key(VK_F4); },
            [&] { click(openPanel(), 10, 5); },
            [&] { host.openEditor(0); },
            [&] { doubleClick(GetFocus(), 3, 3); },
            [&] { person.moveTo(window, 10, low); },
            [&] {
                putOnClipboard({{CF_UNICODETEXT, std::wstring(L"oak\0", 4)}});
                ComPtr<IDataObject> data;
                EXPECT_EQ(OleGetClipboard(data.put()), S_OK);
                person.dropHere(data.get());
            },
        };
        steps.insert(steps.end(), std::begin(own), std::end(own));
    }
    steps.emplace_back([&] { SetFocus(host.field), host.loop.pumpPending(); });
    for (const auto& step : steps) {
        if (!IsWindow(window)) return;
        step();
    }
}

// Each to what it is, to something else and back.
void setEveryProperty(Host& host, const std::function<void(const std::function<void()>&)>& how) {
    const auto object = host.object();
    for (const auto& property : host.members.properties()) {
        if (!property.readable || !property.writable) continue;
        const Variant value = object.value(property.number);
        for (const Variant& each : {value, otherThan(value), value}) {
            if (!each.empty()) how([&] { object.put(property.number, each); });
        }
    }
}

void placeAnother(Host& host) {
    container::ControlSite another(host.form, {});
    EXPECT_EQ(another.adopt(host.server.create(host.name), {}), S_OK);
    EXPECT_EQ(another.activate({10, 150, 151, 171}), S_OK);
    another.uiActivate();
}

void loadAnotherForm(Host& host) {
    const auto fresh = host.server.create(host.name).query<IPersistStreamInit>();
    const ComPtr<IStream> form(SHCreateMemStream(nullptr, 0));
    EXPECT_EQ(fresh->InitNew(), S_OK);
    EXPECT_EQ(fresh->Save(form.get(), TRUE), S_OK);
    form->Seek({}, STREAM_SEEK_SET, nullptr);
    EXPECT_EQ(host.site.query<IPersistStreamInit>()->Load(form.get()), S_OK);
}

// What a host does in its events.
struct HostAct {
    const char* name;
    void (*act)(Host&, container::EventCall&);
    bool ends = false;  // the control, or the person's work with it
};

const HostAct hostActs[] = {
    {"closesTheControl", [](Host& host, auto&) { host.site.close(); }, true},
    {"destroysTheForm",
     [](Host& host, auto&) {
         DestroyWindow(host.window.handle());
         SetForegroundWindow(host.elsewhere);
         SetFocus(host.elsewhere);
     },
     true},
    {"deactivates", [](Host& host, auto&) { host.site.deactivate(); }, true},
    {"deactivatesAndActivates",
     [](Host& host, auto&) {
         host.site.deactivate();
         host.site.activate(placeOf(host.name));
     },
     true},
    {"setsEveryProperty", [](Host& host, auto&) { setEveryProperty(host, [](const auto& put) { put(); }); }},
    {"placesAnotherOne", [](Host& host, auto&) { placeAnother(host); }, true},
    {"loadsAnotherForm", [](Host& host, auto&) { loadAnotherForm(host); }},
    {"releasesItAsItStands",
     [](Host& host, auto&) {
         // All that holds the control; its window stands.
         host.site.uiDeactivate();
         host.site.events().disconnect();
         host.site.changes().disconnect();
         const_cast<ComPtr<IUnknown>&>(host.site.control()).reset();
     },
     true},
    {"dropsAPanelDownAndUp",
     [](Host& host, auto&) {
         host.object().call(L"ShowPopUp");
         host.object().call(L"HidePopUp");
     }},
    {"movesTheFocus", [](Host& host, auto&) { SetFocus(host.field); }},
    {"runsAMessageLoop",
     [](Host& host, auto&) {
         Person person(host.loop, host.window.handle());
         person.click(host.site.window(), 10, 10);
         person.key(VK_DOWN);
         person.key(VK_ESCAPE);
     }},
    {"disablesTheControl",
     [](Host& host, auto&) {
         host.object().put(L"Enabled", false);
         host.loop.pumpPending();
         host.object().put(L"Enabled", true);
     }},
    {"changesTheFont",
     [](Host& host, auto&) {
         host.object().putReference(L"Font", container::makeFont({.name = L"Arial", .size = 20}).get());
     }},
    {"answersWithAnError", [](Host&, container::EventCall& call) { call.answer(DISP_E_EXCEPTION); }},
    {"asksForUnloading",
     [](Host& host, auto&) {
         CoFreeUnusedLibraries();
         EXPECT_FALSE(host.server.canUnload());
     }},
};

class HostInEvents : public testing::TestWithParam<HostAct> {};

INSTANTIATE_TEST_SUITE_P(Every, HostInEvents, testing::ValuesIn(hostActs),
                         [](const auto& row) { return row.param.name; });

TEST_P(HostInEvents, HarmsNothing) {
    for (const std::wstring& name : serverClasses()) {
        SCOPED_TRACE(container::toUtf8(name));
        std::set<std::wstring> left;
        const auto members = container::TypeMembers::of(LoadedServer().create(name).get());
        for (const auto& event : members.events()) left.insert(event.name);
        for (size_t before = left.size() + 1; left.size() < before;) {
            before = left.size();
            const TestWindow elsewhere;  // the form stands before it
            Host host(name, elsewhere.handle());
            bool done = false;
            host.site.events().onAny([&](container::EventCall& call) {
                if (done || left.erase(call.name()) == 0) return;
                SCOPED_TRACE(container::toUtf8(call.name()));
                done = true;
                GetParam().act(host, call);
                done = GetParam().ends;
            });
            work(host, left);
            host.end();
        }
        // What hosts know and nothing raises.
        if (name == L"DateCalendar") left.erase(L"Change");
        if (name == L"DateCalendar" || name == L"ButtonPalette") left.erase(L"KeyPress");
        for (const std::wstring& event : left) ADD_FAILURE() << container::toUtf8(event) << " is not raised";
    }
    EXPECT_TRUE(LoadedServer().canUnload());
}

// Each call of each member, which in the events that it raises is made once more.
TEST(EveryControlWindow, TheCallThatRaisesAnEventMayBeMadeAgainInIt) {
    for (const std::wstring& name : serverClasses()) {
        SCOPED_TRACE(container::toUtf8(name));
        Host host(name);
        host.site.uiActivate();
        const MenuKeys menus{};  // are dismissed
        std::function<void()> underWay;
        bool repeated = false;
        host.site.events().onAny([&](container::EventCall&) {
            const auto again = std::exchange(underWay, nullptr);
            if (!again) return;
            repeated = true;
            again();
            underWay = again;
        });
        const auto make = [&](const std::function<void()>& call) {
            underWay = call;
            call();
            host.loop.pumpPending();
            underWay = nullptr;
        };
        for (const auto& member : host.members.methods()) {
            // What names a file.
            if (member.name == L"GridSave" || member.name == L"GridLoad") continue;
            for (const Variant number : {0.0, 1.0}) {
                container::Arguments arguments;
                for (const auto& argument : member.arguments)
                    arguments.push_back(number.converted(argument.type.type).value_or(Variant()));
                make([&] { host.object().call(member.number, arguments); });
            }
        }
        setEveryProperty(host, make);
        // What the tabs tell is a person's doing.
        EXPECT_EQ(repeated, !host.members.events().empty() && name != L"PageTab");
        host.site.deactivate();
        host.activate(placeOf(name));
        EXPECT_TRUE(IsWindowVisible(host.site.window()));
        host.end();
    }
    EXPECT_TRUE(LoadedServer().canUnload());
}

TEST(EveryControlWindow, WorkingLeavesNothing) {
    const LoadedServer server;
    CountedPairs pairs(server.module());
    for (const std::wstring& name : serverClasses()) {
        SCOPED_TRACE(container::toUtf8(name));
        int turn = 0;
        expectNothingIsLeft([&] {
            Host host(name);
            EXPECT_TRUE(IsWindowVisible(host.site.window()));
            host.site.uiActivate();
            if (++turn % 2 == 0) host.site.deactivate(), host.activate(placeOf(name));
            host.call(L"ShowPopUp");
            EXPECT_EQ(openPanel() != nullptr, name == L"ButtonPalette" || name == L"DateCalendar");
            host.object().call(L"HidePopUp");
            for (long col = 0; name == L"GridEdit" && col < 7; ++col) host.openEditor(col);
            if (name == L"PageTab") host.object().put(L"ActiveTabs", L"a,b,c,d,e,f,g,h,i,j,k,l,m,n,o,p");
            host.object().call(L"ShowPopUp");  // closed while it shows
        });
        pairs.expectAllGone();
    }
    EXPECT_TRUE(server.canUnload());
}

TEST(EveryControlWindow, TheFieldOfARightToLeftFormReadsAsItDoes) {
    Host host(L"DateCalendar");
    host.site.setAmbient(DISPID_AMBIENT_RIGHTTOLEFT, true);
    host.loop.pumpPending();
    EXPECT_TRUE(GetWindowLongW(GetWindow(host.site.window(), GW_CHILD), GWL_EXSTYLE) & WS_EX_RTLREADING);
}

class DropDownWindow : public PersonAtControl, public testing::WithParamInterface<const wchar_t*> {
protected:
    DropDownWindow() : PersonAtControl(GetParam(), {10, 10, 85, 33}) {}
};

INSTANTIATE_TEST_SUITE_P(Every, DropDownWindow, testing::Values(L"ButtonPalette", L"DateCalendar"));

TEST_P(DropDownWindow, WhatTakesItsPlaceClosesThePanel) {
    const HWND form = hosted.window.handle();
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"a press elsewhere", [&] { person.click(other, 5, 5); }},
        {"the focus goes elsewhere", [&] { SetFocus(other); }},
        {"the form moves",
         [&] { SetWindowPos(form, nullptr, 60, 60, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE); }},
        {"the form is minimised", [&] { ShowWindow(form, SW_MINIMIZE); }},
        {"the form is hidden", [&] { ShowWindow(form, SW_HIDE); }},
        {"another window takes the capture", [&] { SetCapture(form); }},
    };
    for (const auto& [name, way] : ways) {
        ShowWindow(form, SW_SHOWNORMAL);
        // The window system may still move the form, which would close what is opened then.
        person.wait(std::chrono::milliseconds(100));
        hosted.site.uiActivate();
        ASSERT_TRUE(open()) << name;
        way();
        hosted.loop.pumpPending();
        EXPECT_FALSE(openPanel()) << name;
        EXPECT_EQ(takeEvents().find(L"FocusHidden"), 0u) << name;
        EXPECT_NE(GetCapture(), face()) << name;
        if (GetCapture()) ReleaseCapture();
    }
}

TEST_P(DropDownWindow, AClickDropsThePanelAndASecondOneClosesIt) {
    person.click(face(), 10, 10);
    const HWND panel = openPanel();
    ASSERT_TRUE(panel);
    EXPECT_TRUE(takeEvents().starts_with(L"MouseDown MouseUp"));
    EXPECT_EQ(GetCapture(), panel);
    EXPECT_TRUE(hosted.site.holdsWindow(GetFocus())) << "the panel never takes the focus";
    EXPECT_EQ(windowRect(panel).left, windowRect(face()).left);
    EXPECT_EQ(windowRect(panel).top, windowRect(face()).bottom);
    person.click(face(), 10, 10);
    EXPECT_FALSE(openPanel()) << "closed, and not opened again";
    EXPECT_EQ(takeEvents(), L"FocusHidden MouseUp");
    EXPECT_NE(GetCapture(), panel);
}

class UpDownTextBoxWindow : public PersonAtControl {
protected:
    UpDownTextBoxWindow() : PersonAtControl(L"UpDownTextBox", {10, 10, 110, 31}) {
        object().put(L"Interval", 1.0);
        object().put(L"Text", L"5");
    }
    std::wstring text() const { return object().value(L"Text").toText(); }
};

TEST_F(UpDownTextBoxWindow, AHeldSpinnerButtonRepeatsUntilItIsReleased) {
    person.moveTo(face(), 92, 5);
    person.press();
    EXPECT_EQ(text(), L"6");
    EXPECT_EQ(GetFocus(), GetWindow(face(), GW_CHILD));
    EXPECT_TRUE(person.waitFor([&] { return text() == L"8"; }));
    person.release();
    const std::wstring released = text();
    person.wait(std::chrono::milliseconds(300));
    EXPECT_EQ(text(), released);
    EXPECT_EQ(GetCapture(), nullptr);
    person.turnWheel(WHEEL_DELTA * 2);
    EXPECT_EQ(text(), std::to_wstring(std::stoi(released) + 2));
}

TEST_F(UpDownTextBoxWindow, AFormOfNumbersDatesAndColoursIsFilledByKeyboardAlone) {
    container::ControlSite date(hosted.form, {}), colour(hosted.form, {});
    for (auto [site, name, bounds] : {std::tuple(&date, L"DateCalendar", RECT{10, 40, 151, 61}),
                                      {&colour, L"ButtonPalette", RECT{280, 70, 355, 93}}}) {
        ASSERT_EQ(site->adopt(hosted.server.create(name), {}), S_OK);
        ASSERT_EQ(site->activate(bounds), S_OK);
    }
    object().put(L"Max", 100L);
    date.object().put(L"Text", L"Fri 20 Nov 2026");
    const auto fill = [&](const container::ControlSite& site, std::initializer_list<int> keys) {
        for (int stop = 0; stop < 5 && !site.holdsWindow(GetFocus()); ++stop) person.key(VK_TAB);
        ASSERT_TRUE(site.holdsWindow(GetFocus()));
        for (const int code : keys) person.key(static_cast<WORD>(code));
    };
    SetFocus(other);
    fill(hosted.site, {'4', '2', VK_UP});
    fill(date, {VK_F4, VK_DOWN, VK_TAB, VK_TAB, '2', '0', '2', '7', VK_RETURN});
    fill(colour, {VK_F4, VK_HOME, VK_RIGHT, VK_DOWN, VK_RETURN});
    EXPECT_FALSE(openPanel());
    EXPECT_EQ(text(), L"43");
    EXPECT_EQ(date.object().value(L"Text").toText(), L"Sat 27 Nov 2027        ");
    EXPECT_EQ(colour.object().value(L"Text").toText(), L"BARLEY COPPER");
}

}  // namespace
}  // namespace obk
