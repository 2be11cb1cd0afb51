// The owner of a surface that has no control: all keys are its widgets', and it hears nothing.
#pragma once

#include "widgets/surface_owner.h"

namespace obk::test {

class QuietSurfaceOwner : public SurfaceOwner {
protected:
    KeyRoute preTranslate(const KeyEvent&) override { return KeyRoute::child; }
    bool offerToContainer(const KeyEvent&) override { return false; }
    void focusEntered() override {}
    void focusLeft() override {}
    void surfaceCaptureLost() override {}
    void surfaceChanged() override {}
    AccessibleItem describeSurface() const override { return {}; }
};

}  // namespace obk::test
