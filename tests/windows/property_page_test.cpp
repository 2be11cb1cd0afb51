// The property pages as a frame shows them and a person uses them.
#include "person_support.h"
#include "pixels_support.h"
#include "server_support.h"

#include "container/text.h"

#include <gtest/gtest.h>

#include <olectl.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <functional>
#include <tuple>
#include <utility>

namespace obk {
namespace {

using namespace testing_support;
using container::Dispatch;

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
    ComPtr<IUnknown> create(const wchar_t* name) {
        auto control = server.create(name);
        control.query<IPersistStreamInit>()->InitNew();
        return control;
    }
    // The control's first page, or its last, shown in the window for these objects.
    void show(std::vector<ComPtr<IUnknown>> controls, bool last = true) {
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
        objects.reserve(controls.size());
        for (const auto& control : controls) objects.push_back(control.get());
        EXPECT_EQ(page->SetPageSite(site.get()), S_OK);
        EXPECT_EQ(page->SetObjects(static_cast<ULONG>(objects.size()), objects.data()), S_OK);
        PROPPAGEINFO info{};
        info.cb = sizeof info;
        ASSERT_EQ(page->GetPageInfo(&info), S_OK);
        CoTaskMemFree(info.pszTitle);
        const RECT place{0, 0, info.size.cx, info.size.cy};
        SetWindowPos(window.handle(), nullptr, 0, 0, info.size.cx + 30, info.size.cy + 60,
                     SWP_NOMOVE | SWP_NOZORDER);
        ASSERT_EQ(page->Activate(window.handle(), &place, FALSE), S_OK);
        EXPECT_EQ(page->Show(SW_SHOW), S_OK);
        EXPECT_EQ(page->IsPageDirty(), S_FALSE);
    }
    HWND field(const wchar_t* className, const wchar_t* text = nullptr) const {
        const HWND dialog = FindWindowExW(window.handle(), nullptr, L"#32770", nullptr);
        return FindWindowExW(dialog, nullptr, className, text);
    }
    void type(HWND edit, const wchar_t* text) const {
        SendMessageW(edit, EM_SETSEL, 0, -1);
        for (; *text; ++text) SendMessageW(edit, WM_CHAR, static_cast<WPARAM>(*text), 1);
    }
    void typeValue(const wchar_t* text) const {
        type(FindWindowExW(field(L"COMBOBOX"), nullptr, L"EDIT", nullptr), text);
    }
    static DISPID number(const ComPtr<IUnknown>& control, const wchar_t* name) {
        return container::MemberName(name).resolve(control.query<IDispatch>().get());
    }

