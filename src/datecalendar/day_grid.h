// The days of one month as cells to choose from, beneath the letters of the weekdays.
#pragma once

#include "base/event.h"
#include "datecalendar/month_layout.h"
#include "widgets/widget.h"

#include <optional>

namespace obk {

// Covers the whole panel, so that the cells stand where `cellBounds` has them.
class DayGrid final : public Widget {
public:
    // `month` is borrowed; only its cells with a day can be chosen.
    DayGrid(Container& parent, const FilledMonth& month) : Widget(parent), month_(month) {}

    // After a change of the month.
    void refresh();

    void paint(Canvas& canvas, const PixelRect& bounds) override;
    void mouse(const MouseEvent& event) override;
    void captureLost() override { pressedDay_ = 0; }
    void detach() override;
    bool accessibleWhole() const override { return true; }
    AccessibleItem accessible(AccessiblePart part) const override;
    int32_t accessibleParts(AccessiblePart of) const override;
    AccessiblePart accessibleCell(int32_t row, int32_t col) const override;
    void useAccessible(AccessiblePart part, const AccessibleAction& action) override;

    Event<int32_t> clicked;  // the cell

private:
    int32_t dayAt(PixelPoint point) const;  // 0 for none
    void paintWeekdays(Canvas& canvas, const PixelRect& bounds) const;
    void paintDay(Canvas& canvas, const PixelRect& cell, int32_t day) const;
    void hover(int32_t day);

    const FilledMonth& month_;
    int32_t hovered_ = 0;
    int32_t pressedDay_ = 0;
};

// The frame around the committed date's cell; lets the mouse through.
class DayFrame final : public Widget {
public:
    explicit DayFrame(Container& parent) : Widget(parent) { setVisible(false); }

    // Its left and top edges are a twip outside those of the cell.
    void moveOnto(int32_t cell);

    void paint(Canvas& canvas, const PixelRect& bounds) override;
    Widget* hitTest(PixelPoint) override { return nullptr; }
};

}  // namespace obk
