// What screen readers get of controls in real windows: by the older interface and its events, and by the
// providers of UI Automation.
#include "container/text.h"
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
#include "resource_count.h"
#include "server_support.h"
#include "widgets/accessible_tree.h"
#include "window_driver_support.h"

#include <gtest/gtest.h>

#include <oleacc.h>
#include <uiautomationclient.h>

#include <array>
#include <future>
#include <map>
#include <set>

namespace obk {
namespace {

using namespace testing_support;
using namespace win32;

using Provider = ComPtr<IRawElementProviderSimple>;
using Names = std::vector<std::wstring>;

constexpr auto notEnabled = static_cast<HRESULT>(0x80040200), notAvailable = static_cast<HRESULT>(0x80040201),
               invalidOperation = static_cast<HRESULT>(0x80131509);

VARIANT childNumber(LONG number = CHILDID_SELF) {
    return container::Variant(number).detach();
}

ComPtr<IAccessible> accessibleOf(HWND window) {
    ComPtr<IAccessible> found;
    AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), IID_IAccessible, found.putVoid());
    return found;
}

ComPtr<IAccessible> objectIn(const container::Variant& answer) {
    return query<IAccessible>(answer.toObject().get());
}

ComPtr<IAccessible> childOf(const ComPtr<IAccessible>& parent, LONG number) {
    ComPtr<IDispatch> child;
    if (parent) parent->get_accChild(childNumber(number), child.put());
    return child.query<IAccessible>();
}

std::wstring textOf(const ComPtr<IAccessible>& of,
                    HRESULT (STDMETHODCALLTYPE IAccessible::*get)(VARIANT, BSTR*),
                    LONG child = CHILDID_SELF) {
    Bstr text;
    if (of) (of.get()->*get)(childNumber(child), text.put());
    return text.text();
}

std::wstring nameOf(const ComPtr<IAccessible>& of, LONG child = CHILDID_SELF) {
    return textOf(of, &IAccessible::get_accName, child);
}

LONG roleOf(const ComPtr<IAccessible>& of) {
    container::Variant role;
    if (of) of->get_accRole(childNumber(), role.put());
    return role.toLong().value_or(0);
}

LONG stateOf(const ComPtr<IAccessible>& of, LONG child = CHILDID_SELF) {
    container::Variant state;
    if (of) of->get_accState(childNumber(child), state.put());
    return state.toLong().value_or(0);
}

RECT placeOf(const ComPtr<IAccessible>& of) {
    LONG left = 0, top = 0, width = 0, height = 0;
    EXPECT_TRUE(of && of->accLocation(&left, &top, &width, &height, childNumber()) == S_OK);
    return {left, top, left + width, top + height};
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
        static const std::map<DWORD, std::wstring> names = {
            {EVENT_OBJECT_FOCUS, L"focus "},       {EVENT_OBJECT_SELECTION, L"selection "},
            {EVENT_OBJECT_VALUECHANGE, L"value "}, {EVENT_OBJECT_STATECHANGE, L"state "},
            {EVENT_OBJECT_REORDER, L"structure "}, {EVENT_OBJECT_INVOKED, L"invoked "}};
        pumpAll();
        std::wstring all;
        for (const auto& [event, window, child] : std::exchange(heard, {})) {
            const auto name = names.find(event);
            if ((only && window != only) || name == names.end()) continue;
            ComPtr<IAccessible> of;
            VARIANT number{};
            AccessibleObjectFromEvent(window, static_cast<DWORD>(OBJID_CLIENT), child, of.put(), &number);
            all += (all.empty() ? L"" : L"; ") + name->second + (of ? nameOf(of, number.lVal) : L"");
        }
        return all;
    }

private:
    struct Heard {
        DWORD event;
        HWND window;
        DWORD child;
    };
    static void CALLBACK hear(HWINEVENTHOOK, DWORD event, HWND window, LONG object, LONG child, DWORD,
                              DWORD) {
        if (object == OBJID_CLIENT) heard.push_back({event, window, static_cast<DWORD>(child)});
    }
    static inline std::vector<Heard> heard;
    HWINEVENTHOOK hook_;
};

// Where the system's caret is, on the screen.
POINT caretOnScreen() {
    GUITHREADINFO gui{};
    gui.cbSize = sizeof gui;
    GetGUIThreadInfo(GetCurrentThreadId(), &gui);
    POINT at{gui.rcCaret.left, gui.rcCaret.top};
    ClientToScreen(gui.hwndCaret, &at);
    return at;
}

// Where magnifiers look for it, too.
void expectFocusOn(const ComPtr<IAccessible>& window, const std::wstring& name) {
    container::Variant focus;
    EXPECT_EQ(window->get_accFocus(focus.put()), S_OK);
    const auto thing = objectIn(focus);
    ASSERT_TRUE(thing);
    EXPECT_EQ(nameOf(thing), name);
    EXPECT_TRUE(stateOf(thing) & STATE_SYSTEM_FOCUSED);
    EXPECT_EQ(caretOnScreen().x, placeOf(thing).left);
    EXPECT_EQ(caretOnScreen().y, placeOf(thing).top);
}

class ReadTabs : public PersonAtControl {
protected:
    ReadTabs() : PersonAtControl(L"PageTab", {10, 10, 330, 36}) {}
};

