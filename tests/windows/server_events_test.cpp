// Events and notifications: who hears them, in which state, and what may happen while they are heard.
#include "server_support.h"

#include "container/stored_value.h"
#include "container/type_members.h"

#include <gtest/gtest.h>

#include <olectl.h>

#include <optional>

namespace obk {
namespace {

using namespace testing_support;
using container::EventCall;
using container::EventSink;
using container::Variant;

class ServerEvents : public testing::Test {
protected:
    ServerEvents() { hosted.activate(); }
    ~ServerEvents() override {
        for (const auto& sink : others) sink->disconnect();
    }
    IUnknown* control() const { return hosted.site.control().get(); }
    // The text field of the control.
    HWND edit() const { return FindWindowExW(hosted.site.window(), nullptr, nullptr, nullptr); }
    std::wstring text() const { return hosted.object().value(L"Text").toText(); }
    EventSink& connect() {
        others.emplace_back(new EventSink);
        EXPECT_EQ(others.back()->connect(control()), S_OK);
        return *others.back();
    }
    HostedControl hosted{L"UpDownTextBox"};
    std::vector<ComPtr<EventSink>> others;
};

TEST_F(ServerEvents, AHostMayDiscardTheCharacterOrPutAnotherInItsPlace) {
    VARTYPE passed = 0;
    std::optional<short> instead;
    hosted.site.events().on(L"KeyPress", [&](EventCall& call) {
        passed = call.raw(0).vt;
        if (instead) call.set(0, *instead);
    });
    long seen = 0;
    connect().on(L"KeyPress", [&](EventCall& call) { seen = call.value(0).toLong().value_or(-1); });
    hosted.object().put(L"Text", L"");
    SendMessageW(edit(), WM_CHAR, '7', 1);
    EXPECT_EQ(passed, VT_I2 | VT_BYREF);
    EXPECT_EQ(text(), L"7");
    instead = short{0};
    SendMessageW(edit(), WM_CHAR, '8', 1);
    EXPECT_EQ(text(), L"7");
    instead = short{'9'};
    SendMessageW(edit(), WM_CHAR, '8', 1);
    EXPECT_NE(text().find(L'9'), std::wstring::npos);
    EXPECT_EQ(seen, '9') << "by the next sink";
}

TEST_F(ServerEvents, ASinkMayLeaveWhileItIsCalled) {
    EventSink &first = connect(), &second = connect(), &third = connect();
    first.on(L"Change", [&](EventCall&) {
        first.disconnect();
        second.disconnect();
    });
    hosted.object().put(L"Text", L"2");
    EXPECT_EQ(first.count(L"Change"), 1u);
    EXPECT_EQ(second.count(L"Change"), 0u) << "disconnected before its turn";
    EXPECT_EQ(third.count(L"Change"), 1u);
}

TEST_F(ServerEvents, AHandlersErrorEndsNothing) {
    connect().onAny([](EventCall& call) { call.answer(DISP_E_EXCEPTION); });
    const EventSink& after = connect();
    hosted.object().put(L"Interval", 1.0);
    hosted.object().put(L"Text", L"5");
    SendMessageW(edit(), WM_KEYDOWN, VK_UP, 1);
    EXPECT_EQ(text(), L"6");
    EXPECT_EQ(after.count(L"DownClick"), 1u);
    EXPECT_EQ(after.count(L"KeyDown"), 1u);
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
    const auto members = container::TypeMembers::of(control());
    for (const auto& member : members.properties()) {
        if (!member.writable) continue;
        const Variant value = hosted.object().value(member.number);
        hosted.site.changes().clear();
        EXPECT_EQ(hosted.object().put(member.number, value), S_OK);
        EXPECT_EQ(hosted.site.changes().countChanged(member.number), 1u) << member.number;
    }
}

TEST(ServerConnections, EveryClassHasAnEventInterfaceAlsoAnEmptyOne) {
    withEachControl([](const ComPtr<IUnknown>& control, const std::wstring&) {
        const auto points = control.query<IConnectionPointContainer>();
        const IID events = container::eventInterfaceOf(control.get()).id;
        ASSERT_TRUE(points);
        ComPtr<IConnectionPoint> point;
        ASSERT_EQ(points->FindConnectionPoint(events, point.put()), S_OK);
        IID id{};
        EXPECT_EQ(point->GetConnectionInterface(&id), S_OK);
        EXPECT_EQ(id, events);
        EXPECT_EQ(points->FindConnectionPoint(__uuidof(IDispatch), point.put()), CONNECT_E_NOCONNECTION);
    });
}

TEST_F(ServerEvents, ConnectionsAreCountedAndRefused) {
    const auto points = hosted.site.query<IConnectionPointContainer>();
    ComPtr<IConnectionPoint> notifications;
    ASSERT_EQ(points->FindConnectionPoint(__uuidof(IPropertyNotifySink), notifications.put()), S_OK);
    DWORD cookie = 9;
    EXPECT_EQ(notifications->Advise(&connect(), &cookie), CONNECT_E_CANNOTCONNECT) << "events are none";
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
    connections.reset();
    EXPECT_EQ(notifications->Unadvise(cookie), S_OK);
    EXPECT_EQ(notifications->Unadvise(cookie), CONNECT_E_NOCONNECTION);
    journal->AddRef();
    EXPECT_EQ(journal->Release(), 1u) << "nothing holds it any more";

    ComPtr<IEnumConnectionPoints> all;
    ASSERT_EQ(points->EnumConnectionPoints(all.put()), S_OK);
    EXPECT_EQ(all->Skip(1), S_OK);
    ComPtr<IConnectionPoint> last;
    EXPECT_EQ(all->Next(1, last.put(), nullptr), S_OK);
    EXPECT_EQ(last.get(), notifications.get());
    EXPECT_EQ(all->Skip(1), S_FALSE);
}

TEST_F(ServerEvents, AChangedFontOfTheHostReachesTheControl) {
    const container::Dispatch font(container::makeFont({.name = L"Tahoma", .size = 8}));
    hosted.object().putReference(L"Font", font.get());
    const auto fontHeight = [&] {
        LOGFONTW shown{};
        GetObjectW(reinterpret_cast<HFONT>(SendMessageW(edit(), WM_GETFONT, 0, 0)), sizeof shown, &shown);
        return std::abs(shown.lfHeight);
    };
    const LONG before = fontHeight();
    font.put(L"Size", 24.0);
    EXPECT_GT(fontHeight(), 2 * before);
}

}  // namespace
}  // namespace obk
