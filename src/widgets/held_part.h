// A part of a drawn widget that the mouse holds down: it acts at once, and then again and again as long as
// the mouse is on it.
#pragma once

#include "base/event.h"
#include "widgets/surface.h"
#include "widgets/timer.h"

#include <functional>
#include <optional>

namespace obk {

// `Part` is the widget's enumeration of its parts.
template <typename Part>
class HeldPart {
public:
    // Whether it acts more often after two seconds.
    enum class Pace : uint8_t { even, quickens };
    // `widget` is borrowed; `underMouse` answers its part there at the moment.
    HeldPart(Widget& widget, std::function<std::optional<Part>()> underMouse, Pace pace = Pace::even)
        : widget_(widget), underMouse_(std::move(underMouse)), pace_(pace), timer_(widget) {
        ticked_ = timer_.ticked.connect([this] { repeat(); });
    }

    const std::optional<Part>& part() const { return part_; }

    // Captures the mouse; nothing acts.
    void hold(Part part) {
        part_ = part;
        widget_.invalidate();
        if (Surface* shownOn = widget_.surface()) shownOn->capture(widget_);
    }
    void press(Part part) {
        hold(part);
        heldFor_ = {};
        wait(metrics().repeatDelay);
        acted(part);
    }
    // Whether a part was held.
    bool release() {
        if (!part_) return false;
        timer_.stop();
        part_.reset();
        widget_.invalidate();
        if (Surface* shownOn = widget_.surface()) shownOn->releaseCapture(widget_);
        return true;
    }
    // Whether nobody can go on holding: the widget is disabled or out of sight.
    bool lost() const { return part_ && (!widget_.enabled() || widget_.pixelClip().empty()); }

    Event<Part> acted;

private:
    Appearance::Metrics metrics() const { return widget_.platform().appearance().metrics(); }
    void wait(std::chrono::milliseconds time) {
        heldFor_ += time;
        timer_.start(time);
    }
    void repeat() {
        if (!part_) return;
        const auto interval = metrics().repeatInterval;
        wait(pace_ == Pace::quickens && heldFor_ >= std::chrono::seconds(2) ? interval / 4 : interval);
        if (underMouse_() == part_) acted(*part_);
    }

    Widget& widget_;
    std::function<std::optional<Part>()> underMouse_;
    std::optional<Part> part_;
    Pace pace_;
    std::chrono::milliseconds heldFor_{};
    Timer timer_;
    Connection ticked_;
};

}  // namespace obk
