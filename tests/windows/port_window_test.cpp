// What only real windows have: resources, messages of dialogs and screen readers, manifests of the window
// system.
#include "panel_support.h"
#include "pixels_support.h"
#include "platform/win32/gdi_canvas.h"
#include "platform/win32/text_conversion.h"
#include "resource_count.h"
#include "window_driver_support.h"

#include <commctrl.h>
#include <imm.h>
#include <oleacc.h>

#include <algorithm>
#include <stdexcept>

namespace obk::testing_support {
namespace {

using port::AreaClient;
using port::Journal;
using port::TextClient;
using namespace std::chrono_literals;

class WindowTest : public testing::Test {
protected:
    void open(SurfacePlacement::Kind kind = SurfacePlacement::Kind::control) {
        area = driver.platform().createSurface(areaClient, {kind, driver.host(), {0, 0, 200, 120}});
        ASSERT_TRUE(area);
        box = area->createTextBox(boxClient, {});
        ASSERT_TRUE(box);
        box->setBounds({10, 10, 110, 30}, {0, 0, 200, 120});
        taken();
    }
    HWND areaWindow() const { return reinterpret_cast<HWND>(area->window()); }
    HWND boxWindow() const { return reinterpret_cast<HWND>(box->window()); }
    Journal taken() {
        driver.settle();
        return std::exchange(journal, {});
    }

