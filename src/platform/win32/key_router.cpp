#include "platform/win32/key_router.h"

namespace obk::win32 {

int16_t shiftState() {
    const auto bit = [](int virtualKey, int16_t value) {
        return GetKeyState(virtualKey) < 0 ? value : int16_t{0};
    };
    return static_cast<int16_t>(bit(VK_SHIFT, shift::shift) | bit(VK_CONTROL, shift::control) |
                                bit(VK_MENU, shift::alt));
}

namespace {

// AltGr comes as Ctrl and Alt, and on some keyboards the two are it; so the keyboard's layout is asked.
bool typesWithAltGr(WPARAM key, LPARAM lParam) {
    BYTE state[256]{};
    if (!GetKeyboardState(state)) return false;
    constexpr UINT leaveDeadKeys = 1 << 2;
    const auto translated = [&](wchar_t(&typed)[8]) {
        return ToUnicodeEx(static_cast<UINT>(key), static_cast<UINT>(lParam >> 16 & 0xFF), state, typed, 8,
                           leaveDeadKeys, GetKeyboardLayout(0));
    };
    wchar_t typed[8]{};
    const int length = translated(typed);
    // An accent that waits for its letter. Older systems keep it, until they are asked again.
    if (length < 0) translated(typed);
    return length < 0 || (length > 0 && typed[0] >= L' ');
}

}  // namespace

KeyEvent keyEvent(WPARAM wParam, LPARAM lParam) {
    constexpr LPARAM wasDown = 1 << 30;
    KeyEvent event{static_cast<int16_t>(wParam), shiftState(), (lParam & wasDown) != 0};
    if ((event.shift & shift::control) != 0 && (event.shift & shift::alt) != 0)
        event.typesWithAltGr = typesWithAltGr(wParam, lParam);
    return event;
}

bool isKeyDown(UINT message) {
    return message == WM_KEYDOWN || message == WM_SYSKEYDOWN;
}

bool KeyRouter::answered(const MSG& message) const {
    if (!answer_) return false;
    const MSG& known = answer_->message;
    return known.hwnd == message.hwnd && known.message == message.message && known.wParam == message.wParam &&
           known.lParam == message.lParam && known.time == message.time;
}

KeyRoute KeyRouter::route(const MSG& message, const PreTranslate& preTranslate, bool byHost) {
    if (!answered(message)) {
        answer_.reset();
        const KeyRoute route = preTranslate(keyEvent(message.wParam, message.lParam));
        // Asking may have run a message loop that put another key here.
        answer_ = Answer{message, {route, false}};
    }
    answer_->delivered.offered |= byHost;
    return answer_->delivered.route;
}

KeyRouter::Delivered KeyRouter::deliver(const MSG& message, const PreTranslate& preTranslate) {
    if (answered(message)) {
        const Delivered delivered = answer_->delivered;
        answer_.reset();
        return delivered;
    }
    return {preTranslate(keyEvent(message.wParam, message.lParam)), false};
}

}  // namespace obk::win32
