#include "widgets/scroll_bar.h"

#include "widgets/drawing.h"
#include "widgets/surface.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace obk {

namespace {

// Pixels at 96 DPI.
constexpr int32_t leastThumb = 12;
constexpr int32_t snapBack = 150;  // beside the bar: from here on a drag is taken back

}  // namespace

ScrollThumb ScrollThumb::on(int32_t track, int32_t leastLength, const ScrollRange& range) {
    if (range.last() == 0 || track <= leastLength) return {};
    const double share = static_cast<double>(range.page) / static_cast<double>(range.length);
    const int32_t length = std::max(leastLength, static_cast<int32_t>(std::lround(track * share)));
    const double place = static_cast<double>(range.position) / static_cast<double>(range.last());
    const auto first = static_cast<int32_t>(std::lround((track - length) * place));
    return {first, first + length};
}

int64_t ScrollThumb::positionAt(int32_t at, int32_t track, const ScrollRange& range) const {
    const int32_t room = track - (end - first);
    if (room <= 0) return 0;
    const double place = static_cast<double>(std::clamp(at, 0, room)) / room;
    return std::llround(place * static_cast<double>(range.last()));
}

ScrollBar::ScrollBar(Container& parent, Direction direction)
    // Asked each time: pages end where the thumb has come to the mouse.
    : Widget(parent), direction_(direction), held_(*this, [this] { return partAt(mouse_); }) {
    acted_ = held_.acted.connect([this](Part part) { act(part); });
}

void ScrollBar::setRange(ScrollRange range, bool told) {
    range.position = std::clamp<int64_t>(range.position, 0, range.last());
    const ScrollThumb before = thumb(area(), dpi());
    if (told && std::exchange(toldPosition_, range.position) != range.position)
        announce(AccessibleEvent::value);
    range_ = range;
    // Rows that come far away move the thumb by less than a pixel.
    if (thumb(area(), dpi()) != before) invalidate();
}

void ScrollBar::setLook(Look look) {
    look_ = look;
    invalidate();
}

PixelRect ScrollBar::section(const PixelRect& bounds, int32_t first, int32_t end) const {
    return vertical() ? PixelRect{bounds.left, bounds.top + first, bounds.right, bounds.top + end}
                      : PixelRect{bounds.left + first, bounds.top, bounds.left + end, bounds.bottom};
}

PixelRect ScrollBar::area() const {
    const PixelRect own = pixelBounds();
    return {0, 0, own.width(), own.height()};
}

int32_t ScrollBar::arrowLength(const PixelRect& bounds) const {
    const int32_t across = vertical() ? bounds.width() : bounds.height();
    return std::max(0, std::min(across, length(bounds) / 2));
}

ScrollThumb ScrollBar::thumb(const PixelRect& bounds, Dpi dpi) const {
    return ScrollThumb::on(length(bounds) - 2 * arrowLength(bounds), dpi.scaled(leastThumb), range_);
}

PixelRect ScrollBar::partRect(Part part, const PixelRect& bounds, Dpi dpi) const {
    const int32_t arrow = arrowLength(bounds);
    const int32_t all = length(bounds);
    const ScrollThumb place = thumb(bounds, dpi);
    switch (part) {
        case Part::back:
            return section(bounds, 0, arrow);
        case Part::forward:
            return section(bounds, all - arrow, all);
        case Part::trackBefore:
            return section(bounds, arrow, arrow + place.first);
        case Part::thumb:
            return section(bounds, arrow + place.first, arrow + place.end);
        case Part::trackAfter:
            return section(bounds, arrow + place.end, all - arrow);
    }
    return {};
}

std::optional<ScrollBar::Part> ScrollBar::partAt(PixelPoint point) const {
    const bool scrolls = !thumb(area(), dpi()).empty();
    for (const Part part : {Part::back, Part::forward, Part::thumb, Part::trackBefore, Part::trackAfter}) {
        const bool arrow = part == Part::back || part == Part::forward;
        if ((arrow || scrolls) && partRect(part, area(), dpi()).contains(point)) return part;
    }
    return std::nullopt;
}