TEST_F(ReadTabs, AreFoundUsedAndHeard) {
    object().put(L"ActiveTabs", L"Home,&Help,Video");
    object().put(L"ActiveTab", 1L);
    hosted.loop.pumpPending();
    takeEvents();
    const auto strip = accessibleOf(face());
    ASSERT_TRUE(strip);
    EXPECT_EQ(nameOf(strip, 2), L"Help");
    EXPECT_EQ(textOf(strip, &IAccessible::get_accKeyboardShortcut, 2), L"Alt+H");
    EXPECT_TRUE(stateOf(strip, 1) & STATE_SYSTEM_SELECTED);
    container::Variant found;
    EXPECT_EQ(strip->get_accState(childNumber(4), found.put()), E_INVALIDARG);
    const auto video = childOf(strip, 3);
    ASSERT_TRUE(video);
    const RECT place = placeOf(video);
    EXPECT_EQ(strip->accHitTest((place.left + place.right) / 2, place.top + 3, found.put()), S_OK);
    EXPECT_EQ(nameOf(objectIn(found)), L"Video");
    EXPECT_EQ(strip->accNavigate(NAVDIR_NEXT, childNumber(1), found.put()), S_OK);
    EXPECT_EQ(nameOf(objectIn(found)), L"Help");
    EXPECT_EQ(video->accDoDefaultAction(childNumber()), S_OK);
    EXPECT_EQ(takeEvents(), L"Click Show");
    EXPECT_TRUE(stateOf(video) & STATE_SYSTEM_SELECTED);

    const EventHook hook;
    person.click(face(), 3, 3);
    ASSERT_TRUE(person.waitFor([&] { return GetFocus() == face(); }));
    EventHook::take(face());
    person.key(VK_RIGHT);
    std::wstring told;
    person.waitFor([&] { return !(told += EventHook::take(face())).empty(); });
    EXPECT_EQ(told, L"selection Help; focus Help");
    expectFocusOn(strip, L"Help");
}

