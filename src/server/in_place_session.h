// A control's time in a container's window: from activation in place, through the focus, to its end.
#pragma once

#include "base/units.h"

#include "com/com_ptr.h"

#include <windows.h>

#include <oleidl.h>

namespace obk::server {

class ControlObject;

class InPlaceSession {
public:
    explicit InPlaceSession(ControlObject& object) : object_(object) {}
    InPlaceSession(const InPlaceSession&) = delete;
    InPlaceSession& operator=(const InPlaceSession&) = delete;

    bool active() const { return static_cast<bool>(site_); }
    // Whether the container made the control work with the person, though it designs its form.
    bool madeLive() const { return madeLive_; }

    // Shows the control in the site's window. `parent` and `position` are what the caller of a verb suggests;
    // the site knows better.
    HRESULT activate(IOleClientSite& clientSite, HWND parent, const RECT* position);
    // Makes the control the one the user works with, and gives it the keyboard.
    HRESULT activateUi();
    // The keyboard is in the control already.
    void focusEntered();
    void deactivateUi();
    void deactivate();
    // Hides the window, which stays.
    void hide();

    // In pixels of the parent. What lies outside `clip` does not show.
    void place(const RECT& position, const RECT& clip);
    // Asks the container for another size. It is not asked again for what it answers.
    void requestSize(PixelSize size);

    HWND window() const;

private:
    void becomeUiActive();
    void show();

    ControlObject& object_;
    ComPtr<IOleInPlaceSite> site_;
    ComPtr<IOleInPlaceFrame> frame_;
    ComPtr<IOleInPlaceUIWindow> document_;
    RECT position_{};
    bool uiActive_ = false;
    bool asking_ = false;
    bool clipped_ = false;
    bool madeLive_ = false;
};

}  // namespace obk::server