    LoadedServer server;
    TestWindow window;
    ComPtr<PageSite> site{new PageSite};
    ComPtr<IPropertyPage2> page;
};

TEST_F(PropertyPageTest, SeveralControlsAreEditedAtOnceAndOnlyWhatIsAppliedCounts) {
    const auto first = create(L"UpDownTextBox"), second = create(L"UpDownTextBox");
    Dispatch(second.get()).put(L"Min", 3L);
    show({first, second});
    EXPECT_EQ(page->EditProperty(number(first, L"Max")), S_OK);
    wchar_t shown[40] = L"";
    GetWindowTextW(field(L"COMBOBOX"), shown, 40);
    EXPECT_STREQ(shown, L"10");
    typeValue(L"55");
    EXPECT_EQ(page->IsPageDirty(), S_OK);
    EXPECT_TRUE(site->told & PROPPAGESTATUS_DIRTY);
    EXPECT_EQ(Dispatch(first.get()).value(L"Max").toLong(), 10) << "typed, not applied";
    EXPECT_EQ(page->Apply(), S_OK);
    EXPECT_EQ(page->IsPageDirty(), S_FALSE);
    for (const auto& control : {first, second}) EXPECT_EQ(Dispatch(control.get()).value(L"Max").toLong(), 55);
    // Where they differ nothing is shown, and nothing is put.
    page->EditProperty(number(first, L"Min"));
    GetWindowTextW(field(L"COMBOBOX"), shown, 40);
    EXPECT_STREQ(shown, L"");
    EXPECT_EQ(Dispatch(second.get()).value(L"Min").toLong(), 3);
    // What is no number is refused, and stays to be mended.
    page->EditProperty(number(first, L"Max"));
    typeValue(L"many");
    EXPECT_TRUE(FAILED(page->Apply()));
    EXPECT_EQ(page->IsPageDirty(), S_OK);
    EXPECT_EQ(Dispatch(first.get()).value(L"Max").toLong(), 55);
    // Tab leaves the page behind its last field, Shift+Tab before its first one.
    const HWND list = field(L"LISTBOX"), value = FindWindowExW(field(L"COMBOBOX"), nullptr, L"EDIT", nullptr);
    for (const auto& [from, back, leaves] :
         {std::tuple(list, false, false), {value, false, true}, {value, true, false}, {list, true, true}}) {
        BYTE keys[256]{};
        keys[VK_SHIFT] = back ? 0x80 : 0;
        SetKeyboardState(keys);
        MSG tab{from, WM_KEYDOWN, VK_TAB, 1, 0, {}};
        EXPECT_EQ(page->TranslateAccelerator(&tab), leaves ? S_FALSE : S_OK) << (from == list) << back;
        SetKeyboardState(std::array<BYTE, 256>{}.data());
    }
    page->EditProperty(number(first, L"Max"));
    typeValue(L"9");
    EXPECT_EQ(page->Deactivate(), S_OK);
    EXPECT_EQ(Dispatch(first.get()).value(L"Max").toLong(), 55) << "cancelled";
}

TEST_F(PropertyPageTest, NamedValuesAndColoursAreChosen) {
    const auto control = create(L"UpDownTextBox");
    show({control});
    const auto choose = [&](const wchar_t* property, const wchar_t* choice) {
        page->EditProperty(number(control, property));
        const HWND box = field(L"COMBOBOX");
        const auto at =
            SendMessageW(box, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(choice));
        ASSERT_GE(at, 0) << container::toUtf8(choice);
        SendMessageW(box, CB_SETCURSEL, static_cast<WPARAM>(at), 0);
        SendMessageW(GetParent(box), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(box), CBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(box));
    };
    choose(L"Alignment", L"2 - Centre");
    choose(L"Enabled", L"False");
    choose(L"ForeColor", L"&H80000011 - Disabled text");
    EXPECT_EQ(page->Apply(), S_OK);
    EXPECT_EQ(Dispatch(control.get()).value(L"Alignment").toLong(), 2);
    EXPECT_EQ(Dispatch(control.get()).value(L"Enabled").toBool(), false);
    EXPECT_EQ(Dispatch(control.get()).value(L"ForeColor").toLong(), static_cast<long>(0x80000011u));
}

// Fills in the next dialog of this thread, which runs its own loop, and ends it.
class DialogAnswer {
public:
    explicit DialogAnswer(std::function<void(HWND)> fill, WPARAM button = IDOK)
        : fill_(std::move(fill)), button_(button) {
        current = this;
        timer_ = SetTimer(nullptr, 0, 50, tick);
    }
    DialogAnswer(const DialogAnswer&) = delete;
    DialogAnswer& operator=(const DialogAnswer&) = delete;
    ~DialogAnswer() {
        KillTimer(nullptr, timer_);
        current = nullptr;
    }

private:
    static void CALLBACK tick(HWND, UINT, UINT_PTR, DWORD) {
        EnumThreadWindows(GetCurrentThreadId(), answer, 0);
    }
    static BOOL CALLBACK answer(HWND window, LPARAM) {
        wchar_t name[50] = L"";
        GetClassNameW(window, name, 50);
        if (!current || lstrcmpW(name, L"#32770") != 0 || !IsWindowVisible(window)) return TRUE;
        if (const auto fill = std::exchange(current->fill_, nullptr)) fill(window);
        PostMessageW(window, WM_COMMAND, current->button_, 0);
        return FALSE;
    }

    static inline DialogAnswer* current = nullptr;
    std::function<void(HWND)> fill_;
    WPARAM button_;
    UINT_PTR timer_;
};

TEST_F(PropertyPageTest, ColoursAndFontsAreChosenInTheSystemsDialogs) {
    const auto control = create(L"ButtonPalette"), other = create(L"ButtonPalette");
    show({control, other});
    const auto ask = [&](const wchar_t* property) {
        page->EditProperty(number(control, property));
        SendMessageW(field(L"BUTTON", L"..."), BM_CLICK, 0, 0);
    };
    const Dispatch object(control.get());
    const auto font = [](const Dispatch& of) { return Dispatch(of.value(L"Font").toObject().get()); };
    const double size = font(object).value(L"Size").toDouble().value_or(0);
    constexpr int redField = 706, strikeOut = 0x410;
    {
        const DialogAnswer answer([](HWND dialog) {
            for (int part = 0; part < 3; ++part)
                SetDlgItemInt(dialog, redField + part, static_cast<UINT>(part + 1), FALSE);
        });
        ask(L"ForeColor");
    }
    {
        const DialogAnswer answer(
            [](HWND dialog) { SendDlgItemMessageW(dialog, strikeOut, BM_CLICK, 0, 0); });
        ask(L"Font");
    }
    {
        const DialogAnswer answer({}, IDCANCEL);
        ask(L"BackColor");
    }
    const long back = object.value(L"BackColor").toLong().value_or(-1);
    EXPECT_NE(object.value(L"ForeColor").toLong(), 0x00030201L) << "chosen, not applied";
    EXPECT_EQ(page->Apply(), S_OK);
    EXPECT_EQ(object.value(L"ForeColor").toLong(), 0x00030201L);
    EXPECT_EQ(object.value(L"BackColor").toLong(), back);
    EXPECT_EQ(font(object).value(L"Strikethrough").toBool(), true);
    EXPECT_NEAR(font(object).value(L"Size").toDouble().value_or(0), size, 0.5);
    font(object).put(L"Size", 30.0);
    EXPECT_EQ(font(Dispatch(other.get())).value(L"Strikethrough").toBool(), true);
    EXPECT_NEAR(font(Dispatch(other.get())).value(L"Size").toDouble().value_or(0), size, 0.5) << "its own";
}

TEST_F(PropertyPageTest, APictureIsChosenFromAFile) {
    // Two by two pixels of 24 bits.
    const unsigned char bitmap[70] = {'B', 'M', 70, 0, 0, 0, 0, 0, 0, 0, 54, 0, 0, 0, 40,
                                      0,   0,   0,  2, 0, 0, 0, 2, 0, 0, 0,  1, 0, 24};
    const std::wstring file = temporaryFile(L"two by two.bmp");
    std::ofstream(std::filesystem::path(file), std::ios::binary)
        .write(reinterpret_cast<const char*>(bitmap), sizeof bitmap);
    const auto control = create(L"ButtonPalette");
    show({control});
    page->EditProperty(number(control, L"Picture"));
    {
        constexpr int fileName = 0x47C;
        const DialogAnswer answer([&](HWND dialog) { SetDlgItemTextW(dialog, fileName, file.c_str()); });
        SendMessageW(field(L"BUTTON", L"..."), BM_CLICK, 0, 0);
    }
    EXPECT_EQ(page->Apply(), S_OK);
    const auto picture = Dispatch(control.get()).value(L"Picture").toObject();
    OLE_XSIZE_HIMETRIC width = 0;
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture.query<IPicture>()->get_Width(&width), S_OK);
    EXPECT_GT(width, 0);
    DeleteFileW(file.c_str());
}

