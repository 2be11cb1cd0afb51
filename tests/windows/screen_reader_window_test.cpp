// What screen readers get of controls in real windows: by the older interface and its events, and by the
// providers of UI Automation.
#include "container/variant.h"
#include "framework/control.h"
#include "framework/control_table.h"
#include "framework/member_call.h"
#include "library/library.h"
#include "panel_support.h"
#include "person_support.h"
#include "platform/win32/automation.h"
#include "platform/win32/automation_patterns.h"
#include "platform/win32/surface_window.h"
#include "platform/win32/text_conversion.h"
#include "resource_count.h"
#include "server_support.h"
#include "widgets/accessible_tree.h"
#include "window_driver_support.h"

#include <gtest/gtest.h>

#include <oleacc.h>
#include <uiautomationclient.h>

#include <array>
#include <map>
#include <set>

namespace obk {
namespace {

using namespace testing_support;

VARIANT childNumber(LONG number) {
    VARIANT child{};
    child.vt = VT_I4;
    child.lVal = number;
    return child;
}

std::wstring taken(BSTR text) {
    std::wstring result(text ? text : L"", SysStringLen(text));
    SysFreeString(text);
    return result;
}

ComPtr<IAccessible> accessibleOf(HWND window) {
    ComPtr<IAccessible> found;
    AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), IID_IAccessible,
                               reinterpret_cast<void**>(found.put()));
    return found;
}

ComPtr<IAccessible> childOf(const ComPtr<IAccessible>& parent, LONG number) {
    ComPtr<IDispatch> dispatch;
    ComPtr<IAccessible> child;
    if (parent->get_accChild(childNumber(number), dispatch.put()) == S_OK)
        dispatch->QueryInterface(IID_IAccessible, reinterpret_cast<void**>(child.put()));
    return child;
}

std::wstring nameOf(const ComPtr<IAccessible>& of, LONG child = CHILDID_SELF) {
    BSTR name = nullptr;
    of->get_accName(childNumber(child), &name);
    return taken(name);
}

LONG roleOf(const ComPtr<IAccessible>& of, LONG child = CHILDID_SELF) {
    VARIANT role{};
    return of->get_accRole(childNumber(child), &role) == S_OK ? role.lVal : -1;
}

LONG stateOf(const ComPtr<IAccessible>& of, LONG child = CHILDID_SELF) {
    VARIANT state{};
    return of->get_accState(childNumber(child), &state) == S_OK ? state.lVal : -1;
}

// Hears what the system tells of the windows of this process.
class EventHook {
public:
    EventHook()
        : hook_(SetWinEventHook(EVENT_OBJECT_REORDER, EVENT_OBJECT_INVOKED, nullptr, hear,
                                GetCurrentProcessId(), 0, WINEVENT_OUTOFCONTEXT)) {}
    EventHook(const EventHook&) = delete;
    EventHook& operator=(const EventHook&) = delete;
    ~EventHook() { UnhookWinEvent(hook_); }

    // Of the things in one window, or in all: "focus Video".
    static std::wstring take(HWND only = nullptr) {
        std::wstring all;
        for (const Heard& each : std::exchange(heard, {})) {
            const HWND window = each.window;
            if ((only && window != only) || each.object != OBJID_CLIENT) continue;
            ComPtr<IAccessible> of;
            VARIANT child{};
            AccessibleObjectFromEvent(window, static_cast<DWORD>(each.object), static_cast<DWORD>(each.child),
                                      of.put(), &child);
            const wchar_t* const name = each.event == EVENT_OBJECT_FOCUS         ? L"focus "
                                        : each.event == EVENT_OBJECT_SELECTION   ? L"selection "
                                        : each.event == EVENT_OBJECT_VALUECHANGE ? L"value "
                                        : each.event == EVENT_OBJECT_STATECHANGE ? L"state "
                                        : each.event == EVENT_OBJECT_REORDER     ? L"structure "
                                        : each.event == EVENT_OBJECT_INVOKED     ? L"invoked "
                                                                                 : L"";
            BSTR text = nullptr;
            if (*name && of) of->get_accName(child, &text);
            if (*name) all += (all.empty() ? L"" : L"; ") + (name + taken(text));
        }
        return all;
    }

private:
    struct Heard {
        DWORD event;
        HWND window;
        LONG object, child;
    };
    static void CALLBACK hear(HWINEVENTHOOK, DWORD event, HWND window, LONG object, LONG child, DWORD,
                              DWORD) {
        heard.push_back({event, window, object, child});
    }
    static inline std::vector<Heard> heard;
    HWINEVENTHOOK hook_;
};

class ReadTabs : public PersonAtControl {
protected:
    ReadTabs() : PersonAtControl(L"PageTab", {10, 10, 330, 36}) {
        object().put(L"ActiveTabs", L"Home,&Help,Video");
        object().put(L"ActiveTab", 1L);
        hosted.loop.pumpPending();
        takeEvents();
    }
};

TEST_F(ReadTabs, AreFoundUsedAndHeard) {
    const ComPtr<IAccessible> strip = accessibleOf(face());
    ASSERT_TRUE(strip);
    LONG count = 0;
    EXPECT_EQ(strip->get_accChildCount(&count), S_OK);
    EXPECT_EQ(count, 3);
    EXPECT_EQ(roleOf(strip), ROLE_SYSTEM_PAGETABLIST);
    EXPECT_EQ(nameOf(strip, 2), L"Help");
    EXPECT_EQ(roleOf(strip, 2), ROLE_SYSTEM_PAGETAB);
    EXPECT_TRUE(stateOf(strip, 1) & STATE_SYSTEM_SELECTED);
    EXPECT_EQ(stateOf(strip, 4), -1);
    const ComPtr<IAccessible> video = childOf(strip, 3);
    ASSERT_TRUE(video);
    EXPECT_EQ(nameOf(video), L"Video");
    LONG left = 0, top = 0, width = 0, height = 0;
    EXPECT_EQ(video->accLocation(&left, &top, &width, &height, childNumber(0)), S_OK);
    VARIANT hit{};
    EXPECT_EQ(strip->accHitTest(left + width / 2, top + height / 2, &hit), S_OK);
    ASSERT_EQ(hit.vt, VT_DISPATCH);
    hit.pdispVal->Release();
    BSTR keys = nullptr;
    strip->get_accKeyboardShortcut(childNumber(2), &keys);
    EXPECT_EQ(taken(keys), L"Alt+H");
    VARIANT next{};
    EXPECT_EQ(strip->accNavigate(NAVDIR_NEXT, childNumber(1), &next), S_OK);
    ASSERT_EQ(next.vt, VT_DISPATCH);
    next.pdispVal->Release();
    EXPECT_EQ(video->accDoDefaultAction(childNumber(0)), S_OK);
    EXPECT_EQ(takeEvents(), L"Click Show");
    EXPECT_TRUE(stateOf(video) & STATE_SYSTEM_SELECTED);

    const EventHook hook;
    person.click(face(), 3, 3);
    ASSERT_TRUE(person.waitFor([&] { return GetFocus() == face(); }));
    hosted.loop.pumpPending();
    EventHook::take(face());
    person.key(VK_RIGHT);
    std::wstring told;
    person.waitFor([&] { return !(told += EventHook::take(face())).empty(); });
    EXPECT_EQ(told, L"selection Help; focus Help");
    EXPECT_TRUE(stateOf(strip, 2) & STATE_SYSTEM_FOCUSED);
    GUITHREADINFO gui{};
    gui.cbSize = sizeof gui;
    ASSERT_TRUE(GetGUIThreadInfo(GetCurrentThreadId(), &gui));
    EXPECT_EQ(gui.hwndCaret, face()) << "for magnifiers";
    strip->accLocation(&left, &top, &width, &height, childNumber(2));
    POINT at{left, top};
    ScreenToClient(face(), &at);
    EXPECT_EQ(gui.rcCaret.left, at.x);
    EXPECT_EQ(strip->get_accFocus(&hit), S_OK);
    ASSERT_EQ(hit.vt, VT_DISPATCH);
    hit.pdispVal->Release();
}

