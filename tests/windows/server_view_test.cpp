// What a container sees of a control without activating it: its size, its picture, its verbs, its choices.
#include "pixels_support.h"
#include "server_support.h"

#include "container/text.h"
#include "container/type_members.h"
#include "server/categorize_properties.h"

#include <gtest/gtest.h>

#include <olectl.h>

#include <algorithm>
#include <set>

namespace obk {
namespace {

using namespace testing_support;

constexpr uint32_t untouched = DrawnPixels::untouched;

HRESULT draw(IUnknown* control, HDC context, const RECT& bounds) {
    const RECTL area{bounds.left, bounds.top, bounds.right, bounds.bottom};
    return ComPtr<IUnknown>(control).query<IViewObject2>()->Draw(
        DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, context, &area, nullptr, nullptr, 0);
}

class ServerView : public testing::Test {
protected:
    LoadedServer server;
};

TEST_F(ServerView, EveryControlFillsItsBoundsAndNothingElseAtAnyScale) {
    for (const std::wstring& name : serverClasses()) {
        const auto control = server.create(name);
        SIZEL size{2540, 635};
        control.query<IOleObject>()->SetExtent(DVASPECT_CONTENT, &size);
        for (const RECT bounds : {RECT{20, 10, 116, 34}, RECT{0, 0, 192, 48}, RECT{3, 3, 243, 63}}) {
            DrawnPixels pixels(260, 80);
            ASSERT_EQ(draw(control.get(), pixels.dc(), bounds), S_OK);
            const auto inside = pixels.colours(bounds);
            EXPECT_FALSE(inside.contains(untouched)) << container::toUtf8(name);
            EXPECT_GT(inside.size(), 1u) << container::toUtf8(name) << " shows nothing";
            EXPECT_EQ(pixels.colours(pixels.all())[untouched],
                      260 * 80 - (bounds.right - bounds.left) * (bounds.bottom - bounds.top))
                << container::toUtf8(name);
        }
    }
}

TEST_F(ServerView, ALiveControlDrawsTheSameInsideMappedContexts) {
    const auto control = server.create(L"UpDownTextBox");
    SIZEL size{2540, 635};
    control.query<IOleObject>()->SetExtent(DVASPECT_CONTENT, &size);
    container::Dispatch(control.get()).put(L"Text", L"42");
    DrawnPixels plain(200, 60), mapped(200, 60), moved(200, 60);
    ASSERT_EQ(draw(control.get(), plain.dc(), {40, 20, 136, 44}), S_OK);
    // Ten units a pixel, counted upwards.
    SetMapMode(mapped.dc(), MM_ANISOTROPIC);
    SetWindowExtEx(mapped.dc(), 2000, 600, nullptr);
    SetViewportExtEx(mapped.dc(), 200, -60, nullptr);
    SetViewportOrgEx(mapped.dc(), 0, 60, nullptr);
    ASSERT_EQ(draw(control.get(), mapped.dc(), {400, 400, 1360, 160}), S_OK);
    const XFORM aside{1, 0, 0, 1, 40, 20};
    SetGraphicsMode(moved.dc(), GM_ADVANCED);
    SetWorldTransform(moved.dc(), &aside);
    ASSERT_EQ(draw(control.get(), moved.dc(), {0, 0, 96, 24}), S_OK);
    for (int y = 0; y < 60; ++y) {
        for (int x = 0; x < 200; ++x) {
            ASSERT_EQ(plain.at(x, y), mapped.at(x, y)) << x << ", " << y;
            ASSERT_EQ(plain.at(x, y), moved.at(x, y)) << x << ", " << y;
        }
    }
    POINT origin{};
    GetViewportOrgEx(mapped.dc(), &origin);
    EXPECT_EQ(GetMapMode(mapped.dc()), MM_ANISOTROPIC) << "the context is given back as it was";
    EXPECT_EQ(origin.y, 60);
}

TEST_F(ServerView, AMetafileRecordsTheControlForPrinting) {
    for (const std::wstring& name : serverClasses()) {
        const auto control = server.create(name);
        const RECT frame{0, 0, 5080, 1270};
        const HDC recording = CreateEnhMetaFileW(nullptr, nullptr, &frame, nullptr);
        ASSERT_EQ(draw(control.get(), recording, {0, 0, 96, 24}), S_OK);
        const HENHMETAFILE file = CloseEnhMetaFile(recording);
        ENHMETAHEADER header{};
        ASSERT_TRUE(GetEnhMetaFileHeader(file, sizeof header, &header));
        EXPECT_GT(header.nRecords, 3u) << container::toUtf8(name);
        DrawnPixels pixels(200, 60);
        const RECT target{0, 0, 192, 48};
        PlayEnhMetaFile(pixels.dc(), file, &target);
        EXPECT_LT(pixels.colours(target)[untouched], 192 * 48 - 96) << container::toUtf8(name);
        DeleteEnhMetaFile(file);
    }
}

TEST_F(ServerView, AFrozenViewKeepsItsLook) {
    const auto control = server.create(L"UpDownTextBox");
    const auto view = control.query<IViewObject2>();
    const RECT bounds{0, 0, 96, 24};
    DWORD key = 0;
    ASSERT_EQ(view->Freeze(DVASPECT_CONTENT, -1, nullptr, &key), S_OK);
    DrawnPixels before(96, 24), frozen(96, 24), thawed(96, 24);
    draw(control.get(), before.dc(), bounds);
    container::Dispatch(control.get()).put(L"BackColor", 0x0000FFL);
    draw(control.get(), frozen.dc(), bounds);
    EXPECT_EQ(before.colours(bounds), frozen.colours(bounds));
    EXPECT_EQ(view->Unfreeze(key), S_OK);
    EXPECT_EQ(view->Unfreeze(key), OLE_E_NOCONNECTION);
    draw(control.get(), thawed.dc(), bounds);
    EXPECT_TRUE(thawed.colours(bounds).contains(0xFF0000u)) << "red, as pixels hold it";
}

TEST_F(ServerView, ExtentsAreTheContainersExceptForAFixedSize) {
    for (const std::wstring& name : serverClasses()) {
        const auto control = server.create(name);
        const auto object = control.query<IOleObject>();
        SIZEL first{}, second{5080, 1270}, answered{};
        ASSERT_EQ(object->GetExtent(DVASPECT_CONTENT, &first), S_OK);
        ASSERT_EQ(object->SetExtent(DVASPECT_CONTENT, &second), S_OK);
        ASSERT_EQ(control.query<IViewObject2>()->GetExtent(DVASPECT_CONTENT, -1, nullptr, &answered), S_OK);
        if (name == L"ButtonArrow") {
            EXPECT_EQ(answered.cx, first.cx);
            EXPECT_EQ(answered.cy, first.cy);
        } else {
            EXPECT_EQ(answered.cx, second.cx) << container::toUtf8(name);
            EXPECT_EQ(answered.cy, second.cy) << container::toUtf8(name);
        }
        EXPECT_EQ(object->SetExtent(DVASPECT_ICON, &second), DV_E_DVASPECT);
    }
}

TEST_F(ServerView, AFixedSizeSnapsBackInTheContainerWithoutALoop) {
    HostedControl hosted(L"ButtonArrow");
    hosted.activate({10, 10, 90, 60});
    const RECT settled = hosted.site.position();
    EXPECT_LT(settled.right - settled.left, 30);
    for (const LONG edge : {200, 150}) {
        auto& calls = hosted.site.siteCalls();
        calls.clear();
        hosted.site.moveTo({10, 10, edge, edge});
        hosted.loop.pumpPending();
        const RECT now = hosted.site.position();
        EXPECT_EQ(now.right - now.left, settled.right - settled.left);
        EXPECT_EQ(now.bottom - now.top, settled.bottom - settled.top);
        EXPECT_LE(std::count(calls.begin(), calls.end(), "OnPosRectChange"), 2);
    }
}

TEST_F(ServerView, DecorationIsNeverUiActive) {
    for (const wchar_t* name : {L"lns", L"ButtonArrow"}) {
        HostedControl hosted(name);
        hosted.activate();
        hosted.site.uiActivate();
        EXPECT_EQ(hosted.site.state(), container::SiteState::inPlaceActive);
    }
}

TEST_F(ServerView, WhoeverEndsTheActivationTheContainerHearsOfBothEnds) {
    for (const bool byLosingTheSite : {false, true}) {
        HostedControl hosted(L"UpDownTextBox");
        hosted.activate();
        hosted.site.uiActivate();
        const HWND window = hosted.site.window();
        if (byLosingTheSite)
            hosted.site.query<IOleObject>()->SetClientSite(nullptr);
        else
            hosted.site.query<IOleInPlaceObject>()->InPlaceDeactivate();
        EXPECT_FALSE(IsWindow(window) && IsWindowVisible(window));
        const auto& calls = hosted.site.siteCalls();
        for (const char* end : {"OnUIDeactivate", "OnInPlaceDeactivate"})
            EXPECT_EQ(std::count(calls.begin(), calls.end(), end), 1) << end;
    }
}

TEST_F(ServerView, ChangesAreToldToWhoeverWatchesTheView) {
    HostedControl hosted(L"UpDownTextBox");
    hosted.site.siteCalls().clear();
    hosted.object().put(L"Text", L"9");
    auto& calls = hosted.site.siteCalls();
    EXPECT_GE(std::count(calls.begin(), calls.end(), "OnViewChange"), 1);
    calls.clear();
    SIZEL size{5080, 1270};
    hosted.site.query<IOleObject>()->SetExtent(DVASPECT_CONTENT, &size);
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "OnViewChange"), 1);
    // Who asks for it is told at once, and who wants to hear of one change hears of no second.
    const auto view = hosted.site.query<IViewObject>();
    ComPtr<IAdviseSink> sink;
    ASSERT_EQ(view->GetAdvise(nullptr, nullptr, sink.put()), S_OK);
    for (const DWORD when : {ADVF_PRIMEFIRST, ADVF_ONLYONCE}) {
        calls.clear();
        view->SetAdvise(DVASPECT_CONTENT, when, sink.get());
        EXPECT_EQ(std::ssize(calls), when == ADVF_PRIMEFIRST ? 1 : 0);
        for (const wchar_t* text : {L"7", L"8"}) hosted.object().put(L"Text", text);
        EXPECT_EQ(std::ssize(calls) == 1, when == ADVF_ONLYONCE);
    }
}

