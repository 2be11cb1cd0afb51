#include "person_support.h"

#include "panel_support.h"

#include <future>

namespace obk::testing_support {

namespace {

constexpr UINT comeToFrontMessage = WM_APP, holdClipboardMessage = WM_APP + 1;

LRESULT CALLBACK elsewhere(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == comeToFrontMessage) return SetForegroundWindow(window);
    if (message == holdClipboardMessage)
        return OpenClipboard(window) && SetTimer(window, 1, static_cast<UINT>(wParam), nullptr);
    if (message == WM_TIMER && KillTimer(window, wParam)) CloseClipboard();
    if (message == WM_DESTROY) PostQuitMessage(0);
    return DefWindowProcW(window, message, wParam, lParam);
}

INPUT keyInput(WORD code, DWORD flags = 0) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = code;
    input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(code, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = flags | (code >= VK_PRIOR && code <= VK_DOWN ? KEYEVENTF_EXTENDEDKEY : 0u);
    return input;
}

INPUT mouseInput(DWORD flag, DWORD data = 0) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flag;
    input.mi.mouseData = data;
    return input;
}

constexpr std::pair<UINT, WORD> modifierKeys[] = {
    {MOD_SHIFT, VK_SHIFT}, {MOD_CONTROL, VK_CONTROL}, {MOD_ALT, VK_MENU}};

// What a drag asks: it goes on until the button is let go.
class DragSource final : public ComObject<IDropSource> {
public:
    HRESULT STDMETHODCALLTYPE QueryContinueDrag(BOOL, DWORD keys) override {
        return (keys & (MK_LBUTTON | MK_RBUTTON)) != 0 ? S_OK : DRAGDROP_S_DROP;
    }
    HRESULT STDMETHODCALLTYPE GiveFeedback(DWORD) override { return DRAGDROP_S_USEDEFAULTCURSORS; }
};

}  // namespace

void putOnClipboard(std::initializer_list<std::pair<UINT, std::wstring>> contents) {
    OpenClipboard(nullptr);
    EmptyClipboard();
    for (const auto& [format, content] : contents) {
        const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, content.size() * sizeof(wchar_t));
        content.copy(static_cast<wchar_t*>(GlobalLock(memory)), content.size());
        GlobalUnlock(memory);
        SetClipboardData(format, memory);
    }
    CloseClipboard();
}

void sendKey(WORD code, DWORD flag) {
    INPUT input = keyInput(code, flag);
    SendInput(1, &input, sizeof input);
}

void sendMouse(DWORD flag, DWORD data) {
    INPUT input = mouseInput(flag, data);
    SendInput(1, &input, sizeof input);
}

AsIfHeld::AsIfHeld(WORD code) {
    GetKeyboardState(before_.data());
    auto keys = before_;
    keys[code] = 0x80;
    SetKeyboardState(keys.data());
}

OtherApplication::OtherApplication() {
    std::promise<HWND> made;
    thread_ = std::thread([&made] {
        const HWND window = CreateWindowExW(0, L"STATIC", L"Elsewhere", WS_POPUP | WS_VISIBLE, 700, 10, 60,
                                            20, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(elsewhere));
        made.set_value(window);
        container::MessageLoop().run();
    });
    window_ = made.get_future().get();
}

OtherApplication::~OtherApplication() {
    PostMessageW(window_, WM_CLOSE, 0, 0);
    thread_.join();
}

void OtherApplication::comeToFront() const {
    PostMessageW(window_, comeToFrontMessage, 0, 0);
}

bool OtherApplication::holdClipboard(std::chrono::milliseconds time) const {
    return SendMessageW(window_, holdClipboardMessage, static_cast<WPARAM>(time.count()), 0) != 0;
}

Person::Person(container::MessageLoop& loop, HWND form) : loop_(loop) {
    SetForegroundWindow(form);
    SetFocus(form);
    waitFor([form] { return GetFocus() == form; });
}

void Person::act(const std::function<void()>& how, const std::function<bool(const MSG&)>& awaited) {
    bool arrived = false;
    const auto before = loop_.onMessage;
    loop_.onMessage = [&](MSG& seen) {
        arrived |= awaited(seen);
        return before && before(seen);
    };
    how();
    EXPECT_TRUE(loop_.pumpUntil([&] { return arrived; })) << "what was done did not arrive";
    loop_.onMessage = before;
    loop_.pumpPending();
}

