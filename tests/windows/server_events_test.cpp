// Events and notifications: who hears them, in which state, and what may happen while they are heard.
#include "server_support.h"

#include "container/stored_value.h"
#include "container/type_members.h"

#include <gtest/gtest.h>

#include <olectl.h>

namespace obk {
namespace {

using namespace testing_support;
using container::EventCall;
using container::EventSink;
using container::Variant;

// The text field of a control that is shown.
HWND editOf(const HostedControl& hosted) {
    return FindWindowExW(hosted.site.window(), nullptr, nullptr, nullptr);
}

std::wstring textOf(const HostedControl& hosted) {
    return hosted.object().value(L"Text").toText();
}

class ServerEvents : public testing::Test {
protected:
    ServerEvents() { hosted.activate(); }
    HostedControl hosted{L"UpDownTextBox"};
};

TEST_F(ServerEvents, AHostThatSetsAnArgumentToZeroDiscardsTheCharacter) {
    VARTYPE passed = 0;
    bool discard = false;
    hosted.site.events().on(L"KeyPress", [&](EventCall& call) {
        passed = call.raw(0).vt;
        if (discard) call.set(0, short{0});
    });
    hosted.object().put(L"Text", L"");
    SendMessageW(editOf(hosted), WM_CHAR, '7', 1);
    EXPECT_EQ(passed, VT_I2 | VT_BYREF);
    EXPECT_EQ(textOf(hosted), L"7");
    discard = true;
    SendMessageW(editOf(hosted), WM_CHAR, '8', 1);
    EXPECT_EQ(textOf(hosted), L"7");
    // Another character in its place, as the next sink sees.
    const ComPtr<EventSink> second(new EventSink);
    ASSERT_EQ(second->connect(hosted.site.control().get()), S_OK);
    long seen = 0;
    second->on(L"KeyPress", [&](EventCall& call) { seen = call.value(0).toLong().value_or(-1); });
    hosted.site.events().on(L"KeyPress", [&](EventCall& call) { call.set(0, short{'9'}); });
    SendMessageW(editOf(hosted), WM_CHAR, '8', 1);
    EXPECT_NE(textOf(hosted).find(L'9'), std::wstring::npos);
    EXPECT_EQ(seen, '9');
    second->disconnect();
}

TEST_F(ServerEvents, ASinkMayLeaveWhileItIsCalled) {
    const ComPtr<EventSink> first(new EventSink), second(new EventSink), third(new EventSink);
    for (const auto& sink : {first, second, third})
        ASSERT_EQ(sink->connect(hosted.site.control().get()), S_OK);
    first->on(L"Change", [&](EventCall&) {
        first->disconnect();
        second->disconnect();
    });
    hosted.object().put(L"Text", L"2");
    EXPECT_EQ(first->count(L"Change"), 1u);
    EXPECT_EQ(second->count(L"Change"), 0u) << "disconnected before its turn";
    EXPECT_EQ(third->count(L"Change"), 1u);
    third->disconnect();
}

// A host whose handlers fail, as a script's do that has a fault.
class FailingSink final : public ComObject<IDispatch> {
public:
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                                     UINT*) override {
        ++calls;
        if (result) V_BSTR(result) = SysAllocString(L"half a result"), V_VT(result) = VT_BSTR;
        return DISP_E_EXCEPTION;
    }
    int calls = 0;
};

TEST_F(ServerEvents, AHandlersErrorEndsNothing) {
    const ComPtr<FailingSink> failing(new FailingSink);
    const ComPtr<EventSink> after(new EventSink);
    ComPtr<IConnectionPoint> point;
    hosted.site.control().query<IConnectionPointContainer>()->FindConnectionPoint(
        container::eventInterfaceOf(hosted.site.control().get()).id, point.put());
    DWORD cookie = 0;
    ASSERT_EQ(point->Advise(failing.get(), &cookie), S_OK);
    ASSERT_EQ(after->connect(hosted.site.control().get()), S_OK);
    hosted.object().put(L"Interval", 1.0);
    hosted.object().put(L"Text", L"5");
    SendMessageW(editOf(hosted), WM_KEYDOWN, VK_UP, 1);
    EXPECT_EQ(textOf(hosted), L"6");
    EXPECT_EQ(after->count(L"DownClick"), 1u);
    EXPECT_EQ(after->count(L"KeyDown"), 1u);
    EXPECT_GE(failing->calls, 3);
    after->disconnect();
    EXPECT_EQ(point->Unadvise(cookie), S_OK);
    failing->AddRef();
    EXPECT_EQ(failing->Release(), 1u) << "nothing holds it any more";
}

TEST_F(ServerEvents, FrozenEventsAreDroppedAndNotKept) {
    auto& events = hosted.site.events();
    events.clearJournal();
    hosted.site.freezeEvents(true);
    hosted.site.freezeEvents(true);
    hosted.object().put(L"Text", L"2");
    hosted.site.freezeEvents(false);
    hosted.object().put(L"Text", L"3");
    EXPECT_EQ(events.journal().size(), 0u) << "freezes nest";
    hosted.site.freezeEvents(false);
    EXPECT_EQ(events.journal().size(), 0u) << "what was held back does not come later";
    hosted.site.freezeEvents(false);  // one too many
    hosted.object().put(L"Text", L"4");
    EXPECT_EQ(events.count(L"Change"), 1u);
}

TEST_F(ServerEvents, EverySetterNotifiesUnderItsPropertyEvenWithoutAChange) {
    const auto members = container::TypeMembers::of(hosted.site.control().get());
    for (const auto& member : members.properties()) {
        if (!member.writable) continue;
        const Variant value = hosted.object().value(member.number);
        hosted.site.changes().clear();
        EXPECT_EQ(hosted.object().put(member.number, value), S_OK);
        EXPECT_EQ(hosted.site.changes().countChanged(member.number), 1u) << member.number;
    }
}

TEST_F(ServerEvents, EveryClassHasAnEventInterfaceAlsoAnEmptyOne) {
    for (const std::wstring& name : serverClasses()) {
        LoadedServer server;
        const auto control = server.create(name);
        const auto points = control.query<IConnectionPointContainer>();
        ASSERT_TRUE(points);
        ComPtr<IConnectionPoint> point;
        ASSERT_EQ(points->FindConnectionPoint(container::eventInterfaceOf(control.get()).id, point.put()),
                  S_OK);
        IID id{};
        EXPECT_EQ(point->GetConnectionInterface(&id), S_OK);
        EXPECT_EQ(id, container::eventInterfaceOf(control.get()).id);
        ComPtr<IConnectionPointContainer> back;
        EXPECT_EQ(point->GetConnectionPointContainer(back.put()), S_OK);
        EXPECT_EQ(back.get(), points.get());
        EXPECT_EQ(points->FindConnectionPoint(__uuidof(IDispatch), point.put()), CONNECT_E_NOCONNECTION);
    }
}

TEST_F(ServerEvents, ConnectionsAreCountedAndRefused) {
    const auto points = hosted.site.query<IConnectionPointContainer>();
    ComPtr<IConnectionPoint> notifications;
    ASSERT_EQ(points->FindConnectionPoint(__uuidof(IPropertyNotifySink), notifications.put()), S_OK);
    const ComPtr<EventSink> wrongKind(new EventSink);
    DWORD cookie = 9;
    EXPECT_EQ(notifications->Advise(wrongKind.get(), &cookie), CONNECT_E_CANNOTCONNECT);
    EXPECT_EQ(cookie, 0u);
    EXPECT_EQ(notifications->Advise(nullptr, &cookie), E_POINTER);
    EXPECT_EQ(notifications->Unadvise(4711), CONNECT_E_NOCONNECTION);

    const ComPtr<container::ChangeJournal> journal(new container::ChangeJournal);
    ASSERT_EQ(notifications->Advise(journal.get(), &cookie), S_OK);
    ComPtr<IEnumConnections> connections;
    ASSERT_EQ(notifications->EnumConnections(connections.put()), S_OK);
    CONNECTDATA data[4]{};
    ULONG count = 0;
    EXPECT_EQ(connections->Next(4, data, &count), S_FALSE);
    EXPECT_EQ(count, 2u) << "the site's own and this one";
    for (ULONG at = 0; at < count; ++at) data[at].pUnk->Release();
    EXPECT_EQ(notifications->Unadvise(cookie), S_OK);
    EXPECT_EQ(notifications->Unadvise(cookie), CONNECT_E_NOCONNECTION);

    ComPtr<IEnumConnectionPoints> all;
    ASSERT_EQ(points->EnumConnectionPoints(all.put()), S_OK);
    EXPECT_EQ(all->Skip(1), S_OK);
    ComPtr<IConnectionPoint> last;
    EXPECT_EQ(all->Next(1, last.put(), nullptr), S_OK);
    EXPECT_EQ(last.get(), notifications.get());
    EXPECT_EQ(all->Skip(1), S_FALSE);
}

TEST_F(ServerEvents, AChangedFontOfTheHostReachesTheControl) {
    container::StoredFont described;
    described.name = L"Tahoma";
    described.size = 8;
    const container::Dispatch font(container::makeFont(described));
    hosted.object().putReference(L"Font", font.get());
    const auto fontHeight = [&] {
        LOGFONTW shown{};
        GetObjectW(reinterpret_cast<HFONT>(SendMessageW(editOf(hosted), WM_GETFONT, 0, 0)), sizeof shown,
                   &shown);
        return std::abs(shown.lfHeight);
    };
    const LONG before = fontHeight();
    font.put(L"Size", 24.0);
    EXPECT_GT(fontHeight(), 2 * before);
}

}  // namespace
}  // namespace obk