// Where the system's caret is, on the screen.
POINT caretOnScreen() {
    GUITHREADINFO gui{};
    gui.cbSize = sizeof gui;
    GetGUIThreadInfo(GetCurrentThreadId(), &gui);
    POINT at{gui.rcCaret.left, gui.rcCaret.top};
    ClientToScreen(gui.hwndCaret, &at);
    return at;
}

TEST(Magnifiers, FollowTheFocusThatAPanelDraws) {
    for (const wchar_t* const name : {L"ButtonPalette", L"DateCalendar"}) {
        SCOPED_TRACE(toUtf8(win32::fromWide(name)));
        testing_support::HostedControl hosted(name);
        hosted.activate({10, 10, 150, 34});
        Person person(hosted.loop, hosted.window.handle());
        const EventHook hook;
        SetFocus(hosted.site.window());
        hosted.loop.pumpPending();
        hosted.object().put(L"Text", L"Tue 10 Nov 2026");
        hosted.loop.pumpPending();
        const POINT before = caretOnScreen();
        hosted.object().call(L"ShowPopUp");
        ASSERT_TRUE(openPanel());
        const auto panel = accessibleOf(openPanel());
        person.key(VK_RIGHT);
        std::wstring told;
        ASSERT_TRUE(person.waitFor(
            [&] { return (told += EventHook::take(openPanel())).find(L"focus") != std::wstring::npos; }));
        hosted.loop.pumpPending();
        VARIANT focus{};
        ASSERT_EQ(panel->get_accFocus(&focus), S_OK);
        ASSERT_EQ(focus.vt, VT_DISPATCH);
        ComPtr<IAccessible> marked;
        focus.pdispVal->QueryInterface(IID_IAccessible, reinterpret_cast<void**>(marked.put()));
        focus.pdispVal->Release();
        LONG left = 0, top = 0, width = 0, height = 0;
        EXPECT_EQ(marked->accLocation(&left, &top, &width, &height, childNumber(CHILDID_SELF)), S_OK);
        const POINT at = caretOnScreen();
        EXPECT_EQ(at.x, left);
        EXPECT_EQ(at.y, top);
        EventHook::take();
        hosted.object().call(L"HidePopUp");
        hosted.loop.pumpPending();
        EXPECT_NE(EventHook::take(GetFocus()).find(L"focus"), std::wstring::npos) << "readers come back, too";
        EXPECT_EQ(caretOnScreen().x, before.x) << "in the field again";
        EXPECT_EQ(caretOnScreen().y, before.y);
    }
}

