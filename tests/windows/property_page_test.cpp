// The property pages as a frame shows them and a person uses them.
#include "panel_support.h"
#include "person_support.h"
#include "pixels_support.h"
#include "server_support.h"

#include "container/text.h"

#include <gtest/gtest.h>

#include <olectl.h>

#include <functional>
#include <tuple>
#include <utility>

namespace obk {
namespace {

using namespace testing_support;
using container::Dispatch;
using container::Variant;

class PageSite final : public ComObject<IPropertyPageSite> {
public:
    HRESULT STDMETHODCALLTYPE OnStatusChange(DWORD flags) override {
        told |= flags;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetLocaleID(LCID* locale) override { return *locale = 1033, S_OK; }
    HRESULT STDMETHODCALLTYPE GetPageContainer(IUnknown** container) override {
        return *container = nullptr, E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG*) override { return S_FALSE; }
    DWORD told = 0;
};

class PropertyPageTest : public testing::Test {
protected:
    ~PropertyPageTest() override {
        if (page) page->Deactivate();
    }
    void create(const wchar_t* className, size_t count = 1) {
        while (controls.size() < count) {
            controls.push_back(server.create(className));
            controls.back().query<IPersistStreamInit>()->InitNew();
        }
    }
    // The controls' last page, or their first, shown in the window.
    void show(bool last = true) {
        CAUUID pages{};
        ASSERT_EQ(controls.at(0).query<ISpecifyPropertyPages>()->GetPages(&pages), S_OK);
        ASSERT_GT(pages.cElems, 0u);
        const GUID id = pages.pElems[last ? pages.cElems - 1 : 0];
        CoTaskMemFree(pages.pElems);
        using GetClass = HRESULT(WINAPI*)(REFCLSID, REFIID, void**);
        const auto getClass = reinterpret_cast<GetClass>(
            reinterpret_cast<void*>(GetProcAddress(server.module(), "DllGetClassObject")));
        ComPtr<IClassFactory> factory;
        ASSERT_EQ(getClass(id, __uuidof(IClassFactory), factory.putVoid()), S_OK);
        ASSERT_EQ(factory->CreateInstance(nullptr, __uuidof(IPropertyPage2), page.putVoid()), S_OK);
        std::vector<IUnknown*> objects;
        for (const auto& control : controls) objects.push_back(control.get());
        EXPECT_EQ(page->SetPageSite(site.get()), S_OK);
        EXPECT_EQ(page->SetObjects(static_cast<ULONG>(objects.size()), objects.data()), S_OK);
        PROPPAGEINFO info{sizeof info, nullptr, {}, nullptr, nullptr, 0};
        ASSERT_EQ(page->GetPageInfo(&info), S_OK);
        CoTaskMemFree(info.pszTitle);
        const RECT place{0, 0, info.size.cx, info.size.cy};
        SetWindowPos(window.handle(), nullptr, 0, 0, info.size.cx + 30, info.size.cy + 60,
                     SWP_NOMOVE | SWP_NOZORDER);
        ASSERT_EQ(page->Activate(window.handle(), &place, FALSE), S_OK);
        EXPECT_EQ(page->Show(SW_SHOW), S_OK);
        EXPECT_EQ(page->IsPageDirty(), S_FALSE);
    }
    Dispatch object(size_t number = 0) const { return Dispatch(controls.at(number).get()); }
    Variant value(const wchar_t* property, size_t number = 0) const { return object(number).value(property); }
    HWND field(const wchar_t* className, const wchar_t* text = nullptr) const {
        const HWND dialog = FindWindowExW(window.handle(), nullptr, L"#32770", nullptr);
        return FindWindowExW(dialog, nullptr, className, text);
    }
    HWND valueField() const { return FindWindowExW(field(L"COMBOBOX"), nullptr, L"EDIT", nullptr); }
    // The text of a property's value as it is shown now.
    std::wstring go(const wchar_t* property) const {
        EXPECT_EQ(page->EditProperty(container::MemberName(property).resolve(object().get())), S_OK);
        wchar_t shown[40] = L"";
        GetWindowTextW(field(L"COMBOBOX"), shown, 40);
        return shown;
    }
    static void type(HWND edit, const wchar_t* text) {
        SendMessageW(edit, EM_SETSEL, 0, -1);
        for (; *text; ++text) SendMessageW(edit, WM_CHAR, static_cast<WPARAM>(*text), 1);
    }
    void press(const wchar_t* button) const { SendMessageW(field(L"BUTTON", button), BM_CLICK, 0, 0); }
    // Fills in the system's dialog for a value, and ends it.
    void ask(const wchar_t* property, std::function<void(HWND)> fill, WPARAM button = IDOK) const {
        const DialogAnswer answer(std::move(fill), button);
        go(property);
        press(L"...");
    }