TEST(Magnifiers, FollowTheFocusThatAPanelDraws) {
    for (const auto& [name, marked] :
         {std::pair(L"ButtonPalette", L"EARTH RED"), {L"DateCalendar", L"11 November, 2026"}}) {
        SCOPED_TRACE(container::toUtf8(name));
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
        const HWND panel = openPanel();
        ASSERT_TRUE(panel);
        person.key(VK_RIGHT);
        std::wstring told;
        ASSERT_TRUE(person.waitFor(
            [&] { return (told += EventHook::take(panel)).find(L"focus") != std::wstring::npos; }));
        expectFocusOn(accessibleOf(panel), marked);
        EventHook::take();
        hosted.object().call(L"HidePopUp");
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
    EXPECT_EQ(textOf(accessibleOf(face()), &IAccessible::get_accKeyboardShortcut), L"Alt+C");
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
    EXPECT_EQ(field->accSelect(SELFLAG_TAKEFOCUS, childNumber()), S_OK);
    EXPECT_TRUE(IsChild(face(), GetFocus()));
    SetFocus(GetParent(face()));
    object().put(L"Enabled", false);
    EXPECT_EQ(field->accSelect(SELFLAG_TAKEFOCUS, childNumber()), S_FALSE);
    EXPECT_EQ(GetFocus(), GetParent(face()));
    object().put(L"Enabled", true);
    EnableWindow(face(), FALSE);
    EXPECT_EQ(stateOf(field) & (STATE_SYSTEM_FOCUSABLE | STATE_SYSTEM_UNAVAILABLE), STATE_SYSTEM_UNAVAILABLE);
    EXPECT_EQ(childOf(field, 1)->accDoDefaultAction(childNumber()), S_FALSE);
    EnableWindow(face(), TRUE);
    EXPECT_EQ(stateOf(field) & (STATE_SYSTEM_FOCUSABLE | STATE_SYSTEM_UNAVAILABLE), STATE_SYSTEM_FOCUSABLE);
}

// What a method answers; texts are owned, of things in an array it is their names.
template <typename Interface, typename Result>
Result got(const ComPtr<Interface>& of, HRESULT (STDMETHODCALLTYPE Interface::*method)(Result*)) {
    Result result{};
    EXPECT_TRUE(of && (of.get()->*method)(&result) == S_OK);
    return result;
}

template <typename Interface>
std::wstring got(const ComPtr<Interface>& of, HRESULT (STDMETHODCALLTYPE Interface::*method)(BSTR*)) {
    Bstr text;
    EXPECT_TRUE(of && (of.get()->*method)(text.put()) == S_OK);
    return text.text();
}

container::Variant property(const Provider& of, PROPERTYID id) {
    container::Variant value;
    if (of) of->GetPropertyValue(id, value.put());
    return value;
}

std::wstring nameOf(const Provider& of) {
    return property(of, UIA_NamePropertyId).toText();
}

template <typename Interface>
Names got(const ComPtr<Interface>& of, HRESULT (STDMETHODCALLTYPE Interface::*method)(SAFEARRAY**)) {
    SAFEARRAY* things = nullptr;
    EXPECT_TRUE(of && (of.get()->*method)(&things) == S_OK && things);
    Names names;
    for (LONG at = 0; things && at < static_cast<LONG>(things->rgsabound[0].cElements); ++at) {
        ComPtr<IUnknown> thing;
        SafeArrayGetElement(things, &at, thing.put());
        names.push_back(nameOf(thing.query<IRawElementProviderSimple>()));
    }
    SafeArrayDestroy(things);
    return names;
}

std::vector<int> identityOf(const Provider& of) {
    SAFEARRAY* numbers = nullptr;
    const auto fragment = of.query<IRawElementProviderFragment>();
    if (fragment) fragment->GetRuntimeId(&numbers);
    std::vector<int> all(numbers ? numbers->rgsabound[0].cElements : 0);
    for (LONG at = 0; at < static_cast<LONG>(all.size()); ++at)
        SafeArrayGetElement(numbers, &at, &all[static_cast<size_t>(at)]);
    SafeArrayDestroy(numbers);
    return all;
}

Provider go(const Provider& from, NavigateDirection to) {
    ComPtr<IRawElementProviderFragment> found;
    const auto fragment = from.query<IRawElementProviderFragment>();
    if (fragment) fragment->Navigate(to, found.put());
    return found.query<IRawElementProviderSimple>();
}

// Of what the system describes by its window; null for all else.
HWND handleOf(const Provider& of) {
    Provider host;
    if (of) of->get_HostRawElementProvider(host.put());
    const auto handle = property(host, UIA_NativeWindowHandlePropertyId).toLong();
    return reinterpret_cast<HWND>(static_cast<INT_PTR>(handle.value_or(0)));
}

template <typename Pattern>
ComPtr<Pattern> pattern(const Provider& of, PATTERNID id) {
    ComPtr<IUnknown> found;
    if (of) of->GetPatternProvider(id, found.put());
    EXPECT_TRUE(found) << "pattern " << id;
    return found.query<Pattern>();
}

// What both interfaces say of a thing: its name, its help and its access key, and whether it is enabled, can
// have the focus, has it, and is out of sight.
std::wstring told(const ComPtr<IAccessible>& thing) {
    std::wstring all = nameOf(thing) + L"|" + textOf(thing, &IAccessible::get_accDescription) + L"|" +
                       textOf(thing, &IAccessible::get_accKeyboardShortcut);
    const LONG states = stateOf(thing) ^ STATE_SYSTEM_UNAVAILABLE;
    for (const LONG state :
         {STATE_SYSTEM_UNAVAILABLE, STATE_SYSTEM_FOCUSABLE, STATE_SYSTEM_FOCUSED, STATE_SYSTEM_OFFSCREEN})
        all += states & state ? L"|yes" : L"|no";
    return all;
}

std::wstring told(const std::function<container::Variant(PROPERTYID)>& ask) {
    std::wstring all = ask(UIA_NamePropertyId).toText() + L"|" + ask(UIA_HelpTextPropertyId).toText() + L"|" +
                       ask(UIA_AccessKeyPropertyId).toText();
    for (const PROPERTYID id : {UIA_IsEnabledPropertyId, UIA_IsKeyboardFocusablePropertyId,
                                UIA_HasKeyboardFocusPropertyId, UIA_IsOffscreenPropertyId})
        all += ask(id).toBool().value_or(false) ? L"|yes" : L"|no";
    return all;
}

// The same by the system's client: on a thread of its own as those in other processes begin, because on the
// window's it would wait for itself. Wine 8 has this much of it.
std::wstring toldToClient(HWND face) {
    using Node = struct NodeTag*;
    const HMODULE library = LoadLibraryW(L"uiautomationcore.dll");
    const auto find = [library]<typename Function>(const char* name, Function*) {
        return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(library, name)));
    };
    const auto begin = find("UiaNodeFromHandle", static_cast<HRESULT(WINAPI*)(HWND, Node*)>(nullptr));
    const auto value =
        find("UiaGetPropertyValue", static_cast<HRESULT(WINAPI*)(Node, PROPERTYID, VARIANT*)>(nullptr));
    const auto release = find("UiaNodeRelease", static_cast<BOOL(WINAPI*)(Node)>(nullptr));
    auto client = std::async(std::launch::async, [&] {
        CoInitializeEx(nullptr, COINIT_MULTITHREADED);
        Node node = nullptr;
        EXPECT_EQ(begin(face, &node), S_OK);
        std::wstring all = told([&](PROPERTYID id) {
            container::Variant answer;
            EXPECT_EQ(value(node, id, answer.put()), S_OK);
            return answer;
        });
        if (node) release(node);
        CoUninitialize();
        return all;
    });
    EXPECT_TRUE(
        pumpUntil([&] { return client.wait_for(std::chrono::seconds(0)) == std::future_status::ready; }));
    return client.get();
}

// What a thing is by the older interface, and what it does there, and what it is and can by the newer one:
// "push button, Press = button: Invoke".
std::wstring kindOf(const ComPtr<IAccessible>& older, const Provider& newer) {
    static const std::map<long, std::wstring> types = {
        {50000, L"button"},    {50001, L"calendar"},    {50003, L"combo box"},    {50006, L"image"},
        {50007, L"list item"}, {50008, L"list"},        {50014, L"scroll bar"},   {50016, L"spinner"},
        {50018, L"tab"},       {50019, L"tab item"},    {50020, L"text"},         {50028, L"data grid"},
        {50029, L"data item"}, {50026, L"group"},       {50031, L"split button"}, {50033, L"pane"},
        {50034, L"header"},    {50035, L"header item"}, {50038, L"separator"}};
    static const std::pair<PATTERNID, std::wstring> patterns[] = {
        {UIA_InvokePatternId, L" Invoke"},
        {UIA_TogglePatternId, L" Toggle"},
        {UIA_ExpandCollapsePatternId, L" Expand"},
        {UIA_ValuePatternId, L" Value"},
        {UIA_RangeValuePatternId, L" Range"},
        {UIA_SelectionPatternId, L" Selection"},
        {UIA_SelectionItemPatternId, L" SelectionItem"},
        {UIA_ScrollPatternId, L" Scroll"},
        {UIA_ScrollItemPatternId, L" ScrollItem"},
        {UIA_GridPatternId, L" Grid"},
        {UIA_TablePatternId, L" Table"},
        {UIA_GridItemPatternId, L" GridItem"},
        {UIA_TableItemPatternId, L" TableItem"}};
    std::array<wchar_t, 64> role{};
    GetRoleTextW(static_cast<DWORD>(roleOf(older)), role.data(), static_cast<UINT>(role.size()));
    const std::wstring action = textOf(older, &IAccessible::get_accDefaultAction);
    const auto type = types.find(property(newer, UIA_ControlTypePropertyId).toLong().value_or(0));
    std::wstring kind = role.data() + (action.empty() ? L"" : L", " + action) + L" = " +
                        (type == types.end() ? L"unknown" : type->second) + L":";
    for (const auto& [id, name] : patterns) {
        ComPtr<IUnknown> found;
        if (newer->GetPatternProvider(id, found.put()) == S_OK && found) kind += name;
    }
    return kind;
}