TEST_F(ServerView, ItsEndIsToldOnceForEachTimeThatItRan) {
    HostedControl hosted(L"UpDownTextBox");
    const auto object = hosted.site.query<IOleObject>();
    ComPtr<IAdviseSink> sink;
    DWORD cookie = 0;
    ASSERT_EQ(hosted.site.query<IViewObject>()->GetAdvise(nullptr, nullptr, sink.put()), S_OK);
    ASSERT_EQ(object->Advise(sink.get(), &cookie), S_OK);
    for (const int times : {1, 2}) {
        hosted.activate();
        object->Close(OLECLOSE_NOSAVE);
        object->Close(OLECLOSE_NOSAVE);
        const auto& calls = hosted.site.siteCalls();
        EXPECT_EQ(std::count(calls.begin(), calls.end(), "OnClose"), times);
    }
    DWORD later = 0;
    ASSERT_EQ(object->Advise(sink.get(), &later), S_OK);
    object->Close(OLECLOSE_NOSAVE);
    EXPECT_EQ(std::count(hosted.site.siteCalls().begin(), hosted.site.siteCalls().end(), "OnClose"), 4)
        << "also to who asks afterwards";
    object->Unadvise(later);
    // What has changed is saved, unless the container does not want it.
    for (const DWORD option : {OLECLOSE_SAVEIFDIRTY, OLECLOSE_PROMPTSAVE, OLECLOSE_NOSAVE}) {
        auto& calls = hosted.site.siteCalls();
        hosted.site.query<IPersistStreamInit>()->InitNew();
        for (const bool changed : {false, true}) {
            if (changed) hosted.object().put(L"Text", L"7");
            calls.clear();
            object->Close(option);
            EXPECT_EQ(std::count(calls.begin(), calls.end(), "SaveObject"),
                      changed && option != OLECLOSE_NOSAVE ? 1 : 0)
                << option;
        }
    }
}

