#include "person_support.h"

#include "panel_support.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>

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

struct Start {
    HWND window = nullptr;
    HANDLE ready = CreateEventW(nullptr, TRUE, FALSE, nullptr);
};

DWORD WINAPI liveElsewhere(void* parameter) {
    auto& start = *static_cast<Start*>(parameter);
    const HWND window = CreateWindowExW(0, L"STATIC", L"Elsewhere", WS_POPUP | WS_VISIBLE, 700, 10, 60, 20,
                                        nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(elsewhere));
    start.window = window;
    SetEvent(start.ready);
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
    return 0;
}

INPUT mouseInput(DWORD flag, DWORD data = 0) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flag;
    input.mi.mouseData = data;
    return input;
}

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

void sendMouse(DWORD flag, DWORD data) {
    INPUT input = mouseInput(flag, data);
    SendInput(1, &input, sizeof input);
}

AsIfHeld::AsIfHeld(WORD code) {
    GetKeyboardState(before_);
    BYTE keys[256];
    std::copy(std::begin(before_), std::end(before_), keys);
    keys[code] = 0x80;
    SetKeyboardState(keys);
}

AsIfHeld::~AsIfHeld() {
    SetKeyboardState(before_);
}

OtherApplication::OtherApplication() {
    Start start;
    thread_ = CreateThread(nullptr, 0, liveElsewhere, &start, 0, nullptr);
    WaitForSingleObject(start.ready, INFINITE);
    CloseHandle(start.ready);
    window_ = start.window;
}

OtherApplication::~OtherApplication() {
    PostMessageW(window_, WM_CLOSE, 0, 0);
    WaitForSingleObject(thread_, 5000);
    CloseHandle(thread_);
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

bool Person::waitFor(const std::function<bool()>& condition) {
    return loop_.pumpUntil(condition);
}

void Person::wait(std::chrono::milliseconds time) {
    loop_.pumpUntil([] { return false; }, time);
}

void Person::send(const INPUT& input, UINT message, UINT otherMessage) {
    bool arrived = false;
    const auto before = loop_.onMessage;
    loop_.onMessage = [&](MSG& seen) {
        arrived |= seen.message == message || seen.message == otherMessage;
        return before && before(seen);
    };
    INPUT copy = input;
    SendInput(1, &copy, sizeof copy);
    EXPECT_TRUE(loop_.pumpUntil([&] { return arrived; })) << "no message " << message;
    loop_.onMessage = before;
    loop_.pumpPending();
}

void Person::sendKey(WORD code, bool down) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = code;
    input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(code, MAPVK_VK_TO_VSC));
    const bool extended = code >= VK_PRIOR && code <= VK_DOWN;
    input.ki.dwFlags = (down ? 0u : KEYEVENTF_KEYUP) | (extended ? KEYEVENTF_EXTENDEDKEY : 0u);
    if (down)
        send(input, WM_KEYDOWN, WM_SYSKEYDOWN);
    else
        send(input, WM_KEYUP, WM_SYSKEYUP);
}

void Person::hold(WORD code, int times) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = code;
    for (; times > 0; --times) SendInput(1, &input, sizeof input);
    input.ki.dwFlags = KEYEVENTF_KEYUP;
    send(input, WM_KEYUP);
}

void Person::keyDown(WORD code, UINT modifiers) {
    if (modifiers & MOD_SHIFT) sendKey(VK_SHIFT, true);
    if (modifiers & MOD_CONTROL) sendKey(VK_CONTROL, true);
    if (modifiers & MOD_ALT) sendKey(VK_MENU, true);
    sendKey(code, true);
}

void Person::keyUp(WORD code, UINT modifiers) {
    sendKey(code, false);
    if (modifiers & MOD_ALT) sendKey(VK_MENU, false);
    if (modifiers & MOD_CONTROL) sendKey(VK_CONTROL, false);
    if (modifiers & MOD_SHIFT) sendKey(VK_SHIFT, false);
}

void Person::key(WORD code, UINT modifiers) {
    keyDown(code, modifiers);
    keyUp(code, modifiers);
}

void Person::type(std::wstring_view text) {
    for (const wchar_t character : text)
        key(character == L'.'   ? VK_OEM_PERIOD
            : character == L'-' ? VK_OEM_MINUS
            : character == L',' ? VK_OEM_COMMA
                                : static_cast<WORD>(towupper(character)));
}

void Person::moveTo(HWND window, int x, int y) {
    POINT at{x, y};
    if (window) ClientToScreen(window, &at);
    POINT now{};
    GetCursorPos(&now);
    if (now.x == at.x && now.y == at.y) return;
    bool arrived = false;
    const auto before = loop_.onMessage;
    loop_.onMessage = [&](MSG& seen) {
        arrived |= seen.message == WM_MOUSEMOVE && seen.pt.x == at.x && seen.pt.y == at.y;
        return before && before(seen);
    };
    SetCursorPos(at.x, at.y);
    EXPECT_TRUE(loop_.pumpUntil([&] { return arrived; })) << "the mouse did not arrive";
    loop_.onMessage = before;
    loop_.pumpPending();
}

void Person::press(DWORD downFlag) {
    const INPUT input = mouseInput(downFlag);
    if (downFlag == MOUSEEVENTF_LEFTDOWN)
        send(input, WM_LBUTTONDOWN, WM_LBUTTONDBLCLK);
    else
        send(input, WM_RBUTTONDOWN, WM_RBUTTONDBLCLK);
}

void Person::release(DWORD upFlag) {
    send(mouseInput(upFlag), upFlag == MOUSEEVENTF_LEFTUP ? WM_LBUTTONUP : WM_RBUTTONUP);
}

void Person::click(HWND window, int x, int y) {
    moveTo(window, x, y);
    press();
    if (IsWindowVisible(window)) {
        release();
        return;
    }
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
