// What ButtonPalette's panel shows: the swatches, the frames of the chosen and of the hovered one, and the
// strip for more colours.
#pragma once

#include "framework/hosted_control.h"
#include "pagetab/lns.h"
#include "palette/palette_model.h"

namespace obk {

class PalettePanel final : public Container {
public:
    // Fills `parent`, the root of the panel of `outer`. The model is borrowed and outlives the widget.
    PalettePanel(Control& outer, Container& parent, const PaletteModel& model);

    // Places everything at the model's scale; the size the panel needs, in pixels.
    PixelSize layOut();

    // What lies at a point, in pixels of the panel as it was laid out last.
    struct Spot {
        std::optional<PaletteCell> cell;  // none outside the panel, nor in the gaps
        bool inside = false;
        bool belowStripTop = false;    // wherever that is on the screen
        bool beyondStripEdge = false;  // outside a line a little inside the left, right and bottom edges
        bool onStrip() const { return inside && belowStripTop && !beyondStripEdge; }
    };
    Spot spotAt(PixelPoint point) const;
    // The middle of what the walk of the keys has come to.
    PixelPoint walkPoint() const;

    // The model has changed there.
    void showCells(const PixelRect& place);
    void showStrip();

    void paint(Canvas& canvas, const PixelRect& bounds) override;
    Widget* hitTest(PixelPoint point) override { return Widget::hitTest(point); }
    void mouse(const MouseEvent& event) override { mouseReported(event); }
    void placed() override;
    AccessibleItem accessible(AccessiblePart part) const override;
    int32_t accessibleParts(AccessiblePart of) const override;
    AccessibleId accessibleFocus() override;
    void useAccessible(AccessiblePart part, const AccessibleAction& action) override;

    Event<const MouseEvent&> mouseReported;

private:
    bool classic() const;  // three-dimensional edges on the face of buttons
    SystemColour ground() const;
    PixelRect customRect() const;  // of the caption "More colors"
    void paintCell(Canvas& canvas, const PaletteCell& cell, PixelPoint origin) const;
    void paintHoverFrame(Canvas& canvas, PixelPoint origin) const;
    void paintStrip(Canvas& canvas, PixelPoint origin) const;
    void invalidatePart(const PixelRect& rect);

    const PaletteModel& model_;
    const Look look_;
    Hosted<lns> linCUSTOM;
    PixelSize size_;
    int32_t stripTop_ = 0;
};

}  // namespace obk
