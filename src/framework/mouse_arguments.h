// The arguments of mouse events as hosts get them: by reference, in their numbering, in twips or pixels.
#pragma once

#include "base/event.h"
#include "widgets/input.h"
#include "widgets/widget.h"

namespace obk {

// Button, Shift, X, Y.
using MouseRaised = Event<int16_t&, int16_t&, float&, float&>;

struct MouseArguments {
    int16_t Button = 0;
    int16_t Shift = 0;
    float X = 0;
    float Y = 0;

    // In twips, from the left top corner of the widget that it was reported to.
    static MouseArguments inTwips(const MouseEvent& event, Dpi dpi) {
        return {event.button, event.shift, static_cast<float>(dpi.toTwips(event.at.x).value),
                static_cast<float>(dpi.toTwips(event.at.y).value)};
    }
    // Likewise, from that of `within`, another widget of the same surface.
    static MouseArguments inTwips(const MouseEvent& event, const Widget& on, const Widget& within) {
        const PixelRect at = on.pixelBounds(), origin = within.pixelBounds();
        MouseEvent moved = event;
        moved.at = {event.at.x + at.left - origin.left, event.at.y + at.top - origin.top};
        return inTwips(moved, within.dpi());
    }
    // In pixels of the widget that it was reported to.
    static MouseArguments inPixels(const MouseEvent& event) {
        return {event.button, event.shift, static_cast<float>(event.at.x), static_cast<float>(event.at.y)};
    }

    // What a listener changes stays changed; `more` are the event's further arguments.
    template <typename Raised, typename... More>
    void raise(const Raised& event, More&... more) {
        event(Button, Shift, X, Y, more...);
    }
};

}  // namespace obk
