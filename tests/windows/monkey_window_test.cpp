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

#include <cstdio>
#include <functional>
#include <random>

namespace obk {
namespace {

using namespace testing_support;
using container::Variant;

// The system's own dialogs, menus and drags, which run loops of their own.
void dismissModal() {
    for (const HWND dialog : shownWindows(L"#32770")) PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
    const HWND menu = FindWindowW(L"#32768", nullptr);
    if (menu && IsWindowVisible(menu)) EndMenu();
    // A drag waits for the button, which nobody else lets go while it runs.
    static int held = 0;
    held = GetAsyncKeyState(VK_LBUTTON) < 0 ? held + 1 : 0;
    if (held >= 30) sendMouse(MOUSEEVENTF_LEFTUP);
}

class WindowMonkey {
public:
    WindowMonkey(const std::wstring& name, uint32_t seed) : name_(name), random_(seed) { place(); }

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
        const int dice = below(16);
        if (dice < 2) return callMember(held.get());
        if (dice == 2) return setProperty(held.get());
        if (dice == 3) return surroundings();
        if (dice < 9) return mouse();
        if (dice < 15) return key();
        SetFocus(hosted_.site.window());
    }
    void key() {
        const int code =
            below(4) == 0
                ? one<int>({'1', '7', 'A', 'V', 'C', 'Z', 'X', VK_OEM_PERIOD})
                : one({VK_RETURN, VK_TAB, VK_ESCAPE, VK_SPACE, VK_F2, VK_F4, VK_INSERT, VK_DELETE, VK_DOWN,
                       VK_UP, VK_LEFT, VK_RIGHT, VK_HOME, VK_END, VK_NEXT, VK_PRIOR, VK_APPS});
        const int held = below(4) == 0 ? one({VK_SHIFT, VK_CONTROL}) : 0;
        if (held) send(held);
        send(code);
        if (below(12) != 0) send(code, KEYEVENTF_KEYUP);
        if (held) send(held, KEYEVENTF_KEYUP);
    }
    void send(int code, DWORD flags = 0) {
        sendKey(static_cast<WORD>(code), flags);
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
        one<std::function<void()>>({
            [&] {
                button(MOUSEEVENTF_WHEEL, static_cast<DWORD>(one({-120, 120, 40})));
            },
            [&] { button(MOUSEEVENTF_RIGHTDOWN), button(MOUSEEVENTF_RIGHTUP); },
            [&] { button(MOUSEEVENTF_LEFTUP); },
            [&] { button(MOUSEEVENTF_LEFTDOWN); },
            [&] { click(); },
            [&] { click(), below(2) == 0 ? click() : void(); },
        })();
    }
    void click() {
        button(MOUSEEVENTF_LEFTDOWN);
        button(MOUSEEVENTF_LEFTUP);
    }
    void button(DWORD flag, DWORD data = 0) {
        sendMouse(flag, data);
        hosted_.loop.pumpPending();
    }
    Variant value(const container::DeclaredType& type) {
        if (type.type == VT_DISPATCH || type.type == VT_UNKNOWN) return {};
        if (type.type == VT_BSTR)
            return one({L"", L"oak", L"12", L"2 Feb 2026", L"a,b,c", L"a\tb\r\nc\td", L"9:30 am"});
        const Variant number = one({0, 1, 2, 3, 5, -1, 40});
        return number.converted(type.type).value_or(number);
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
        const HWND form = hosted_.window.handle();
        const RECT now = placeOf(name_);
        one<std::function<void()>>({
            [&] { hosted_.site.deactivate(), hosted_.activate(now); },
            [&] { SetFocus(field_); },
            [&] { SetForegroundWindow(form); },
            [&] { SetCapture(form), ReleaseCapture(); },
            [&] {
                hosted_.site.moveTo({now.left, now.top, now.right + below(120) - 40, now.bottom + below(40)});
            },
            [&] { load(); },
            [&] { below(6) == 0 ? place() : void(); },
            [&] { below(6) == 0 ? hosted_.site.close() : void(); },
            [&] { hosted_.site.uiActivate(); },
        })();
    }
    void load() {
        const ComPtr<IStream> stream(SHCreateMemStream(nullptr, 0));
        hosted_.site.save(stream.get());
        stream->Seek({}, STREAM_SEEK_SET, nullptr);
        if (const auto form = hosted_.site.query<IPersistStreamInit>()) form->Load(stream.get());
    }

    const std::wstring& name_;
    std::mt19937 random_;
    LoadedServer server_;
    HostedControl hosted_{name_};
    const HWND field_ = hosted_.window.addEdit(270);
    const Meanwhile nothingModal_{dismissModal, 30};
    const container::TypeMembers members_ = container::TypeMembers::of(hosted_.site.control().get());
    bool acts_ = true;
    int depth_ = 0;
};

// From its first opening on the system's chooser keeps what it draws with.
void openColourChooser() {
    const Meanwhile nothingModal(dismissModal, 30);
    COLORREF mixed[16]{};
    CHOOSECOLORW chooser{sizeof chooser, nullptr, nullptr, 0, mixed, CC_FULLOPEN, 0, nullptr, nullptr};
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
    if (seconds > 0)
        std::printf("%d walks of %d steps, to seed %u, %d drawing objects more\n", walks, steps, seed - 1,
                    gdiObjectCount() - firstDrawing);
    EXPECT_TRUE(server.canUnload());
}

}  // namespace
}  // namespace obk
