// A rating of up to five stars, given by the mouse or the arrow keys.
#pragma once

#include "framework/control.h"
#include "tutorial/rating.h"
#include "tutorial/star_row.h"

namespace obk::tutorial {

class StarRating final : public Control {
public:
    explicit StarRating(Platform& platform);

    static const ControlTable& memberTable();
    const ControlTable& table() const override { return memberTable(); }

    int32_t Stars() const { return rating_.stars(); }
    void SetStars(int32_t Stars);

    void Clear() { SetStars(0); }

    std::span<const KeyGroup> keyGroups() const override;

    Event<> Change;

private:
    void initialize() override { setSize({1500}, {300}); }
    void resize() override { row_.move({{0}, {0}, width(), height()}); }
    void enterFocus() override { row_.invalidate(); }
    void exitFocus() override { row_.invalidate(); }

    Rating rating_;
    StarRow row_;
    Connection wanted_;
};

}  // namespace obk::tutorial
