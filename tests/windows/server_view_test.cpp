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
    return query<IViewObject2>(control)->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, context, &area,
                                              nullptr, nullptr, 0);
}

TEST(ServerView, EveryControlFillsItsBoundsAndNothingElseAtAnyScale) {
    withEachControl([](const ComPtr<IUnknown>& control, const std::wstring&) {
        setExtent(control.get(), {2540, 635});
        for (const RECT bounds : {RECT{20, 10, 116, 34}, RECT{0, 0, 192, 48}, RECT{3, 3, 243, 63}}) {
            DrawnPixels pixels(260, 80);
            ASSERT_EQ(draw(control.get(), pixels.dc(), bounds), S_OK);
            const auto inside = pixels.colours(bounds);
            EXPECT_FALSE(inside.contains(untouched));
            EXPECT_GT(inside.size(), 1u) << "it shows nothing";
            EXPECT_EQ(pixels.colours(pixels.all())[untouched],
                      260 * 80 - (bounds.right - bounds.left) * (bounds.bottom - bounds.top));
        }
    });
}

TEST(ServerView, ALiveControlDrawsTheSameInsideMappedContexts) {
    const LoadedServer server;
    const auto control = server.create(L"UpDownTextBox");
    setExtent(control.get(), {2540, 635});
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
    for (int at = 0; at < 200 * 60; ++at) {
        ASSERT_EQ(plain.at(at % 200, at / 200), mapped.at(at % 200, at / 200)) << at;
        ASSERT_EQ(plain.at(at % 200, at / 200), moved.at(at % 200, at / 200)) << at;
    }
    POINT origin{};
    GetViewportOrgEx(mapped.dc(), &origin);
    EXPECT_EQ(GetMapMode(mapped.dc()), MM_ANISOTROPIC) << "the context is given back as it was";
    EXPECT_EQ(origin.y, 60);
}

TEST(ServerView, AMetafileRecordsTheControlForPrinting) {
    withEachControl([](const ComPtr<IUnknown>& control, const std::wstring&) {
        const RECT frame{0, 0, 5080, 1270}, target{0, 0, 192, 48};
        const HDC recording = CreateEnhMetaFileW(nullptr, nullptr, &frame, nullptr);
        ASSERT_EQ(draw(control.get(), recording, {0, 0, 96, 24}), S_OK);
        const HENHMETAFILE file = CloseEnhMetaFile(recording);
        DrawnPixels pixels(200, 60);
        PlayEnhMetaFile(pixels.dc(), file, &target);
        EXPECT_LT(pixels.colours(target)[untouched], 192 * 48 - 96);
        DeleteEnhMetaFile(file);
    });
}

TEST(ServerView, AFrozenViewKeepsItsLook) {
    const LoadedServer server;
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

TEST(ServerView, ExtentsAreTheContainersExceptForAFixedSize) {
    withEachControl([](const ComPtr<IUnknown>& control, const std::wstring& name) {
        const auto first = extentOf(control.get());
        ASSERT_EQ(setExtent(control.get(), {5080, 1270}), S_OK);
        SIZEL size{};
        ASSERT_EQ(control.query<IViewObject2>()->GetExtent(DVASPECT_CONTENT, -1, nullptr, &size), S_OK);
        EXPECT_EQ(std::pair(size.cx, size.cy), name == L"ButtonArrow" ? first : std::pair(5080L, 1270L));
        EXPECT_EQ(control.query<IOleObject>()->SetExtent(DVASPECT_ICON, &size), DV_E_DVASPECT);
    });
}

TEST(ServerView, AFixedSizeSnapsBackInTheContainerWithoutALoop) {
    HostedControl hosted(L"ButtonArrow");
    hosted.activate({10, 10, 90, 60});
    const RECT settled = hosted.site.position();
    EXPECT_LT(settled.right - settled.left, 30);
    for (const LONG edge : {200, 150}) {
        hosted.takeCalls("OnPosRectChange");
        hosted.site.moveTo({10, 10, edge, edge});
        hosted.loop.pumpPending();
        const RECT now = hosted.site.position();
        EXPECT_TRUE(EqualRect(&now, &settled));
        EXPECT_LE(hosted.takeCalls("OnPosRectChange"), 2);
    }
    hosted.site.uiActivate();
    EXPECT_EQ(hosted.site.state(), container::SiteState::inPlaceActive) << "decoration is never more";
}

TEST(ServerView, WhoeverEndsTheActivationTheContainerHearsOfBothEnds) {
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
        for (const char* end : {"OnUIDeactivate", "OnInPlaceDeactivate"})
            EXPECT_EQ(hosted.takeCalls(end), 1) << end;
    }
}