    WindowDriver driver;
    Journal journal;
    AreaClient areaClient{journal, "area"};
    TextClient boxClient{journal, "box"};
    std::unique_ptr<SurfacePeer> area;
    std::unique_ptr<TextBoxPeer> box;
};

constexpr uint32_t white = 0xFFFFFF;

bool isClass(const wchar_t* name) {
    WNDCLASSEXW known{};
    known.cbSize = sizeof known;
    return GetClassInfoExW(GetModuleHandleW(nullptr), name, &known) != 0;
}

LRESULT CALLBACK countWheels(HWND window, UINT code, WPARAM wParam, LPARAM lParam, UINT_PTR,
                             DWORD_PTR count) {
    if (code == WM_MOUSEWHEEL) ++*reinterpret_cast<int*>(count);
    return DefSubclassProc(window, code, wParam, lParam);
}

// A running timer of a control that lives.
std::unique_ptr<TimerPeer> startTimer(Platform& platform, std::function<void()> tick) {
    auto timer = platform.createTimer([] { return std::make_shared<int>(0); }, std::move(tick));
    timer->start(1ms);
    return timer;
}

// Resources

TEST(PlatformResourcesTest, NothingIsLeftOfManyPlatforms) {
    const WindowDriver shared;  // its host and its own platform stay the same throughout
    wchar_t lastClass[200]{};
    const auto cycle = [&] {
        Journal journal;
        AreaClient areaClient(journal, "area");
        TextClient boxClient(journal, "box");
        win32::Win32Platform platform(GetModuleHandleW(nullptr));
        const auto host = reinterpret_cast<NativeWindow>(shared.hostWindow());
        auto area =
            platform.createSurface(areaClient, {SurfacePlacement::Kind::control, host, {0, 0, 120, 40}});
        const auto box = area->createTextBox(boxClient, {});
        box->setFont({u"Tahoma", 9.75, 700, 0, true});
        box->setFlow({HorizontalAlignment::right});
        area->setToolTip({0, 0, 10, 10}, u"tip", ToolTipShown::whenMouseRests);
        const auto timer = startTimer(platform, [] {});
        platform.appearance().measure(u"text", {}, Dpi(144));
        area->update();
        pumpAll();
        GetClassNameW(reinterpret_cast<HWND>(area->window()), lastClass, 200);
        EXPECT_TRUE(isClass(lastClass));
    };
    expectNothingIsLeft(cycle);
    EXPECT_FALSE(isClass(lastClass));
}

TEST_F(WindowTest, PeersOutliveTheirPlatformAndTheirHostsWindow) {
    const HWND frame = CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE, 0, 0, 300, 200,
                                       driver.hostWindow(), nullptr, nullptr, nullptr);
    const SurfacePlacement placement{
        SurfacePlacement::Kind::control, reinterpret_cast<NativeWindow>(frame), {0, 0, 200, 120}};
    auto platform = std::make_unique<win32::Win32Platform>(GetModuleHandleW(nullptr));
    area = platform->createSurface(areaClient, placement);
    box = area->createTextBox(boxClient, {});
    const auto timer = startTimer(*platform, [] {});
    platform.reset();
    box->setBounds({0, 0, 50, 20}, {0, 0, 200, 120});
    timer->start(1ms);
    DestroyWindow(frame);
    EXPECT_EQ(area->window(), NativeWindow{0});
    EXPECT_FALSE(driver.platform().createSurface(areaClient, placement)) << "in a window that is no more";
    area->setBounds({0, 0, 10, 10});
    area->capture();
    area->setToolTip({0, 0, 10, 10}, u"tip", ToolTipShown::whenMouseRests);
    EXPECT_FALSE(area->createTextBox(boxClient, {}));
    box->setFlow({HorizontalAlignment::right});
    box->setText(u"text");
    driver.settle();
}

TEST_F(WindowTest, WhatAClientThrowsStaysInside) {
    open();
    const auto fail = [] { throw std::runtime_error("client"); };
    for (const char* report : {"paint", "mouseDown", "mouseUp", "focusGained"}) areaClient.on[report] = fail;
    for (const char* report : {"preTranslate", "keyPress", "textChanged", "focusGained", "wheel"})
        boxClient.on[report] = fail;
    area->invalidate({0, 0, 50, 50});
    area->update();
    driver.click(*area, {150, 80});
    area->focus();
    box->focus();
    box->setText(u"x");
    driver.key('A');
    driver.wheel(120);
    int ticks = 0;
    const auto timer = startTimer(driver.platform(), [&] {
        ++ticks;
        throw std::runtime_error("tick");
    });
    EXPECT_TRUE(pumpUntil([&] { return ticks > 1; }));
}

// Keys between the host, dialogs and the window

TEST_F(WindowTest, AKeyThatTheHostAskedAboutIsNotAskedAgain) {
    open();
    box->focus();
    taken();
    boxClient.route = KeyRoute::container;
    int asked = 0;
    const auto route = [&](const MSG& message) {
        return driver.platform().keys().routeFromHost(message, [&](const KeyEvent& event) {
            ++asked;
            EXPECT_EQ(event.code, VK_F5);
            return KeyRoute::container;
        });
    };
    for (int i = 0; i < 2; ++i) PostMessageW(boxWindow(), WM_KEYDOWN, VK_F5, 1);
    MSG message{};
    while (PeekMessageW(&message, nullptr, WM_KEYDOWN, WM_KEYDOWN, PM_REMOVE)) {
        for (int again = 0; again < 2; ++again) EXPECT_EQ(route(message), KeyRoute::container);
        DispatchMessageW(&message);
    }
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(taken(), (Journal{"box.keyDown 116", "box.keyDown 116"})) << "the host has had its chance";
    // Released elsewhere, a key that was used takes no later character with it.
    boxClient.route = KeyRoute::handled;
    SendMessageW(boxWindow(), WM_KEYDOWN, 'A', 1);
    area->focus();
    box->focus();
    SendMessageW(boxWindow(), WM_CHAR, 'b', 1);
    EXPECT_EQ(boxClient.text, u"b");
}

TEST_F(WindowTest, ADialogGetsTheKeysThatTheControlDoesNotWant) {
    open();
    box->focus();
    taken();
    MSG tab{boxWindow(), WM_KEYDOWN, VK_TAB, 1, 0, {}};
    const auto wanted = [&](KeyRoute route) {
        boxClient.route = route;
        ++tab.time;
        return SendMessageW(boxWindow(), WM_GETDLGCODE, VK_TAB, reinterpret_cast<LPARAM>(&tab));
    };
    EXPECT_FALSE(wanted(KeyRoute::container) & DLGC_WANTMESSAGE);
    EXPECT_TRUE(wanted(KeyRoute::child) & DLGC_WANTMESSAGE);
    EXPECT_TRUE(wanted(KeyRoute::handled) & DLGC_WANTMESSAGE);
    EXPECT_EQ(taken().size(), 3u) << "asked once each time";
    EXPECT_TRUE(SendMessageW(boxWindow(), WM_GETDLGCODE, 0, 0) & DLGC_WANTCHARS);
}

TEST_F(WindowTest, WhatAnInputMethodTypesIsFilteredLikeKeys) {
    open();
    box->focus();
    boxClient.changeCharacter = [](int16_t character) {
        return character == 0x65E5 ? character : int16_t{0};
    };
    SendMessageW(boxWindow(), WM_IME_CHAR, 0x65E5, 1);
    SendMessageW(boxWindow(), WM_IME_CHAR, 0x672C, 1);
    EXPECT_EQ(boxClient.text, u"\u65E5");
    const HIMC method = ImmGetContext(boxWindow());
    wchar_t composed[] = L"\u65E5\u672C";
    EXPECT_TRUE(ImmSetCompositionStringW(method, SCS_SETSTR, composed, 4, nullptr, 0));
    EXPECT_TRUE(ImmNotifyIME(method, NI_COMPOSITIONSTR, CPS_COMPLETE, 0));
    ImmReleaseContext(boxWindow(), method);
    driver.settle();
    EXPECT_EQ(boxClient.text, u"\u65E5\u65E5") << "once";
}

TEST_F(WindowTest, TheHostGetsTheWheelThatNobodyUses) {
    open();
    int hostWheels = 0;
    SetWindowSubclass(driver.hostWindow(), countWheels, 1, reinterpret_cast<DWORD_PTR>(&hostWheels));
    const auto turnedOver = [&](HWND window) {
        hostWheels = 0;
        SendMessageW(window, WM_MOUSEWHEEL, static_cast<WPARAM>(120) << 16, 0);
        return hostWheels;
    };
    areaClient.usesWheel = boxClient.usesWheel = false;
    EXPECT_EQ(turnedOver(boxWindow()), 1);
    EXPECT_EQ(turnedOver(areaWindow()), 1);
    boxClient.usesWheel = true;
    EXPECT_EQ(turnedOver(boxWindow()), 0);
    RemoveWindowSubclass(driver.hostWindow(), countWheels, 1);
    EXPECT_EQ(taken(), (Journal{"box.wheel 120", "area.wheel 120", "box.wheel 120"}));
}

// The mouse and the panel

TEST_F(WindowTest, ASurfaceHasItsCaptureAgainAfterItsChilds) {
    open();
    area->capture();
    SetCapture(boxWindow());
    EXPECT_EQ(taken(), Journal{});
    boxClient.showsMenu = true;
    for (const UINT down : {WM_LBUTTONDOWN, WM_RBUTTONDOWN}) {
        SetCapture(boxWindow());
        SendMessageW(boxWindow(), down, 0, MAKELPARAM(2, 2));
        ReleaseCapture();
        SendMessageW(boxWindow(), down - WM_LBUTTONDOWN + WM_LBUTTONUP, 0, MAKELPARAM(2, 2));
        EXPECT_TRUE(area->hasCapture()) << down;
    }
    EXPECT_EQ(std::count(journal.begin(), journal.end(), "area.captureLost"), 0);
    // From the child it may have gone on to the host.
    SetCapture(boxWindow());
    SetCapture(driver.hostWindow());
    SendMessageW(boxWindow(), WM_LBUTTONUP, 0, MAKELPARAM(2, 2));
    EXPECT_EQ(std::count(journal.begin(), journal.end(), "area.captureLost"), 1);
    ReleaseCapture();
}

TEST_F(WindowTest, AMenuIsAskedForAtAPointOrByAKey) {
    open();
    boxClient.showsMenu = true;
    POINT origin{};
    ClientToScreen(boxWindow(), &origin);
    // Left of the first monitor places are negative.
    for (const POINT at : {POINT{-1, -1}, POINT{-1, origin.y}, POINT{origin.x, -1}})
        SendMessageW(boxWindow(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(boxWindow()),
                     MAKELPARAM(at.x, at.y));
    EXPECT_EQ(taken(), (Journal{"box.contextMenu", "box.contextMenu " + std::to_string(-1 - origin.x) + " 0",
                                "box.contextMenu 0 " + std::to_string(-1 - origin.y)}));
}

TEST_F(WindowTest, AllOfATextTooLongShowsItsBeginning) {
    open();
    for (const TextView text : {TextView(u"short"), TextView(u"Thu 26 Nov 2026, late in the afternoon")}) {
        const auto length = static_cast<int32_t>(text.size());
        box->setText(text);
        box->setSelection({0, length});
        EXPECT_GE(static_cast<int16_t>(LOWORD(SendMessageW(boxWindow(), EM_POSFROMCHAR, 0, 0))), 0);
        EXPECT_EQ(box->selection(), (TextSelection{0, length}));
    }
}

TEST_F(WindowTest, ATextBoxShowsNothingBeyondItsClip) {
    open();
    RECT shown{};
    box->setBounds({10, 10, 110, 30}, {0, 0, 60, 120});
    EXPECT_EQ(GetWindowRgnBox(boxWindow(), &shown), SIMPLEREGION);
    EXPECT_EQ(shown.right, 50);
    box->setBounds({10, 10, 110, 30}, {0, 0, 200, 120});
    EXPECT_EQ(GetWindowRgnBox(boxWindow(), &shown), ERROR) << "whole again";
}

// A host suspends the painting of a control, or of the form that it is on, and asks for it afterwards.
TEST_F(WindowTest, WhatAHostHeldBackIsPaintedWhenItIsAskedForAgain) {
    open();
    for (const HWND held : {areaWindow(), GetParent(areaWindow())}) {
        area->update();
        area->invalidate({0, 0, 50, 50});
        SendMessageW(held, WM_SETREDRAW, FALSE, 0);
        SendMessageW(held, WM_SETREDRAW, TRUE, 0);
        area->invalidate({0, 0, 50, 50});
        EXPECT_TRUE(GetUpdateRect(areaWindow(), nullptr, FALSE));
    }
}

TEST_F(WindowTest, TheCursorFollowsTheSurface) {
    open();
    area->setCursor(Cursor::sizeColumn);
    driver.mouseMove(*area, {150, 80});
    SendMessageW(areaWindow(), WM_SETCURSOR, reinterpret_cast<WPARAM>(areaWindow()),
                 MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_SIZEWE));
    area->setCursor(Cursor::hand);
    EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_HAND));
    driver.platform().showWaitCursor(true);
    EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_WAIT));
    driver.platform().showWaitCursor(false);
    EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_HAND));
}

