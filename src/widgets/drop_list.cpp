#include "widgets/drop_list.h"

#include "widgets/drawing.h"
#include "widgets/surface.h"

#include <algorithm>
#include <utility>

namespace obk {

namespace {

constexpr int32_t arrowWidthAt96 = 17;

}  // namespace

DropList::DropList(Container& parent, Text name) : Widget(parent), name_(std::move(name)) {}

bool DropList::select(int32_t item) {
    if (item < 0 || item >= count()) return false;
    selected_ = item;
    invalidate();
    return true;
}

TextView DropList::text() const {
    return selected_ < 0 ? TextView() : TextView(items_[static_cast<size_t>(selected_)]);
}

void DropList::setLook(Look look) {
    look_ = look;
    invalidate();
}

void DropList::paint(Canvas& canvas, const PixelRect& bounds) {
    const auto colour = [this](SystemColour index) { return systemRgb(platform(), index); };
    const bool highContrast = platform().appearance().highContrast();
    const int32_t line = canvas.dpi().scaled(1);
    canvas.fillRect(bounds, colour(SystemColour::window));
    PixelRect arrow = bounds.inset(line);
    if (look_ == Look::classic && !highContrast) {
        canvas.frameEdges(bounds, line, colour(SystemColour::buttonShadow),
                          colour(SystemColour::buttonHighlight));
        canvas.frameEdges(bounds.inset(line), line, colour(SystemColour::darkShadow3d),
                          colour(SystemColour::light3d));
        arrow = arrow.inset(line);
    } else {
        const Rgb accent = colour(SystemColour::highlight);
        const Rgb resting =
            highContrast ? colour(SystemColour::windowText)
                         : mixed(colour(SystemColour::buttonShadow), colour(SystemColour::window), 200);
        canvas.frameRect(bounds, line, hot_ ? accent : resting);
    }
    arrow.left = std::max(arrow.left, arrow.right - canvas.dpi().scaled(arrowWidthAt96));
    const Rgb ink = colour(enabled() ? SystemColour::windowText : SystemColour::greyText);
    drawArrow(canvas, arrow, ArrowDirection::down, ink);
    TextStyle style;
    style.colour = ink;
    const int32_t margin = canvas.dpi().scaled(4);
    canvas.drawText(text(), {bounds.left + margin, bounds.top, arrow.left, bounds.bottom}, style);
}

void DropList::mouse(const MouseEvent& event) {
    if (!enabled()) return;
    switch (event.kind) {
        case MouseEvent::Kind::down:
        case MouseEvent::Kind::doubleClick:
            if (event.button == button::left) open();
            break;
        case MouseEvent::Kind::move:
            hover(true);
            break;
        case MouseEvent::Kind::leave:
            hover(false);
            break;
        case MouseEvent::Kind::up:
            break;
    }
}

void DropList::hover(bool inside) {
    if (inside == hot_) return;
    hot_ = inside;
    invalidate();
}

void DropList::open() {
    Surface* shownOn = surface();
    if (!shownOn) return;
    std::vector<MenuItem> menu;
    for (const Text& item : items_) menu.push_back({item, true, item == text()});
    const auto choice = shownOn->chooseFromMenu(menu, pixelBounds());
    if (choice && select(static_cast<int32_t>(*choice))) chosen();
}

void DropList::describe(std::vector<AccessibleItem>& items) const {
    items.push_back({AccessibleItem::Role::button, name_, Text(text()), pixelBounds(), enabled(), false});
}

}  // namespace obk