    LoadedServer server;
    std::vector<ComPtr<IUnknown>> controls;
    TestWindow window;
    ComPtr<PageSite> site{new PageSite};
    ComPtr<IPropertyPage2> page;
};

TEST_F(PropertyPageTest, SeveralControlsAreEditedAtOnceAndOnlyWhatIsAppliedCounts) {
    create(L"UpDownTextBox", 2);
    object(1).put(L"Min", 3L);
    show();
    EXPECT_EQ(go(L"Max"), L"10");
    type(valueField(), L"55");
    EXPECT_EQ(page->IsPageDirty(), S_OK);
    EXPECT_TRUE(site->told & PROPPAGESTATUS_DIRTY);
    EXPECT_EQ(value(L"Max").toLong(), 10) << "typed, not applied";
    EXPECT_EQ(page->Apply(), S_OK);
    EXPECT_EQ(page->IsPageDirty(), S_FALSE);
    for (const size_t each : {0u, 1u}) EXPECT_EQ(value(L"Max", each).toLong(), 55);
    EXPECT_EQ(go(L"Min"), L"") << "where they differ nothing is shown, and nothing is put";
    EXPECT_EQ(value(L"Min", 1).toLong(), 3);
    // What is no number is refused, and stays to be mended.
    go(L"Max");
    type(valueField(), L"many");
    EXPECT_TRUE(FAILED(page->Apply()));
    EXPECT_EQ(page->IsPageDirty(), S_OK);
    EXPECT_EQ(value(L"Max").toLong(), 55);
    // Tab leaves the page behind its last field, Shift+Tab before its first one.
    const HWND list = field(L"LISTBOX");
    for (const auto& [from, back, leaves] : {std::tuple(list, false, false),
                                             {valueField(), false, true},
                                             {valueField(), true, false},
                                             {list, true, true}}) {
        const AsIfHeld held(back ? VK_SHIFT : 0);
        MSG tab{from, WM_KEYDOWN, VK_TAB, 1, 0, {}};
        EXPECT_EQ(page->TranslateAccelerator(&tab), leaves ? S_FALSE : S_OK) << (from == list) << back;
    }
    go(L"Max");
    type(valueField(), L"9");
    EXPECT_EQ(page->Deactivate(), S_OK);
    EXPECT_EQ(value(L"Max").toLong(), 55) << "cancelled";
}

TEST_F(PropertyPageTest, NamedValuesAndColoursAreChosen) {
    create(L"UpDownTextBox");
    show();
    for (const auto& [property, choice] : {std::pair(L"Alignment", L"2 - Centre"),
                                           {L"Enabled", L"False"},
                                           {L"ForeColor", L"&H80000011 - Disabled text"}}) {
        go(property);
        const HWND box = field(L"COMBOBOX");
        const auto at =
            SendMessageW(box, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(choice));
        ASSERT_GE(at, 0) << container::toUtf8(choice);
        SendMessageW(box, CB_SETCURSEL, static_cast<WPARAM>(at), 0);
        SendMessageW(GetParent(box), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(box), CBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(box));
    }
    EXPECT_EQ(page->Apply(), S_OK);
    EXPECT_EQ(value(L"Alignment").toLong(), 2);
    EXPECT_EQ(value(L"Enabled").toBool(), false);
    EXPECT_EQ(value(L"ForeColor").toLong(), static_cast<long>(0x80000011u));
}

TEST_F(PropertyPageTest, ColoursAndFontsAreChosenInTheSystemsDialogs) {
    create(L"ButtonPalette", 2);
    show();
    const auto font = [&](size_t number) { return Dispatch(value(L"Font", number).toObject().get()); };
    const auto size = [&](size_t number) { return font(number).value(L"Size").toDouble().value_or(0); };
    const double before = size(0);
    const long back = value(L"BackColor").toLong().value_or(-1);
    constexpr int strikeOut = 0x410;
    ask(L"ForeColor", [](HWND dialog) { enterColour(dialog, RGB(1, 2, 3)); });
    ask(L"Font", [](HWND dialog) { SendDlgItemMessageW(dialog, strikeOut, BM_CLICK, 0, 0); });
    ask(L"BackColor", {}, IDCANCEL);
    EXPECT_NE(value(L"ForeColor").toLong(), 0x00030201L) << "chosen, not applied";
    EXPECT_EQ(page->Apply(), S_OK);
    EXPECT_EQ(value(L"ForeColor").toLong(), 0x00030201L);
    EXPECT_EQ(value(L"BackColor").toLong(), back);
    for (const size_t each : {0u, 1u}) {
        EXPECT_EQ(font(each).value(L"Strikethrough").toBool(), true) << each;
        EXPECT_NEAR(size(each), before, 0.5) << "its own, " << each;
        font(each).put(L"Size", 30.0);
    }
}

TEST_F(PropertyPageTest, APictureIsChosenFromAFile) {
    // Two by two pixels of 24 bits.
    std::string bitmap("BM\x46\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\2\0\0\0\2\0\0\0\1\0\x18", 29);
    bitmap.resize(70);
    const std::wstring file = temporaryFile(L"two by two.bmp");
    ASSERT_TRUE(container::writeFile(file, bitmap));
    create(L"ButtonPalette");
    show();
    constexpr int fileName = 0x47C;
    ask(L"Picture", [&](HWND dialog) { SetDlgItemTextW(dialog, fileName, file.c_str()); });
    EXPECT_EQ(page->Apply(), S_OK);
    const auto picture = value(L"Picture").toObject();
    OLE_XSIZE_HIMETRIC width = 0;
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture.query<IPicture>()->get_Width(&width), S_OK);
    EXPECT_GT(width, 0);
    DeleteFileW(file.c_str());
}

TEST_F(PropertyPageTest, TabsAreAddedNamedMovedAndRemoved) {
    create(L"PageTab");
    object().put(L"ActiveTabs", L"Home,Video");
    show(false);
    press(L"&Add");
    type(field(L"EDIT"), L"Sou,nd");
    press(L"Move &up");
    EXPECT_EQ(page->Apply(), S_OK);
    EXPECT_EQ(value(L"ActiveTabs").toText(), L"Home,Sound,Video");
    const ChooserAnswer answer(RGB(1, 1, 1));
    press(L"Page &colour...");
    EXPECT_EQ(page->Apply(), S_OK);
    EXPECT_EQ(value(L"strPUBSKINCOLORPAGE").toText(), L"0|65793|0");
    press(L"&Remove");
    EXPECT_EQ(page->Apply(), S_OK);
    EXPECT_NE(value(L"ActiveTabs").toText(), L"Home,Sound,Video");
}

TEST_F(PropertyPageTest, PalettesAreChosenByTheirPictures) {
    create(L"ButtonPalette");
    show(false);
    const HWND list = field(L"LISTBOX");
    UpdateWindow(list);
    const HDC dc = GetDC(list);
    DrawnPixels pixels(100, 60);
    BitBlt(pixels.dc(), 0, 0, 100, 60, dc, 0, 0, SRCCOPY);
    ReleaseDC(list, dc);
    EXPECT_GE(pixels.colours(pixels.all()).size(), 16u) << "the swatches of the first palette";
    SendMessageW(list, WM_KEYDOWN, VK_HOME, 1);
    SendMessageW(list, WM_KEYDOWN, VK_DOWN, 1);
    EXPECT_EQ(page->IsPageDirty(), S_OK);
    EXPECT_EQ(page->Apply(), S_OK);
    EXPECT_EQ(value(L"Palette").toLong(), 1);
}

// It makes the pages by their classes, and ends when somebody presses Cancel.
TEST_F(PropertyPageTest, TheSystemsFrameShowsThem) {
    const std::wstring manifest = serverFile().substr(0, serverFile().rfind(L'\\')) + L"\\OBKCTRLS.manifest";
    const ACTCTXW wanted{sizeof wanted, 0, manifest.c_str(), 0, 0, nullptr, nullptr, nullptr, nullptr};
    const HANDLE context = CreateActCtxW(&wanted);
    ULONG_PTR cookie = 0;
    ASSERT_TRUE(ActivateActCtx(context, &cookie));
    const auto look = [](HWND frame) {
        for (const wchar_t* part : {L"SysTabControl32", L"ListBox", L"ComboBox"})
            EXPECT_EQ(shownWindows(part, frame).size(), 1u) << container::toUtf8(part);
    };
    const DialogAnswer cancelled(look, IDCANCEL);
    create(L"UpDownTextBox");
    EXPECT_EQ(controls[0].query<IOleObject>()->DoVerb(OLEIVERB_PROPERTIES, nullptr, nullptr, 0,
                                                      window.handle(), nullptr),
              S_OK);
    EXPECT_GE(cancelled.seen(), 1);
    DeactivateActCtx(0, cookie);
    ReleaseActCtx(context);
}

}  // namespace
}  // namespace obk