// Every control made here, so that what lies behind its window can be looked at.
class Automation : public testing::Test {
protected:
    void place(const char16_t* name) {
        if (control) control->deactivate();
        control = library().control(name)->create(driver.platform());
        control->initNew();
        ASSERT_TRUE(control->activate(driver.host(), {0, 0, 300, 150}));
    }
    ~Automation() override {
        if (control) control->deactivate();
    }
    HWND face() const { return reinterpret_cast<HWND>(control->window()); }
    Provider provider() { return providerOf(face()); }
    static Provider providerOf(HWND face) {
        auto* const window = reinterpret_cast<ClientWindow*>(GetWindowLongPtrW(face, GWLP_USERDATA));
        const auto surface = std::static_pointer_cast<SurfaceWindow>(window->shared_from_this());
        AccessibleId all;
        surface->withTree([&](const AccessibleTree& tree) { all = tree.root(); });
        return createProvider(surface, all);
    }
    void call(TextView name, std::vector<Value> arguments = {}) {
        Value result;
        callMethod(*control, *control->table().member(name), arguments, result);
    }
    void put(TextView name, const Value& value) {
        putProperty(*control, *control->table().member(name), value);
    }
    static Provider cellOf(const Provider& grid, int row, int col) {
        Provider cell;
        EXPECT_EQ(pattern<IGridProvider>(grid, UIA_GridPatternId)->GetItem(row, col, cell.put()), S_OK);
        return cell;
    }

    WindowDriver driver;
    std::shared_ptr<Control> control;
};

// Goes through all that is in sight, which both interfaces know alike, and does what the first thing of each
// kind does by default. What they are called, in the order of the tree.
class Walk {
public:
    Walk(const ComPtr<IAccessible>& older, const Provider& newer) { visit(older, newer); }

    std::wstring kinds() const {
        std::wstring all;
        for (const auto& [kind, thing] : kinds_) all += kind + L"\n";
        return all;
    }
    // After `prepare` each.
    void act(const std::function<void()>& prepare) const {
        for (const auto& [kind, thing] : kinds_) {
            // The system's own choice of colours would wait for an answer.
            if (kind.find(L", ") == std::wstring::npos || nameOf(thing) == L"More colors") continue;
            SCOPED_TRACE(container::toUtf8(kind));
            prepare();
            EventHook::take();
            EXPECT_EQ(thing->accDoDefaultAction(childNumber()), S_OK);
            EXPECT_NE(EventHook::take(), L"") << "nobody hears of it";
        }
    }

private:
    void visit(const ComPtr<IAccessible>& older, const Provider& newer) {
        SCOPED_TRACE(container::toUtf8(nameOf(older)));
        EXPECT_EQ(told(older), told([&](PROPERTYID id) { return property(newer, id); }));
        EXPECT_TRUE(identities_.insert(identityOf(newer)).second);
        const std::wstring kind = kindOf(older, newer);
        if (std::none_of(kinds_.begin(), kinds_.end(),
                         [&](const auto& known) { return known.first == kind; }))
            kinds_.emplace_back(kind, older);
        Provider part = go(newer, NavigateDirection_FirstChild), before;
        for (LONG number = 1, count = got(older, &IAccessible::get_accChildCount); number <= count;
             ++number) {
            // A window in it is the system's to describe; Wine's has no role.
            if (handleOf(part)) part = go(part, NavigateDirection_NextSibling);
            const auto child = childOf(older, number);
            const LONG role = roleOf(child);
            if (!role || role == ROLE_SYSTEM_WINDOW || stateOf(child) & STATE_SYSTEM_OFFSCREEN) continue;
            ASSERT_TRUE(part) << container::toUtf8(nameOf(child));
            visit(child, part);
            EXPECT_EQ(identityOf(go(part, NavigateDirection_Parent)), identityOf(newer));
            EXPECT_EQ(identityOf(go(part, NavigateDirection_PreviousSibling)), identityOf(before));
            before = std::exchange(part, go(part, NavigateDirection_NextSibling));
        }
        EXPECT_FALSE(part) << "more than by the older interface";
    }

    std::vector<std::pair<std::wstring, ComPtr<IAccessible>>> kinds_;
    std::set<std::vector<int>> identities_;
};