TEST_F(WindowTest, AToolTipShowsWhereTheMouseRests) {
    open();
    const auto shown = [] { return !shownToolTips().empty(); };
    area->setToolTip({0, 70, 60, 120}, u"Red", ToolTipShown::whenMouseRests);
    area->setToolTip({140, 70, 200, 120}, u"Navy", ToolTipShown::whenMouseRests);
    driver.mouseMove(*area, {150, 80});
    driver.mouseMove(*area, {151, 80});
    EXPECT_TRUE(pumpUntil(shown));
    area->setToolTip({}, u"", ToolTipShown::whenMouseRests);
    EXPECT_FALSE(shown());
}

// Colours, fonts, resolution

TEST_F(WindowTest, ATextBoxHasTheColoursItIsGiven) {
    open();
    box->setFont({u"Tahoma", 14, 700});
    box->setColours(Rgb::of(255, 0, 0), Rgb::of(10, 20, 30));
    box->setText(u"MMMM");
    driver.settle();
    DrawnPixels pixels(100, 20);
    UpdateWindow(boxWindow());
    const HDC dc = GetDC(boxWindow());
    BitBlt(pixels.dc(), 0, 0, 100, 20, dc, 0, 0, SRCCOPY);
    ReleaseDC(boxWindow(), dc);
    EXPECT_EQ(pixels.at(95, 15), 0x0A141Eu);
    EXPECT_GT(pixels.colours(pixels.all())[0xFF0000], 20);
}

