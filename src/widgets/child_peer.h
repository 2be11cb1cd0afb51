// The port's child windows: what those of every kind have in common.
#pragma once

#include "base/colour.h"
#include "base/font.h"
#include "base/text.h"
#include "base/units.h"
#include "widgets/platform.h"

namespace obk {

// Where a child window begins, and whether a person can use it. It shows where the clip leaves something of
// it.
struct ChildPlacement {
    PixelRect bounds;  // on the surface
    PixelRect clip;
    bool enabled = true;
};

// A child window on a surface. Colours, fonts and sizes follow the calls at once.
class ChildPeer {
public:
    virtual ~ChildPeer() = default;
    virtual NativeWindow window() const = 0;
    // `bounds` on the surface; nothing outside `clip` shows. An empty intersection hides the window.
    virtual void setBounds(const PixelRect& bounds, const PixelRect& clip) = 0;
    virtual void setVisible(bool visible) = 0;
    virtual void setEnabled(bool enabled) = 0;
    virtual void setFont(const FontDescription& font) = 0;
    virtual void setColours(Rgb text, Rgb background) = 0;
    // Refused, without effect, while disabled or invisible.
    virtual void focus() = 0;
    virtual bool hasFocus() const = 0;
};

}  // namespace obk
