// Up and down buttons at one side of a rectangle, beside the field that steps by them; what lies under the
// rest stays visible.
#pragma once

#include "base/event.h"
#include "widgets/held_part.h"
#include "widgets/wheel_notches.h"
#include "widgets/widget.h"

#include <optional>

namespace obk {

class Spinner final : public Widget {
public:
    explicit Spinner(Container& parent);

    // Whether the wheel steps; the arrow keys belong to the field.
    bool allowArrowKeys() const { return allowArrowKeys_; }
    void setAllowArrowKeys(bool allow) { allowArrowKeys_ = allow; }
    int32_t buddyAlignment() const { return buddyAlignment_; }
    // 0: buttons at the right edge, 1: at the left. False, and nothing changed, for any other number.
    bool setBuddyAlignment(int32_t alignment);
    void setLook(Look look);
    // A button that leads no further looks disabled, and acts all the same.
    void setEnds(bool up, bool down);
    // Width that the buttons take at their side.
    static constexpr Twips buttonWidth{255};

    void paint(Canvas& canvas, const PixelRect& bounds) override;
    void mouse(const MouseEvent& event) override;
    bool wheel(const WheelEvent& event) override;
    void captureLost() override { held_.release(); }
    void detach() override;
    void placed() override;
    AccessibleItem accessible(AccessiblePart part) const override;
    int32_t accessibleParts(AccessiblePart of) const override { return of.whole() ? 2 : 0; }
    void useAccessible(AccessiblePart part, const AccessibleAction& action) override;

    Event<const MouseEvent&> mousePressed;  // before the first step
    Event<> increased, decreased;           // one step each, again and again while a button is held

private:
    enum class Part : uint8_t { up, down };

    PixelRect partRect(Part part, const PixelRect& bounds, Dpi dpi) const;
    std::optional<Part> partAt(PixelPoint point) const;
    void paintPart(Canvas& canvas, const PixelRect& bounds, Part part) const;
    void step(Part part);
    void press(Part part);

    bool allowArrowKeys_ = true;
    uint8_t buddyAlignment_ = 0;
    Look look_ = Look::flat;
    bool upEnds_ = false, downEnds_ = false;
    HeldPart<Part> held_;
    std::optional<Part> hovered_;
    WheelNotches wheel_;
    Connection acted_;
};

}  // namespace obk
