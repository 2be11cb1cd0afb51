// A small push button that is drawn: with a caption, or with arrows in its place.
#pragma once

#include "base/event.h"
#include "widgets/drawing.h"
#include "widgets/widget.h"

#include <optional>

namespace obk {

class DrawnButton final : public Widget {
public:
    struct Face {
        Text name;  // the caption; beneath arrows the tool tip
        std::optional<ArrowDirection> arrow{};
        int32_t arrows = 1;  // side by side; only those to the left or right
        bool reachedByKeys = false;
    };
    DrawnButton(Container& parent, Face face);

    void setLook(Look look);

    void paint(Canvas& canvas, const PixelRect& bounds) override;
    void mouse(const MouseEvent& event) override;
    void captureLost() override { release(); }
    void detach() override;
    void placed() override;
    bool accessibleWhole() const override { return true; }
    AccessibleItem accessible(AccessiblePart part) const override;
    void useAccessible(AccessiblePart part, const AccessibleAction& action) override;

    // Of the left button. `released` ends each press, also one that the window system cuts short; `clicked`
    // follows it when the mouse is still on the button.
    Event<> pressed, released, clicked;

private:
    void press();
    void release();
    void hover(bool inside);
    Rgb paintFace(Canvas& canvas, const PixelRect& bounds) const;

    Face face_;
    Look look_ = Look::flat;
    bool held_ = false;
    bool inside_ = false;  // the mouse is on the button
    bool toldEnabled_ = true;
};

}  // namespace obk
