// The two buttons at the end of a strip whose tabs do not fit.
#pragma once

#include "base/event.h"
#include "widgets/container.h"
#include "widgets/drawn_button.h"
#include "widgets/timer.h"
#include "widgets/wheel_notches.h"

#include <vector>

namespace obk {

class ScrollButtons final : public Container {
public:
    explicit ScrollButtons(Container& parent);

    void setLook(Look look);
    // In the parent's pixels; an empty place hides the buttons. They are disabled where there is nothing
    // more.
    void place(const PixelRect& rect, bool moreLeft, bool moreRight);

    bool wheel(const WheelEvent& event) override;

    // By so many tabs, to the right when positive; again and again while a button is held.
    Event<int32_t> scrolled;

private:
    void connect(DrawnButton& button, int32_t direction);
    void repeat();

    DrawnButton left_, right_;
    int32_t direction_ = 0;  // of the held button
    WheelNotches wheel_;
    Timer repeatTimer_;
    std::vector<Connection> connections_;
};

}  // namespace obk
