// The bar above a grid's cells: a caption over each column, which can be pressed, and the sort indicator.
#pragma once

#include "flexgrid/flex_grid.h"
#include "grid/header_model.h"

#include <vector>

namespace obk {

// Captions and indicator stand where the grid's columns stand when the bar is painted. The columns' borders
// can be dragged here as in the grid.
class HeaderBar final : public Widget {
public:
    // `grid` and `model` are borrowed; the bar is placed above the grid with the same left edge.
    HeaderBar(Container& parent, FlexGrid& grid, const HeaderModel& model);

    OleColour backColour() const { return backColour_; }
    void setBackColour(OleColour colour);
    void setForeColour(OleColour colour);
    void setFont(FontRef font) { font_.set(std::move(font)); }
    void setLook(Look look);
    // The height that captions in the bar's font need.
    Twips naturalHeight() const;

    // Where the bar was last pressed, in twips from the grid's left edge; in the grip of a border, that
    // border.
    Twips pressedAt() const { return pressedAt_; }

    // Makes a column as wide as its texts and its caption need.
    void fit(int32_t col);
    // As a click in the middle of a caption that shows.
    void pressCaption(int32_t col);

    void paint(Canvas& canvas, const PixelRect& bounds) override;
    void mouse(const MouseEvent& event) override;
    void captureLost() override { endPress(); }
    void detach() override;
    bool accessibleWhole() const override { return true; }
    AccessibleItem accessible(AccessiblePart part) const override;
    int32_t accessibleParts(AccessiblePart of) const override { return of.whole() ? grid_.Cols() : 0; }
    AccessiblePart accessiblePartAt(PixelPoint at) const override;
    std::vector<AccessiblePart> accessibleSelection() const override { return {}; }
    void useAccessible(AccessiblePart part, const AccessibleAction& action) override;

    Event<> clicked;  // twice for a double click; not for the drag of a border, nor when one is fitted

private:
    struct Colours {
        Rgb back, fore;
    };

    void notePress(int32_t x);
    void press(const MouseEvent& event);
    void drag(int32_t x);
    void endPress();
    void hover(PixelPoint at);
    bool inside(PixelPoint at) const;
    Colours coloursOf(int32_t col) const;
    void paintCaption(Canvas& canvas, const PixelRect& section, int32_t col) const;
    static void paintIndicator(Canvas& canvas, const PixelRect& section, SortDirection direction, Rgb colour);

    FlexGrid& grid_;
    const HeaderModel& model_;
    OleColour backColour_{SystemColour::buttonFace};
    OleColour foreColour_{SystemColour::buttonText};
    FontHolder font_;
    Look look_ = Look::flat;
    Twips pressedAt_;
    int32_t pressedX_ = 0;  // pixels
    bool pressed_ = false;
    bool dragged_ = false;    // the press has become the drag of a border
    int32_t border_ = -1;     // the column whose border was pressed
    int32_t borderRest_ = 0;  // from the mouse to that border
    int32_t hovered_ = -1;    // the column below the mouse
};

}  // namespace obk
