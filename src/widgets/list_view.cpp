#include "widgets/list_view.h"

#include "widgets/drawing.h"
#include "widgets/surface.h"

#include <algorithm>

namespace obk {

namespace {

// Pixels at 96 DPI.
constexpr int32_t rowPadding = 2, textMarginAt96 = 4;

}  // namespace

ListView::ListView(Container& parent, const std::vector<Text>& items)
    : Container(parent), items_(items), bar_(*this, ScrollBar::Direction::vertical) {
    SetBackColor(SystemColour::window);
    connections_.push_back(bar_.stepped.connect([this](ScrollBar::Step by) {
        const bool page = by == ScrollBar::Step::pageBack || by == ScrollBar::Step::pageForward;
        const bool back = by == ScrollBar::Step::pageBack || by == ScrollBar::Step::lineBack;
        const int32_t rows = page ? std::max(shownRows(), 1) : 1;
        scrollTo(int64_t{first_} + (back ? -rows : rows));
    }));
    connections_.push_back(bar_.dragged.connect([this](int64_t to) { scrollTo(to); }));
}

void ListView::setLook(Look look) {
    bar_.setLook(look);
}

void ListView::setFont(const FontDescription& font) {
    font_ = font;
    layOut();
}

void ListView::itemsChanged() {
    if (marked_ >= count()) marked_ = -1;
    announce(AccessibleEvent::structure);
    layOut();
}

int32_t ListView::rowHeight(Dpi dpi) const {
    return std::max(platform().appearance().metrics(font_, dpi).height(), 1) + dpi.scaled(rowPadding);
}

int32_t ListView::shownRows() const {
    return (pixelBounds().height() - 2 * dpi().scaled(1)) / rowHeight(dpi());
}

PixelSize ListView::size(Dpi dpi, int32_t leastWidth, int32_t mostItems) const {
    // Measuring all of a long list would be seen: the texts of the most characters are the widest.
    constexpr size_t mostMeasured = 100;
    std::vector<TextView> longest(items_.begin(), items_.end());
    if (longest.size() > mostMeasured) {
        std::nth_element(longest.begin(), longest.begin() + mostMeasured, longest.end(),
                         [](TextView left, TextView right) { return left.size() > right.size(); });
        longest.resize(mostMeasured);
    }
    int32_t width = 0;
    for (const TextView text : longest)
        width = std::max(width, platform().appearance().measure(text, font_, dpi).width);
    const int32_t line = dpi.scaled(1), rows = std::clamp(count(), 1, std::max(mostItems, 1));
    width += 2 * dpi.scaled(textMarginAt96) + 2 * line;
    if (count() > rows) width += ScrollBar::thickness(dpi);
    return {std::max(width, leastWidth), rows * rowHeight(dpi) + 2 * line};
}

void ListView::mark(int32_t item) {
    if (item < 0 || item >= count()) item = -1;
    if (std::exchange(marked_, item) != item && item >= 0) {
        announce(AccessibleEvent::selection, {marked_, -1});
        announce(AccessibleEvent::focus);
    }
    const int32_t rows = std::max(shownRows(), 1);
    if (marked_ >= 0) scrollTo(std::clamp(first_, marked_ - rows + 1, marked_));
    invalidate();
}

bool ListView::walk(int16_t key) {
    const int32_t last = count() - 1, page = std::max(shownRows() - 1, 1);
    const auto to = [&](int32_t item) {
        mark(std::clamp(item, std::min(0, last), last));
        return true;
    };
    switch (key) {
        case key::up:
        case key::left:
            return to(marked_ < 0 ? last : marked_ - 1);
        case key::down:
        case key::right:
            return to(marked_ + 1);
        case key::home:
            return to(0);
        case key::end:
            return to(last);
        case key::pageUp:
            return to(std::max(marked_, 0) - page);
        case key::pageDown:
            return to(std::max(marked_, 0) + page);
        default:
            return false;
    }
}

void ListView::scrollTo(int64_t first) {
    const int64_t last = std::max(count() - shownRows(), 0);
    const auto to = static_cast<int32_t>(std::clamp<int64_t>(first, 0, last));
    if (to == first_) return;
    first_ = to;
    layOut();
}

void ListView::layOut() {
    const PixelRect own = pixelBounds();
    const int32_t rows = shownRows(), line = dpi().scaled(1), thickness = ScrollBar::thickness(dpi());
    first_ = std::clamp(first_, 0, std::max(count() - rows, 0));
    bar_.setVisible(scrolls());
    const auto twips = [this](int32_t pixels) { return dpi().toTwips(pixels); };
    bar_.move({twips(std::max(own.width() - line - thickness, 0)), twips(line), twips(thickness),
               twips(std::max(own.height() - 2 * line, 0))});
    bar_.setRange({count(), rows, first_});
    invalidate();
}

void ListView::placed() {
    layOut();
    Container::placed();
}

PixelRect ListView::row(int32_t item, const PixelRect& bounds) const {
    const int32_t line = dpi().scaled(1), height = rowHeight(dpi());
    const int32_t right = bounds.right - line - (scrolls() ? ScrollBar::thickness(dpi()) : 0);
    const int32_t top = bounds.top + line + (item - first_) * height;
    return {bounds.left + line, top, right, top + height};
}

int32_t ListView::itemAt(PixelPoint at) const {
    const PixelRect own = pixelBounds();
    const int32_t end = std::min(first_ + shownRows(), count());
    for (int32_t item = first_; item < end; ++item) {
        if (row(item, {0, 0, own.width(), own.height()}).contains(at)) return item;
    }
    return -1;
}

void ListView::paint(Canvas& canvas, const PixelRect& bounds) {
    const auto colour = [this](SystemColour index) { return systemRgb(platform(), index); };
    canvas.fillRect(bounds, colour(SystemColour::window));
    canvas.frameRect(bounds, canvas.dpi().scaled(1), outlineOn(platform(), colour(SystemColour::window)));
    TextStyle style;
    style.font = font_;
    const int32_t end = std::min(first_ + shownRows(), count());
    for (int32_t item = first_; item < end; ++item) {
        PixelRect place = row(item, bounds);
        const bool on = item == marked_;
        if (on) canvas.fillRect(place, colour(SystemColour::highlight));
        style.colour = colour(on ? SystemColour::highlightText : SystemColour::windowText);
        const int32_t margin = canvas.dpi().scaled(textMarginAt96);
        place.left += margin;
        place.right -= margin;
        canvas.drawText(items_[static_cast<size_t>(item)], place, style);
    }
    paintChildren(canvas, bounds);
}

void ListView::mouse(const MouseEvent& event) {
    const int32_t item = itemAt(event.at);
    if (item < 0) return;
    switch (event.kind) {
        case MouseEvent::Kind::down:
        case MouseEvent::Kind::doubleClick:
        case MouseEvent::Kind::move:
            if (item != marked_) mark(item);
            break;
        case MouseEvent::Kind::up:
            if (event.button == button::left) useAccessible({item, -1}, {});
            break;
        case MouseEvent::Kind::leave:
            break;
    }
}

bool ListView::wheel(const WheelEvent& event) {
    if (event.horizontal) return true;
    wheel_.turn(event.delta);
    const int32_t lines = platform().appearance().metrics().wheelLines;
    const int32_t rows = lines < 0 ? std::max(shownRows(), 1) : std::min(lines, std::max(shownRows(), 1));
    while (const int32_t notch = wheel_.take()) scrollTo(int64_t{first_} - int64_t{notch} * rows);
    return true;
}

AccessibleItem ListView::accessible(AccessiblePart part) const {
    using Kind = AccessibleAction::Kind;
    if (part.whole()) return {};
    AccessibleItem item =
        itemOf(AccessibleItem::Role::listItem, nameInSet(items_[static_cast<size_t>(part.row)], part.row));
    const bool shows = part.row >= first_ && part.row < first_ + shownRows();
    item.bounds = shows ? row(part.row, pixelBounds()) : PixelRect{};
    item.position = part.row + 1;
    item.setSize = count();
    item.set(AccessibleItem::selectable);
    item.set(AccessibleItem::focusable);
    item.set(AccessibleItem::selected, part.row == marked_);
    item.allow(Kind::press, Kind::select, Kind::show);
    return item;
}

// Repeated items tell which of them they are, and so do empty ones.
Text ListView::nameInSet(const Text& text, int32_t item) const {
    if (!trimmed(text).empty() && std::count(items_.begin(), items_.end(), text) == 1) return text;
    return text + (text.empty() ? u"Item " : u", item ") + decimalText(item + 1);
}

AccessiblePart ListView::accessiblePartAt(PixelPoint at) const {
    const PixelRect own = pixelBounds();
    return {itemAt({at.x - own.left, at.y - own.top}), -1};
}

AccessibleId ListView::accessibleFocus() {
    return marked_ < 0 ? AccessibleId{} : AccessibleId{this, {marked_, -1}};
}

std::vector<AccessiblePart> ListView::accessibleSelection() const {
    return marked_ < 0 ? std::vector<AccessiblePart>() : std::vector<AccessiblePart>{{marked_, -1}};
}

void ListView::useAccessible(AccessiblePart part, const AccessibleAction& action) {
    mark(part.row);
    if (action.kind != AccessibleAction::Kind::press) return;
    announce(AccessibleEvent::invoked, part);
    chosen(part.row);
}

}  // namespace obk
