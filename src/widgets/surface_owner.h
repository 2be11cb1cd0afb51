// What a surface asks of the control, or of the pop-up panel, that it is the window of.
#pragma once

#include "widgets/accessible_item.h"
#include "widgets/input.h"

#include <cstdint>

namespace obk {

class SurfaceOwner {
public:
    virtual KeyRoute preTranslate(const KeyEvent& event) = 0;
    virtual bool offerToContainer(const KeyEvent& event) = 0;
    // The focus is in the surface or its children, or is in none of them any more; told again and again.
    virtual void focusEntered() = 0;
    virtual void focusLeft() = 0;
    virtual void surfaceCaptureLost() = 0;
    virtual void surfaceChanged() = 0;  // another DPI, other system colours or metrics
    // Of a panel: the window that it belongs to moved, was minimised, hidden or closed.
    virtual void surfaceHostMoved() {}
    // What it shows is not what it showed: told once it has been painted, or a child window has changed.
    virtual void surfaceLooksDifferent() {}
    // The focus has stayed here while something else in the host's window was pressed, or its menu opened.
    virtual void surfacePressedElsewhere() {}
    // Whether all is placed from right to left: x then counts from the right edge, for widgets and for
    // whoever hears of the mouse.
    virtual bool mirrored() const { return false; }
    // For screen readers: all of it, and what they do with it as a whole.
    virtual AccessibleItem describeSurface() const = 0;
    virtual void useSurface(const AccessibleAction&) {}
    virtual void surfaceKeyDown(KeyEvent&) {}
    virtual void surfaceKeyUp(KeyEvent&) {}
    virtual int16_t surfaceKeyPress(int16_t character) { return character; }

protected:
    ~SurfaceOwner() = default;
};

}  // namespace obk
