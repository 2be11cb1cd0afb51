// A person and a host who do with each control, on a form in real windows, whatever the dice say.
#include "../support/from_environment.h"
#include "container/text.h"
#include "container/type_members.h"
#include "counted_pairs.h"
#include "panel_support.h"
#include "person_support.h"
#include "resource_count.h"
#include "server_support.h"

#include <gtest/gtest.h>

#include <commdlg.h>
#include <shlwapi.h>

#include <cstdlib>
#include <random>

namespace obk {
namespace {

using namespace testing_support;
using container::Variant;

// Dismisses the system's own dialogs, menus and drags, which run loops of their own.
class NothingModal {
public:
    NothingModal() : timer_(SetTimer(nullptr, 0, 30, dismiss)) {}
    NothingModal(const NothingModal&) = delete;
    NothingModal& operator=(const NothingModal&) = delete;
    ~NothingModal() { KillTimer(nullptr, timer_); }

private:
    static BOOL CALLBACK cancel(HWND window, LPARAM) {
        wchar_t name[20] = L"";
        GetClassNameW(window, name, 20);
        if (std::wstring_view(name) == L"#32770") PostMessageW(window, WM_COMMAND, IDCANCEL, 0);
        return TRUE;
    }
    static void CALLBACK dismiss(HWND, UINT, UINT_PTR, DWORD) {
        EnumThreadWindows(GetCurrentThreadId(), cancel, 0);
        const HWND menu = FindWindowW(L"#32768", nullptr);
        if (menu && IsWindowVisible(menu)) EndMenu();
        // A drag waits for the button, which nobody else lets go while it runs.
        static int held = 0;
        held = GetAsyncKeyState(VK_LBUTTON) < 0 ? held + 1 : 0;
        if (held < 30) return;
        sendMouse(MOUSEEVENTF_LEFTUP);
    }

    UINT_PTR timer_;
};

class WindowMonkey {
public:
    WindowMonkey(const std::wstring& name, uint32_t seed) : name_(name), random_(seed) { place(); }
    WindowMonkey(const WindowMonkey&) = delete;
    WindowMonkey& operator=(const WindowMonkey&) = delete;

    void step() {
        if (!hosted_.site.control()) return place();
        act();
        if (below(8) == 0) hosted_.loop.pumpUntil([] { return false; }, std::chrono::milliseconds(below(60)));
        hosted_.loop.pumpPending();
    }
    // Everything that shows is gone, and nothing is held.
    void end() {
        acts_ = false;
        hosted_.site.close();
        hosted_.loop.pumpPending();
        for (const DWORD up : {DWORD{MOUSEEVENTF_LEFTUP}, DWORD{MOUSEEVENTF_RIGHTUP}}) button(up);
        hosted_.loop.pumpPending();
        EXPECT_FALSE(openPanel());
        EXPECT_EQ(GetCapture(), nullptr);
    }

private:
    int below(int limit) { return static_cast<int>(random_() % static_cast<uint32_t>(limit)); }
    template <typename T>
    T one(std::initializer_list<T> of) {
        return *(of.begin() + below(static_cast<int>(of.size())));
    }

    void place() {
        hosted_.site.close();
        EXPECT_EQ(hosted_.site.adopt(server_.create(name_), {}), S_OK);
        prepare(hosted_, name_);
        hosted_.site.events().onAny([this](container::EventCall&) {
            if (!acts_ || depth_ >= 2 || below(5) != 0) return;
            ++depth_;
            act();
            --depth_;
        });
        hosted_.activate(placeOf(name_));
        hosted_.site.uiActivate();
    }