TEST_F(ServerView, VerbsAreListedAndHidingHides) {
    HostedControl hosted(L"UpDownTextBox");
    ComPtr<IEnumOLEVERB> verbs;
    ASSERT_EQ(hosted.site.query<IOleObject>()->EnumVerbs(verbs.put()), S_OK);
    std::set<LONG> numbers;
    OLEVERB verb{};
    while (verbs->Next(1, &verb, nullptr) == S_OK) {
        numbers.insert(verb.lVerb);
        CoTaskMemFree(verb.lpszVerbName);
    }
    EXPECT_TRUE(numbers.contains(OLEIVERB_PRIMARY) && numbers.contains(OLEIVERB_PROPERTIES));
    hosted.activate();
    hosted.site.uiActivate();
    EXPECT_EQ(hosted.site.doVerb(OLEIVERB_HIDE), S_OK);
    EXPECT_EQ(hosted.site.siteCalls().back(), "OnUIDeactivate");
    EXPECT_FALSE(IsWindowVisible(hosted.site.window()));
    EXPECT_EQ(hosted.site.doVerb(OLEIVERB_SHOW), S_OK);
    EXPECT_TRUE(IsWindowVisible(hosted.site.window()));
    EXPECT_EQ(hosted.site.doVerb(OLEIVERB_DISCARDUNDOSTATE), S_OK);
    EXPECT_EQ(hosted.site.doVerb(-100), E_NOTIMPL);
}

