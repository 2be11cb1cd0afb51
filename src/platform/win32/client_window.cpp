#include "platform/win32/client_window.h"

#include <windowsx.h>

#include <algorithm>
#include <iterator>

namespace obk::win32 {

namespace {

constexpr WPARAM heldButtons(WPARAM keys) {
    return (keys & MK_LBUTTON ? button::left : 0) | (keys & MK_RBUTTON ? button::right : 0) |
           (keys & MK_MBUTTON ? button::middle : 0);
}

int16_t mouseShift(WPARAM keys) {
    const int16_t alt = GetKeyState(VK_MENU) < 0 ? shift::alt : int16_t{0};
    return static_cast<int16_t>((keys & MK_SHIFT ? shift::shift : 0) |
                                (keys & MK_CONTROL ? shift::control : 0) | alt);
}

struct ButtonMessage {
    UINT code;
    MouseEvent::Kind kind;
    int16_t button;
};
constexpr ButtonMessage buttonMessages[] = {
    {WM_LBUTTONDOWN, MouseEvent::Kind::down, button::left},
    {WM_RBUTTONDOWN, MouseEvent::Kind::down, button::right},
    {WM_MBUTTONDOWN, MouseEvent::Kind::down, button::middle},
    {WM_LBUTTONUP, MouseEvent::Kind::up, button::left},
    {WM_RBUTTONUP, MouseEvent::Kind::up, button::right},
    {WM_MBUTTONUP, MouseEvent::Kind::up, button::middle},
    {WM_LBUTTONDBLCLK, MouseEvent::Kind::doubleClick, button::left},
    {WM_RBUTTONDBLCLK, MouseEvent::Kind::doubleClick, button::right},
    {WM_MBUTTONDBLCLK, MouseEvent::Kind::doubleClick, button::middle},
};

const ButtonMessage* buttonMessage(UINT code) {
    const auto* const found = std::find_if(std::begin(buttonMessages), std::end(buttonMessages),
                                           [code](const ButtonMessage& each) { return each.code == code; });
    return found == std::end(buttonMessages) ? nullptr : found;
}

MouseEvent mouseEvent(const Message& message) {
    if (message.code == WM_MOUSELEAVE) {
        POINT at{};
        GetCursorPos(&at);
        ScreenToClient(message.window, &at);
        return {MouseEvent::Kind::leave, 0, shiftState(), {at.x, at.y}};
    }
    MouseEvent event;
    event.button = static_cast<int16_t>(heldButtons(message.wParam));
    if (const ButtonMessage* of = buttonMessage(message.code)) {
        event.kind = of->kind;
        event.button = of->button;
    }
    event.shift = mouseShift(message.wParam);
    event.at = {GET_X_LPARAM(message.lParam), GET_Y_LPARAM(message.lParam)};
    return event;
}

MSG asMsg(const Message& message) {
    MSG result{};
    result.hwnd = message.window;
    result.message = message.code;
    result.wParam = message.wParam;
    result.lParam = message.lParam;
    result.time = static_cast<DWORD>(GetMessageTime());
    return result;
}

}  // namespace

ClientWindow::ClientWindow(std::shared_ptr<Environment> environment, PeerClient& client)
    : environment_(std::move(environment)), client_(&client) {}

ClientWindow::Hold::Hold(ClientWindow& window) : window_(window.shared_from_this()) {
    if (window.client_) control_ = window.client_->keepAlive();
    if (control_) ++window.held_;
}

ClientWindow::Hold::~Hold() {
    // Letting the control go may destroy the peer; this window's inside lasts until the members below it are
    // gone.
    if (control_) --window_->held_;
    control_.reset();
}

void ClientWindow::adopt(HWND window) {
    window_ = window;
    keptByWindow_ = shared_from_this();
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    const auto current = reinterpret_cast<WNDPROC>(GetWindowLongPtrW(window, GWLP_WNDPROC));
    if (current != procedure) {
        original_ = current;
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
    }
}

void ClientWindow::replace(HWND window) {
    const HWND old = window_;
    const WNDPROC ownOfOld = original_;
    SetWindowLongPtrW(old, GWLP_USERDATA, 0);
    SetWindowLongPtrW(old, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(ownOfOld));
    adopt(window);
    tracking_ = false;
    environment_->away().replaced(old, window);
    if (GetFocus() == old) SetFocus(window);
    DestroyWindow(old);
}

void ClientWindow::close() {
    const auto self = weak_from_this().lock();
    client_ = nullptr;
    if (window_) DestroyWindow(window_);
}

void ClientWindow::setEnabled(bool enabled) {
    if (!window_ || (IsWindowEnabled(window_) != FALSE) == enabled) return;
    // The system takes the focus from this window, but not from one inside it.
    if (!enabled) giveFocusTo(nullptr);
    if (window_) EnableWindow(window_, enabled);
}

void ClientWindow::focus() {
    if (!window_ || !IsWindowVisible(window_)) return;
    for (HWND each = window_; each; each = GetAncestor(each, GA_PARENT)) {
        if (!IsWindowEnabled(each)) return;
    }
    if (GetFocus() != window_) SetFocus(window_);
}

bool ClientWindow::holdsFocus() const {
    HWND focus = GetFocus();
    if (!focus) focus = environment_->away().window();
    return window_ && focus && (focus == window_ || IsChild(window_, focus));
}

void ClientWindow::focusLeft() {
    const Hold hold(*this);
    if (listening()) client_->focusLost();
}

void ClientWindow::giveFocusTo(HWND window) {
    if (!holdsFocus()) return;
    if (environment_->away().window())
        environment_->away().leave();
    else
        SetFocus(window);
}

bool ClientWindow::isOne(HWND window) {
    return reinterpret_cast<WNDPROC>(GetWindowLongPtrW(window, GWLP_WNDPROC)) == procedure;
}

LRESULT CALLBACK ClientWindow::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* raw = reinterpret_cast<ClientWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!raw) return DefWindowProcW(window, message, wParam, lParam);
    const Message whole{window, message, wParam, lParam};
    try {
        const auto self = raw->shared_from_this();
        if (message == WM_NCDESTROY) {
            const LRESULT result = self->systemDefault(whole);
            SetWindowLongPtrW(window, GWLP_USERDATA, 0);
            self->window_ = nullptr;
            self->environment_->away().replaced(window, nullptr);
            self->destroyed();
            self->keptByWindow_.reset();
            return result;
        }
        const Hold hold(*self);
        return self->handle(whole);
    } catch (...) {
        return 0;  // nothing may pass through the system's frames
    }
}

