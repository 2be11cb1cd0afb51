// A scroll bar that is drawn: arrows and pages that repeat while they are held, a thumb to drag.
#pragma once

#include "base/event.h"
#include "widgets/held_part.h"
#include "widgets/widget.h"

#include <optional>

namespace obk {

// What a scroll bar stands for, in any unit.
struct ScrollRange {
    int64_t length = 0;    // of everything
    int64_t page = 0;      // what shows of it
    int64_t position = 0;  // of what shows first: 0 to last()

    int64_t last() const { return length > page ? length - page : 0; }
    friend bool operator==(const ScrollRange&, const ScrollRange&) = default;
};

// Where the thumb lies on a track of so many pixels; empty where there is nothing to scroll or no room.
struct ScrollThumb {
    int32_t first = 0, end = 0;

    static ScrollThumb on(int32_t track, int32_t leastLength, const ScrollRange& range);
    // The position that a thumb of this length stands for when it begins at `at`.
    int64_t positionAt(int32_t at, int32_t track, const ScrollRange& range) const;
    bool empty() const { return end <= first; }
    friend bool operator==(ScrollThumb, ScrollThumb) = default;
};

class ScrollBar final : public Widget {
public:
    enum class Direction : uint8_t { horizontal, vertical };
    enum class Step : uint8_t { lineBack, lineForward, pageBack, pageForward };

    ScrollBar(Container& parent, Direction direction);

    const ScrollRange& range() const { return range_; }
    // A position out of range is moved into it. Screen readers hear of another one if they are to be told.
    void setRange(ScrollRange range, bool told = true);
    void setLook(Look look);
    static int32_t thickness(Dpi dpi) { return dpi.scaled(17); }

    void paint(Canvas& canvas, const PixelRect& bounds) override;
    void mouse(const MouseEvent& event) override;
    void captureLost() override { release(); }
    void detach() override;
    void placed() override;
    bool accessibleWhole() const override { return true; }
    AccessibleItem accessible(AccessiblePart part) const override;
    int32_t accessibleParts(AccessiblePart of) const override { return of.whole() ? 2 : 0; }
    void useAccessible(AccessiblePart part, const AccessibleAction& action) override;

    // Neither moves the bar: whoever listens scrolls and sets the range.
    Event<Step> stepped;
    Event<int64_t> dragged;  // the position that the thumb is dragged to

private:
    enum class Part : uint8_t { back, forward, trackBefore, thumb, trackAfter };
    struct Drag {
        int32_t grip;  // pixels from the thumb's start to the mouse
        int64_t start;
    };

    bool vertical() const { return direction_ == Direction::vertical; }
    int32_t along(PixelPoint point) const { return vertical() ? point.y : point.x; }
    // Pixels along the bar from `first` to `end`, in a bar at `bounds`.
    PixelRect section(const PixelRect& bounds, int32_t first, int32_t end) const;
    PixelRect area() const;
    int32_t length(const PixelRect& bounds) const { return vertical() ? bounds.height() : bounds.width(); }
    int32_t arrowLength(const PixelRect& bounds) const;
    ScrollThumb thumb(const PixelRect& bounds, Dpi dpi) const;
    std::optional<Part> partAt(PixelPoint point) const;
    PixelRect partRect(Part part, const PixelRect& bounds, Dpi dpi) const;
    Rgb track() const;
    void paintArrow(Canvas& canvas, const PixelRect& rect, Part part) const;
    void paintThumb(Canvas& canvas, const PixelRect& rect) const;
    void press(Part part);
    void drag();
    void act(Part part);
    void release();

    Direction direction_;
    Look look_ = Look::flat;
    ScrollRange range_;
    int64_t toldPosition_ = 0;  // as screen readers know it
    HeldPart<Part> held_;
    std::optional<Part> hovered_;
    Drag drag_{};
    PixelPoint mouse_;
    Connection acted_;
};

}  // namespace obk