TEST_F(WindowTest, AChangeOfTheSystemsLookIsToldOnceToAll) {
    AreaClient first(journal, "first"), second(journal, "second");
    const SurfacePlacement placement{SurfacePlacement::Kind::control, driver.host(), {0, 0, 20, 20}};
    const auto one = driver.platform().createSurface(first, placement);
    auto other = driver.platform().createSurface(second, placement);
    taken();
    const auto window = reinterpret_cast<HWND>(one->window());
    SendMessageW(window, WM_SYSCOLORCHANGE, 0, 0);
    SendMessageW(window, WM_THEMECHANGED, 0, 0);
    EXPECT_EQ(taken(), (Journal{"first.appearanceChanged", "second.appearanceChanged"}));
    first.on["appearanceChanged"] = [&] { other.reset(); };
    SendMessageW(window, WM_SYSCOLORCHANGE, 0, 0);
    EXPECT_EQ(taken(), (Journal{"first.appearanceChanged"}));
}

TEST_F(WindowTest, ColoursThatChangeBeforeAnythingIsPaintedAreToldThen) {
    win32::Win32Platform platform(GetModuleHandleW(nullptr));
    AreaClient client(journal, "client");
    const auto surface =
        platform.createSurface(client, {SurfacePlacement::Kind::control, driver.host(), {0, 0, 20, 20}});
    const INT index = COLOR_INFOBK;
    const COLORREF before = GetSysColor(index), other = before ^ 0x010101;
    SetSysColors(1, &index, &other);
    const Journal told = taken();
    SetSysColors(1, &index, &before);
    driver.settle();
    EXPECT_EQ(std::count(told.begin(), told.end(), "client.appearanceChanged"), 1);
}