TEST(ServerView, ChangesAreToldToWhoeverWatchesTheView) {
    HostedControl hosted(L"UpDownTextBox");
    const auto told = [&hosted] { return hosted.takeCalls("OnViewChange"); };
    told();
    hosted.object().put(L"Text", L"9");
    EXPECT_GE(told(), 1);
    setExtent(hosted.site.control().get(), {5080, 1270});
    EXPECT_EQ(told(), 1);
    // Who asks for it is told at once, and who wants to hear of one change hears of no second.
    const auto view = hosted.site.query<IViewObject>();
    ComPtr<IAdviseSink> sink;
    ASSERT_EQ(view->GetAdvise(nullptr, nullptr, sink.put()), S_OK);
    for (const DWORD when : {ADVF_PRIMEFIRST, ADVF_ONLYONCE}) {
        view->SetAdvise(DVASPECT_CONTENT, when, sink.get());
        EXPECT_EQ(told(), when == ADVF_PRIMEFIRST ? 1 : 0);
        for (const wchar_t* text : {L"7", L"8"}) hosted.object().put(L"Text", text);
        EXPECT_EQ(told() == 1, when == ADVF_ONLYONCE);
    }
}

TEST(ServerView, ItsEndIsToldOnceForEachTimeThatItRan) {
    HostedControl hosted(L"UpDownTextBox");
    const auto object = hosted.site.query<IOleObject>();
    ComPtr<IAdviseSink> sink;
    DWORD cookie = 0;
    ASSERT_EQ(hosted.site.query<IViewObject>()->GetAdvise(nullptr, nullptr, sink.put()), S_OK);
    ASSERT_EQ(object->Advise(sink.get(), &cookie), S_OK);
    for (int times = 0; times < 2; ++times) {
        hosted.activate();
        object->Close(OLECLOSE_NOSAVE);
        object->Close(OLECLOSE_NOSAVE);
        EXPECT_EQ(hosted.takeCalls("OnClose"), 1);
    }
    ASSERT_EQ(object->Advise(sink.get(), &cookie), S_OK);
    object->Close(OLECLOSE_NOSAVE);
    EXPECT_EQ(hosted.takeCalls("OnClose"), 2) << "also to who asks afterwards";
    object->Unadvise(cookie);
    // What has changed is saved, unless the container does not want it.
    for (const DWORD option : {OLECLOSE_SAVEIFDIRTY, OLECLOSE_PROMPTSAVE, OLECLOSE_NOSAVE}) {
        hosted.site.query<IPersistStreamInit>()->InitNew();
        object->Close(option);
        EXPECT_EQ(hosted.takeCalls("SaveObject"), 0) << option;
        hosted.object().put(L"Text", L"7");
        object->Close(option);
        EXPECT_EQ(hosted.takeCalls("SaveObject"), option == OLECLOSE_NOSAVE ? 0 : 1) << option;
    }
}

TEST(ServerView, VerbsAreListedAndHidingHides) {
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
    // A busy container lets nobody type.
    for (const bool busy : {true, false}) {
        hosted.site.setAmbient(DISPID_AMBIENT_UIDEAD, busy);
        EXPECT_EQ(IsWindowEnabled(hosted.site.window()), !busy);
    }
}

TEST(ServerView, PropertyBrowsersAreOfferedChoicesAndPages) {
    withEachControl([](const ComPtr<IUnknown>& control, const std::wstring&) {
        const auto browsing = control.query<IPerPropertyBrowsing>();
        const auto grouping = control.query<server::ICategorizeProperties>();
        const container::TypeMembers members = container::TypeMembers::of(control.get());
        auto category = server::PropertyCategory::misc;
        CLSID page{};
        CAUUID pages{};
        ASSERT_EQ(control.query<ISpecifyPropertyPages>()->GetPages(&pages), S_OK);
        for (const auto& member : members.properties()) {
            SCOPED_TRACE(container::toUtf8(member.name));
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
                Bstr shown;
                EXPECT_EQ(browsing->GetPredefinedValue(member.number, cookies.pElems[at], value.put()), S_OK);
                EXPECT_EQ(container::Dispatch(control.get()).put(member.number, value), S_OK);
                EXPECT_EQ(browsing->GetDisplayString(member.number, shown.put()), S_OK);
                EXPECT_EQ(shown.view(), texts.pElems[at]);
                CoTaskMemFree(texts.pElems[at]);
            }
            CoTaskMemFree(texts.pElems);
            CoTaskMemFree(cookies.pElems);
            EXPECT_EQ(grouping->MapPropertyToCategory(member.number, &category), S_OK);
            EXPECT_EQ(category == server::PropertyCategory::font,
                      member.type.kind == container::ValueKind::font);
            EXPECT_NE(category, server::PropertyCategory::misc);
            if (browsing->MapPropertyToPage(member.number, &page) == S_OK) {
                EXPECT_EQ(std::count(pages.pElems, pages.pElems + pages.cElems, page), 1);
            }
        }
        CoTaskMemFree(pages.pElems);
        EXPECT_EQ(browsing->MapPropertyToPage(0x7000, &page), DISP_E_MEMBERNOTFOUND);
        EXPECT_EQ(grouping->MapPropertyToCategory(0x7000, &category), DISP_E_MEMBERNOTFOUND);
    });
}

}  // namespace
}  // namespace obk