    void act() {
        // What a host calls it holds; the site may let go of it meanwhile.
        const ComPtr<IUnknown> held = hosted_.site.control();
        if (!held) return;
        switch (below(16)) {
            case 0:
            case 1:
                return callMember(held.get());
            case 2:
                return setProperty(held.get());
            case 3:
                return surroundings();
            case 4:
            case 5:
            case 6:
            case 7:
            case 8:
                return mouse();
            case 9:
                SetFocus(hosted_.site.window());
                return;
            default:
                return key();
        }
    }
    void key() {
        const WORD code =
            below(4) == 0
                ? static_cast<WORD>(one<int>({'1', '7', 'A', 'V', 'C', 'Z', 'X', VK_OEM_PERIOD}))
                : static_cast<WORD>(one<int>({VK_RETURN, VK_TAB, VK_ESCAPE, VK_SPACE, VK_F2, VK_F4, VK_INSERT,
                                              VK_DELETE, VK_DOWN, VK_UP, VK_LEFT, VK_RIGHT, VK_HOME, VK_END,
                                              VK_NEXT, VK_PRIOR, VK_APPS}));
        const WORD held = below(4) == 0 ? static_cast<WORD>(one<int>({VK_SHIFT, VK_CONTROL})) : WORD{0};
        if (held) send(held, 0);
        send(code, 0);
        if (below(12) != 0) send(code, KEYEVENTF_KEYUP);
        if (held) send(held, KEYEVENTF_KEYUP);
    }
    void send(WORD code, DWORD flags) {
        INPUT input{};
        input.type = INPUT_KEYBOARD;
        input.ki.wVk = code;
        input.ki.dwFlags = flags | (code >= VK_PRIOR && code <= VK_DELETE ? KEYEVENTF_EXTENDEDKEY : 0u);
        SendInput(1, &input, sizeof input);
        hosted_.loop.pumpPending();
    }
    void mouse() {
        const HWND panel = openPanel();
        const HWND window = panel && below(3) != 0 ? panel : hosted_.site.window();
        if (!window) return;
        const RECT area = windowRect(window);
        if (below(3) != 0)
            SetCursorPos(area.left - 8 + below(static_cast<int>(area.right - area.left) + 16),
                         area.top - 8 + below(static_cast<int>(area.bottom - area.top) + 16));
        hosted_.loop.pumpPending();
        switch (below(6)) {
            case 0:
                return button(MOUSEEVENTF_WHEEL, static_cast<DWORD>(one({-120, 120, 40})));
            case 1:
                button(MOUSEEVENTF_RIGHTDOWN);
                return button(MOUSEEVENTF_RIGHTUP);
            case 2:
                return button(MOUSEEVENTF_LEFTUP);
            case 3:
                return button(MOUSEEVENTF_LEFTDOWN);
            default:
                for (int clicks = below(4) == 0 ? 2 : 1; clicks > 0; --clicks) {
                    button(MOUSEEVENTF_LEFTDOWN);
                    button(MOUSEEVENTF_LEFTUP);
                }
        }
    }
    void button(DWORD flag, DWORD data = 0) {
        sendMouse(flag, data);
        hosted_.loop.pumpPending();
    }
    Variant value(const container::DeclaredType& type) {
        const Variant number = one({0, 1, 2, 3, 5, -1, 40});
        switch (type.type) {
            case VT_BSTR:
                return one({L"", L"oak", L"12", L"2 Feb 2026", L"a,b,c", L"a\tb\r\nc\td", L"9:30 am"});
            case VT_DISPATCH:
            case VT_UNKNOWN:
                return {};
            default:
                return number.converted(type.type).value_or(number);
        }
    }
    void callMember(IUnknown* control) {
        const auto& methods = members_.methods();
        if (methods.empty()) return;
        const auto& method = methods[static_cast<size_t>(below(static_cast<int>(methods.size())))];
        // The only ones that write and read a file.
        if (method.name == L"GridSave" || method.name == L"GridLoad") return;
        container::Arguments arguments;
        for (const auto& argument : method.arguments) arguments.push_back(value(argument.type));
        container::Dispatch(control).call(method.number, arguments);
    }
    void setProperty(IUnknown* control) {
        const auto& properties = members_.properties();
        if (properties.empty()) return;
        const auto& property = properties[static_cast<size_t>(below(static_cast<int>(properties.size())))];
        const container::Dispatch object(control);
        if (!property.writable || property.type.kind == container::ValueKind::picture) return;
        // Nobody can work with a control that stays disabled or hidden.
        const bool flag = property.type.type == VT_BOOL;
        const Variant before = object.value(property.number);
        object.put(property.number, flag ? Variant(below(2) == 0) : value(property.type));
        hosted_.loop.pumpPending();
        if (flag) object.put(property.number, before);
    }
    void surroundings() {
        switch (below(9)) {
            case 0:
                hosted_.site.deactivate();
                hosted_.activate(placeOf(name_));
                return;
            case 1:
                SetFocus(field_);
                return;
            case 2:
                SetForegroundWindow(hosted_.window.handle());
                return;
            case 3:
                SetCapture(hosted_.window.handle());
                ReleaseCapture();
                return;
            case 4: {
                const RECT now = placeOf(name_);
                hosted_.site.moveTo({now.left, now.top, now.right + below(120) - 40, now.bottom + below(40)});
                return;
            }
            case 5: {
                const ComPtr<IStream> stream(SHCreateMemStream(nullptr, 0));
                hosted_.site.save(stream.get());
                stream->Seek({}, STREAM_SEEK_SET, nullptr);
                if (const auto form = hosted_.site.query<IPersistStreamInit>()) form->Load(stream.get());
                return;
            }
            case 6:
                if (below(6) == 0) place();
                return;
            case 7:
                if (below(6) == 0) hosted_.site.close();
                return;
            default:
                hosted_.site.uiActivate();
        }
    }