TEST_F(Automation, KnowsEachThingAndWhatItDoesAsTheOlderInterfaceAndAsTheSystemsClient) {
    const struct {
        const char16_t* control;
        const wchar_t* own;
        const wchar_t* inPanel = L"";
    } cases[] = {
        {u"UpDownTextBox", L"spin box = spinner: Value Range\npush button, Press = button: Invoke\n"},
        {u"DateCalendar", L"combo box, Open = combo box: Expand Value\npush button, Press = button: Invoke\n",
         L"client = pane:\ntable = calendar: Selection Grid Table\ncolumn header = header item:\n"
         L"list item, Press = list item: SelectionItem GridItem TableItem\n"
         L"combo box, Open = combo box: Expand Value\nspin box = spinner: Value Range\n"
         L"push button, Press = button: Invoke\nstatic text = text:\n"},
        {u"ButtonPalette", L"split button, Press = split button: Invoke Expand Value\n",
         L"list = list: Selection\nlist item, Press = list item: SelectionItem\n"
         L"push button, Press = button: Invoke\n"},
        {u"ButtonArrow", L"graphic = image:\n"},
        {u"lns", L"separator = separator:\n"},
        {u"PageTab",
         L"page tab list = tab: Selection\npage tab, Switch = tab item: SelectionItem ScrollItem\n"},
        {u"GridEdit",
         L"table = data grid: Selection Scroll Grid Table\n"
         L"row, Select = data item: SelectionItem ScrollItem GridItem\n"
         L"cell, Check = data item: Invoke Toggle SelectionItem ScrollItem GridItem TableItem\n"
         L"cell, Press = data item: Invoke Value SelectionItem ScrollItem GridItem TableItem\n"
         L"scroll bar = scroll bar: Range\npush button, Press = button: Invoke\n"
         L"list = header:\ncolumn header, Press = header item: Invoke\n"},
    };
    const EventHook hook;
    for (const auto& [name, own, inPanel] : cases) {
        SCOPED_TRACE(toUtf8(name));
        place(name);
        const auto has = [this](TextView member) { return control->table().member(member) != nullptr; };
        if (has(u"Interval")) put(u"Interval", 1.0);
        if (has(u"ActiveTabs")) put(u"ActiveTabs", Text(u"Home,&Help"));
        if (has(u"RowsSet")) {
            call(u"RowsSet", {100});
            call(u"ColTypeSet", {0, 3});
            call(u"RowSetFocus", {2});
        }
        EXPECT_EQ(toldToClient(face()), told([&](PROPERTYID id) { return property(provider(), id); }));
        const auto close = [&] {
            if (openPanel()) call(u"HidePopUp");
        };
        const auto open = [&] {
            if (!openPanel()) call(u"ShowPopUp");
        };
        const Walk walk(accessibleOf(face()), provider());
        EXPECT_EQ(walk.kinds(), own);
        walk.act(close);
        close();
        if (!*inPanel) continue;
        open();
        ASSERT_TRUE(openPanel());
        const Walk inside(accessibleOf(openPanel()), providerOf(openPanel()));
        EXPECT_EQ(inside.kinds(), inPanel);
        inside.act(open);
        close();
    }
}

TEST_F(Automation, HasTheGridsCellsWithAllThatCanBeDoneToThem) {
    place(u"GridEdit");
    call(u"ColsSet", {2});
    call(u"RowsSet", {1000});
    call(u"BarHeaderCaptionSet", {0, Text(u"City")});
    call(u"ColTypeSet", {1, 3});
    const auto grid = provider(), cell = cellOf(grid, 2, 0), check = cellOf(grid, 2, 1);
    const auto cells = pattern<IGridProvider>(grid, UIA_GridPatternId);
    const auto selection = pattern<ISelectionProvider>(grid, UIA_SelectionPatternId);
    const auto value = pattern<IValueProvider>(cell, UIA_ValuePatternId);
    const auto mark = pattern<IToggleProvider>(check, UIA_TogglePatternId);
    const auto item = pattern<IGridItemProvider>(check, UIA_GridItemPatternId);
    const auto headed = pattern<ITableItemProvider>(cell, UIA_TableItemPatternId);
    const auto scroll = pattern<IScrollProvider>(grid, UIA_ScrollPatternId);
    const auto chosen = pattern<ISelectionItemProvider>(cell, UIA_SelectionItemPatternId);
    ASSERT_FALSE(HasFailure());
    Provider none;
    EXPECT_EQ(got(cells, &IGridProvider::get_RowCount), 1000);
    EXPECT_EQ(cells->GetItem(1000, 1, none.put()), E_INVALIDARG);
    EXPECT_EQ(nameOf(cell), L"City, row 3");
    EXPECT_EQ(value->SetValue(L"Paris"), S_OK);
    EXPECT_EQ(got(value, &IValueProvider::get_Value), L"Paris");
    EXPECT_EQ(mark->Toggle(), S_OK);
    EXPECT_EQ(got(mark, &IToggleProvider::get_ToggleState), ToggleState::on);
    EXPECT_EQ(got(item, &IGridItemProvider::get_Row), 2);
    EXPECT_EQ(got(headed, &ITableItemProvider::GetColumnHeaderItems), Names{L"City"});

    const auto at = [&] { return got(scroll, &IScrollProvider::get_VerticalScrollPercent); };
    const auto step = [&](ScrollAmount by) {
        const double before = at();
        EXPECT_EQ(scroll->Scroll(ScrollAmount::noAmount, by), S_OK);
        return at() - before;
    };
    EXPECT_EQ(scroll->SetScrollPercent(-1, 100), S_OK);
    EXPECT_GT(at(), 99);
    const double back = step(ScrollAmount::smallDecrement);
    EXPECT_LT(back, 0);
    EXPECT_LT(step(ScrollAmount::largeDecrement), back);
    EXPECT_GT(step(ScrollAmount::smallIncrement), 0);
    EXPECT_EQ(property(cell, UIA_IsOffscreenPropertyId).toBool(), true);
    EXPECT_EQ(pattern<IScrollItemProvider>(cell, UIA_ScrollItemPatternId)->ScrollIntoView(), S_OK);
    EXPECT_EQ(property(cell, UIA_IsOffscreenPropertyId).toBool(), false);

    EXPECT_EQ(nameOf(go(cell, NavigateDirection_Parent)), L"row 3");
    EXPECT_EQ(nameOf(go(cell, NavigateDirection_NextSibling)), L"column 2, row 3");
    EXPECT_EQ(chosen->Select(), S_OK);
    EXPECT_EQ(got(selection, &ISelectionProvider::GetSelection), Names{L"City, row 3"});
    const auto corner = childOf(childOf(accessibleOf(face()), 4), 2);
    EXPECT_EQ(corner->accSelect(SELFLAG_EXTENDSELECTION, childNumber()), S_OK);
    EXPECT_EQ(got(selection, &ISelectionProvider::GetSelection).size(), 4u);

    call(u"RowsSet", {0});
    EXPECT_EQ(got(cells, &IGridProvider::get_RowCount), 0);
    EXPECT_EQ(cells->GetItem(0, 0, none.put()), E_INVALIDARG);
    EXPECT_EQ(got(selection, &ISelectionProvider::GetSelection), Names());
    EXPECT_EQ(at(), -1) << "nothing to scroll";
    call(u"RowsSet", {1});
    EXPECT_EQ(chosen->Select(), notAvailable) << "its row is gone";
}

