// The bar above a grid's cells: a caption over each column.
#pragma once

#include "flexgrid/flex_grid.h"

#include <map>

namespace obk {

// Captions stand where the grid's columns stand when the bar is painted.
class HeaderBar final : public Widget {
public:
    // `grid` is borrowed; the bar is placed above it with the same left edge.
    HeaderBar(Container& parent, const FlexGrid& grid);

    OleColour backColour() const { return backColour_; }
    void setBackColour(OleColour colour);
    void setForeColour(OleColour colour);
    void setFont(FontRef font) { font_.set(std::move(font)); }
    // The height that captions in the bar's font need.
    Twips naturalHeight() const;

    // Empty where none was set. False, and nothing changed, for a column that no grid can have.
    TextView caption(int32_t col) const;
    bool setCaption(int32_t col, Text caption);

    // Where the bar was last pressed, in twips from the grid's left edge.
    Twips pressedAt() const { return pressedAt_; }

    void paint(Canvas& canvas, const PixelRect& bounds) override;
    void mouse(const MouseEvent& event) override;
    void describe(std::vector<AccessibleItem>& items) const override;

    Event<> clicked;  // twice for a double click

private:
    const FlexGrid& grid_;
    std::map<int32_t, Text> captions_;
    OleColour backColour_{SystemColour::buttonFace};
    OleColour foreColour_{SystemColour::buttonText};
    FontHolder font_;
    Twips pressedAt_;
    bool pressed_ = false;
};

}  // namespace obk
