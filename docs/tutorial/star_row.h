// The stars of a rating in a row: shows them, and tells which number of them a person wants.
#pragma once

#include "base/event.h"
#include "tutorial/rating.h"
#include "widgets/widget.h"

namespace obk::tutorial {

class StarRow final : public Widget {
public:
    // `rating` is borrowed; whoever changes it calls `invalidate`.
    StarRow(Container& parent, const Rating& rating) : Widget(parent), rating_(rating) {}

    // A star was clicked, or an arrow key steps; may be out of the rating's range.
    Event<int32_t> wanted;

    void paint(Canvas& canvas, const PixelRect& bounds) override;
    void mouse(const MouseEvent& event) override;
    void keyDown(KeyEvent& event) override;
    bool takeFocus() override;
    Widget* focused() override;
    bool accessibleWhole() const override { return true; }
    AccessibleItem accessible(AccessiblePart part) const override;

private:
    const Rating& rating_;
};

}  // namespace obk::tutorial