// Wine's client has no use for such a provider, so this asks as Windows does.
TEST_F(Automation, HasAnOpenEditorInItsCell) {
    place(u"GridEdit");
    call(u"RowsSet", {4});
    control->focus();
    call(u"GridSetFocus", {1, 2});
    const auto grid = provider();
    const auto over = [](const Provider& root, HWND window) {
        Provider found;
        EXPECT_EQ(root.query<IHwndOverride>()->GetOverrideProviderForHwnd(window, found.put()), S_OK);
        return found;
    };
    SendMessageW(face(), WM_GETOBJECT, 0, automationRoot);  // as clients begin
    EXPECT_FALSE(over(grid, face())) << "no editor";
    driver.key(key::f2);
    ASSERT_TRUE(pumpUntil([&] { return IsChild(face(), GetFocus()); }));
    const HWND open = GetFocus();
    const auto editor = over(grid, open), cell = go(editor, NavigateDirection_Parent);
    EXPECT_EQ(nameOf(cell), L"column 2, row 3");
    for (auto child = go(grid, NavigateDirection_FirstChild); child;
         child = go(child, NavigateDirection_NextSibling))
        EXPECT_EQ(handleOf(child), nullptr) << "not among the rows, too";
    EXPECT_EQ(handleOf(go(cell, NavigateDirection_FirstChild)), open);
    // The window itself says what it is and can.
    ComPtr<IUnknown> value;
    EXPECT_TRUE(property(editor, UIA_ControlTypePropertyId).empty());
    EXPECT_EQ(editor->GetPatternProvider(UIA_ValuePatternId, value.put()), S_OK);
    EXPECT_FALSE(value);
    EXPECT_TRUE(got(editor, &IRawElementProviderSimple::get_ProviderOptions) &
                ProviderOptions_OverrideProvider);
    EXPECT_FALSE(got(grid, &IRawElementProviderSimple::get_ProviderOptions) &
                 ProviderOptions_OverrideProvider);
    call(u"BoxHide");
    EXPECT_FALSE(over(grid, open)) << "closed";

    place(u"UpDownTextBox");
    EXPECT_FALSE(over(provider(), GetWindow(face(), GW_CHILD))) << "it is where it belongs";
}

TEST_F(Automation, AnswersWithAnErrorWhatItDoesNotDo) {
    place(u"GridEdit");
    call(u"RowsSet", {3});
    const auto scroll = pattern<IScrollProvider>(provider(), UIA_ScrollPatternId);
    EXPECT_EQ(scroll->SetScrollPercent(-1, 50), invalidOperation) << "all rows are in sight";
    EXPECT_EQ(scroll->SetScrollPercent(-2, 50), E_INVALIDARG);
    EXPECT_EQ(scroll->Scroll(ScrollAmount::noAmount, ScrollAmount::smallIncrement), invalidOperation);

    place(u"PageTab");
    const auto selection = pattern<ISelectionProvider>(provider(), UIA_SelectionPatternId);
    EXPECT_FALSE(got(selection, &ISelectionProvider::get_IsSelectionRequired)) << "there are no tabs";
    put(u"ActiveTabs", Text(u"Home,Help"));
    EXPECT_TRUE(got(selection, &ISelectionProvider::get_IsSelectionRequired));
    const auto tab = [this](NavigateDirection at) {
        return pattern<ISelectionItemProvider>(go(provider(), at), UIA_SelectionItemPatternId);
    };
    EXPECT_EQ(tab(NavigateDirection_FirstChild)->Select(), S_OK);
    EXPECT_EQ(tab(NavigateDirection_FirstChild)->AddToSelection(), S_OK) << "it is selected";
    EXPECT_EQ(tab(NavigateDirection_LastChild)->AddToSelection(), invalidOperation);
}

// For any method: zero, or room for what it would answer.
template <typename Argument>
Argument anything() {
    static std::array<std::max_align_t, 4> room;
    room = {};
    if constexpr (std::is_pointer_v<Argument>)
        return reinterpret_cast<Argument>(room.data());
    else
        return {};
}