    const std::wstring& name_;
    std::mt19937 random_;
    LoadedServer server_;
    HostedControl hosted_{name_};
    const HWND field_ = hosted_.window.addEdit(270);
    const NothingModal nothingModal_;
    const container::TypeMembers members_ = container::TypeMembers::of(hosted_.site.control().get());
    bool acts_ = true;
    int depth_ = 0;
};

// From its first opening on the system's chooser keeps what it draws with.
void openColourChooser() {
    const NothingModal dismissed;
    COLORREF mixed[16]{};
    CHOOSECOLORW chooser{};
    chooser.lStructSize = sizeof chooser;
    chooser.lpCustColors = mixed;
    chooser.Flags = CC_FULLOPEN;
    ChooseColorW(&chooser);
}

// OBK_MONKEY_SECONDS=1800 OBK_TEST_SECONDS=2400 walks for half an hour.
TEST(WindowMonkey, WalksThroughEachControlAndLeavesNothing) {
    const int32_t seconds = test::fromEnvironment("OBK_MONKEY_SECONDS", 0);
    const int32_t steps = test::fromEnvironment("OBK_MONKEY_STEPS", 120);
    auto seed = static_cast<uint32_t>(test::fromEnvironment("OBK_MONKEY_SEED", 1));
    const LoadedServer server;
    const CountedPairs pairs(server.module());
    const auto walk = [&](const std::wstring& name, uint32_t with) {
        WindowMonkey monkey(name, with);
        for (int32_t step = 0; step < steps; ++step) monkey.step();
        monkey.end();
    };
    // What the system makes once and keeps, it makes in a first walk.
    for (const std::wstring& name : serverClasses()) walk(name, seed);
    openColourChooser();
    systemBlockCount();
    const ULONGLONG start = GetTickCount64();
    const int firstDrawing = gdiObjectCount();
    int walks = 0;
    do {
        for (const std::wstring& name : serverClasses()) {
            SCOPED_TRACE(container::toUtf8(name) + ", seed " + std::to_string(seed));
            const int windows = windowCount(), drawing = gdiObjectCount();
            walk(name, seed);
            ++walks;
            EXPECT_EQ(windowCount(), windows);
            // Fonts and brushes that are kept for the next.
            EXPECT_LE(gdiObjectCount(), drawing + 16);
            EXPECT_LE(gdiObjectCount(), firstDrawing + 64) << "after " << walks;
            pairs.expectAllGone();
        }
        ++seed;
    } while (GetTickCount64() - start < static_cast<ULONGLONG>(seconds) * 1000 && !HasFailure());
    RecordProperty("walks", walks);
    if (seconds > 0)
        std::printf("%d walks of %d steps, to seed %u, %d drawing objects more\n", walks, steps, seed - 1,
                    gdiObjectCount() - firstDrawing);
    EXPECT_TRUE(server.canUnload());
}

}  // namespace
}  // namespace obk