void Person::send(INPUT input, UINT message, UINT otherMessage) {
    SCOPED_TRACE(testing::Message() << "message " << message);
    act([&] { SendInput(1, &input, sizeof input); },
        [&](const MSG& seen) { return seen.message == message || seen.message == otherMessage; });
}

void Person::pressKey(WORD code) {
    send(keyInput(code), WM_KEYDOWN, WM_SYSKEYDOWN);
}

void Person::releaseKey(WORD code) {
    send(keyInput(code, KEYEVENTF_KEYUP), WM_KEYUP, WM_SYSKEYUP);
}

void Person::hold(WORD code, int times) {
    for (; times > 0; --times) sendKey(code);
    releaseKey(code);
}

void Person::keyDown(WORD code, UINT modifiers) {
    for (const auto& [flag, modifier] : modifierKeys) {
        if (modifiers & flag) pressKey(modifier);
    }
    pressKey(code);
}

void Person::keyUp(WORD code, UINT modifiers) {
    releaseKey(code);
    for (const auto& [flag, modifier] : modifierKeys) {
        if (modifiers & flag) releaseKey(modifier);
    }
}

void Person::key(WORD code, UINT modifiers) {
    keyDown(code, modifiers);
    keyUp(code, modifiers);
}

void Person::type(std::wstring_view text) {
    for (const wchar_t character : text) key(static_cast<WORD>(VkKeyScanW(character) & 0xFF));
}

void Person::moveTo(HWND window, int x, int y) {
    POINT at{x, y};
    if (window) ClientToScreen(window, &at);
    POINT now{};
    GetCursorPos(&now);
    if (now.x == at.x && now.y == at.y) return;
    act([&] { SetCursorPos(at.x, at.y); },
        [&](const MSG& seen) {
            return seen.message == WM_MOUSEMOVE && seen.pt.x == at.x && seen.pt.y == at.y;
        });
}

void Person::press(DWORD downFlag) {
    const bool left = downFlag == MOUSEEVENTF_LEFTDOWN;
    send(mouseInput(downFlag), left ? WM_LBUTTONDOWN : WM_RBUTTONDOWN,
         left ? WM_LBUTTONDBLCLK : WM_RBUTTONDBLCLK);
}

void Person::release(DWORD upFlag) {
    send(mouseInput(upFlag), upFlag == MOUSEEVENTF_LEFTUP ? WM_LBUTTONUP : WM_RBUTTONUP);
}

void Person::click(HWND window, int x, int y) {
    moveTo(window, x, y);
    press();
    if (IsWindowVisible(window)) return release();
    // The press has taken the window away: the release may belong to nobody here.
    sendMouse(MOUSEEVENTF_LEFTUP);
    loop_.pumpPending();
}

void Person::rightClick(HWND window, int x, int y) {
    moveTo(window, x, y);
    press(MOUSEEVENTF_RIGHTDOWN);
    release(MOUSEEVENTF_RIGHTUP);
}

DWORD Person::dropHere(IDataObject* data, DWORD downFlag) {
    press(downFlag);
    const auto source = ComPtr<DragSource>(new DragSource);
    mouse_event(MOUSEEVENTF_MOVE, 1, 0, 0, 0);
    mouse_event(downFlag << 1, 0, 0, 0, 0);  // its release
    DWORD effect = DROPEFFECT_NONE;
    EXPECT_EQ(DoDragDrop(data, source.get(), DROPEFFECT_COPY | DROPEFFECT_MOVE, &effect), DRAGDROP_S_DROP);
    return effect;
}

void Person::turnWheel(int delta) {
    send(mouseInput(MOUSEEVENTF_WHEEL, static_cast<DWORD>(delta)), WM_MOUSEWHEEL);
}

PersonAtControl::PersonAtControl(const wchar_t* className, const RECT& bounds) : hosted(className) {
    hosted.activate(bounds);
    other = hosted.window.addEdit(270);
    hosted.form.add(other);
}

long PersonAtControl::number(const wchar_t* method) const {
    container::Variant answer;
    object().call(method, {}, &answer);
    return answer.toLong().value_or(-999);
}

bool PersonAtControl::pressAltInOther(WPARAM letter) {
    SetFocus(other);
    hosted.loop.pumpPending();
    const AsIfHeld alt(VK_MENU);
    MSG message{other, WM_SYSKEYDOWN, letter, 0x20000001, 0, {}};
    return hosted.form.translate(message);
}

HWND PersonAtControl::open() {
    object().call(L"ShowPopUp");
    hosted.loop.pumpPending();
    takeEvents();
    return openPanel();
}

}  // namespace obk::testing_support