LRESULT ClientWindow::systemDefault(const Message& message) {
    return original_
               ? CallWindowProcW(original_, message.window, message.code, message.wParam, message.lParam)
               : DefWindowProcW(message.window, message.code, message.wParam, message.lParam);
}

LRESULT ClientWindow::defaultFor(const Message& message) {
    if (!window_) return 0;
    // The client may have made the window anew while it was told of the message.
    return systemDefault({window_, message.code, message.wParam, message.lParam});
}

LRESULT ClientWindow::handle(const Message& message) {
    switch (message.code) {
        case WM_KEYDOWN:
        case WM_SYSKEYDOWN:
            return keyDown(message);
        case WM_KEYUP:
        case WM_SYSKEYUP:
            return keyUp(message);
        case WM_CHAR:
        case WM_SYSCHAR:
        case WM_IME_CHAR:
            return character(message);
        case WM_GETDLGCODE:
            return dialogCode(message);
        case WM_SETFOCUS: {
            // A key that was used when it went down may have been released elsewhere.
            discardCharacter_ = false;
            noteFocus(message);
            const LRESULT result = defaultFor(message);
            focusIsInside(true);
            const bool back = environment_->away().returnedTo(*this);
            if (!back && listening()) client_->focusGained();
            return result;
        }
        case WM_KILLFOCUS: {
            noteFocus(message);
            const LRESULT result = defaultFor(message);
            focusIsInside(false);
            if (!environment_->away().keep(shared_from_this()) && listening()) client_->focusLost();
            return result;
        }
        case WM_MOUSEMOVE:
        case WM_MOUSELEAVE:
            return mouse(message);
        case WM_MOUSEWHEEL:
        case WM_MOUSEHWHEEL:
            return wheel(message);
        case WM_CONTEXTMENU:
            return contextMenu(message);
        default:
            return buttonMessage(message.code) ? mouse(message) : defaultFor(message);
    }
}

void ClientWindow::noteFocus(const Message& message) {
    if (message.code == WM_KILLFOCUS) {
        const auto next = reinterpret_cast<HWND>(message.wParam);
        leftForm_ = !next || GetAncestor(next, GA_ROOT) != GetAncestor(message.window, GA_ROOT);
        return;
    }
    const auto held = [](int button) { return GetKeyState(button) < 0; };
    enteredByKeys_ = !leftForm_ && !held(VK_LBUTTON) && !held(VK_RBUTTON) && !held(VK_MBUTTON);
}

LRESULT ClientWindow::keyDown(const Message& message) {
    discardCharacter_ = false;
    if (!listening()) return defaultFor(message);
    const auto preTranslate = [this](const KeyEvent& event) { return client_->preTranslate(event); };
    const KeyRouter::Delivered delivered = environment_->keys().deliver(asMsg(message), preTranslate);
    KeyEvent event = keyEvent(message.wParam, message.lParam);
    bool used = delivered.route == KeyRoute::handled;
    if (delivered.route == KeyRoute::container && !delivered.offered && listening())
        used = client_->offerToContainer(event);
    if (!used && listening()) {
        client_->keyDown(event);
        used = event.code == 0;
    }
    discardCharacter_ = used;
    if (used) return 0;
    Message passed = message;
    if (event.code != static_cast<int16_t>(message.wParam)) passed.wParam = static_cast<uint16_t>(event.code);
    return defaultFor(passed);
}