TEST_F(PropertyPageTest, TabsAreAddedNamedMovedAndRemoved) {
    const auto control = create(L"PageTab");
    Dispatch(control.get()).put(L"ActiveTabs", L"Home,Video");
    show({control}, false);
    const auto press = [&](const wchar_t* text) { SendMessageW(field(L"BUTTON", text), BM_CLICK, 0, 0); };
    press(L"&Add");
    type(field(L"EDIT"), L"Sou,nd");
    press(L"Move &up");
    EXPECT_EQ(page->Apply(), S_OK);
    EXPECT_EQ(Dispatch(control.get()).value(L"ActiveTabs").toText(), L"Home,Sound,Video");
    {
        const DialogAnswer answer([](HWND dialog) {
            for (int part = 706; part < 709; ++part) SetDlgItemInt(dialog, part, 1, FALSE);
        });
        press(L"Page &colour...");
    }
    EXPECT_EQ(page->Apply(), S_OK);
    EXPECT_EQ(Dispatch(control.get()).value(L"strPUBSKINCOLORPAGE").toText(), L"0|65793|0");
    press(L"&Remove");
    EXPECT_EQ(page->Apply(), S_OK);
    EXPECT_NE(Dispatch(control.get()).value(L"ActiveTabs").toText(), L"Home,Sound,Video");
}

TEST_F(PropertyPageTest, PalettesAreChosenByTheirPictures) {
    const auto control = create(L"ButtonPalette");
    show({control}, false);
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
    EXPECT_EQ(Dispatch(control.get()).value(L"Palette").toLong(), 1);
}

// The system's own frame, which makes the pages by their classes, and ends when somebody presses Cancel.
struct Frame {
    static inline std::vector<std::string> seen;

    static BOOL CALLBACK note(HWND window, LPARAM) {
        wchar_t name[50] = L"";
        GetClassNameW(window, name, 50);
        if (IsWindowVisible(window)) seen.push_back(container::toUtf8(name));
        return TRUE;
    }
    static BOOL CALLBACK cancel(HWND window, LPARAM) {
        if (!IsWindowVisible(window) || !GetDlgItem(window, IDCANCEL)) return TRUE;
        EnumChildWindows(window, note, 0);
        PostMessageW(window, WM_COMMAND, IDCANCEL, 0);
        return TRUE;
    }
    static void CALLBACK look(HWND, UINT, UINT_PTR timer, DWORD) {
        EnumThreadWindows(GetCurrentThreadId(), cancel, 0);
        if (!seen.empty()) KillTimer(nullptr, timer);
    }
};

TEST_F(PropertyPageTest, TheSystemsFrameShowsThem) {
    const std::wstring folder = serverFile().substr(0, serverFile().rfind(L'\\'));
    const std::wstring manifest = folder + L"\\OBKCTRLS.manifest";
    ACTCTXW wanted{};
    wanted.cbSize = sizeof wanted;
    wanted.lpSource = manifest.c_str();
    const HANDLE context = CreateActCtxW(&wanted);
    ULONG_PTR cookie = 0;
    ASSERT_TRUE(ActivateActCtx(context, &cookie));
    SetTimer(nullptr, 0, 50, Frame::look);
    EXPECT_EQ(create(L"UpDownTextBox")
                  .query<IOleObject>()
                  ->DoVerb(OLEIVERB_PROPERTIES, nullptr, nullptr, 0, window.handle(), nullptr),
              S_OK);
    for (const char* shown : {"SysTabControl32", "ListBox", "ComboBox"})
        EXPECT_EQ(std::count(Frame::seen.begin(), Frame::seen.end(), shown), 1) << shown;
    DeactivateActCtx(0, cookie);
    ReleaseActCtx(context);
}

}  // namespace
}  // namespace obk