TEST(AppearanceTest, AnswersWhatTheSystemHas) {
    win32::Win32Platform platform(GetModuleHandleW(nullptr));
    Appearance& appearance = platform.appearance();
    EXPECT_EQ(appearance.systemColour(COLOR_WINDOW)->value, GetSysColor(COLOR_WINDOW));
    EXPECT_FALSE(appearance.systemColour(200));
    const FontDescription tahoma{u"Tahoma", 8.25};
    const FontMetrics at96 = appearance.metrics(tahoma, Dpi(96));
    EXPECT_EQ(at96.height(), appearance.measure(u"X", tahoma, Dpi(96)).height);
    const PixelSize wide = appearance.measure(u"Some text", tahoma, Dpi(192));
    const PixelSize narrow = appearance.measure(u"Some text", tahoma, Dpi(96));
    EXPECT_NEAR(wide.width, 2 * narrow.width, narrow.width / 3.0);
    EXPECT_EQ(appearance.measure(u"", tahoma, Dpi(96)).width, 0);
    EXPECT_GT(appearance.measure(u"x", {u"No such face", -5}, Dpi(96)).width, 0);
    EXPECT_GT(appearance.measure(u"x", {u"Tahoma", 1e300}, Dpi(960)).width, 0);
    EXPECT_FALSE(appearance.dialogFont().name.empty());
    EXPECT_NEAR(appearance.dialogFont().size, 9, 3);
    const Appearance::Metrics metrics = appearance.metrics();
    EXPECT_EQ(metrics.repeatDelay, std::clamp(metrics.repeatDelay, 250ms, 1000ms));
    EXPECT_EQ(metrics.repeatInterval, std::clamp(metrics.repeatInterval, 33ms, 400ms));
}

TEST(RegistryTest, ReadsBytesAsTheSystemKeepsThem) {
    constexpr char path[] = "Software\\OrbekTest";
    const auto put = [&](const char* name, DWORD type, const void* bytes, DWORD size) {
        ASSERT_EQ(RegSetKeyValueA(HKEY_CURRENT_USER, path, name, type, bytes, size), ERROR_SUCCESS);
    };
    constexpr DWORD one = 1;
    put("Text", REG_SZ, "6.1", 4);
    put("Number", REG_DWORD, &one, sizeof one);
    put("Long", REG_SZ, std::string(400, 'x').c_str(), 401);

    win32::Win32Platform platform(GetModuleHandleW(nullptr));
    constexpr auto currentUser = static_cast<int32_t>(0x80000001);
    {
        const auto opened = platform.registry().open(currentUser, u"SOFTWARE\\orbektest", KEY_ALL_ACCESS);
        ASSERT_TRUE(opened);
        std::string buffer(255, ' ');
        uint32_t size = 255, type = 0;
        EXPECT_TRUE(opened->query(u"text", buffer, size, type));
        EXPECT_EQ(type, static_cast<uint32_t>(REG_SZ));
        EXPECT_EQ(size, 4u);
        EXPECT_EQ(buffer, std::string("6.1\0", 4) + std::string(251, ' '));
        EXPECT_TRUE(opened->query(u"Number", buffer, size, type));
        EXPECT_EQ(type, static_cast<uint32_t>(REG_DWORD));
        EXPECT_FALSE(opened->query(u"Long", buffer, size, type));
        EXPECT_FALSE(opened->query(u"None", buffer, size, type));
    }
    EXPECT_FALSE(platform.registry().open(currentUser, u"Software\\OrbekNone", KEY_READ));
    EXPECT_FALSE(platform.registry().open(0, u"Software", KEY_READ));
    RegDeleteKeyA(HKEY_CURRENT_USER, path);
}

// The canvas