// Calls methods of an object; whether all answer the same.
template <typename Interface, typename... Arguments>
HRESULT answerOf(IUnknown* object, HRESULT (STDMETHODCALLTYPE Interface::*method)(Arguments...)) {
    return (query<Interface>(object).get()->*method)(anything<Arguments>()...);
}

template <typename... Methods>
void expectAnswer(HRESULT answer, IUnknown* object, Methods... methods) {
    EXPECT_EQ((std::vector{answerOf(object, methods)...}), std::vector(sizeof...(methods), answer));
}

TEST_F(Automation, SaysOfEverythingThatItIsGone) {
    place(u"GridEdit");
    const auto grid = provider();
    const auto read = accessibleOf(face());
    control->deactivate();
    using Simple = IRawElementProviderSimple;
    using Fragment = IRawElementProviderFragment;
    using Root = IRawElementProviderFragmentRoot;
    using Item = ISelectionItemProvider;
    using Range = IRangeValueProvider;
    using Scroll = IScrollProvider;
    using Cell = IGridItemProvider;
    using Old = IAccessible;
    expectAnswer(notAvailable, grid.get(), &Simple::GetPatternProvider, &Simple::GetPropertyValue,
                 &Simple::get_HostRawElementProvider, &Fragment::Navigate, &Fragment::GetRuntimeId,
                 &Fragment::get_BoundingRectangle, &Fragment::GetEmbeddedFragmentRoots, &Fragment::SetFocus,
                 &Fragment::get_FragmentRoot, &Root::ElementProviderFromPoint, &Root::GetFocus,
                 &IInvokeProvider::Invoke, &IToggleProvider::Toggle, &IToggleProvider::get_ToggleState,
                 &IExpandCollapseProvider::Expand, &IExpandCollapseProvider::Collapse,
                 &IExpandCollapseProvider::get_ExpandCollapseState, &IValueProvider::SetValue,
                 &IValueProvider::get_Value, &IValueProvider::get_IsReadOnly, &Range::SetValue,
                 &Range::get_Value, &Range::get_IsReadOnly, &Range::get_Maximum, &Range::get_Minimum,
                 &Range::get_LargeChange, &Range::get_SmallChange, &ISelectionProvider::GetSelection,
                 &ISelectionProvider::get_CanSelectMultiple, &ISelectionProvider::get_IsSelectionRequired,
                 &Item::Select, &Item::AddToSelection, &Item::RemoveFromSelection, &Item::get_IsSelected,
                 &Item::get_SelectionContainer, &Scroll::Scroll, &Scroll::SetScrollPercent,
                 &Scroll::get_HorizontalScrollPercent, &Scroll::get_VerticalScrollPercent,
                 &Scroll::get_HorizontalViewSize, &Scroll::get_VerticalViewSize,
                 &Scroll::get_HorizontallyScrollable, &Scroll::get_VerticallyScrollable,
                 &IScrollItemProvider::ScrollIntoView, &IGridProvider::GetItem, &IGridProvider::get_RowCount,
                 &IGridProvider::get_ColumnCount, &Cell::get_Row, &Cell::get_Column, &Cell::get_RowSpan,
                 &Cell::get_ColumnSpan, &Cell::get_ContainingGrid, &ITableProvider::GetRowHeaders,
                 &ITableProvider::GetColumnHeaders, &ITableProvider::get_RowOrColumnMajor,
                 &ITableItemProvider::GetRowHeaderItems, &ITableItemProvider::GetColumnHeaderItems);
    expectAnswer(CO_E_OBJNOTCONNECTED, read.get(), &Old::get_accParent, &Old::get_accChildCount,
                 &Old::get_accChild, &Old::get_accName, &Old::get_accValue, &Old::get_accDescription,
                 &Old::get_accRole, &Old::get_accState, &Old::get_accHelp, &Old::get_accHelpTopic,
                 &Old::get_accKeyboardShortcut, &Old::get_accFocus, &Old::get_accSelection,
                 &Old::get_accDefaultAction, &Old::accSelect, &Old::accLocation, &Old::accNavigate,
                 &Old::accHitTest, &Old::accDoDefaultAction, &Old::put_accValue);
}

TEST_F(Automation, HasThePatternsOfTheOtherControls) {
    place(u"UpDownTextBox");
    put(u"Interval", 1.0);
    put(u"Min", 2.0);
    const auto range = pattern<IRangeValueProvider>(provider(), UIA_RangeValuePatternId);
    EXPECT_EQ(got(range, &IRangeValueProvider::get_Maximum), 10);
    EXPECT_EQ(got(range, &IRangeValueProvider::get_Minimum), 2);
    EXPECT_EQ(got(range, &IRangeValueProvider::get_SmallChange), 1);
    EXPECT_EQ(range->SetValue(4.0), S_OK);
    EXPECT_EQ(range->SetValue(11.0), E_INVALIDARG);
    EXPECT_EQ(got(range, &IRangeValueProvider::get_Value), 4);
    const auto more = go(provider(), NavigateDirection_FirstChild);
    EXPECT_EQ(nameOf(more), L"More");
    EXPECT_EQ(pattern<IInvokeProvider>(more, UIA_InvokePatternId)->Invoke(), S_OK);
    EXPECT_EQ(got(range, &IRangeValueProvider::get_Value), 5);
    EXPECT_EQ(nameOf(go(provider(), NavigateDirection_LastChild)), L"Less")
        << "the edit window is the system's to add";

    place(u"DateCalendar");
    const auto drop = pattern<IExpandCollapseProvider>(provider(), UIA_ExpandCollapsePatternId);
    EXPECT_EQ(drop->Expand(), S_OK);
    EXPECT_EQ(got(drop, &IExpandCollapseProvider::get_ExpandCollapseState), ExpandCollapseState::expanded);
    EXPECT_EQ(drop->Collapse(), S_OK);
    put(u"Enabled", false);
    EXPECT_EQ(drop->Expand(), notEnabled);
}