TEST_F(ServerView, ABusyContainerLetsNobodyType) {
    HostedControl hosted(L"UpDownTextBox");
    hosted.activate();
    hosted.site.setAmbient(DISPID_AMBIENT_UIDEAD, true);
    EXPECT_FALSE(IsWindowEnabled(hosted.site.window()));
    hosted.site.setAmbient(DISPID_AMBIENT_UIDEAD, false);
    EXPECT_TRUE(IsWindowEnabled(hosted.site.window()));
}

TEST_F(ServerView, PropertyBrowsersAreOfferedChoicesAndPages) {
    for (const std::wstring& name : serverClasses()) {
        const auto control = server.create(name);
        const auto browsing = control.query<IPerPropertyBrowsing>();
        const auto grouping = control.query<server::ICategorizeProperties>();
        const container::TypeMembers members = container::TypeMembers::of(control.get());
        std::set<std::wstring> wantedPages, givenPages;
        for (const auto& member : members.properties()) {
            CALPOLESTR texts{};
            CADWORD cookies{};
            const bool named = member.name.ends_with(L"Alignment") || member.name == L"BorderStyle";
            const bool choices = member.readable && (member.type.kind == container::ValueKind::boolean ||
                                                     named || !member.type.choices.empty());
            EXPECT_EQ(browsing->GetPredefinedStrings(member.number, &texts, &cookies),
                      choices ? S_OK : S_FALSE);
            EXPECT_EQ(texts.cElems, cookies.cElems);
            for (ULONG at = 0; at < texts.cElems; ++at) {
                // What is chosen is put, and then shown by the same text.
                container::Variant value;
                EXPECT_EQ(browsing->GetPredefinedValue(member.number, cookies.pElems[at], value.put()), S_OK);
                EXPECT_EQ(container::Dispatch(control.get()).put(member.number, value), S_OK);
                Bstr shown;
                EXPECT_EQ(browsing->GetDisplayString(member.number, shown.put()), S_OK);
                EXPECT_EQ(shown.view(), texts.pElems[at]);
                CoTaskMemFree(texts.pElems[at]);
            }
            CoTaskMemFree(texts.pElems);
            CoTaskMemFree(cookies.pElems);
            auto category = server::PropertyCategory::misc;
            EXPECT_EQ(grouping->MapPropertyToCategory(member.number, &category), S_OK);
            EXPECT_EQ(category == server::PropertyCategory::font,
                      member.type.kind == container::ValueKind::font);
            EXPECT_NE(category, server::PropertyCategory::misc);
            CLSID page{};
            const HRESULT mapped = browsing->MapPropertyToPage(member.number, &page);
            wchar_t text[40];
            if (mapped == S_OK && StringFromGUID2(page, text, 40)) wantedPages.insert(text);
        }
        CAUUID pages{};
        ASSERT_EQ(control.query<ISpecifyPropertyPages>()->GetPages(&pages), S_OK);
        for (ULONG at = 0; at < pages.cElems; ++at) {
            wchar_t text[40];
            StringFromGUID2(pages.pElems[at], text, 40);
            givenPages.insert(text);
        }
        CoTaskMemFree(pages.pElems);
        EXPECT_TRUE(
            std::includes(givenPages.begin(), givenPages.end(), wantedPages.begin(), wantedPages.end()))
            << container::toUtf8(name);
        CLSID page{};
        EXPECT_EQ(browsing->MapPropertyToPage(0x7000, &page), DISP_E_MEMBERNOTFOUND);
        auto category = server::PropertyCategory::misc;
        EXPECT_EQ(grouping->MapPropertyToCategory(0x7000, &category), DISP_E_MEMBERNOTFOUND);
    }
}

}  // namespace
}  // namespace obk