class GdiCanvasTest : public testing::Test {
protected:
    GdiCanvasTest() { pixels.clear(white); }
    // Where text drawn on white has left a trace.
    PixelRect inkOf(TextView text, const TextStyle& style, const PixelRect& rect) {
        pixels.clear(white);
        canvas.drawText(text, rect, style);
        return pixels.ink(white);
    }
    DrawnPixels pixels{200, 60};
    win32::GdiCanvas canvas{pixels.dc(), Dpi(96)};
};

TEST_F(GdiCanvasTest, FillsWholePixelsWithinItsClips) {
    canvas.fillRect({5, 5, 5, 10}, Rgb::of(0, 0, 0));
    canvas.fillRect({9, 5, 5, 10}, Rgb::of(0, 0, 0));
    EXPECT_TRUE(pixels.ink(white).empty());
    {
        const CanvasClip outer(canvas, {2, 2, 20, 20});
        const CanvasClip inner(canvas, {10, -5, 60, 8});
        canvas.fillRect({-2000000000, -2000000000, 2000000000, 2000000000}, Rgb::of(1, 2, 3));
    }
    EXPECT_EQ(pixels.ink(white), (PixelRect{10, 2, 20, 8}));
    EXPECT_EQ(pixels.at(10, 2), 0x010203u);
    {
        const CanvasClip nothing(canvas, {5, 5, 5, 5});
        canvas.fillRect({0, 0, 40, 30}, Rgb::of(9, 9, 9));
    }
    EXPECT_EQ(pixels.ink(white), (PixelRect{10, 2, 20, 8}));
    const PixelPoint triangle[] = {{20, 20}, {30, 20}, {25, 25}};
    canvas.fillPolygon({triangle, 2}, Rgb::of(0, 0, 0));
    EXPECT_EQ(pixels.at(25, 20), white);
    canvas.fillPolygon(triangle, Rgb::of(0, 128, 0));
    EXPECT_EQ(pixels.at(25, 22), 0x008000u);
    EXPECT_EQ(pixels.at(25, 27), white);
}

TEST_F(GdiCanvasTest, TextKeepsToItsRectangleAndItsAlignment) {
    const PixelRect rect{20, 10, 180, 50};
    TextStyle style;
    const auto inkAt = [&](HorizontalAlignment horizontal, VerticalAlignment vertical) {
        style.horizontal = horizontal;
        style.vertical = vertical;
        return inkOf(u"HHH", style, rect);
    };
    const PixelRect leftTop = inkAt(HorizontalAlignment::left, VerticalAlignment::top);
    EXPECT_LE(leftTop.left, 23);
    EXPECT_LE(leftTop.top, 15);
    const PixelRect rightBottom = inkAt(HorizontalAlignment::right, VerticalAlignment::bottom);
    EXPECT_GE(rightBottom.right, 175);  // glyphs keep some air beside them
    EXPECT_GE(rightBottom.bottom, 45);
    EXPECT_EQ(rightBottom.width(), leftTop.width());
    const PixelRect middle = inkAt(HorizontalAlignment::centre, VerticalAlignment::centre);
    EXPECT_NEAR(middle.left + middle.right, 200, 4);
    EXPECT_NEAR(middle.top + middle.bottom, 60, 4);

    const Text tooLong(300, u'H');
    for (const bool ellipsis : {true, false}) {
        style.ellipsis = ellipsis;
        const PixelRect ink = inkOf(tooLong, style, rect);
        EXPECT_GE(ink.left, rect.left);
        EXPECT_LE(ink.right, rect.right);
    }
    style.showAccessKey = false;
    const int32_t plain = inkOf(u"A&B", style, rect).width();
    style.showAccessKey = true;
    EXPECT_LT(inkOf(u"A&B", style, rect).width(), plain) << "the ampersand is not drawn";
    EXPECT_GT(inkOf(u"A&B", style, rect).height(), inkOf(u"AB", style, rect).height()) << "but underlines";
    EXPECT_EQ(inkOf(u"A&&B", style, rect).width(), plain);
}

TEST_F(GdiCanvasTest, AFontIsTheOneThatIsAskedForAlsoAfterAClip) {
    const auto heightOf = [&](double size) {
        TextStyle style;
        style.font = {u"Tahoma", size};
        return inkOf(u"H", style, {0, 0, 200, 60}).height();
    };
    const int32_t small = heightOf(8), large = [&] {
        const CanvasClip clip(canvas, {0, 0, 200, 60});
        return heightOf(24);
    }();
    EXPECT_GT(large, small);
    EXPECT_EQ(heightOf(24), large);
}