// The system's part of raising events, as a journal: "selected cell; focus cell".
class RaisedEvents {
public:
    RaisedEvents() : before_(automationFunctions()) {
        AutomationFunctions& functions = automationFunctions();
        functions.listening = listening;
        functions.raiseEvent = raiseEvent;
        functions.raiseChange = raiseChange;
        functions.raiseStructure = raiseStructure;
    }
    RaisedEvents(const RaisedEvents&) = delete;
    RaisedEvents& operator=(const RaisedEvents&) = delete;
    ~RaisedEvents() { automationFunctions() = before_; }

    static std::wstring take() {
        pumpAll();
        return std::exchange(raised, {});
    }

private:
    static BOOL WINAPI listening() { return TRUE; }
    static HRESULT WINAPI raiseEvent(IRawElementProviderSimple* of, EVENTID event) { return note(of, event); }
    static HRESULT WINAPI raiseChange(IRawElementProviderSimple* of, PROPERTYID property, VARIANT,
                                      VARIANT now) {
        const container::Variant value(now);
        return note(of, property,
                    L" = " + (now.vt == VT_R8 ? value.converted(VT_I4).value() : value).toText());
    }
    static HRESULT WINAPI raiseStructure(IRawElementProviderSimple* of, int, int*, int) {
        return note(of, 0);
    }
    static HRESULT note(IRawElementProviderSimple* of, int what, const std::wstring& value = {}) {
        static const std::map<int, std::wstring> names = {
            {0, L"structure "},
            {20005, L"focus "},
            {20009, L"invoked "},
            {20010, L"added "},
            {20012, L"selected "},
            {UIA_ValueValuePropertyId, L"value "},
            {UIA_RangeValueValuePropertyId, L"number "},
            {UIA_ToggleToggleStatePropertyId, L"toggled "},
            {UIA_NamePropertyId, L"name "},
            {UIA_ValueIsReadOnlyPropertyId, L"read only "},
            {UIA_IsEnabledPropertyId, L"enabled "},
            {UIA_ExpandCollapseExpandCollapseStatePropertyId, L"expanded "},
            {UIA_ScrollVerticalScrollPercentPropertyId, L"down "}};
        const auto name = names.find(what);
        raised += (raised.empty() ? L"" : L"; ") + (name == names.end() ? L"other " : name->second) +
                  nameOf(Provider(of)) + value;
        return S_OK;
    }
    static inline std::wstring raised;
    const AutomationFunctions before_;
};

TEST_F(Automation, IsToldOfEachChangeInItsOrder) {
    const RaisedEvents raised;
    place(u"GridEdit");
    call(u"RowsSet", {100});
    call(u"ColTypeSet", {1, 3});
    control->focus();
    RaisedEvents::take();
    const auto cell = cellOf(provider(), 3, 0), check = cellOf(provider(), 3, 1);
    const auto chosen = pattern<ISelectionItemProvider>(cell, UIA_SelectionItemPatternId);
    chosen->Select();
    EXPECT_EQ(RaisedEvents::take(), L"selected column 1, row 4; focus column 1, row 4");
    pattern<IValueProvider>(cell, UIA_ValuePatternId)->SetValue(L"Paris");
    EXPECT_EQ(RaisedEvents::take(), L"value column 1, row 4 = Paris");
    pattern<IToggleProvider>(check, UIA_TogglePatternId)->Toggle();
    EXPECT_EQ(RaisedEvents::take(),
              L"selected column 2, row 4; toggled column 2, row 4 = 1; focus column 2, row 4");
    chosen->AddToSelection();
    EXPECT_EQ(RaisedEvents::take(), L"added column 1, row 4");
    chosen->Select();
    RaisedEvents::take();
    put(u"AllowGridEdit", false);
    EXPECT_EQ(RaisedEvents::take(), L"read only column 1, row 4 = True");
    call(u"RowDel", {3});
    EXPECT_EQ(RaisedEvents::take(), L"structure GridEdit; value column 1, row 4 = ");
    call(u"TopRowSet", {50});
    EXPECT_EQ(RaisedEvents::take(), L"down GridEdit = 55; structure GridEdit; number Up and down = 850");
    EXPECT_EQ(nameOf(go(provider(), NavigateDirection_FirstChild)), L"row 51");

    place(u"UpDownTextBox");
    put(u"Interval", 1.0);
    RaisedEvents::take();
    pattern<IRangeValueProvider>(provider(), UIA_RangeValuePatternId)->SetValue(4.0);
    EXPECT_EQ(RaisedEvents::take(), L"number UpDownTextBox = 4; value UpDownTextBox = 4");
}

TEST_F(Automation, LeavesNothingOfTenThousandProviders) {
    place(u"GridEdit");
    call(u"RowsSet", {10'000});
    const auto cells = pattern<IGridProvider>(provider(), UIA_GridPatternId);
    expectNothingIsLeft([&] {
        std::vector<Provider> kept(10'000);
        int row = 0;
        for (auto& each : kept) {
            EXPECT_EQ(cells->GetItem(row++, 1, each.put()), S_OK);
            EXPECT_EQ(each->AddRef(), 2u);
            EXPECT_EQ(each->Release(), 1u);
        }
    });
}

}  // namespace
}  // namespace obk
