// What the windows of all peers share: lifetime, keys, focus, mouse, wheel.
#pragma once

#include "platform/win32/environment.h"
#include "platform/win32/message.h"
#include "widgets/peer_client.h"

#include <memory>

namespace obk::win32 {

// The inside of a peer. The system's window keeps it alive while it exists, the peer while that exists; a
// client may destroy the peer, the window or both in the middle of a message.
class ClientWindow : public std::enable_shared_from_this<ClientWindow> {
public:
    ClientWindow(const ClientWindow&) = delete;
    ClientWindow& operator=(const ClientWindow&) = delete;
    virtual ~ClientWindow() = default;

    HWND hwnd() const { return window_; }
    // The peer goes: the client hears nothing more, and the window is destroyed.
    void close();
    void setEnabled(bool enabled);
    // Refused, without effect, unless a person could put the focus there.
    void focus();
    // This window or one inside it, also while the person works in another application.
    bool holdsFocus() const;
    // The focus, which another application had, does not come back here.
    void focusLeft();
    // The focus, if it is here, goes to another window, or with null to none.
    void giveFocusTo(HWND window);
    // Whether a window of this process is the inside of a peer.
    static bool isOne(HWND window);
    // Whether the focus came from elsewhere in the form, and not by the mouse.
    bool enteredByKeys() const { return enteredByKeys_; }

    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

protected:
    ClientWindow(std::shared_ptr<Environment> environment, PeerClient& client);

    // Takes over the messages of `window`, which must not have gone through `procedure` before.
    void adopt(HWND window);
    // Goes on to another window without the client noticing.
    void replace(HWND window);
    // The window is gone for good.
    virtual void destroyed() {}
    virtual LRESULT handle(const Message& message);
    virtual LRESULT systemDefault(const Message& message);
    // What the window does by itself, if it still exists.
    LRESULT defaultFor(const Message& message);
    // Where a wheel goes that the client does not use.
    virtual LRESULT passWheelOn(const Message& message) { return defaultFor(message); }
    // Of this window alone, before its client hears of it.
    virtual void focusIsInside(bool) {}
    // Whether the window acts on the mouse by itself.
    virtual bool hasOwnMouse() const { return false; }

    Environment& environment() const { return *environment_; }
    bool open() const { return client_ != nullptr && window_ != nullptr; }
    Text accessibleName() const { return listening() ? client_->accessibleName() : Text(); }
    // Silences the reports for one scope.
    class Silence {
    public:
        explicit Silence(ClientWindow& window) : window_(window) { ++window_.silences_; }
        Silence(const Silence&) = delete;
        Silence& operator=(const Silence&) = delete;
        ~Silence() { --window_.silences_; }

    private:
        ClientWindow& window_;
    };

    // Whether the client can be told anything: it exists and is being kept alive.
    bool listening() const { return client_ != nullptr && held_ > 0 && silences_ == 0; }
    // Keeps the control alive for one scope, where it is not the window procedure that calls.
    class Hold {
    public:
        explicit Hold(ClientWindow& window);
        Hold(const Hold&) = delete;
        Hold& operator=(const Hold&) = delete;
        ~Hold();

    private:
        std::shared_ptr<ClientWindow> window_;
        std::shared_ptr<void> control_;
    };

private:
    LRESULT keyDown(const Message& message);
    LRESULT keyUp(const Message& message);
    LRESULT character(const Message& message);
    // A window inside this one that has got the focus since the key went down: what is typed is for it.
    HWND typedInto() const;
    LRESULT mouse(const Message& message);
    LRESULT wheel(const Message& message);
    LRESULT contextMenu(const Message& message);
    LRESULT dialogCode(const Message& message);
    void trackLeaving();
    void noteFocus(const Message& message);

    std::shared_ptr<Environment> environment_;
    PeerClient* client_;
    HWND window_ = nullptr;
    std::shared_ptr<ClientWindow> keptByWindow_;
    WNDPROC original_ = nullptr;  // of a window of the system's own class
    int held_ = 0;
    int silences_ = 0;
    bool discardCharacter_ = false;  // of a key that was used or discarded
    bool tracking_ = false;
    bool leftForm_ = false;  // when the focus left this window
    bool enteredByKeys_ = false;
};

}  // namespace obk::win32