LRESULT ClientWindow::keyUp(const Message& message) {
    discardCharacter_ = false;
    if (!listening()) return defaultFor(message);
    KeyEvent event = keyEvent(message.wParam, message.lParam);
    client_->keyUp(event);
    if (event.code == 0) return 0;
    Message passed = message;
    if (event.code != static_cast<int16_t>(message.wParam)) passed.wParam = static_cast<uint16_t>(event.code);
    return defaultFor(passed);
}

LRESULT ClientWindow::character(const Message& message) {
    if (discardCharacter_ && message.code != WM_IME_CHAR) return 0;
    // With Alt held it is no typed character but the name of a menu.
    if (message.code == WM_SYSCHAR || !listening()) return defaultFor(message);
    if (const HWND inside = typedInto())
        return SendMessageW(inside, message.code, message.wParam, message.lParam);
    const auto typed = static_cast<int16_t>(message.wParam);
    const int16_t answer = client_->keyPress(typed);
    if (answer == 0) return 0;
    Message passed = message;
    passed.code = WM_CHAR;
    passed.wParam = static_cast<uint16_t>(answer);
    if (const HWND inside = typedInto())
        return SendMessageW(inside, passed.code, passed.wParam, passed.lParam);
    return defaultFor(passed);
}

HWND ClientWindow::typedInto() const {
    const HWND focus = GetFocus();
    return window_ && focus && IsChild(window_, focus) ? focus : nullptr;
}

LRESULT ClientWindow::dialogCode(const Message& message) {
    const auto* asked = reinterpret_cast<const MSG*>(message.lParam);
    LRESULT wanted = DLGC_WANTCHARS | DLGC_WANTARROWS | (defaultFor(message) & DLGC_HASSETSEL);
    if (!asked || !isKeyDown(asked->message) || !listening()) return wanted;
    const auto preTranslate = [this](const KeyEvent& event) { return client_->preTranslate(event); };
    const KeyRoute route = environment_->keys().routeFromDialog(*asked, preTranslate);
    if (route != KeyRoute::container) return wanted | DLGC_WANTMESSAGE;
    return wanted & ~DLGC_WANTARROWS;
}

void ClientWindow::trackLeaving() {
    if (tracking_) return;
    TRACKMOUSEEVENT wish{};
    wish.cbSize = sizeof wish;
    wish.dwFlags = TME_LEAVE;
    wish.hwndTrack = window_;
    tracking_ = TrackMouseEvent(&wish) != FALSE;
}

LRESULT ClientWindow::mouse(const Message& message) {
    if (message.code == WM_MOUSELEAVE) {
        tracking_ = false;
    } else if (message.code == WM_MOUSEMOVE && window_) {
        trackLeaving();
    }
    const MouseEvent event = mouseEvent(message);
    // A press moves the focus before it is reported; a release is reported before it opens a menu.
    const bool reportFirst =
        event.kind != MouseEvent::Kind::down && event.kind != MouseEvent::Kind::doubleClick;
    const bool passOn = hasOwnMouse() || message.code == WM_RBUTTONUP;
    LRESULT result = 0;
    if (passOn && !reportFirst) result = defaultFor(message);
    if (listening()) client_->mouse(event);
    if (passOn && reportFirst) result = defaultFor(message);
    return result;
}

LRESULT ClientWindow::wheel(const Message& message) {
    POINT at{GET_X_LPARAM(message.lParam), GET_Y_LPARAM(message.lParam)};
    ScreenToClient(message.window, &at);
    const WheelEvent event{GET_WHEEL_DELTA_WPARAM(message.wParam),
                           message.code == WM_MOUSEHWHEEL,
                           mouseShift(GET_KEYSTATE_WPARAM(message.wParam)),
                           {at.x, at.y}};
    if (listening() && client_->wheel(event)) return 0;
    return window_ ? passWheelOn(message) : 0;
}

LRESULT ClientWindow::contextMenu(const Message& message) {
    std::optional<PixelPoint> at;  // none by the keyboard, which says -1 for both
    POINT point{GET_X_LPARAM(message.lParam), GET_Y_LPARAM(message.lParam)};
    if (point.x != -1 || point.y != -1) {
        ScreenToClient(message.window, &point);
        at = PixelPoint{point.x, point.y};
    }
    return listening() && client_->contextMenu(at) ? 0 : defaultFor(message);
}

}  // namespace obk::win32
