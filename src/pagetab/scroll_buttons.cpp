#include "pagetab/scroll_buttons.h"

#include <algorithm>

namespace obk {

ScrollButtons::ScrollButtons(Container& parent)
    : Container(parent),
      left_(*this, {u"Scroll left", ArrowDirection::left}),
      right_(*this, {u"Scroll right", ArrowDirection::right}),
      repeatTimer_(*this) {
    setVisible(false);
    connect(left_, -1);
    connect(right_, 1);
    connections_.push_back(repeatTimer_.ticked.connect([this] { repeat(); }));
}

void ScrollButtons::connect(DrawnButton& button, int32_t direction) {
    connections_.push_back(button.pressed.connect([this, direction] {
        direction_ = direction;
        repeatTimer_.start(platform().appearance().metrics().repeatDelay);
        scrolled(direction);
    }));
    connections_.push_back(button.released.connect([this] { repeatTimer_.stop(); }));
}

void ScrollButtons::setLook(Look look) {
    left_.setLook(look);
    right_.setLook(look);
}

void ScrollButtons::place(const PixelRect& rect, bool moreLeft, bool moreRight) {
    const auto twips = [this](const PixelRect& pixels) {
        const Dpi scale = dpi();
        return TwipsRect{scale.toTwips(pixels.left), scale.toTwips(pixels.top), scale.toTwips(pixels.width()),
                         scale.toTwips(pixels.height())};
    };
    setVisible(!rect.empty());
    move(twips(rect));
    const int32_t middle = rect.width() / 2;
    left_.move(twips({0, 0, middle, rect.height()}));
    right_.move(twips({middle, 0, rect.width(), rect.height()}));
    left_.setEnabled(moreLeft);
    right_.setEnabled(moreRight);
}

bool ScrollButtons::wheel(const WheelEvent& event) {
    if (!visible()) return false;
    // Away from the user is back to the left, as a page turns up.
    wheel_.turn(event.horizontal ? event.delta : -event.delta);
    if (const int32_t tabs = wheel_.takeAll()) scrolled(tabs);
    return true;
}

void ScrollButtons::repeat() {
    repeatTimer_.start(platform().appearance().metrics().repeatInterval);
    scrolled(direction_);
}

}  // namespace obk
