// What ButtonPalette's panel holds: the swatches, the frames of the chosen and of the hovered one, and the
// strip for more colours.
#pragma once

#include "base/event.h"
#include "framework/hosted_control.h"
#include "pagetab/lns.h"
#include "palette/colour_palette.h"

#include <optional>

namespace obk {

class PalettePanel final : public Container {
public:
    // Fills `parent`, the root of the panel of `outer`.
    PalettePanel(Control& outer, Container& parent);

    void setLook(Look look) { look_ = look; }
    const ColourPalette& palette() const { return palette_; }
    enQUILLPalette kind() const { return kind_; }
    void setPalette(enQUILLPalette palette);
    void buildShades(const PaletteCell& base);
    // Places everything at a scale; the size the panel needs, in pixels.
    PixelSize layOut(Dpi dpi);

    // Points are in pixels of the panel as it was laid out last.
    bool holds(PixelPoint point) const;
    // No cell outside the panel, nor in the gaps.
    std::optional<PaletteCell> cellAt(PixelPoint point) const;
    bool belowStripTop(PixelPoint point) const { return point.y >= stripTop_; }
    // Beyond the line that runs a little inside the left, right or bottom edge.
    bool beyondStripEdge(PixelPoint point) const;

    // The frame of the swatch under the mouse or under the walk of the keys, and its tool tip.
    void hover(const PaletteCell& cell);
    void clearHover();
    void setSelected(const PaletteCell& cell, bool shown);
    void setStripHot(bool hot);

    // A walk of the hover frame by the keys, begun by Right, Home or End.
    bool walking() const { return walking_; }
    // Moves, or begins a walk; false for a key that does neither.
    bool walk(int16_t keyCode);
    void endWalk();
    // The middle of what the walk has come to.
    PixelPoint walkPoint() const;
    // The swatch that the walk has come to; nothing on the strip.
    const std::optional<PaletteCell>& walkCell() const { return walkCell_; }

    void paint(Canvas& canvas, const PixelRect& bounds) override;
    Widget* hitTest(PixelPoint point) override { return Widget::hitTest(point); }
    void mouse(const MouseEvent& event) override { mouseReported(event); }
    void placed() override;
    void describe(std::vector<AccessibleItem>& items) const override;

    Event<const MouseEvent&> mouseReported;

private:
    bool classic() const;  // three-dimensional edges on the face of buttons
    SystemColour ground() const;
    PixelRect customRect() const;  // of the caption "More colors"
    void paintCell(Canvas& canvas, const PaletteCell& cell, PixelPoint origin) const;
    void paintFrames(Canvas& canvas, PixelPoint origin) const;
    void paintStrip(Canvas& canvas, PixelPoint origin) const;
    bool isSelected(const PaletteCell& cell) const;
    const PaletteCell* neighbour(const PaletteCell& from, int16_t keyCode) const;
    void walkTo(const PaletteCell* cell);
    void invalidatePart(const PixelRect& rect);

    enQUILLPalette kind_ = enQUILLPalette::QP24X8;
    ColourPalette palette_{enQUILLPalette::QP24X8};
    Hosted<lns> linCUSTOM;
    Look look_ = Look::flat;
    Dpi scale_;
    PixelSize size_;
    int32_t stripTop_ = 0;
    PixelRect hoverFrame_;
    std::optional<PaletteCell> selected_;
    bool stripHot_ = false;
    bool walking_ = false;
    std::optional<PaletteCell> walkCell_;
};

}  // namespace obk
