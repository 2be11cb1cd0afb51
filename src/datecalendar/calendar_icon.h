// The icon at the left of DateCalendar's field: it opens the calendar.
#pragma once

#include "base/event.h"
#include "widgets/widget.h"

namespace obk {

class CalendarIcon final : public Widget {
public:
    explicit CalendarIcon(Container& parent) : Widget(parent) {}

    void setBackColour(OleColour colour);
    OleColour backColour() const { return backColour_; }
    void setPressed(bool pressed);

    void paint(Canvas& canvas, const PixelRect& bounds) override;
    void mouse(const MouseEvent& event) override;
    bool contextMenu(std::optional<PixelPoint> at) override;
    void captureLost() override { captureTaken(); }
    void detach() override { hot_ = false; }
    bool accessibleWhole() const override { return true; }
    AccessibleItem accessible(AccessiblePart part) const override;
    void useAccessible(AccessiblePart part, const AccessibleAction& action) override;

    Event<const MouseEvent&> mouseReported;
    Event<> asked;         // by a screen reader to open
    Event<> captureTaken;  // by another window
    // As TextBox::menuAsked.
    Event<std::optional<PixelPoint>, bool&> menuAsked;

private:
    OleColour backColour_{SystemColour::buttonFace};
    bool pressed_ = false;
    bool hot_ = false;
};

}  // namespace obk
