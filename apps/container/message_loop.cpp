#include "container/message_loop.h"

namespace obk::container {

void MessageLoop::handle(MSG& message) {
    // Handlers may add and remove forms.
    const std::vector<ControlForm*> forms = forms_;
    if (onMessage && onMessage(message)) return;
    for (ControlForm* form : forms) {
        if (form->translate(message)) return;
    }
    if (onUnclaimed && onUnclaimed(message)) return;
    TranslateMessage(&message);
    DispatchMessageW(&message);
    for (ControlForm* form : std::vector<ControlForm*>(forms_)) form->followFocus();
}

int MessageLoop::run() {
    MSG message = {};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) handle(message);
    return static_cast<int>(message.wParam);
}

bool MessageLoop::pumpPending() {
    MSG message = {};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam));
            return false;
        }
        handle(message);
    }
    return true;
}

bool MessageLoop::pumpUntil(const std::function<bool()>& done, std::chrono::milliseconds longest) {
    const auto deadline = std::chrono::steady_clock::now() + longest;
    for (;;) {
        if (!pumpPending()) return done();
        if (done()) return true;
        if (std::chrono::steady_clock::now() >= deadline) return false;
        // Wakes for messages at once; the short wait is for conditions that no message announces.
        MsgWaitForMultipleObjectsEx(0, nullptr, 10, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    }
}

}  // namespace obk::container
