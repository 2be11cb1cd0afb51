// What holds for every control in its window, and a button that is held down in one.
#include "container/stored_value.h"
#include "container/text.h"
#include "container/type_members.h"
#include "counted_pairs.h"
#include "panel_support.h"
#include "person_support.h"
#include "resource_count.h"
#include "server_support.h"
#include "two_scales_support.h"

#include <gtest/gtest.h>

#include <olectl.h>
#include <shlwapi.h>

#include <algorithm>
#include <map>
#include <set>

namespace obk {
namespace {

using namespace testing_support;
using container::Variant;

// What a person does who has not met the control before, as long as it is there. `unheard` events are left to
// be brought about.
void work(HostedControl& hosted, const std::wstring& name, HWND field,
          const std::set<std::wstring>& unheard) {
    Person person(hosted.loop, hosted.window.handle());
    const MenuKeys menus{{VK_RETURN}, {VK_RETURN}, {VK_RETURN}};
    const ChooserAnswer chooser(std::nullopt);
    const HWND window = hosted.site.window();
    RECT area{};
    GetClientRect(window, &area);
    const int low = std::min(30, static_cast<int>(area.bottom) - 6);
    const auto clickPanel = [&](int x, int y) {
        const HWND panel = openPanel();
        if (panel) person.moveTo(panel, x, y);
        if (panel && panel == openPanel()) person.click(panel, x, y);
    };
    const auto panelClick = [&] { clickPanel(20, 100); };
    const auto clickStrip = [&] {
        // The chooser takes its time to open, and the keyboard from a host that hears of that.
        if (!unheard.contains(L"ChangeCustom") || unheard.contains(L"FocusLost")) return;
        const RECT panel = windowRect(openPanel());
        clickPanel((panel.right - panel.left) / 2, panel.bottom - panel.top - 17);
    };
    // A grid's columns have one type each.
    const auto openEditor = [&](long col) {
        hosted.object().call(L"GridSetFocus", {col, 0});
        hosted.loop.pumpPending();
    };
    const auto clickList = [&] {
        Variant left;
        hosted.object().call(L"CellCurrentLeft", {}, &left);
        person.click(window, static_cast<int>(left.toLong().value_or(0) / 15) + 12, low);
    };
    const auto drop = [&] {
        putOnClipboard({{CF_UNICODETEXT, std::wstring(L"oak\0", 4)}});
        ComPtr<IDataObject> data;
        EXPECT_EQ(OleGetClipboard(data.put()), S_OK);
        person.dropHere(data.get());
    };
    std::vector<std::function<void()>> steps{
        [&] { person.moveTo(window, area.right - 12, 10); },
        [&] { person.click(window, area.right - 12, 10); },
        [&] { person.moveTo(window, 10, low); },
        [&] { person.click(window, 10, low); },
        [&] { person.moveTo(window, 10, 10); },
        [&] { person.click(window, 10, 10); },
        panelClick,
        [&] { person.moveTo(window, 11, 11); },
        [&] { person.moveTo(field, 5, 5); },
        [&] { person.rightClick(window, 10, 10), hosted.loop.pumpPending(); },
        [&] { SendMessageW(window, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(10, low)); },
        [&] { SendMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(10, low)); },
        [&] { hosted.object().call(L"ShowPopUp"), hosted.loop.pumpPending(); },
        panelClick,
        [&] { hosted.object().call(L"ShowPopUp"), hosted.loop.pumpPending(); },
        [&] { clickPanel(30, 30); },
        [&] { hosted.object().put(L"PopupEnabled", false); },
        [&] { person.click(window, 10, 10); },
        [&] { hosted.object().put(L"PopupEnabled", true); },
        [&] { hosted.object().call(L"ShowPopUp"), hosted.loop.pumpPending(); },
        clickStrip,
        [&] { hosted.site.uiActivate(); },
    };
    for (const WORD code :
         {WORD{VK_RIGHT}, WORD{VK_LEFT}, WORD{VK_UP}, WORD{'5'}, WORD{VK_SPACE}, WORD{VK_RETURN},
          WORD{VK_ESCAPE}, WORD{VK_INSERT}, WORD{VK_DELETE}, WORD{VK_DOWN}, WORD{VK_F4}})
        steps.emplace_back([&, code] { person.key(code); });
    if (name == L"GridEdit") {
        const std::function<void()> own[] = {
            [&] { openEditor(4); },
            clickList,
            [&] { openPanel() ? void() : person.key(VK_F4); },
            [&] { clickPanel(10, 5); },
            [&] { openEditor(0); },
            [&] { SendMessageW(GetFocus(), WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(3, 3)); },
            [&] { SendMessageW(GetFocus(), WM_LBUTTONUP, 0, MAKELPARAM(3, 3)); },
            [&] { person.moveTo(window, 10, low); },
            drop,
        };
        steps.insert(steps.end(), std::begin(own), std::end(own));
    }
    steps.emplace_back([&] { SetFocus(field), hosted.loop.pumpPending(); });
    for (const auto& step : steps) {
        if (!IsWindow(window)) return;
        step();
    }
}

// What a host does in its events.
struct HostAct {
    const char* name;
    // `field` is another one of the form, `elsewhere` another form.
    std::function<void(HostedControl&, HWND field, HWND elsewhere, container::EventCall&)> act;
    bool ends = false;  // the control, or the person's work with it
};

void setEverything(HostedControl& hosted) {
    const auto members = container::TypeMembers::of(hosted.site.control().get());
    const auto object = hosted.object();
    for (const auto& property : members.properties()) {
        if (property.readable && property.writable)
            object.put(property.number, object.value(property.number));
    }
}

void setOtherValues(HostedControl& hosted) {
    const auto members = container::TypeMembers::of(hosted.site.control().get());
    const auto object = hosted.object();
    for (const auto& property : members.properties()) {
        if (!property.readable || !property.writable) continue;
        const Variant value = object.value(property.number), other = otherThan(value);
        if (other.empty()) continue;
        object.put(property.number, other);
        object.put(property.number, value);
    }
}

void placeAnother(HostedControl& hosted) {
    container::ControlSite another(hosted.form, {});
    hosted.form.add(another);
    const auto name = container::TypeMembers::of(hosted.site.control().get()).className();
    EXPECT_EQ(another.adopt(hosted.server.create(name), {}), S_OK);
    EXPECT_EQ(another.activate({10, 150, 151, 171}), S_OK);
    another.uiActivate();
    another.close();
    hosted.form.remove(another);
}

void loadAnotherForm(HostedControl& hosted) {
    const auto name = container::TypeMembers::of(hosted.site.control().get()).className();
    const auto fresh = hosted.server.create(name).query<IPersistStreamInit>();
    const ComPtr<IStream> form(SHCreateMemStream(nullptr, 0));
    EXPECT_EQ(fresh->InitNew(), S_OK);
    EXPECT_EQ(fresh->Save(form.get(), TRUE), S_OK);
    form->Seek({}, STREAM_SEEK_SET, nullptr);
    EXPECT_EQ(hosted.site.query<IPersistStreamInit>()->Load(form.get()), S_OK);
}

void newFont(HostedControl& hosted) {
    container::StoredFont described;
    described.name = L"Arial";
    described.size = 20;
    hosted.object().putReference(L"Font", container::makeFont(described).get());
}

const std::vector<HostAct>& hostActs() {
    static const std::vector<HostAct> acts{
        {"closesTheControl", [](HostedControl& hosted, HWND, HWND, auto&) { hosted.site.close(); }, true},
        {"destroysTheForm",
         [](HostedControl& hosted, HWND, HWND elsewhere, auto&) {
             DestroyWindow(hosted.window.handle());
             SetForegroundWindow(elsewhere);
             SetFocus(elsewhere);
         },
         true},
        {"deactivates", [](HostedControl& hosted, HWND, HWND, auto&) { hosted.site.deactivate(); }, true},
        {"deactivatesAndActivates",
         [](HostedControl& hosted, HWND, HWND, auto&) {
             const RECT place = hosted.site.position();
             hosted.site.deactivate();
             hosted.site.activate(place);
         },
         true},
        {"setsEveryProperty", [](HostedControl& hosted, HWND, HWND, auto&) { setEverything(hosted); }},
        {"setsOtherValues", [](HostedControl& hosted, HWND, HWND, auto&) { setOtherValues(hosted); }},
        {"placesAnotherOne", [](HostedControl& hosted, HWND, HWND, auto&) { placeAnother(hosted); }, true},
        {"loadsAnotherForm", [](HostedControl& hosted, HWND, HWND, auto&) { loadAnotherForm(hosted); }},
        {"releasesItAsItStands",
         [](HostedControl& hosted, HWND, HWND, auto&) {
             // All that holds the control; its window stands.
             hosted.site.uiDeactivate();
             hosted.site.events().disconnect();
             hosted.site.changes().disconnect();
             const_cast<ComPtr<IUnknown>&>(hosted.site.control()).reset();
         },
         true},
        {"dropsAPanelDownAndUp",
         [](HostedControl& hosted, HWND, HWND, auto&) {
             hosted.object().call(L"ShowPopUp");
             hosted.object().call(L"HidePopUp");
         }},
        {"movesTheFocus", [](HostedControl&, HWND field, HWND, auto&) { SetFocus(field); }},
        {"runsAMessageLoop",
         [](HostedControl& hosted, HWND, HWND, auto&) {
             Person person(hosted.loop, hosted.window.handle());
             const HWND window = hosted.site.window();
             person.click(window, 10, 10);
             person.key(VK_DOWN);
             person.key(VK_ESCAPE);
         }},
        {"disablesTheControl",
         [](HostedControl& hosted, HWND, HWND, auto&) {
             hosted.object().put(L"Enabled", false);
             hosted.loop.pumpPending();
             hosted.object().put(L"Enabled", true);
         }},
        {"changesTheFont", [](HostedControl& hosted, HWND, HWND, auto&) { newFont(hosted); }},
        {"answersWithAnError",
         [](HostedControl&, HWND, HWND, container::EventCall& call) { call.answer(DISP_E_EXCEPTION); }},
        {"asksForUnloading",
         [](HostedControl& hosted, HWND, HWND, auto&) {
             CoFreeUnusedLibraries();
             EXPECT_FALSE(hosted.server.canUnload());
         }},
    };
    return acts;
}

class HostInEvents : public testing::TestWithParam<size_t> {};

INSTANTIATE_TEST_SUITE_P(Every, HostInEvents, testing::Range(size_t{0}, hostActs().size()),
                         [](const auto& row) { return hostActs()[row.param].name; });

TEST_P(HostInEvents, HarmsNothing) {
    const HostAct& host = hostActs()[GetParam()];
    for (const std::wstring& name : serverClasses()) {
        SCOPED_TRACE(container::toUtf8(name));
        std::set<std::wstring> left;
        const auto members = container::TypeMembers::of(LoadedServer().create(name).get());
        for (const auto& event : members.events()) left.insert(event.name);
        for (size_t before = left.size() + 1; left.size() < before;) {
            before = left.size();
            const TestWindow elsewhere;
            HostedControl hosted(name);
            const HWND field = hosted.window.addEdit(270);
            prepare(hosted, name);
            hosted.activate(placeOf(name));
            bool acting = false, ended = false;
            hosted.site.events().onAny([&](container::EventCall& call) {
                if (acting || ended || left.erase(call.name()) == 0) return;
                SCOPED_TRACE(container::toUtf8(call.name()));
                acting = true;
                host.act(hosted, field, elsewhere.handle(), call);
                acting = false;
                ended = host.ends;
            });
            work(hosted, name, field, left);
            hosted.site.close();
            hosted.loop.pumpPending();
            EXPECT_FALSE(openPanel());
            EXPECT_EQ(GetCapture(), nullptr);
        }
        // What hosts know and nothing raises.
        const std::map<std::wstring, std::set<std::wstring>> unheard{
            {L"DateCalendar", {L"Change", L"KeyPress"}}, {L"ButtonPalette", {L"KeyPress"}}};
        for (const std::wstring& event : left) {
            const auto known = unheard.find(name);
            EXPECT_TRUE(known != unheard.end() && known->second.contains(event)) << container::toUtf8(event);
        }
    }
    EXPECT_TRUE(LoadedServer().canUnload());
}

// Each call of each member, which in the events that it raises is made once more.
TEST(EveryControlWindow, TheCallThatRaisesAnEventMayBeMadeAgainInIt) {
    const LoadedServer server;
    for (const std::wstring& name : serverClasses()) {
        SCOPED_TRACE(container::toUtf8(name));
        HostedControl hosted(name);
        prepare(hosted, name);
        hosted.activate(placeOf(name));
        hosted.site.uiActivate();
        const auto members = container::TypeMembers::of(hosted.site.control().get());
        const auto object = hosted.object();
        const MenuKeys menus{};  // are dismissed
        std::function<void()> call;
        bool again = false;
        std::set<std::wstring> repeated;
        hosted.site.events().onAny([&](container::EventCall& event) {
            if (again || !call) return;
            again = true;
            repeated.insert(event.name());
            call();
            again = false;
        });
        for (const auto& member : members.methods()) {
            // What names a file.
            if (member.name == L"GridSave" || member.name == L"GridLoad") continue;
            for (const double number : {0.0, 1.0}) {
                container::Arguments arguments;
                for (const auto& argument : member.arguments)
                    arguments.push_back(Variant(number).converted(argument.type.type).value_or(Variant()));
                call = [&] { object.call(member.number, arguments); };
                call();
                hosted.loop.pumpPending();
            }
        }
        for (const auto& property : members.properties()) {
            if (!property.readable || !property.writable) continue;
            const Variant value = object.value(property.number), other = otherThan(value);
            for (const Variant& each : {other, value}) {
                if (each.empty()) continue;
                call = [&] { object.put(property.number, each); };
                call();
                hosted.loop.pumpPending();
            }
        }
        call = nullptr;
        // What the tabs tell is a person's doing.
        EXPECT_EQ(repeated.empty(), members.events().empty() || name == L"PageTab");
        hosted.site.deactivate();
        hosted.activate(placeOf(name));
        EXPECT_TRUE(hosted.site.window() && IsWindowVisible(hosted.site.window()));
        hosted.site.close();
        hosted.loop.pumpPending();
        EXPECT_FALSE(openPanel());
        EXPECT_EQ(GetCapture(), nullptr);
    }
    EXPECT_TRUE(server.canUnload());
}

TEST(EveryControlWindow, WorkingLeavesNothing) {
    const LoadedServer server;
    CountedPairs pairs(server.module());
    for (const std::wstring& name : serverClasses()) {
        SCOPED_TRACE(container::toUtf8(name));
        int turn = 0;
        expectNothingIsLeft([&] {
            HostedControl hosted(name);
            prepare(hosted, name);
            hosted.activate(placeOf(name));
            EXPECT_TRUE(IsWindowVisible(hosted.site.window()));
            hosted.site.uiActivate();
            if (++turn % 2 == 0) hosted.site.deactivate(), hosted.activate(placeOf(name));
            hosted.object().call(L"ShowPopUp");
            hosted.loop.pumpPending();
            if (name == L"ButtonPalette" || name == L"DateCalendar") {
                EXPECT_TRUE(openPanel());
            }
            hosted.object().call(L"HidePopUp");
            if (name == L"GridEdit") {
                for (long col = 0; col < 7; ++col) {
                    hosted.object().call(L"GridSetFocus", {col, 0});
                    hosted.loop.pumpPending();
                }
            }
            if (name == L"PageTab") hosted.object().put(L"ActiveTabs", L"a,b,c,d,e,f,g,h,i,j,k,l,m,n,o,p");
            hosted.object().call(L"ShowPopUp");  // closed while it shows
        });
        pairs.expectAllGone();
    }
    EXPECT_TRUE(server.canUnload());
}

class DropDownWindow : public testing::TestWithParam<const wchar_t*> {
protected:
    HostedControl hosted{GetParam()};
    HWND other = hosted.window.addEdit(270);
    Person person{hosted.loop, hosted.window.handle()};
};

INSTANTIATE_TEST_SUITE_P(Every, DropDownWindow, testing::Values(L"ButtonPalette", L"DateCalendar"));

TEST_P(DropDownWindow, WhatTakesItsPlaceClosesThePanel) {
    hosted.activate({10, 10, 151, 31});
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
        hosted.object().call(L"ShowPopUp");
        hosted.loop.pumpPending();
        ASSERT_TRUE(openPanel()) << name;
        hosted.takeEvents();
        way();
        hosted.loop.pumpPending();
        EXPECT_FALSE(openPanel()) << name;
        EXPECT_EQ(hosted.takeEvents().find(L"FocusHidden"), 0u) << name;
        EXPECT_NE(GetCapture(), hosted.site.window()) << name;
        if (GetCapture()) ReleaseCapture();
    }
}

