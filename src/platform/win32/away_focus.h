// Who had the keyboard while a person works in another application: going there and coming back is no
// leaving.
#pragma once

#include "platform/win32/service_window.h"

#include <windows.h>

#include <memory>

namespace obk::win32 {

class ClientWindow;

// One for a thread's platform. Once the person is back and works elsewhere, the window is told that the focus
// has left it.
class AwayFocus {
public:
    // Borrowed; it outlives this.
    explicit AwayFocus(ServiceWindow& service) : service_(service) {}
    AwayFocus(const AwayFocus&) = delete;
    AwayFocus& operator=(const AwayFocus&) = delete;
    ~AwayFocus() { end(); }

    // A window loses the focus; whether it goes to another application, and the window stays the one.
    bool keep(const std::shared_ptr<ClientWindow>& window);
    // A window has got the focus; whether it is the one that had it before. Another one's loss is told.
    bool returnedTo(const ClientWindow& window);
    // Null while the person is here.
    HWND window() const { return window_; }
    // Tells the window that it has lost the focus for good.
    void leave();
    // The window goes; `after` takes its place, or is null.
    void replaced(HWND before, HWND after);

private:
    static LRESULT CALLBACK watch(int code, WPARAM wParam, LPARAM lParam);
    void focusMoves(HWND to);
    void end();

    ServiceWindow& service_;
    std::weak_ptr<ClientWindow> client_;
    HWND window_ = nullptr;
    HHOOK hook_ = nullptr;
    UINT_PTR timer_ = 0;
};

}  // namespace obk::win32
