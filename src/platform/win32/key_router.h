// Key messages: each is put to the control once, whoever sees it first.
#pragma once

#include "widgets/input.h"

#include <windows.h>

#include <functional>
#include <optional>

namespace obk::win32 {

// The key of a WM_KEYDOWN, WM_KEYUP, WM_SYSKEYDOWN or WM_SYSKEYUP.
KeyEvent keyEvent(WPARAM wParam, LPARAM lParam);
bool isKeyDown(UINT message);
int16_t shiftState();

// A key message passes the host's message loop, a dialog's question and the window itself. The first of them
// asks the control; its answer waits for the others.
class KeyRouter {
public:
    using PreTranslate = std::function<KeyRoute(const KeyEvent&)>;

    // For the host's loop (its call of TranslateAccelerator): a key which the control does not want is the
    // host's to use from here on, and its window does not offer it again.
    KeyRoute routeFromHost(const MSG& message, const PreTranslate& preTranslate) {
        return route(message, preTranslate, true);
    }
    // For a dialog that asks what the window wants.
    KeyRoute routeFromDialog(const MSG& message, const PreTranslate& preTranslate) {
        return route(message, preTranslate, false);
    }

    struct Delivered {
        KeyRoute route = KeyRoute::child;
        bool offered = false;  // the host has seen that the control does not want it
    };
    // For the window that got the message.
    Delivered deliver(const MSG& message, const PreTranslate& preTranslate);

private:
    struct Answer {
        MSG message{};
        Delivered delivered;
    };
    KeyRoute route(const MSG& message, const PreTranslate& preTranslate, bool byHost);
    bool answered(const MSG& message) const;

    std::optional<Answer> answer_;
};

}  // namespace obk::win32