TEST_P(DropDownWindow, AClickDropsThePanelAndASecondOneClosesIt) {
    hosted.activate({10, 10, 85, 33});
    const HWND face = hosted.site.window();
    person.click(face, 10, 10);
    const HWND panel = openPanel();
    ASSERT_TRUE(panel);
    EXPECT_TRUE(hosted.takeEvents().starts_with(L"MouseDown MouseUp"));
    EXPECT_EQ(GetCapture(), panel);
    EXPECT_TRUE(hosted.site.holdsWindow(GetFocus())) << "the panel never takes the focus";
    EXPECT_EQ(windowRect(panel).left, windowRect(face).left);
    EXPECT_EQ(windowRect(panel).top, windowRect(face).bottom);
    person.click(face, 10, 10);
    EXPECT_FALSE(openPanel()) << "closed, and not opened again";
    EXPECT_EQ(hosted.takeEvents(), L"FocusHidden MouseUp");
    EXPECT_NE(GetCapture(), panel);
}

TEST_P(DropDownWindow, ARightToLeftFormHasTheMirrorImage) {
    hosted.activate({240, 10, 381, 33});
    const HWND face = hosted.site.window();
    const HWND text = GetWindow(face, GW_CHILD);
    const LONG before = text ? windowRect(text).left - windowRect(face).left : 0;
    hosted.site.setAmbient(DISPID_AMBIENT_RIGHTTOLEFT, true);
    hosted.loop.pumpPending();
    if (text) {
        const HWND mirrored = GetWindow(face, GW_CHILD);
        EXPECT_EQ(windowRect(face).right - windowRect(mirrored).right, before);
        EXPECT_TRUE(GetWindowLongW(mirrored, GWL_EXSTYLE) & WS_EX_RTLREADING);
    }
    person.click(face, 131, 10);
    const HWND panel = openPanel();
    ASSERT_TRUE(panel);
    const RECT area = windowRect(panel);
    EXPECT_EQ(area.right, std::max(windowRect(face).right, area.right - area.left));
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

TEST_F(UpDownTextBoxWindow, AFormOfNumbersDatesAndColoursIsFilledByKeyboardAloneOnTwoMonitors) {
    container::ControlSite date(hosted.form, {}), colour(hosted.form, {});
    for (auto [site, name, bounds] : {std::tuple(&date, L"DateCalendar", RECT{10, 40, 151, 61}),
                                      {&colour, L"ButtonPalette", RECT{280, 70, 355, 93}}}) {
        hosted.form.add(*site);
        ASSERT_EQ(site->adopt(hosted.server.create(name), {}), S_OK);
        ASSERT_EQ(site->activate(bounds), S_OK);
    }
    object().put(L"Max", 100L);
    date.object().put(L"Text", L"Fri 20 Nov 2026");
    // The colours stand on the right monitor, and what they drop down.
    const RECT form = windowRect(hosted.window.handle());
    const TwoScales scales((form.left + form.right) / 2 + 40, 144, TwoScales::Tells::shown);
    const auto tabInto = [&](container::ControlSite& site) {
        for (int stop = 0; stop < 5 && !site.holdsWindow(GetFocus()); ++stop) person.key(VK_TAB);
        return site.holdsWindow(GetFocus());
    };
    SetFocus(other);
    ASSERT_TRUE(tabInto(hosted.site));
    person.type(L"42");
    person.key(VK_UP);
    ASSERT_TRUE(tabInto(date));
    for (const int code : {VK_F4, VK_DOWN, VK_TAB, VK_TAB}) person.key(static_cast<WORD>(code));
    person.type(L"2027");
    person.key(VK_RETURN);
    ASSERT_TRUE(tabInto(colour));
    for (const int code : {VK_F4, VK_HOME, VK_RIGHT, VK_DOWN, VK_RETURN}) person.key(static_cast<WORD>(code));
    EXPECT_FALSE(openPanel());
    EXPECT_EQ(text(), L"43");
    EXPECT_EQ(date.object().value(L"Text").toText(), L"Sat 27 Nov 2027        ");
    EXPECT_EQ(colour.object().value(L"Text").toText(), L"BARLEY COPPER");
}

}  // namespace
}  // namespace obk