void ScrollBar::paint(Canvas& canvas, const PixelRect& bounds) {
    const auto colour = [this](SystemColour index) { return systemRgb(platform(), index); };
    const bool highContrast = platform().appearance().highContrast();
    canvas.fillRect(bounds, highContrast ? colour(SystemColour::window) : track());
    paintArrow(canvas, partRect(Part::back, bounds, canvas.dpi()), Part::back);
    paintArrow(canvas, partRect(Part::forward, bounds, canvas.dpi()), Part::forward);
    const PixelRect thumbRect = partRect(Part::thumb, bounds, canvas.dpi());
    if (!thumbRect.empty()) paintThumb(canvas, thumbRect);
}

Rgb ScrollBar::track() const {
    return mixed(systemRgb(platform(), SystemColour::buttonFace),
                 systemRgb(platform(), SystemColour::buttonHighlight), 190);
}

void ScrollBar::paintArrow(Canvas& canvas, const PixelRect& rect, Part part) const {
    const auto colour = [this](SystemColour index) { return systemRgb(platform(), index); };
    const int32_t line = canvas.dpi().scaled(1);
    const bool down = held_.part() == part && hovered_ == part;
    const bool hot = hovered_ == part && !held_.part();
    const bool usable = enabled() && range_.last() > 0;
    Rgb ink = colour(usable ? SystemColour::buttonText : SystemColour::greyText);
    if (platform().appearance().highContrast()) {
        if (usable && (down || hot)) {
            canvas.fillRect(rect, colour(SystemColour::highlight));
            ink = colour(SystemColour::highlightText);
        }
        canvas.frameRect(rect, line, colour(SystemColour::windowText));
    } else if (look_ == Look::classic) {
        canvas.fillRect(rect, colour(SystemColour::buttonFace));
        canvas.frameEdges(rect, line,
                          colour(down ? SystemColour::buttonShadow : SystemColour::buttonHighlight),
                          colour(down ? SystemColour::buttonShadow : SystemColour::darkShadow3d));
    } else if (usable && (down || hot)) {
        canvas.fillRect(
            rect, mixed(colour(SystemColour::highlight), colour(SystemColour::buttonFace), down ? 120 : 50));
    }
    const bool back = part == Part::back;
    const ArrowDirection direction = vertical() ? (back ? ArrowDirection::up : ArrowDirection::down)
                                                : (back ? ArrowDirection::left : ArrowDirection::right);
    drawArrow(canvas, rect, direction, ink);
}

void ScrollBar::paintThumb(Canvas& canvas, const PixelRect& rect) const {
    const auto colour = [this](SystemColour index) { return systemRgb(platform(), index); };
    const int32_t line = canvas.dpi().scaled(1);
    const bool down = held_.part() == Part::thumb;
    const bool hot = hovered_ == Part::thumb && !held_.part();
    if (platform().appearance().highContrast()) {
        canvas.fillRect(rect, colour(down || hot ? SystemColour::highlight : SystemColour::buttonFace));
        canvas.frameRect(rect, line, colour(SystemColour::windowText));
    } else if (look_ == Look::classic) {
        canvas.fillRect(rect, colour(SystemColour::buttonFace));
        drawRaisedEdges(platform(), canvas, rect);
    } else {
        const Rgb resting = outlineOn(platform(), track());
        const Rgb stronger = mixed(resting, colour(SystemColour::windowText), 200);
        const Rgb held = mixed(resting, colour(SystemColour::windowText), 160);
        const PixelRect inner = vertical()
                                    ? PixelRect{rect.left + line, rect.top, rect.right - line, rect.bottom}
                                    : PixelRect{rect.left, rect.top + line, rect.right, rect.bottom - line};
        canvas.fillRect(inner, down ? held : hot ? stronger : resting);
    }
}