SharedPicture fourPixels() {
    // Opaque red, transparent; half-transparent blue, opaque green.
    return {{2, 2}, {0xFFFF0000, 0x00000000, 0x80000080, 0xFF00FF00}};
}

TEST_F(GdiCanvasTest, PicturesBlendAndStretch) {
    canvas.drawPicture(fourPixels(), {0, 0, 2, 2});
    EXPECT_EQ(pixels.at(0, 0), 0xFF0000u);
    EXPECT_EQ(pixels.at(1, 0), white);
    EXPECT_EQ(pixels.at(1, 1), 0x00FF00u);
    EXPECT_NEAR(static_cast<int>(pixels.at(0, 1) >> 16), 127, 1);
    EXPECT_EQ(pixels.at(0, 1) & 0xFF, 0xFFu);
    canvas.drawPicture(fourPixels(), {4, 4, 20, 20});
    EXPECT_EQ(pixels.at(4, 4), 0xFF0000u);
    EXPECT_EQ(pixels.at(19, 4), white);
    EXPECT_EQ(pixels.at(19, 19), 0x00FF00u);
    // A chequered picture shrinks to its mean.
    std::vector<uint32_t> chequers(64);
    for (size_t i = 0; i < 64; ++i) chequers[i] = (i + i / 8) % 2 ? 0xFF000000 : 0xFFFFFFFF;
    pixels.clear(0x123456);
    canvas.drawPicture({{8, 8}, chequers}, {0, 0, 4, 4});
    EXPECT_NEAR(static_cast<int>(pixels.at(1, 1) & 0xFF), 127, 12);
    canvas.drawPicture({{8, 8}, chequers}, {0, 0, 2000000000, 2000000000});
    canvas.drawPicture({}, {0, 0, 4, 4});
}

TEST_F(GdiCanvasTest, AMetafileKeepsColoursTextAndHoles) {
    const HDC recording = CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
    {
        win32::GdiCanvas recorder(recording, Dpi(96));
        recorder.fillRect({0, 0, 10, 10}, Rgb::of(200, 100, 50));
        const CanvasClip clip(recorder, {0, 20, 60, 40});
        recorder.drawText(u"Text", {0, 10, 60, 40}, {{}, Rgb::of(0, 0, 255)});
        recorder.drawPicture(fourPixels(), {0, 30, 2, 32});
    }
    const HENHMETAFILE file = CloseEnhMetaFile(recording);
    ENHMETAHEADER header{};
    GetEnhMetaFileHeader(file, sizeof header, &header);
    // At the size of its own frame, so that its pixels are ours.
    const RECTL& frame = header.rclBounds;
    const RECT place{frame.left, frame.top, frame.right, frame.bottom};
    PlayEnhMetaFile(pixels.dc(), file, &place);
    DeleteEnhMetaFile(file);
    EXPECT_EQ(pixels.at(3, 3), 0xC86432u);
    auto colours = pixels.colours(pixels.all());
    EXPECT_GT(colours[0x0000FF], 10);
    EXPECT_GE(colours[0xFF0000], 1);
}

TEST_F(GdiCanvasTest, LeavesTheContextAsItWas) {
    const HGDIOBJ font = GetCurrentObject(pixels.dc(), OBJ_FONT);
    SetTextColor(pixels.dc(), RGB(1, 2, 3));
    SetBkMode(pixels.dc(), OPAQUE);
    const int objects = gdiObjectCount();
    {
        win32::GdiCanvas passing(pixels.dc(), Dpi(96));
        passing.pushClip({0, 0, 5, 5});
        passing.drawText(u"x", {0, 0, 20, 20}, {});
        passing.drawFocusRect({0, 0, 20, 20});
        passing.drawPicture(fourPixels(), {0, 0, 9, 9});
    }
    EXPECT_EQ(GetCurrentObject(pixels.dc(), OBJ_FONT), font);
    EXPECT_EQ(GetTextColor(pixels.dc()), RGB(1, 2, 3));
    EXPECT_EQ(GetBkMode(pixels.dc()), OPAQUE);
    RECT clip{};
    GetClipBox(pixels.dc(), &clip);
    EXPECT_EQ(clip.right, 200);
    EXPECT_EQ(gdiObjectCount(), objects);
}

}  // namespace
}  // namespace obk::testing_support
