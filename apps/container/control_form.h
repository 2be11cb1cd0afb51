// A form: one window with controls and ordinary windows on it, their tab order and the active one.
#pragma once

#include <oleidl.h>

#include <vector>

#include "com/com_object.h"

namespace obk::container {

class ControlSite;
class FrameObject;

enum class Direction { forward, backward };

// Serves the sites on one window, which it neither creates nor destroys. Sites register themselves
// and must be destroyed before the form.
class ControlForm {
public:
    explicit ControlForm(HWND window);
    ControlForm(const ControlForm&) = delete;
    ControlForm& operator=(const ControlForm&) = delete;
    ~ControlForm();

    HWND window() const { return window_; }
    int dpi() const;
    IOleInPlaceFrame* frame() const;
    // The one that its controls follow: the system's message font.
    IDispatch* font();

    // The tab order is the order of addition; adding again moves to the end. Sites add themselves. A window
    // needs no style for it and may lie outside the form's; hidden and disabled ones are passed over.
    // Controls which say that they take no focus are passed over, too.
    void add(ControlSite& site);
    void add(HWND window);
    void remove(ControlSite& site);
    void remove(HWND window);

    // The UI-active control, or null.
    ControlSite* activeSite() const { return active_; }
    // What the active control gave the frame for its accelerators; usually equal to its own object.
    IOleInPlaceActiveObject* activeObject() const;
    // The site whose window is `window` or holds it; null when there is none.
    ControlSite* siteOf(HWND window) const;

    // Moves the focus to the next stop that takes it. `key` is what moved it, for a control that
    // wants to know from where it is entered. False when there is no other stop.
    bool moveFocus(Direction direction, MSG* key = nullptr);
    // Gives the focus to a control or a window of the form.
    bool enter(ControlSite& site, MSG* key = nullptr);
    void enter(HWND window);

    // Keys: the active control's accelerators, mnemonics, then Tab. True when the message is done.
    bool translate(MSG& message);
    // To be called after messages were dispatched: a control which is UI active although the focus
    // went to another window under the same top-level window is deactivated.
    void followFocus();
    // To be called from WM_ACTIVATE of the top-level window.
    void frameActivated(bool active);

private:
    friend class ControlSite;
    struct Stop {
        ControlSite* site = nullptr;
        HWND window = nullptr;
    };

    bool owns(HWND window) const;
    void siteActivated(ControlSite& site);
    void siteDeactivated(ControlSite& site);
    bool enterStop(const Stop& stop, MSG* key);
    size_t currentStop() const;
    bool translateMnemonic(MSG& message);

    HWND window_;
    ComPtr<FrameObject> frame_;
    ComPtr<IDispatch> font_;
    std::vector<Stop> stops_;
    ControlSite* active_ = nullptr;
};

}  // namespace obk::container