void ScrollBar::mouse(const MouseEvent& event) {
    if (!enabled()) return;
    mouse_ = event.at;
    const std::optional<Part> part = partAt(event.at);
    switch (event.kind) {
        case MouseEvent::Kind::down:
        case MouseEvent::Kind::doubleClick:  // the second press of a quick pair is a press like any other
            if (event.button == button::left && part) press(*part);
            break;
        case MouseEvent::Kind::move:
            if (hovered_ != part) {
                hovered_ = part;
                invalidate();
            }
            if (held_.part() == Part::thumb) drag();
            break;
        case MouseEvent::Kind::up:
            if (event.button == button::left) release();
            break;
        case MouseEvent::Kind::leave:
            hovered_.reset();
            invalidate();
            break;
    }
}

void ScrollBar::press(Part part) {
    hovered_ = part;
    if (part != Part::thumb) return held_.press(part);
    held_.hold(part);
    drag_ = {along(mouse_) - arrowLength(area()) - thumb(area(), dpi()).first, range_.position};
}

void ScrollBar::drag() {
    const PixelRect own = area();
    const int32_t across = vertical() ? mouse_.x : mouse_.y;
    const int32_t width = vertical() ? own.width() : own.height();
    const int32_t reach = dpi().scaled(snapBack);
    if (across < -reach || across >= width + reach) return dragged(drag_.start);
    const int32_t arrow = arrowLength(own);
    dragged(
        thumb(own, dpi()).positionAt(along(mouse_) - arrow - drag_.grip, length(own) - 2 * arrow, range_));
}

void ScrollBar::act(Part part) {
    switch (part) {
        case Part::back:
            return stepped(Step::lineBack);
        case Part::forward:
            return stepped(Step::lineForward);
        case Part::trackBefore:
            return stepped(Step::pageBack);
        case Part::trackAfter:
            return stepped(Step::pageForward);
        case Part::thumb:
            break;
    }
}

void ScrollBar::release() {
    if (held_.release()) hovered_ = partAt(mouse_);
}

void ScrollBar::detach() {
    release();
    hovered_.reset();
}

void ScrollBar::placed() {
    if (held_.lost()) release();
}

AccessibleItem ScrollBar::accessible(AccessiblePart part) const {
    using Kind = AccessibleAction::Kind;
    if (part.whole()) {
        AccessibleItem item =
            itemOf(AccessibleItem::Role::scrollBar, vertical() ? u"Up and down" : u"To the sides");
        item.range = {static_cast<double>(range_.position), 0, static_cast<double>(range_.last()),
                      static_cast<double>(std::max<int64_t>(range_.page, 1))};
        item.value = decimalText(range_.last() == 0 ? 0 : range_.position * 100 / range_.last());
        item.allow(Kind::set);
        return item;
    }
    const bool back = part.row == 0;
    AccessibleItem item = itemOf(AccessibleItem::Role::button, vertical() ? (back ? u"Line up" : u"Line down")
                                                                          : (back ? u"Left" : u"Right"));
    const Part which = back ? Part::back : Part::forward;
    item.bounds = partRect(which, pixelBounds(), dpi());
    item.set(AccessibleItem::disabled, !enabled() || range_.last() == 0);
    item.set(AccessibleItem::pressed, held_.part() == which);
    item.allow(Kind::press);
    return item;
}

void ScrollBar::useAccessible(AccessiblePart part, const AccessibleAction& action) {
    if (!part.whole()) {
        announce(AccessibleEvent::invoked, part);
        return stepped(part.row == 0 ? Step::lineBack : Step::lineForward);
    }
    const double to = std::clamp(action.number, 0.0, static_cast<double>(range_.last()));
    dragged(std::isnan(to) ? 0 : static_cast<int64_t>(to));
}

}  // namespace obk
