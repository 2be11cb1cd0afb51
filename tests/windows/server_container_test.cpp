// What documents, previews and form designers ask of a control, and what they may rely on.
#include "person_support.h"
#include "pixels_support.h"
#include "server_support.h"

#include "container/property_bag_text.h"
#include "container/stored_value.h"
#include "container/text.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace obk {
namespace {

using namespace testing_support;

constexpr uint32_t untouched = DrawnPixels::untouched;

std::pair<LONG, LONG> extentOf(IUnknown* control) {
    SIZEL size{};
    ComPtr<IUnknown>(control).query<IOleObject>()->GetExtent(DVASPECT_CONTENT, &size);
    return {size.cx, size.cy};
}

ptrdiff_t viewChanges(HostedControl& hosted) {
    const auto& calls = hosted.site.siteCalls();
    return std::count(calls.begin(), calls.end(), "OnViewChange");
}

TEST(ServerContainer, AZoomedDocumentLaysTheControlOutAndKeepsItsExtent) {
    for (const wchar_t* name : {L"UpDownTextBox", L"GridEdit", L"PageTab"}) {
        HostedControl hosted(name);
        const auto picture = [&hosted] {
            DrawnPixels pixels(120, 24);
            const RECT place{0, 0, 120, 24};
            hosted.site.draw(pixels.dc(), place);
            return pixels.colours(place);
        };
        hosted.activate({10, 10, 130, 34});
        const auto extent = extentOf(hosted.site.control().get());
        const auto drawn = picture();
        const RECT zoomed{20, 20, 260, 68};
        ASSERT_EQ(hosted.site.query<IOleInPlaceObject>()->SetObjectRects(&zoomed, &zoomed), S_OK);
        RECT window{};
        GetClientRect(hosted.site.window(), &window);
        EXPECT_EQ(window.right, 240) << container::toUtf8(name);
        EXPECT_EQ(window.bottom, 48) << container::toUtf8(name);
        EXPECT_EQ(extentOf(hosted.site.control().get()), extent) << container::toUtf8(name);
        hosted.site.deactivate();
        EXPECT_EQ(extentOf(hosted.site.control().get()), extent) << container::toUtf8(name);
        EXPECT_EQ(picture(), drawn) << container::toUtf8(name);
    }
}

TEST(ServerContainer, ADocumentHearsWhichControlIsActiveAndOfWhichKeyItMayUse) {
    const TestWindow window;
    const container::ControlForm document(window.handle());
    container::SiteSettings inDocument;
    inDocument.document = document.frame();
    HostedControl hosted(L"UpDownTextBox", inDocument);
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
    const LoadedServer server;
    for (const std::wstring& name : serverClasses()) {
        HostedControl hosted(name);
        hosted.activate({10, 10, 60, 60});
        const HWND window = hosted.site.window();
        // A container that does not let the control have its way.
        SetWindowPos(window, nullptr, 0, 0, 61, 53, SWP_NOMOVE | SWP_NOZORDER);
        DrawnPixels pixels(61, 53);
        SendMessageW(window, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(pixels.dc()),
                     PRF_CLIENT | PRF_ERASEBKGND);
        InvalidateRect(window, nullptr, TRUE);
        UpdateWindow(window);
        const HDC dc = GetDC(window);
        BitBlt(pixels.dc(), 0, 0, 61, 53, dc, 0, 0, SRCCOPY);
        ReleaseDC(window, dc);
        EXPECT_NE(pixels.at(60, 52), 0u) << container::toUtf8(name);
        EXPECT_NE(pixels.at(60, 2), 0u) << container::toUtf8(name);
    }
}

TEST(ServerContainer, ADocumentKeepsAPicture) {
    const LoadedServer server;
    for (const std::wstring& name : serverClasses()) {
        const auto control = server.create(name);
        const auto data = control.query<IDataObject>();
        ASSERT_TRUE(data) << container::toUtf8(name);
        ComPtr<IEnumFORMATETC> formats;
        ASSERT_EQ(data->EnumFormatEtc(DATADIR_GET, formats.put()), S_OK);
        FORMATETC format{};
        int seen = 0;
        while (formats->Next(1, &format, nullptr) == S_OK) {
            ++seen;
            EXPECT_EQ(data->QueryGetData(&format), S_OK);
            STGMEDIUM medium{};
            ASSERT_EQ(data->GetData(&format, &medium), S_OK) << container::toUtf8(name);
            DrawnPixels pixels(60, 40);
            const RECT place{0, 0, 60, 40};
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
            EXPECT_LT(pixels.colours(place)[untouched], 60 * 40 / 4) << container::toUtf8(name) << seen;
            ReleaseStgMedium(&medium);
        }
        EXPECT_EQ(seen, 2);
        format.cfFormat = CF_BITMAP;
        EXPECT_EQ(data->QueryGetData(&format), DV_E_FORMATETC);
    }
}

TEST(ServerContainer, WhatAPersonChangesIsAChangeOfTheView) {
    HostedControl field(L"UpDownTextBox"), grid(L"GridEdit"), tabs(L"PageTab");
    tabs.object().put(L"ActiveTabs", L"Home,Video");
    for (HostedControl* hosted : {&field, &grid, &tabs}) {
        Person person(hosted->loop, hosted->window.handle());
        hosted->activate({10, 10, 210, 110});
        hosted->form.enter(hosted->site);
        hosted->loop.pumpPending();
        hosted->site.siteCalls().clear();
        if (hosted == &tabs)
            person.click(hosted->site.window(), 60, 8);
        else
            person.key('7');
        UpdateWindow(hosted->site.window());
        EXPECT_GT(viewChanges(*hosted), 0) << (hosted == &field  ? "field"
                                               : hosted == &grid ? "grid"
                                                                 : "tabs");
        hosted->site.siteCalls().clear();
        InvalidateRect(hosted->site.window(), nullptr, TRUE);
        UpdateWindow(hosted->site.window());
        EXPECT_EQ(viewChanges(*hosted), 0) << "uncovered, not changed";
    }
}

TEST(ServerContainer, NothingCanBeChangedWhileAFormIsDesigned) {
    for (const wchar_t* name : {L"UpDownTextBox", L"DateCalendar", L"PageTab"}) {
        HostedControl hosted(name,
                             {L"Any", container::SiteOrder::asControlAsks, container::SiteMode::design});
        const auto object = hosted.object();
        if (name == std::wstring(L"UpDownTextBox")) object.put(L"Interval", 1.0);
        if (name == std::wstring(L"PageTab")) object.put(L"ActiveTabs", L"Home,&Video");
        hosted.activate({10, 10, 130, 34});
        Person person(hosted.loop, hosted.window.handle());
        const auto state = [&] {
            const ComPtr<container::PropertyBagText> bag(new container::PropertyBagText);
            hosted.site.query<IPersistPropertyBag>()->Save(bag.get(), FALSE, TRUE);
            return bag->entries().size();
        };
        const auto before = state();
        hosted.takeEvents();
        // Where these go to is the system's affair, so nobody waits for them to arrive.
        for (const POINT at : {POINT{112, 6}, POINT{40, 10}}) {
            POINT place = at;
            ClientToScreen(hosted.site.window(), &place);
            SetCursorPos(place.x, place.y);
            for (const DWORD done :
                 {DWORD{MOUSEEVENTF_LEFTDOWN}, DWORD{MOUSEEVENTF_LEFTUP}, DWORD{MOUSEEVENTF_WHEEL}})
                sendMouse(done, done == MOUSEEVENTF_WHEEL ? WHEEL_DELTA : 0);
            hosted.loop.pumpPending();
        }
        person.type(L"75");
        MSG message{hosted.site.window(), WM_SYSKEYDOWN, 'V', 0, 0, {}};
        hosted.site.query<IOleControl>()->OnMnemonic(&message);
        EXPECT_EQ(container::toUtf8(hosted.takeEvents()), "") << container::toUtf8(name);
        EXPECT_EQ(state(), before) << container::toUtf8(name);
        // Unless the container makes it live.
        hosted.site.doVerb(OLEIVERB_UIACTIVATE);
        EXPECT_TRUE(IsWindowEnabled(hosted.site.window())) << container::toUtf8(name);
        hosted.site.query<IOleInPlaceObject>()->UIDeactivate();
        EXPECT_FALSE(IsWindowEnabled(hosted.site.window())) << container::toUtf8(name);
    }
}

TEST(ServerContainer, QuickActivationIsAllInOneCall) {
    const LoadedServer server;
    HostedControl watcher(L"UpDownTextBox");  // whose container lends its sinks
    ComPtr<IAdviseSink> view;
    ASSERT_EQ(watcher.site.query<IViewObject>()->GetAdvise(nullptr, nullptr, view.put()), S_OK);
    ComPtr<IOleClientSite> site;
    ASSERT_EQ(watcher.site.query<IOleObject>()->GetClientSite(site.put()), S_OK);
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
    SIZEL size{10000, 5000};  // a hundred for each pixel
    view.query<IOleObject>()->SetExtent(DVASPECT_CONTENT, &size);
    const RECT bounds{10, 10, 110, 60};
    DWORD hit = 99;
    EXPECT_EQ(view->QueryHitPoint(DVASPECT_CONTENT, &bounds, {10, 10}, 0, &hit), S_OK);
    EXPECT_EQ(hit, DWORD{HITRESULT_HIT});
    EXPECT_EQ(view->QueryHitPoint(DVASPECT_CONTENT, &bounds, {110, 30}, 0, &hit), S_OK);
    EXPECT_EQ(hit, DWORD{HITRESULT_OUTSIDE});
    for (const LONG beyond : {9, 10}) {
        EXPECT_EQ(view->QueryHitPoint(DVASPECT_CONTENT, &bounds, {110 + beyond, 30}, 1000, &hit), S_OK);
        EXPECT_EQ(hit, DWORD{beyond < 10 ? HITRESULT_CLOSE : HITRESULT_OUTSIDE});
    }
    EXPECT_EQ(view->QueryHitPoint(DVASPECT_ICON, &bounds, {10, 10}, 0, &hit), DV_E_DVASPECT);
}

TEST(ServerContainer, TwoControlsLoadedWithOneFontHaveOneEach) {
    const LoadedServer server;
    container::StoredFont described;
    described.name = L"Courier New";
    described.size = 12;
    // One bag, whose font is read as the same object each time.
    class OneFont final : public ComObject<IPropertyBag> {
    public:
        explicit OneFont(ComPtr<IDispatch> font) : font_(std::move(font)) {}
        HRESULT STDMETHODCALLTYPE Read(LPCOLESTR key, VARIANT* value, IErrorLog*) override {
            if (_wcsicmp(key, L"Font") != 0) return E_INVALIDARG;
            V_VT(value) = VT_DISPATCH;
            V_DISPATCH(value) = font_.share();
            return S_OK;
        }
        HRESULT STDMETHODCALLTYPE Write(LPCOLESTR, VARIANT*) override { return S_OK; }

    private:
        ComPtr<IDispatch> font_;
    };
    const ComPtr<IPropertyBag> bag(new OneFont(container::makeFont(described)));
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
    HostedControl field(L"UpDownTextBox"), date(L"DateCalendar"), grid(L"GridEdit");
    for (HostedControl* hosted : {&field, &date, &grid}) {
        Person person(hosted->loop, hosted->window.handle());
        const HWND other = hosted->window.addEdit(200);
        hosted->activate({10, 10, 210, 110});
        hosted->form.enter(hosted->site);
        hosted->loop.pumpPending();
        person.key('7');
        person.key('5');
        const HWND focus = GetFocus();
        const auto text = [&] {
            wchar_t typed[20] = L"";
            GetWindowTextW(focus, typed, 20);
            return container::toUtf8(typed);
        };
        const std::string typed = text();
        EXPECT_TRUE(typed.starts_with("75")) << typed;
        hosted->takeEvents();
        elsewhere.comeToFront();
        EXPECT_TRUE(person.waitFor([] { return !GetActiveWindow() && !GetFocus(); }));
        EXPECT_EQ(text(), typed);
        EXPECT_TRUE(IsWindowVisible(focus));
        {
            const FocusHandedOn back(hosted->window.handle(), focus);
            SetForegroundWindow(hosted->window.handle());
            EXPECT_TRUE(person.waitFor([&] { return GetFocus() == focus; }));
        }
        person.wait(std::chrono::milliseconds(40));
        EXPECT_EQ(container::toUtf8(hosted->takeEvents()), "");
        EXPECT_EQ(text(), typed) << "still being typed";
        SetFocus(other);
        hosted->loop.pumpPending();
        EXPECT_NE(container::toUtf8(hosted->takeEvents()), "") << "left at last";
    }
}

}  // namespace
}  // namespace obk
