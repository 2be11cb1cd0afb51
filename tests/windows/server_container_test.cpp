// What documents, previews and form designers ask of a control, and what they may rely on.
#include "person_support.h"
#include "pixels_support.h"
#include "server_support.h"

#include "container/property_bag_text.h"
#include "container/stored_value.h"
#include "container/text.h"

#include <gtest/gtest.h>

namespace obk {
namespace {

using namespace testing_support;

constexpr uint32_t untouched = DrawnPixels::untouched;

TEST(ServerContainer, AZoomedDocumentLaysTheControlOutAndKeepsItsExtent) {
    SetCursorPos(600, 600);  // a caption under the mouse has another colour
    for (const wchar_t* name : {L"UpDownTextBox", L"GridEdit", L"PageTab"}) {
        SCOPED_TRACE(container::toUtf8(name));
        HostedControl hosted(name);
        const auto state = [&hosted] {
            DrawnPixels pixels(120, 24);
            hosted.site.draw(pixels.dc(), pixels.all());
            return std::pair(extentOf(hosted.site.control().get()), pixels.colours(pixels.all()));
        };
        hosted.activate({10, 10, 130, 34});
        const auto before = state();
        const RECT zoomed{20, 20, 260, 68};
        ASSERT_EQ(hosted.site.query<IOleInPlaceObject>()->SetObjectRects(&zoomed, &zoomed), S_OK);
        RECT window{};
        GetClientRect(hosted.site.window(), &window);
        EXPECT_EQ(std::pair(window.right, window.bottom), std::pair(240L, 48L));
        EXPECT_EQ(extentOf(hosted.site.control().get()), before.first);
        hosted.site.deactivate();
        EXPECT_EQ(state(), before);
    }
}

TEST(ServerContainer, ADocumentHearsWhichControlIsActiveAndOfWhichKeyItMayUse) {
    const TestWindow window;
    const container::ControlForm document(window.handle());
    HostedControl hosted(L"UpDownTextBox", {L"", container::SiteOrder::asControlAsks,
                                            container::SiteMode::run, document.frame()});
    hosted.activate();
    hosted.form.enter(hosted.site);
    EXPECT_TRUE(document.activeObject());
    std::vector<LPARAM> offered;
    hosted.site.onKey = [&](MSG& key) {
        offered.push_back(key.lParam);
        return true;
    };
    const LPARAM first = MapVirtualKeyW(VK_F5, MAPVK_VK_TO_VSC) << 16 | 1, repeated = first | 1 << 30;
    for (const LPARAM key : {first, repeated}) SendMessageW(GetFocus(), WM_KEYDOWN, VK_F5, key);
    EXPECT_EQ(offered, (std::vector{first, repeated}));
    hosted.site.uiDeactivate();
    EXPECT_FALSE(document.activeObject());
}

TEST(ServerContainer, NoSizeLeavesAnEdgeUnpainted) {
    for (const std::wstring& name : serverClasses()) {
        HostedControl hosted(name);
        hosted.activate({10, 10, 60, 60});
        const HWND window = hosted.site.window();
        // A container that does not let the control have its way.
        SetWindowPos(window, nullptr, 0, 0, 61, 53, SWP_NOMOVE | SWP_NOZORDER);
        DrawnPixels pixels(61, 53);
        RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
        const HDC dc = GetDC(window);
        BitBlt(pixels.dc(), 0, 0, 61, 53, dc, 0, 0, SRCCOPY);
        ReleaseDC(window, dc);
        for (const int y : {2, 52}) EXPECT_NE(pixels.at(60, y), 0u) << container::toUtf8(name) << y;
    }
}

TEST(ServerContainer, ADocumentKeepsAPicture) {
    withEachControl([](const ComPtr<IUnknown>& control, const std::wstring&) {
        const auto data = control.query<IDataObject>();
        ASSERT_TRUE(data);
        ComPtr<IEnumFORMATETC> formats;
        ASSERT_EQ(data->EnumFormatEtc(DATADIR_GET, formats.put()), S_OK);
        FORMATETC format{};
        int seen = 0;
        for (; formats->Next(1, &format, nullptr) == S_OK; ++seen) {
            EXPECT_EQ(data->QueryGetData(&format), S_OK);
            STGMEDIUM medium{};
            ASSERT_EQ(data->GetData(&format, &medium), S_OK);
            DrawnPixels pixels(60, 40);
            const RECT place = pixels.all();
            if (medium.tymed == TYMED_ENHMF) {
                PlayEnhMetaFile(pixels.dc(), medium.hEnhMetaFile, &place);
            } else {
                const auto* old = static_cast<METAFILEPICT*>(GlobalLock(medium.hMetaFilePict));
                EXPECT_EQ(std::pair(old->xExt, old->yExt), extentOf(control.get()));
                SetMapMode(pixels.dc(), MM_ANISOTROPIC);
                SetViewportExtEx(pixels.dc(), 60, 40, nullptr);
                PlayMetaFile(pixels.dc(), old->hMF);
                GlobalUnlock(medium.hMetaFilePict);
            }
            EXPECT_LT(pixels.colours(place)[DrawnPixels::untouched], 60 * 40 / 4) << seen;
            ReleaseStgMedium(&medium);
        }
        EXPECT_EQ(seen, 2);
        format.cfFormat = CF_BITMAP;
        EXPECT_EQ(data->QueryGetData(&format), DV_E_FORMATETC);
    });
}

TEST(ServerContainer, WhatAPersonChangesIsAChangeOfTheView) {
    for (const wchar_t* name : {L"UpDownTextBox", L"GridEdit", L"PageTab"}) {
        SCOPED_TRACE(container::toUtf8(name));
        HostedControl hosted(name);
        hosted.object().put(L"ActiveTabs", L"Home,Video");
        Person person(hosted.loop, hosted.window.handle());
        hosted.activate({10, 10, 210, 110});
        hosted.form.enter(hosted.site);
        hosted.loop.pumpPending();
        hosted.takeCalls("OnViewChange");
        if (name == std::wstring(L"PageTab"))
            person.click(hosted.site.window(), 60, 8);
        else
            person.key('7');
        UpdateWindow(hosted.site.window());
        EXPECT_GT(hosted.takeCalls("OnViewChange"), 0);
        RedrawWindow(hosted.site.window(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
        EXPECT_EQ(hosted.takeCalls("OnViewChange"), 0) << "uncovered, not changed";
    }
}

TEST(ServerContainer, NothingCanBeChangedWhileAFormIsDesigned) {
    for (const wchar_t* name : {L"UpDownTextBox", L"DateCalendar", L"PageTab"}) {
        SCOPED_TRACE(container::toUtf8(name));
        HostedControl hosted(name,
                             {L"Any", container::SiteOrder::asControlAsks, container::SiteMode::design});
        hosted.object().put(L"Interval", 1.0);
        hosted.object().put(L"ActiveTabs", L"Home,&Video");
        hosted.activate({10, 10, 130, 34});
        Person person(hosted.loop, hosted.window.handle());
        const auto state = [&] {
            container::FormText form;
            EXPECT_EQ(hosted.site.save(form.add(L"Any", name).bag.get()), S_OK);
            return container::toUtf8(form.write());
        };
        const std::string before = state();
        hosted.takeEvents();
        // Where these go to is the system's affair, so nobody waits for them to arrive.
        for (const POINT at : {POINT{112, 6}, POINT{40, 10}}) {
            POINT place = at;
            ClientToScreen(hosted.site.window(), &place);
            SetCursorPos(place.x, place.y);
            for (const DWORD done : {MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP}) sendMouse(done);
            sendMouse(MOUSEEVENTF_WHEEL, WHEEL_DELTA);
            hosted.loop.pumpPending();
        }
        person.type(L"75");
        MSG message{hosted.site.window(), WM_SYSKEYDOWN, 'V', 0, 0, {}};
        hosted.site.query<IOleControl>()->OnMnemonic(&message);
        EXPECT_EQ(container::toUtf8(hosted.takeEvents()), "");
        EXPECT_EQ(state(), before);
        // Unless the container makes it live.
        hosted.site.doVerb(OLEIVERB_UIACTIVATE);
        EXPECT_TRUE(IsWindowEnabled(hosted.site.window()));
        hosted.site.query<IOleInPlaceObject>()->UIDeactivate();
        EXPECT_FALSE(IsWindowEnabled(hosted.site.window()));
    }
}

TEST(ServerContainer, QuickActivationIsAllInOneCall) {
    const LoadedServer server;
    HostedControl other(L"UpDownTextBox");  // whose container lends its site
    ComPtr<IOleClientSite> site;
    ASSERT_EQ(other.site.query<IOleObject>()->GetClientSite(site.put()), S_OK);
    const auto control = server.create(L"UpDownTextBox");
    const ComPtr<container::EventSink> events(new container::EventSink);
    QACONTAINER given{};
    given.cbSize = sizeof given;
    given.pClientSite = site.get();
    given.pUnkEventSink = static_cast<IDispatch*>(events.get());
    QACONTROL answered{};
    EXPECT_EQ(control.query<IQuickActivate>()->QuickActivate(&given, &answered), E_INVALIDARG) << "no size";
    answered.cbSize = sizeof answered;
    ASSERT_EQ(control.query<IQuickActivate>()->QuickActivate(&given, &answered), S_OK);
    DWORD status = 0;
    control.query<IOleObject>()->GetMiscStatus(DVASPECT_CONTENT, &status);
    EXPECT_EQ(answered.dwMiscStatus, status);
    EXPECT_EQ(answered.dwViewStatus, DWORD{VIEWSTATUS_OPAQUE});
    EXPECT_EQ(answered.dwPropNotifyCookie, 0u);
    ASSERT_NE(answered.dwEventCookie, 0u);
    container::Dispatch(control.get()).put(L"Text", L"3");
    EXPECT_FALSE(events->journal().empty()) << "it hears Change";
    ComPtr<IOleClientSite> own;
    control.query<IOleObject>()->GetClientSite(own.put());
    EXPECT_EQ(own.get(), site.get());
    control.query<IOleObject>()->SetClientSite(nullptr);
}

TEST(ServerContainer, AWindowlessViewAnswersWhereItIsHit) {
    const LoadedServer server;
    const auto view = server.create(L"lns").query<IViewObjectEx>();
    ASSERT_TRUE(view);
    setExtent(view.get(), {10000, 5000});  // a hundred for each pixel
    const RECT bounds{10, 10, 110, 60};
    const auto hit = [&](POINT at, LONG closeBy) {
        DWORD answer = 99;
        EXPECT_EQ(view->QueryHitPoint(DVASPECT_CONTENT, &bounds, at, closeBy, &answer), S_OK);
        return answer;
    };
    EXPECT_EQ(hit({10, 10}, 0), DWORD{HITRESULT_HIT});
    EXPECT_EQ(hit({110, 30}, 0), DWORD{HITRESULT_OUTSIDE});
    EXPECT_EQ(hit({119, 30}, 1000), DWORD{HITRESULT_CLOSE});
    EXPECT_EQ(hit({120, 30}, 1000), DWORD{HITRESULT_OUTSIDE});
    DWORD answer = 99;
    EXPECT_EQ(view->QueryHitPoint(DVASPECT_ICON, &bounds, {10, 10}, 0, &answer), DV_E_DVASPECT);
}

TEST(ServerContainer, TwoControlsLoadedWithOneFontHaveOneEach) {
    // One bag, whose font is read as the same object each time.
    class OneFont final : public ComObject<IPropertyBag> {
        HRESULT STDMETHODCALLTYPE Read(LPCOLESTR key, VARIANT* value, IErrorLog*) override {
            return _wcsicmp(key, L"Font") == 0 ? VariantCopy(value, const_cast<VARIANT*>(&font_.get()))
                                               : E_INVALIDARG;
        }
        HRESULT STDMETHODCALLTYPE Write(LPCOLESTR, VARIANT*) override { return S_OK; }

        const container::Variant font_{container::makeFont({.name = L"Courier New", .size = 12}).get()};
    };
    const LoadedServer server;
    const ComPtr<IPropertyBag> bag(new OneFont);
    const auto first = server.create(L"UpDownTextBox"), second = server.create(L"UpDownTextBox");
    for (const auto& control : {first, second})
        control.query<IPersistPropertyBag>()->Load(bag.get(), nullptr);
    const auto font = [](const ComPtr<IUnknown>& control) {
        return container::Dispatch(control.get()).value(L"Font").toObject();
    };
    EXPECT_EQ(container::Dispatch(font(first).get()).put(L"Size", 20.0), S_OK);
    EXPECT_NEAR(container::describeFont(font(first).get())->size, 20, 0.5);
    EXPECT_NEAR(container::describeFont(font(second).get())->size, 12, 0.5);
}

TEST(ServerContainer, AnotherApplicationLeavesWhatIsHalfTyped) {
    const OtherApplication elsewhere;
    for (const wchar_t* name : {L"UpDownTextBox", L"DateCalendar", L"GridEdit"}) {
        HostedControl hosted(name);
        Person person(hosted.loop, hosted.window.handle());
        const HWND other = hosted.window.addEdit(200);
        hosted.activate({10, 10, 210, 110});
        hosted.form.enter(hosted.site);
        hosted.loop.pumpPending();
        person.type(L"75");
        const HWND focus = GetFocus();
        const auto text = [&] {
            wchar_t typed[20] = L"";
            GetWindowTextW(focus, typed, 20);
            return container::toUtf8(typed);
        };
        const std::string typed = text();
        EXPECT_TRUE(typed.starts_with("75")) << typed;
        hosted.takeEvents();
        elsewhere.comeToFront();
        EXPECT_TRUE(person.waitFor([] { return !GetActiveWindow() && !GetFocus(); }));
        EXPECT_EQ(text(), typed);
        EXPECT_TRUE(IsWindowVisible(focus));
        {
            const FocusHandedOn back(hosted.window.handle(), focus);
            SetForegroundWindow(hosted.window.handle());
            EXPECT_TRUE(person.waitFor([&] { return GetFocus() == focus; }));
        }
        person.wait(std::chrono::milliseconds(40));
        EXPECT_EQ(container::toUtf8(hosted.takeEvents()), "");
        EXPECT_EQ(text(), typed) << "still being typed";
        SetFocus(other);
        hosted.loop.pumpPending();
        EXPECT_NE(container::toUtf8(hosted.takeEvents()), "") << "left at last";
    }
}

}  // namespace
}  // namespace obk