class ReadField : public PersonAtControl {
protected:
    ReadField() : PersonAtControl(L"UpDownTextBox", {100, 10, 180, 34}) {}
    static HWND make(const wchar_t* text, DWORD style, HWND parent) {
        return CreateWindowExW(0, L"STATIC", text, WS_CHILD | style, 0, 0, 90, 24, parent, nullptr, nullptr,
                               nullptr);
    }
    static void putAfter(HWND window, HWND label) {
        SetWindowPos(window, label, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    }
};

TEST_F(ReadField, IsCalledAsTheLabelBeforeIt) {
    const HWND form = GetParent(face());
    const HWND label = make(L"R&&D &costs:", WS_VISIBLE, form);
    putAfter(face(), label);
    EXPECT_EQ(nameOf(accessibleOf(face())), L"R&D costs");
    BSTR keys = nullptr;
    accessibleOf(face())->get_accKeyboardShortcut(childNumber(CHILDID_SELF), &keys);
    EXPECT_EQ(taken(keys), L"Alt+C");
    SetWindowTextW(label, L"R&D");
    SetWindowLongPtrW(label, GWL_STYLE, GetWindowLongPtrW(label, GWL_STYLE) | SS_NOPREFIX);
    EXPECT_EQ(nameOf(accessibleOf(face())), L"R&D");
    const HWND hidden = make(L"Not seen", 0, form);
    putAfter(hidden, label);
    putAfter(face(), hidden);
    EXPECT_EQ(nameOf(accessibleOf(face())), L"R&D");
    // A host that gives each control a window of its own to stand in.
    const HWND around = make(L"", WS_VISIBLE, form);
    putAfter(around, hidden);
    SetParent(face(), around);
    RECT own{};
    GetClientRect(face(), &own);
    SetWindowPos(around, nullptr, 0, 0, own.right, own.bottom, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    EXPECT_EQ(nameOf(accessibleOf(face())), L"R&D");
    SetParent(face(), form);
}

TEST_F(ReadField, TakesNoFocusWhileItIsDisabled) {
    const auto field = accessibleOf(face());
    EXPECT_EQ(field->accSelect(SELFLAG_TAKEFOCUS, childNumber(CHILDID_SELF)), S_OK);
    EXPECT_TRUE(IsChild(face(), GetFocus()));
    SetFocus(GetParent(face()));
    object().put(L"Enabled", false);
    EXPECT_EQ(field->accSelect(SELFLAG_TAKEFOCUS, childNumber(CHILDID_SELF)), S_FALSE);
    EXPECT_EQ(GetFocus(), GetParent(face()));
    object().put(L"Enabled", true);
    EnableWindow(face(), FALSE);
    EXPECT_EQ(stateOf(field) & (STATE_SYSTEM_FOCUSABLE | STATE_SYSTEM_UNAVAILABLE), STATE_SYSTEM_UNAVAILABLE);
    EXPECT_EQ(childOf(field, 1)->accDoDefaultAction(childNumber(CHILDID_SELF)), S_FALSE);
    EnableWindow(face(), TRUE);
    EXPECT_EQ(stateOf(field) & (STATE_SYSTEM_FOCUSABLE | STATE_SYSTEM_UNAVAILABLE), STATE_SYSTEM_FOCUSABLE);
}

// Does the default action of the first thing of each kind, a role with what its action is called. Before each
// `prepare` is run; what is told afterwards comes from `takeNews`.
class ActionWalk {
public:
    ActionWalk(std::function<void()> prepare, std::function<std::wstring()> takeNews)
        : prepare_(std::move(prepare)), takeNews_(std::move(takeNews)) {}

    void visit(const ComPtr<IAccessible>& thing) {
        act(thing);
        LONG count = 0;
        thing->get_accChildCount(&count);
        for (LONG number = 1; number <= count; ++number) {
            const ComPtr<IAccessible> child = childOf(thing, number);
            // A window in it is the system's to describe.
            if (child && roleOf(child) != ROLE_SYSTEM_WINDOW) visit(child);
        }
    }
    std::wstring kinds() const {
        std::wstring all;
        for (const std::wstring& kind : kinds_) all += (all.empty() ? L"" : L", ") + kind;
        return all;
    }

private:
    void act(const ComPtr<IAccessible>& thing) {
        BSTR action = nullptr;
        thing->get_accDefaultAction(childNumber(CHILDID_SELF), &action);
        const std::wstring does = taken(action);
        // The system's own choice of colours would wait for an answer.
        if (does.empty() || nameOf(thing) == asksTheSystem) return;
        std::array<wchar_t, 64> role{};
        GetRoleTextW(static_cast<DWORD>(roleOf(thing)), role.data(), static_cast<UINT>(role.size()));
        const std::wstring kind = does + L" a " + role.data();
        if (!kinds_.insert(kind).second) return;
        SCOPED_TRACE(toUtf8(win32::fromWide(kind)));
        prepare_();
        takeNews_();
        EXPECT_EQ(thing->accDoDefaultAction(childNumber(CHILDID_SELF)), S_OK);
        EXPECT_NE(takeNews_(), L"") << "nobody hears of it";
    }

    static constexpr const wchar_t* asksTheSystem = L"More colors";

    std::set<std::wstring> kinds_;
    std::function<void()> prepare_;
    std::function<std::wstring()> takeNews_;
};

TEST(ReadActions, AreDoneForEachKindOfThing) {
    struct Case {
        const wchar_t* control;
        std::function<void(const container::Dispatch&)> fill;
        const wchar_t* kinds;
        const wchar_t* inPanel;
    };
    const Case cases[] = {
        {L"UpDownTextBox", [](const auto& it) { it.put(L"Interval", 1.0); }, L"Press a push button", L""},
        {L"DateCalendar", [](const auto& it) { it.put(L"Text", L"Tue 10 Nov 2026"); },
         L"Open a combo box, Press a push button",
         L"Open a combo box, Press a list item, Press a push button"},
        {L"ButtonPalette", [](const auto&) {}, L"Press a split button", L"Press a list item"},
        {L"PageTab", [](const auto& it) { it.put(L"ActiveTabs", L"Home,&Help,Video"); }, L"Switch a page tab",
         L""},
        {L"GridEdit",
         [](const auto& it) {
             it.call(L"RowsSet", {100L});
             it.call(L"ColTypeSet", {0L, 3L});
         },
         L"Check a cell, Press a cell, Press a column header, Press a push button, Select a row", L""},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(toUtf8(win32::fromWide(each.control)));
        testing_support::HostedControl hosted(each.control);
        hosted.activate({10, 10, 330, 200});
        each.fill(hosted.object());
        const Person person(hosted.loop, hosted.window.handle());
        const EventHook hook;
        const auto news = [&] {
            hosted.loop.pumpPending();
            return hosted.takeEvents() + EventHook::take();
        };
        const auto close = [&] {
            if (openPanel()) hosted.object().call(L"HidePopUp");
        };
        ActionWalk walk(close, news);
        walk.visit(accessibleOf(hosted.site.window()));
        EXPECT_EQ(walk.kinds(), each.kinds);
        close();
        hosted.object().call(L"ShowPopUp");
        ActionWalk panelWalk(
            [&] {
                if (!openPanel()) hosted.object().call(L"ShowPopUp");
                hosted.loop.pumpPending();
            },
            news);
        if (const HWND panel = openPanel()) panelWalk.visit(accessibleOf(panel));
        EXPECT_EQ(panelWalk.kinds(), each.inPanel);
    }
}

// Every control made here, so that what lies behind its window can be looked at.
class Automation : public testing::Test {
protected:
    void place(const char16_t* name) {
        control = library().control(name)->create(driver.platform());
        control->initNew();
        ASSERT_TRUE(control->activate(driver.host(), {0, 0, 300, 150}));
    }
    ComPtr<IRawElementProviderSimple> provider() {
        return providerOf(reinterpret_cast<HWND>(control->window()));
    }
    static ComPtr<IRawElementProviderSimple> providerOf(HWND face) {
        auto* const window = reinterpret_cast<win32::ClientWindow*>(GetWindowLongPtrW(face, GWLP_USERDATA));
        const auto surface = std::static_pointer_cast<win32::SurfaceWindow>(window->shared_from_this());
        AccessibleId all;
        surface->withTree([&](const AccessibleTree& tree) { all = tree.root(); });
        return win32::createProvider(surface, all);
    }
    template <typename Pattern>
    static ComPtr<Pattern> pattern(const ComPtr<IRawElementProviderSimple>& of, PATTERNID id) {
        ComPtr<IUnknown> found;
        ComPtr<Pattern> typed;
        if (of && of->GetPatternProvider(id, found.put()) == S_OK && found)
            found->QueryInterface(__uuidof(Pattern), typed.putVoid());
        return typed;
    }
    static std::wstring text(const ComPtr<IRawElementProviderSimple>& of, PROPERTYID id) {
        VARIANT value{};
        of->GetPropertyValue(id, &value);
        return value.vt == VT_BSTR ? taken(value.bstrVal) : L"";
    }
    static long number(const ComPtr<IRawElementProviderSimple>& of, PROPERTYID id) {
        VARIANT value{};
        of->GetPropertyValue(id, &value);
        return value.vt == VT_I4 ? value.lVal : value.vt == VT_BOOL ? value.boolVal != 0 : -1;
    }
    static ComPtr<IRawElementProviderSimple> go(const ComPtr<IRawElementProviderSimple>& from,
                                                NavigateDirection to) {
        ComPtr<IRawElementProviderFragment> fragment, found;
        ComPtr<IRawElementProviderSimple> simple;
        from->QueryInterface(__uuidof(IRawElementProviderFragment), fragment.putVoid());
        if (fragment->Navigate(to, found.put()) == S_OK && found)
            found->QueryInterface(__uuidof(IRawElementProviderSimple), simple.putVoid());
        return simple;
    }
    // Of what the system describes by its window; null for all else.
    static HWND handleOf(const ComPtr<IRawElementProviderSimple>& of) {
        ComPtr<IRawElementProviderSimple> host;
        VARIANT value{};
        if (!of || of->get_HostRawElementProvider(host.put()) != S_OK || !host) return nullptr;
        host->GetPropertyValue(UIA_NativeWindowHandlePropertyId, &value);
        return value.vt == VT_I4 ? reinterpret_cast<HWND>(static_cast<INT_PTR>(value.lVal)) : nullptr;
    }
    void call(TextView name, std::vector<Value> arguments = {}) {
        Value result;
        callMethod(*control, *control->table().member(name), arguments, result);
    }

    WindowDriver driver;
    std::shared_ptr<Control> control;
};

TEST_F(Automation, HasTheGridsCellsWithAllThatCanBeDoneToThem) {
    place(u"GridEdit");
    call(u"ColsSet", {int32_t{2}});
    call(u"RowsSet", {int32_t{1000}});
    call(u"BarHeaderCaptionSet", {int32_t{0}, Text(u"City")});
    call(u"ColTypeSet", {int32_t{1}, int32_t{3}});
    const auto grid = provider();
    EXPECT_EQ(number(grid, UIA_ControlTypePropertyId), 50028);
    const auto cells = pattern<win32::IGridProvider>(grid, UIA_GridPatternId);
    ASSERT_TRUE(cells);
    int count = 0;
    EXPECT_EQ(cells->get_RowCount(&count), S_OK);
    EXPECT_EQ(count, 1000);
    ComPtr<IRawElementProviderSimple> cell, check, none;
    EXPECT_EQ(cells->GetItem(2, 0, cell.put()), S_OK);
    EXPECT_EQ(cells->GetItem(2, 1, check.put()), S_OK);
    EXPECT_EQ(cells->GetItem(1000, 1, none.put()), E_INVALIDARG);
    EXPECT_EQ(text(cell, UIA_NamePropertyId), L"City, row 3");
    const auto value = pattern<win32::IValueProvider>(cell, UIA_ValuePatternId);
    ASSERT_TRUE(value);
    EXPECT_EQ(value->SetValue(L"Paris"), S_OK);
    BSTR held = nullptr;
    EXPECT_EQ(value->get_Value(&held), S_OK);
    EXPECT_EQ(taken(held), L"Paris");
    const auto mark = pattern<win32::IToggleProvider>(check, UIA_TogglePatternId);
    ASSERT_TRUE(mark);
    win32::ToggleState on = win32::ToggleState::off;
    EXPECT_EQ(mark->Toggle(), S_OK);
    EXPECT_EQ(mark->get_ToggleState(&on), S_OK);
    EXPECT_EQ(on, win32::ToggleState::on);
    EXPECT_FALSE(pattern<win32::IToggleProvider>(cell, UIA_TogglePatternId));
    const auto item = pattern<win32::IGridItemProvider>(check, UIA_GridItemPatternId);
    ASSERT_TRUE(item);
    EXPECT_EQ(item->get_Row(&count), S_OK);
    EXPECT_EQ(count, 2);
    const auto headed = pattern<win32::ITableItemProvider>(cell, UIA_TableItemPatternId);
    ASSERT_TRUE(headed);
    SAFEARRAY* headers = nullptr;
    EXPECT_EQ(headed->GetColumnHeaderItems(&headers), S_OK);
    ASSERT_EQ(headers->rgsabound[0].cElements, 1u);
    SafeArrayDestroy(headers);
    const auto scroll = pattern<win32::IScrollProvider>(grid, UIA_ScrollPatternId);
    ASSERT_TRUE(scroll);
    double at = -1;
    EXPECT_EQ(scroll->SetScrollPercent(-1, 100), S_OK);
    EXPECT_EQ(scroll->get_VerticalScrollPercent(&at), S_OK);
    EXPECT_GT(at, 99);
    const auto step = [&](win32::ScrollAmount by) {
        const double before = at;
        EXPECT_EQ(scroll->Scroll(win32::ScrollAmount::noAmount, by), S_OK);
        scroll->get_VerticalScrollPercent(&at);
        return at - before;
    };
    const double back = step(win32::ScrollAmount::smallDecrement);
    EXPECT_LT(back, 0);
    EXPECT_LT(step(win32::ScrollAmount::largeDecrement), back);
    EXPECT_GT(step(win32::ScrollAmount::smallIncrement), 0);
    EXPECT_EQ(scroll->SetScrollPercent(-1, 100), S_OK);
    EXPECT_EQ(number(cell, UIA_IsOffscreenPropertyId), 1);
    EXPECT_EQ(pattern<win32::IScrollItemProvider>(cell, UIA_ScrollItemPatternId)->ScrollIntoView(), S_OK);
    EXPECT_EQ(number(cell, UIA_IsOffscreenPropertyId), 0);
    const auto row = go(cell, NavigateDirection_Parent);
    EXPECT_EQ(text(row, UIA_NamePropertyId), L"row 3");
    EXPECT_EQ(text(go(row, NavigateDirection_NextSibling), UIA_NamePropertyId), L"row 4");
    EXPECT_EQ(text(go(cell, NavigateDirection_NextSibling), UIA_NamePropertyId), L"column 2, row 3");
    const auto chosen = pattern<win32::ISelectionItemProvider>(cell, UIA_SelectionItemPatternId);
    ASSERT_TRUE(chosen);
    EXPECT_EQ(chosen->Select(), S_OK);
    SAFEARRAY* selected = nullptr;
    EXPECT_EQ(pattern<win32::ISelectionProvider>(grid, UIA_SelectionPatternId)->GetSelection(&selected),
              S_OK);
    EXPECT_EQ(selected->rgsabound[0].cElements, 1u);
    SafeArrayDestroy(selected);
    const auto face = accessibleOf(reinterpret_cast<HWND>(control->window()));
    const auto corner = childOf(childOf(face, 4), 2);
    EXPECT_EQ(corner->accSelect(SELFLAG_EXTENDSELECTION, childNumber(CHILDID_SELF)), S_OK);
    EXPECT_EQ(pattern<win32::ISelectionProvider>(grid, UIA_SelectionPatternId)->GetSelection(&selected),
              S_OK);
    EXPECT_EQ(selected->rgsabound[0].cElements, 4u);
    SafeArrayDestroy(selected);

    call(u"RowsSet", {int32_t{0}});
    EXPECT_EQ(cells->get_RowCount(&count), S_OK);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(cells->GetItem(0, 0, none.put()), E_INVALIDARG);
    EXPECT_EQ(pattern<win32::ISelectionProvider>(grid, UIA_SelectionPatternId)->GetSelection(&selected),
              S_OK);
    EXPECT_EQ(selected->rgsabound[0].cElements, 0u);
    SafeArrayDestroy(selected);
    scroll->get_VerticalScrollPercent(&at);
    EXPECT_EQ(at, -1) << "nothing to scroll";
    call(u"RowsSet", {int32_t{1}});
    constexpr auto notAvailable = static_cast<HRESULT>(0x80040201);
    EXPECT_EQ(chosen->Select(), notAvailable) << "its row is gone";
}

// Wine's client has no use for such a provider, so this asks as Windows does.
TEST_F(Automation, HasAnOpenEditorInItsCell) {
    place(u"GridEdit");
    call(u"RowsSet", {int32_t{4}});
    control->focus();
    call(u"GridSetFocus", {int32_t{1}, int32_t{2}});
    const auto grid = provider();
    ComPtr<win32::IHwndOverride> places;
    ASSERT_EQ(grid->QueryInterface(__uuidof(win32::IHwndOverride), places.putVoid()), S_OK);
    const HWND face = reinterpret_cast<HWND>(control->window());
    SendMessageW(face, WM_GETOBJECT, 0, win32::automationRoot);  // as clients begin
    ComPtr<IRawElementProviderSimple> editor, host;
    EXPECT_EQ(places->GetOverrideProviderForHwnd(face, editor.put()), S_OK);
    EXPECT_FALSE(editor) << "no editor";
    driver.key(key::f2);
    ASSERT_TRUE(pumpUntil([&] { return IsChild(face, GetFocus()); }));
    const HWND open = GetFocus();
    ASSERT_EQ(places->GetOverrideProviderForHwnd(open, editor.put()), S_OK);
    ASSERT_TRUE(editor);
    const auto cell = go(editor, NavigateDirection_Parent);
    ASSERT_TRUE(cell);
    EXPECT_EQ(text(cell, UIA_NamePropertyId), L"column 2, row 3");
    for (auto child = go(grid, NavigateDirection_FirstChild); child;
         child = go(child, NavigateDirection_NextSibling))
        EXPECT_EQ(handleOf(child), nullptr) << "not among the rows, too";
    EXPECT_EQ(handleOf(go(cell, NavigateDirection_FirstChild)), open);
    // The window itself says what it is and can.
    EXPECT_EQ(number(editor, UIA_ControlTypePropertyId), -1);
    EXPECT_FALSE(pattern<win32::IValueProvider>(editor, UIA_ValuePatternId));
    ProviderOptions options{};
    EXPECT_EQ(editor->get_ProviderOptions(&options), S_OK);
    EXPECT_TRUE(options & ProviderOptions_OverrideProvider);
    EXPECT_EQ(grid->get_ProviderOptions(&options), S_OK);
    EXPECT_FALSE(options & ProviderOptions_OverrideProvider);
    call(u"BoxHide");
    EXPECT_EQ(places->GetOverrideProviderForHwnd(open, host.put()), S_OK);
    EXPECT_FALSE(host) << "closed";
    control->deactivate();

    place(u"UpDownTextBox");
    const auto spinner = provider();
    ASSERT_EQ(spinner->QueryInterface(__uuidof(win32::IHwndOverride), places.putVoid()), S_OK);
    const HWND edit = GetWindow(reinterpret_cast<HWND>(control->window()), GW_CHILD);
    EXPECT_EQ(places->GetOverrideProviderForHwnd(edit, host.put()), S_OK);
    EXPECT_FALSE(host) << "it is where it belongs";
    control->deactivate();
}

TEST_F(Automation, AnswersWithAnErrorWhatItDoesNotDo) {
    constexpr auto invalidOperation = static_cast<HRESULT>(0x80131509);
    place(u"GridEdit");
    call(u"RowsSet", {int32_t{3}});
    const auto scroll = pattern<win32::IScrollProvider>(provider(), UIA_ScrollPatternId);
    EXPECT_EQ(scroll->SetScrollPercent(-1, 50), invalidOperation) << "all rows are in sight";
    EXPECT_EQ(scroll->SetScrollPercent(-2, 50), E_INVALIDARG);
    EXPECT_EQ(scroll->Scroll(win32::ScrollAmount::noAmount, win32::ScrollAmount::smallIncrement),
              invalidOperation);
    control->deactivate();

    place(u"PageTab");
    const auto selection = pattern<win32::ISelectionProvider>(provider(), UIA_SelectionPatternId);
    BOOL required = TRUE;
    EXPECT_EQ(selection->get_IsSelectionRequired(&required), S_OK);
    EXPECT_FALSE(required) << "there are no tabs";
    putProperty(*control, *control->table().member(u"ActiveTabs"), Text(u"Home,Help"));
    EXPECT_EQ(selection->get_IsSelectionRequired(&required), S_OK);
    EXPECT_TRUE(required);
    const auto first = go(provider(), NavigateDirection_FirstChild);
    const auto tab = pattern<win32::ISelectionItemProvider>(first, UIA_SelectionItemPatternId);
    EXPECT_EQ(tab->Select(), S_OK);
    EXPECT_EQ(tab->AddToSelection(), S_OK) << "it is selected";
    EXPECT_EQ(pattern<win32::ISelectionItemProvider>(go(first, NavigateDirection_NextSibling),
                                                     UIA_SelectionItemPatternId)
                  ->AddToSelection(),
              invalidOperation);
    control->deactivate();
}

TEST_F(Automation, SaysOfEverythingThatItIsGone) {
    place(u"GridEdit");
    const auto grid = provider();
    const auto read = accessibleOf(reinterpret_cast<HWND>(control->window()));
    control->deactivate();
    ComPtr<IUnknown> pattern;
    ComPtr<IRawElementProviderSimple> cell;
    ComPtr<IRawElementProviderFragment> part;
    ComPtr<IRawElementProviderFragmentRoot> root;
    VARIANT value{};
    SAFEARRAY* array = nullptr;
    UiaRect place{};
    int number = 0;
    BOOL is = FALSE;
    double real = 0;
    BSTR text = nullptr;
    std::vector<HRESULT> answers{grid->GetPatternProvider(UIA_GridPatternId, pattern.put()),
                                 grid->GetPropertyValue(UIA_NamePropertyId, &value),
                                 grid->get_HostRawElementProvider(cell.put())};
    const auto of = [&]<typename Interface>(Interface*, const auto& ask) {
        ComPtr<Interface> found;
        ASSERT_EQ(grid->QueryInterface(__uuidof(Interface), found.putVoid()), S_OK);
        const auto more = ask(*found.get());
        answers.insert(answers.end(), more.begin(), more.end());
    };
    using Answers = std::vector<HRESULT>;
    using namespace win32;
    of(static_cast<IRawElementProviderFragment*>(nullptr), [&](auto& it) -> Answers {
        return {it.Navigate(NavigateDirection_FirstChild, part.put()),
                it.GetRuntimeId(&array),
                it.get_BoundingRectangle(&place),
                it.GetEmbeddedFragmentRoots(&array),
                it.SetFocus(),
                it.get_FragmentRoot(root.put())};
    });
    of(static_cast<IRawElementProviderFragmentRoot*>(nullptr), [&](auto& it) -> Answers {
        return {it.ElementProviderFromPoint(1, 1, part.put()), it.GetFocus(part.put())};
    });
    of(static_cast<IInvokeProvider*>(nullptr), [&](auto& it) -> Answers { return {it.Invoke()}; });
    of(static_cast<IToggleProvider*>(nullptr), [&](auto& it) -> Answers {
        ToggleState state{};
        return {it.Toggle(), it.get_ToggleState(&state)};
    });
    of(static_cast<IExpandCollapseProvider*>(nullptr), [&](auto& it) -> Answers {
        ExpandCollapseState state{};
        return {it.Expand(), it.Collapse(), it.get_ExpandCollapseState(&state)};
    });
    of(static_cast<IValueProvider*>(nullptr), [&](auto& it) -> Answers {
        return {it.SetValue(L"x"), it.get_Value(&text), it.get_IsReadOnly(&is)};
    });
    of(static_cast<IRangeValueProvider*>(nullptr), [&](auto& it) -> Answers {
        return {it.SetValue(1.0),         it.get_Value(&real),   it.get_IsReadOnly(&is),
                it.get_Maximum(&real),    it.get_Minimum(&real), it.get_LargeChange(&real),
                it.get_SmallChange(&real)};
    });
    of(static_cast<ISelectionProvider*>(nullptr), [&](auto& it) -> Answers {
        return {it.GetSelection(&array), it.get_CanSelectMultiple(&is), it.get_IsSelectionRequired(&is)};
    });
    of(static_cast<ISelectionItemProvider*>(nullptr), [&](auto& it) -> Answers {
        return {it.Select(), it.AddToSelection(), it.RemoveFromSelection(), it.get_IsSelected(&is),
                it.get_SelectionContainer(cell.put())};
    });
    of(static_cast<IScrollProvider*>(nullptr), [&](auto& it) -> Answers {
        return {it.Scroll(ScrollAmount::noAmount, ScrollAmount::noAmount),
                it.SetScrollPercent(0, 0),
                it.get_HorizontalScrollPercent(&real),
                it.get_VerticalScrollPercent(&real),
                it.get_HorizontalViewSize(&real),
                it.get_VerticalViewSize(&real),
                it.get_HorizontallyScrollable(&is),
                it.get_VerticallyScrollable(&is)};
    });
    of(static_cast<IScrollItemProvider*>(nullptr),
       [&](auto& it) -> Answers { return {it.ScrollIntoView()}; });
    of(static_cast<IGridProvider*>(nullptr), [&](auto& it) -> Answers {
        return {it.GetItem(0, 0, cell.put()), it.get_RowCount(&number), it.get_ColumnCount(&number)};
    });
    of(static_cast<IGridItemProvider*>(nullptr), [&](auto& it) -> Answers {
        return {it.get_Row(&number), it.get_Column(&number), it.get_RowSpan(&number),
                it.get_ColumnSpan(&number), it.get_ContainingGrid(cell.put())};
    });
    of(static_cast<ITableProvider*>(nullptr), [&](auto& it) -> Answers {
        RowOrColumnMajor major{};
        return {it.GetRowHeaders(&array), it.GetColumnHeaders(&array), it.get_RowOrColumnMajor(&major)};
    });
    of(static_cast<ITableItemProvider*>(nullptr), [&](auto& it) -> Answers {
        return {it.GetRowHeaderItems(&array), it.GetColumnHeaderItems(&array)};
    });
    constexpr auto notAvailable = static_cast<HRESULT>(0x80040201);
    EXPECT_EQ(answers, Answers(answers.size(), notAvailable));

    const VARIANT self = childNumber(CHILDID_SELF);
    ComPtr<IDispatch> dispatch;
    LONG left = 0, top = 0, width = 0, height = 0;
    const Answers old{read->get_accParent(dispatch.put()),
                      read->get_accChildCount(&left),
                      read->get_accChild(self, dispatch.put()),
                      read->get_accName(self, &text),
                      read->get_accValue(self, &text),
                      read->get_accDescription(self, &text),
                      read->get_accRole(self, &value),
                      read->get_accState(self, &value),
                      read->get_accHelp(self, &text),
                      read->get_accHelpTopic(&text, self, &left),
                      read->get_accKeyboardShortcut(self, &text),
                      read->get_accFocus(&value),
                      read->get_accSelection(&value),
                      read->get_accDefaultAction(self, &text),
                      read->accSelect(SELFLAG_TAKEFOCUS, self),
                      read->accLocation(&left, &top, &width, &height, self),
                      read->accNavigate(NAVDIR_FIRSTCHILD, self, &value),
                      read->accHitTest(1, 1, &value),
                      read->accDoDefaultAction(self),
                      read->put_accValue(self, nullptr)};
    EXPECT_EQ(old, Answers(old.size(), CO_E_OBJNOTCONNECTED));
}

TEST_F(Automation, HasThePatternsOfTheOtherControls) {
    place(u"UpDownTextBox");
    putProperty(*control, *control->table().member(u"Interval"), Value(1.0));
    putProperty(*control, *control->table().member(u"Min"), Value(2.0));
    const auto range = pattern<win32::IRangeValueProvider>(provider(), UIA_RangeValuePatternId);
    ASSERT_TRUE(range);
    double most = 0;
    EXPECT_EQ(range->get_Maximum(&most), S_OK);
    EXPECT_EQ(most, 10);
    EXPECT_EQ(range->get_Minimum(&most), S_OK);
    EXPECT_EQ(most, 2);
    EXPECT_EQ(range->get_SmallChange(&most), S_OK);
    EXPECT_EQ(most, 1);
    EXPECT_EQ(range->SetValue(4.0), S_OK);
    EXPECT_EQ(range->SetValue(11.0), E_INVALIDARG);
    EXPECT_EQ(range->get_Value(&most), S_OK);
    EXPECT_EQ(most, 4);
    const auto more = go(provider(), NavigateDirection_FirstChild);
    EXPECT_EQ(text(more, UIA_NamePropertyId), L"More");
    EXPECT_EQ(pattern<win32::IInvokeProvider>(more, UIA_InvokePatternId)->Invoke(), S_OK);
    EXPECT_EQ(range->get_Value(&most), S_OK);
    EXPECT_EQ(most, 5);
    EXPECT_EQ(text(go(provider(), NavigateDirection_LastChild), UIA_NamePropertyId), L"Less")
        << "the edit window is the system's to add";
    control->deactivate();

    place(u"DateCalendar");
    const auto drop = pattern<win32::IExpandCollapseProvider>(provider(), UIA_ExpandCollapsePatternId);
    ASSERT_TRUE(drop);
    win32::ExpandCollapseState state = win32::ExpandCollapseState::collapsed;
    EXPECT_EQ(drop->Expand(), S_OK);
    EXPECT_EQ(drop->get_ExpandCollapseState(&state), S_OK);
    EXPECT_EQ(state, win32::ExpandCollapseState::expanded);
    EXPECT_EQ(drop->Collapse(), S_OK);
    putProperty(*control, *control->table().member(u"Enabled"), Value(false));
    EXPECT_EQ(drop->Expand(), static_cast<HRESULT>(0x80040200)) << "not enabled";
    control->deactivate();
}

// The patterns of the first thing of each type, "button: Invoke", in the order of the tree.
std::wstring patternsIn(const ComPtr<IRawElementProviderSimple>& root,
                        const std::function<ComPtr<IRawElementProviderSimple>(
                            const ComPtr<IRawElementProviderSimple>&, NavigateDirection)>& go) {
    static const std::map<long, const wchar_t*> types = {
        {0, L"window"},  // which says itself what it is
        {50000, L"button"},    {50001, L"calendar"},     {50003, L"combo box"},  {50006, L"image"},
        {50007, L"list item"}, {50008, L"list"},         {50014, L"scroll bar"}, {50016, L"spinner"},
        {50018, L"tab"},       {50019, L"tab item"},     {50020, L"text"},       {50028, L"data grid"},
        {50029, L"data item"}, {50031, L"split button"}, {50026, L"group"},      {50033, L"pane"},
        {50034, L"header"},    {50035, L"header item"},  {50038, L"separator"}};
    static const std::pair<PATTERNID, const wchar_t*> patterns[] = {
        {UIA_InvokePatternId, L"Invoke"},
        {UIA_TogglePatternId, L"Toggle"},
        {UIA_ExpandCollapsePatternId, L"Expand"},
        {UIA_ValuePatternId, L"Value"},
        {UIA_RangeValuePatternId, L"Range"},
        {UIA_SelectionPatternId, L"Selection"},
        {UIA_SelectionItemPatternId, L"SelectionItem"},
        {UIA_ScrollPatternId, L"Scroll"},
        {UIA_ScrollItemPatternId, L"ScrollItem"},
        {UIA_GridPatternId, L"Grid"},
        {UIA_TablePatternId, L"Table"},
        {UIA_GridItemPatternId, L"GridItem"},
        {UIA_TableItemPatternId, L"TableItem"}};
    std::wstring all;
    std::set<std::wstring> known;
    const auto walk = [&](const auto& self, const ComPtr<IRawElementProviderSimple>& thing) -> void {
        VARIANT type{};
        thing->GetPropertyValue(UIA_ControlTypePropertyId, &type);
        const auto name = types.find(type.lVal);
        std::wstring line = name == types.end() ? L"unknown:" : name->second + std::wstring(L":");
        for (const auto& [id, called] : patterns) {
            ComPtr<IUnknown> found;
            if (thing->GetPatternProvider(id, found.put()) == S_OK && found)
                line += L" " + std::wstring(called);
        }
        if (known.insert(line).second) all += line + L"\n";
        for (auto child = go(thing, NavigateDirection_FirstChild); child;
             child = go(child, NavigateDirection_NextSibling))
            self(self, child);
    };
    walk(walk, root);
    return all;
}

TEST_F(Automation, HasThePatternsOfEachThing) {
    const struct {
        const char16_t* control;
        const wchar_t* own;
        const wchar_t* panel;
    } cases[] = {
        {u"UpDownTextBox", L"spinner: Value Range\nbutton: Invoke\n", L""},
        {u"DateCalendar", L"combo box: Expand Value\nbutton: Invoke\n",
         L"pane:\ncalendar: Selection Grid Table\nheader item:\nlist item: SelectionItem GridItem TableItem\n"
         L"combo box: Expand Value\nspinner: Value Range\nbutton: Invoke\nwindow:\ntext:\n"},
        {u"ButtonPalette", L"split button: Invoke Expand Value\n",
         L"list: Selection\nlist item: SelectionItem\nbutton: Invoke\n"},
        {u"ButtonArrow", L"image:\n", L""},
        {u"lns", L"separator:\n", L""},
        {u"PageTab", L"tab: Selection\ntab item: SelectionItem ScrollItem\n", L""},
        {u"GridEdit",
         L"data grid: Selection Scroll Grid Table\ndata item: SelectionItem ScrollItem GridItem\n"
         L"data item: Invoke Toggle SelectionItem ScrollItem GridItem TableItem\n"
         L"data item: Invoke Value SelectionItem ScrollItem GridItem TableItem\n"
         L"scroll bar: Range\nbutton: Invoke\nheader:\nheader item: Invoke\n",
         L""},
    };
    for (const auto& [name, own, inPanel] : cases) {
        SCOPED_TRACE(toUtf8(name));
        place(name);
        if (name == TextView(u"PageTab"))
            putProperty(*control, *control->table().member(u"ActiveTabs"), Text(u"Home,&Help"));
        if (name == TextView(u"GridEdit")) {
            call(u"ColTypeSet", {int32_t{0}, int32_t{3}});
            call(u"RowsSet", {int32_t{100}});
        }
        EXPECT_EQ(patternsIn(provider(), go), own);
        if (*inPanel) {
            call(u"ShowPopUp", {});
            ASSERT_TRUE(openPanel());
            EXPECT_EQ(patternsIn(providerOf(openPanel()), go), inPanel);
            call(u"HidePopUp", {});
        }
        control->deactivate();
    }
}

// The system's part of raising events, as a journal: "selected cell; focus cell".
class RaisedEvents {
public:
    RaisedEvents() : before_(win32::automationFunctions()) {
        win32::AutomationFunctions& functions = win32::automationFunctions();
        functions.listening = listening;
        functions.raiseEvent = raiseEvent;
        functions.raiseChange = raiseChange;
        functions.raiseStructure = raiseStructure;
    }
    RaisedEvents(const RaisedEvents&) = delete;
    RaisedEvents& operator=(const RaisedEvents&) = delete;
    ~RaisedEvents() { win32::automationFunctions() = before_; }

    static std::wstring take() {
        pumpAll();
        return std::exchange(raised, {});
    }

private:
    static BOOL WINAPI listening() { return TRUE; }
    static HRESULT WINAPI raiseEvent(IRawElementProviderSimple* of, EVENTID event) {
        return note(of, event == 20005   ? L"focus"
                        : event == 20009 ? L"invoked"
                        : event == 20010 ? L"added"
                        : event == 20012 ? L"selected"
                                         : L"other");
    }
    static HRESULT WINAPI raiseChange(IRawElementProviderSimple* of, PROPERTYID property, VARIANT,
                                      VARIANT now) {
        VARIANT text{};
        if (now.vt == VT_R8) VariantChangeType(&now, &now, 0, VT_I4);
        VariantChangeType(&text, &now, 0, VT_BSTR);
        return note(of,
                    property == UIA_ValueValuePropertyId                          ? L"value"
                    : property == UIA_RangeValueValuePropertyId                   ? L"number"
                    : property == UIA_ToggleToggleStatePropertyId                 ? L"toggled"
                    : property == UIA_NamePropertyId                              ? L"name"
                    : property == UIA_ValueIsReadOnlyPropertyId                   ? L"read only"
                    : property == UIA_IsEnabledPropertyId                         ? L"enabled"
                    : property == UIA_ExpandCollapseExpandCollapseStatePropertyId ? L"expanded"
                    : property == UIA_ScrollVerticalScrollPercentPropertyId       ? L"down"
                                                                                  : L"other",
                    taken(text.bstrVal));
    }
    static HRESULT WINAPI raiseStructure(IRawElementProviderSimple* of, int, int*, int) {
        return note(of, L"structure");
    }
    static HRESULT note(IRawElementProviderSimple* of, const wchar_t* what, const std::wstring& value = {}) {
        VARIANT name{};
        of->GetPropertyValue(UIA_NamePropertyId, &name);
        raised += (raised.empty() ? L"" : L"; ") + (what + (L" " + taken(name.bstrVal)));
        if (!value.empty()) raised += L" = " + value;
        return S_OK;
    }
    static inline std::wstring raised;
    const win32::AutomationFunctions before_;
};

TEST_F(Automation, IsToldOfEachChangeInItsOrder) {
    const RaisedEvents raised;
    place(u"GridEdit");
    call(u"RowsSet", {int32_t{100}});
    call(u"ColTypeSet", {int32_t{1}, int32_t{3}});
    control->focus();
    RaisedEvents::take();
    const auto cells = pattern<win32::IGridProvider>(provider(), UIA_GridPatternId);
    ComPtr<IRawElementProviderSimple> cell, check;
    cells->GetItem(3, 0, cell.put());
    cells->GetItem(3, 1, check.put());
    pattern<win32::ISelectionItemProvider>(cell, UIA_SelectionItemPatternId)->Select();
    EXPECT_EQ(RaisedEvents::take(), L"selected column 1, row 4; focus column 1, row 4");
    pattern<win32::IValueProvider>(cell, UIA_ValuePatternId)->SetValue(L"Paris");
    EXPECT_EQ(RaisedEvents::take(), L"value column 1, row 4 = Paris");
    pattern<win32::IToggleProvider>(check, UIA_TogglePatternId)->Toggle();
    EXPECT_EQ(RaisedEvents::take(),
              L"selected column 2, row 4; toggled column 2, row 4 = 1; focus column 2, row 4");
    pattern<win32::ISelectionItemProvider>(cell, UIA_SelectionItemPatternId)->AddToSelection();
    EXPECT_EQ(RaisedEvents::take(), L"added column 1, row 4");
    pattern<win32::ISelectionItemProvider>(cell, UIA_SelectionItemPatternId)->Select();
    RaisedEvents::take();
    putProperty(*control, *control->table().member(u"AllowGridEdit"), Value(false));
    EXPECT_EQ(RaisedEvents::take(), L"read only column 1, row 4 = -1");
    call(u"RowDel", {int32_t{3}});
    EXPECT_EQ(RaisedEvents::take(), L"structure GridEdit; value column 1, row 4");
    call(u"TopRowSet", {int32_t{50}});
    EXPECT_EQ(RaisedEvents::take(), L"down GridEdit = 55; structure GridEdit; number Up and down = 850");
    EXPECT_EQ(text(go(provider(), NavigateDirection_FirstChild), UIA_NamePropertyId), L"row 51");
    control->deactivate();

    place(u"UpDownTextBox");
    putProperty(*control, *control->table().member(u"Interval"), Value(1.0));
    RaisedEvents::take();
    pattern<win32::IRangeValueProvider>(provider(), UIA_RangeValuePatternId)->SetValue(4.0);
    EXPECT_EQ(RaisedEvents::take(), L"number UpDownTextBox = 4; value UpDownTextBox = 4");
    control->deactivate();
}

// The client's side of UI Automation, as far as Wine 8 has it. UiaNodeFromHandle and UiaGetPropertyValue
// answer for a window from another thread, while the window's takes messages. On that thread itself
// UiaNodeFromProvider of what has a window does not return: it waits for a helper, which sends the window
// WM_GETOBJECT. So a client of another thread asks about the window here, and one of the same thread goes
// through the things in it. UiaFind by a name fails, as it compares no texts. Rectangles and patterns are
// asked of the providers, in the tests above.
struct ClientFunctions {
    using Node = struct NodeTag*;
    enum class ConditionType : int { always, never, property };
    struct Condition {
        ConditionType type = ConditionType::always;
        PROPERTYID property = 0;
        VARIANT value{};
        int flags = 0;
    };
    struct CacheRequest {
        Condition* view;
        int scope = 1;  // the thing itself
        PROPERTYID* properties = nullptr;
        int propertyCount = 0;
        PATTERNID* patterns = nullptr;
        int patternCount = 0;
        int mode = 1;  // not only what is cached
    };
    HRESULT(WINAPI* UiaNodeFromHandle)(HWND, Node*);
    HRESULT(WINAPI* UiaNodeFromProvider)(IRawElementProviderSimple*, Node*);
    HRESULT(WINAPI* UiaGetPropertyValue)(Node, PROPERTYID, VARIANT*);
    HRESULT(WINAPI* UiaNavigate)(Node, NavigateDirection, Condition*, CacheRequest*, SAFEARRAY**, BSTR*);
    HRESULT(WINAPI* UiaGetRuntimeId)(Node, SAFEARRAY**);
    HRESULT(WINAPI* UiaHUiaNodeFromVariant)(VARIANT*, Node*);
    BOOL(WINAPI* UiaNodeRelease)(Node);

    ClientFunctions() {
        const HMODULE library = LoadLibraryW(L"uiautomationcore.dll");
        const auto find = [library](auto& function, const char* name) {
            function = reinterpret_cast<std::remove_reference_t<decltype(function)>>(
                reinterpret_cast<void*>(GetProcAddress(library, name)));
        };
        find(UiaNodeFromHandle, "UiaNodeFromHandle");
        find(UiaNodeFromProvider, "UiaNodeFromProvider");
        find(UiaGetPropertyValue, "UiaGetPropertyValue");
        find(UiaNavigate, "UiaNavigate");
        find(UiaGetRuntimeId, "UiaGetRuntimeId");
        find(UiaHUiaNodeFromVariant, "UiaHUiaNodeFromVariant");
        find(UiaNodeRelease, "UiaNodeRelease");
    }
};

// What both sides are asked about each thing.
std::wstring described(const std::function<HRESULT(PROPERTYID, VARIANT*)>& ask) {
    std::wstring all;
    for (const PROPERTYID id :
         {UIA_ControlTypePropertyId, UIA_NamePropertyId, UIA_IsEnabledPropertyId,
          UIA_IsKeyboardFocusablePropertyId, UIA_HasKeyboardFocusPropertyId, UIA_IsOffscreenPropertyId,
          UIA_HelpTextPropertyId, UIA_AccessKeyPropertyId, UIA_FrameworkIdPropertyId}) {
        VARIANT value{};
        if (ask(id, &value) != S_OK) all += L"failed";
        container::Variant owned(value);
        VariantClear(&value);
        all += owned.toText() + L"|";
    }
    return all;
}

// A client that begins on a thread of its own, as those in other processes do.
class AutomationClient {
public:
    explicit AutomationClient(HWND face)
        : window_(face), thread_(CreateThread(nullptr, 0, run, this, 0, nullptr)) {}
    AutomationClient(const AutomationClient&) = delete;
    AutomationClient& operator=(const AutomationClient&) = delete;
    ~AutomationClient() {
        WaitForSingleObject(thread_, INFINITE);
        CloseHandle(thread_);
    }

    bool done() const { return WaitForSingleObject(thread_, 0) == WAIT_OBJECT_0; }
    // A thing in the window, with all that is in it. On the thread of the window.
    void goThrough(IRawElementProviderSimple* provider) {
        Node node = nullptr;
        ASSERT_EQ(client_.UiaNodeFromProvider(provider, &node), S_OK);
        walk(node);
        client_.UiaNodeRelease(node);
    }
    std::wstring window;               // described
    std::vector<std::wstring> things;  // described, with all that is in them
    int strays = 0;                    // things that the way back does not lead to

private:
    using Node = ClientFunctions::Node;

    static DWORD WINAPI run(void* self) {
        CoInitializeEx(nullptr, COINIT_MULTITHREADED);
        static_cast<AutomationClient*>(self)->ask();
        CoUninitialize();
        return 0;
    }
    void ask() {
        Node node = nullptr;
        if (client_.UiaNodeFromHandle(window_, &node) != S_OK) return;
        window = tell(node);
        client_.UiaNodeRelease(node);
    }
    std::wstring tell(Node node) {
        return described(
            [&](PROPERTYID id, VARIANT* value) { return client_.UiaGetPropertyValue(node, id, value); });
    }
    void walk(Node node) {
        things.push_back(tell(node));
        Node before = nullptr;
        for (Node child = go(node, NavigateDirection_FirstChild); child;) {
            walk(child);
            const Node above = go(child, NavigateDirection_Parent);
            strays += !same(above, node);
            if (above) client_.UiaNodeRelease(above);
            if (before) {
                const Node back = go(child, NavigateDirection_PreviousSibling);
                strays += !same(back, before);
                if (back) client_.UiaNodeRelease(back);
                client_.UiaNodeRelease(before);
            }
            before = std::exchange(child, go(child, NavigateDirection_NextSibling));
        }
        if (before) client_.UiaNodeRelease(before);
    }
    Node go(Node from, NavigateDirection to) {
        ClientFunctions::Condition always;
        ClientFunctions::CacheRequest request{&always};
        SAFEARRAY* answer = nullptr;
        BSTR shape = nullptr;
        if (client_.UiaNavigate(from, to, &always, &request, &answer, &shape) != S_OK) return nullptr;
        SysFreeString(shape);
        return first(answer);
    }
    // The first thing of an answer, which is given up.
    Node first(SAFEARRAY* answer) {
        Node node = nullptr;
        LONG index[2] = {0, 0};
        VARIANT value{};
        if (answer && SafeArrayGetElement(answer, index, &value) == S_OK)
            client_.UiaHUiaNodeFromVariant(&value, &node);
        VariantClear(&value);
        SafeArrayDestroy(answer);
        return node;
    }
    std::vector<int> identity(Node node) {
        SAFEARRAY* numbers = nullptr;
        std::vector<int> all;
        if (!node || client_.UiaGetRuntimeId(node, &numbers) != S_OK || !numbers) return all;
        for (LONG at = 0; at < static_cast<LONG>(numbers->rgsabound[0].cElements); ++at)
            SafeArrayGetElement(numbers, &at, &all.emplace_back());
        SafeArrayDestroy(numbers);
        return all;
    }
    bool same(Node one, Node other) {
        const auto first = identity(one);
        return !first.empty() && first == identity(other);
    }

    const HWND window_;
    const ClientFunctions client_;
    const HANDLE thread_;  // begins when all else is there
};

TEST_F(Automation, AnswersTheSystemsClient) {
    // With the fewest things that there are in it.
    for (const auto& [name, least] : {std::pair(u"UpDownTextBox", 2u),
                                      {u"DateCalendar", 1u},
                                      {u"ButtonPalette", 0u},
                                      {u"GridEdit", 12u},
                                      {u"PageTab", 3u}}) {
        place(name);
        SCOPED_TRACE(toUtf8(name));
        if (name == TextView(u"PageTab"))
            putProperty(*control, *control->table().member(u"ActiveTabs"), Text(u"Home,&Help,Video"));
        if (name == TextView(u"GridEdit")) {
            call(u"RowsSet", {int32_t{4}});
            call(u"ColTypeSet", {int32_t{1}, int32_t{3}});
        }
        AutomationClient client(reinterpret_cast<HWND>(control->window()));
        ASSERT_TRUE(pumpUntil([&] { return client.done(); }));
        // The same walk by the providers.
        std::vector<std::wstring> wanted;
        const auto ask = [](const ComPtr<IRawElementProviderSimple>& thing) {
            return described(
                [&](PROPERTYID id, VARIANT* value) { return thing->GetPropertyValue(id, value); });
        };
        const auto walk = [&](const auto& self, const ComPtr<IRawElementProviderSimple>& thing) -> void {
            wanted.push_back(ask(thing));
            for (auto child = go(thing, NavigateDirection_FirstChild); child;
                 child = go(child, NavigateDirection_NextSibling))
                self(self, child);
        };
        for (auto part = go(provider(), NavigateDirection_FirstChild); part;
             part = go(part, NavigateDirection_NextSibling)) {
            client.goThrough(part.get());
            walk(walk, part);
        }
        EXPECT_EQ(client.window, ask(provider()));
        EXPECT_EQ(client.things, wanted);
        EXPECT_GE(wanted.size(), least);
        EXPECT_EQ(client.strays, 0);
        control->deactivate();
    }
}

TEST_F(Automation, LeavesNothingOfTenThousandProviders) {
    place(u"GridEdit");
    call(u"RowsSet", {int32_t{10'000}});
    const auto grid = provider();
    const auto cells = pattern<win32::IGridProvider>(grid, UIA_GridPatternId);
    expectNothingIsLeft([&] {
        std::vector<ComPtr<IRawElementProviderSimple>> kept(10'000);
        int32_t row = 0;
        for (auto& each : kept) EXPECT_EQ(cells->GetItem(row++, 1, each.put()), S_OK);
        for (auto& each : kept) {
            EXPECT_EQ(each->AddRef(), 2u);
            EXPECT_EQ(each->Release(), 1u);
        }
    });
}

}  // namespace
}  // namespace obk
