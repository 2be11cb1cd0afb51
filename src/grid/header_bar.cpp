#include "grid/header_bar.h"

#include "widgets/drawing.h"
#include "widgets/surface.h"

namespace obk {

namespace {

constexpr int32_t paddingAt96 = 6;  // above and below the captions together

// The sort indicator is drawn in a frame of so many twips, so far left of its column's right edge.
constexpr double indicatorLeft = 230, indicatorHeight = 165;

struct IndicatorLine {
    double from, to, ascendingY, descendingY;  // twips in the frame
};
constexpr IndicatorLine indicatorLines[] = {
    {30, 120, 60, 90}, {45, 105, 75, 75}, {60, 90, 90, 60}, {75, 75, 105, 45}};
constexpr double indicatorLineHeight = 15;

// Of 255, how much of the highlight shines through what the mouse is on.
constexpr int32_t hoverShare = 32, pressShare = 80;

}  // namespace

HeaderBar::HeaderBar(Container& parent, FlexGrid& grid, const HeaderModel& model)
    : Widget(parent), grid_(grid), model_(model), font_([this] { invalidate(); }) {}

void HeaderBar::setBackColour(OleColour colour) {
    backColour_ = colour;
    invalidate();
}

void HeaderBar::setForeColour(OleColour colour) {
    foreColour_ = colour;
    invalidate();
}

void HeaderBar::setLook(Look look) {
    look_ = look;
    invalidate();
}

Twips HeaderBar::naturalHeight() const {
    const FontMetrics metrics = platform().appearance().metrics(font_.description(), dpi());
    return dpi().toTwips(metrics.height() + dpi().scaled(paddingAt96));
}

HeaderBar::Colours HeaderBar::coloursOf(int32_t col) const {
    const bool highContrast = platform().appearance().highContrast();
    const bool hot = enabled() && col >= 0 && col == hovered_ && !dragged_;
    const auto system = [this](SystemColour colour) { return systemRgb(platform(), colour); };
    if (highContrast && hot) return {system(SystemColour::highlight), system(SystemColour::highlightText)};
    if (highContrast) return {system(SystemColour::window), system(SystemColour::windowText)};
    const Rgb back = rgb(backColour_);
    const Rgb fore = enabled() ? rgb(foreColour_) : system(SystemColour::greyText);
    if (!hot || look_ == Look::classic) return {back, fore};
    return {mixed(system(SystemColour::highlight), back, pressed_ ? pressShare : hoverShare), fore};
}

void HeaderBar::paint(Canvas& canvas, const PixelRect& bounds) {
    const Colours plain = coloursOf(-1);
    const Rgb edge = platform().appearance().highContrast()
                         ? plain.fore
                         : shapeOn(plain.back, mixed(plain.fore, plain.back, 64));
    const int32_t line = canvas.dpi().scaled(1);
    canvas.fillRect(bounds, plain.back);
    grid_.view().eachVisibleCol([&](int32_t col, int32_t left, int32_t right) {
        const PixelRect section{bounds.left + left, bounds.top, bounds.left + right, bounds.bottom};
        const CanvasClip clip(canvas, section.intersected(bounds));
        canvas.fillRect(section, coloursOf(col).back);
        paintCaption(canvas, section, col);
        if (look_ == Look::classic) {
            const Rgb light = systemRgb(platform(), SystemColour::buttonHighlight);
            const bool sunken = pressed_ && !dragged_ && col == hovered_;
            canvas.frameEdges(section, line, sunken ? edge : light, sunken ? light : edge);
        } else {
            canvas.fillRect({section.right - line, section.top, section.right, section.bottom}, edge);
        }
    });
    canvas.fillRect({bounds.left, bounds.bottom - line, bounds.right, bounds.bottom}, edge);
}

void HeaderBar::paintCaption(Canvas& canvas, const PixelRect& section, int32_t col) const {
    const Dpi scale = canvas.dpi();
    const int32_t line = scale.scaled(1), margin = cellMargin(scale);
    const auto indicator = model_.indicator(col);
    TextStyle style;
    style.font = font_.description();
    style.colour = coloursOf(col).fore;
    const int32_t end = section.right - (indicator ? scale.toPixels(Twips{indicatorLeft}) : line + margin);
    const PixelRect text{section.left + margin, section.top, end, section.bottom - line};
    if (const TextView shown = model_.caption(col); !shown.empty() && !text.empty())
        canvas.drawText(shown, text, style);
    if (indicator) paintIndicator(canvas, section, *indicator, style.colour);
}

// Each line as high as the next one's distance, so that they join at every scale.
void HeaderBar::paintIndicator(Canvas& canvas, const PixelRect& section, SortDirection direction,
                               Rgb colour) {
    const Dpi scale = canvas.dpi();
    const Twips left{-indicatorLeft};
    const Twips top = 0.5 * (scale.toTwips(section.height()) - Twips{indicatorHeight});
    const auto x = [&](double twips) { return section.right + scale.toPixels(left + Twips{twips}); };
    const auto y = [&](double twips) { return section.top + scale.toPixels(top + Twips{twips}); };
    for (const IndicatorLine& row : indicatorLines) {
        const double at = direction == SortDirection::ascending ? row.ascendingY : row.descendingY;
        canvas.fillRect({x(row.from), y(at), x(row.to + indicatorLineHeight), y(at + indicatorLineHeight)},
                        colour);
    }
}

void HeaderBar::mouse(const MouseEvent& event) {
    switch (event.kind) {
        case MouseEvent::Kind::down:
        case MouseEvent::Kind::doubleClick:
            notePress(event.at.x);
            if (event.button == button::left && enabled()) press(event);
            break;
        case MouseEvent::Kind::up: {
            if (event.button != button::left || !pressed_) break;
            const bool click = !dragged_ && inside(event.at);
            endPress();
            hover(event.at);
            if (click) {
                if (hovered_ >= 0) announce(AccessibleEvent::invoked, {hovered_, -1});
                clicked();
            }
            break;
        }
        case MouseEvent::Kind::move:
            drag(event.at.x);
            hover(event.at);
            break;
        case MouseEvent::Kind::leave:
            hover({-1, -1});
            break;
    }
}

// A press on a border is one on no caption.
void HeaderBar::notePress(int32_t x) {
    const int32_t border = grid_.columnBorderAt(x);
    pressedX_ = x;
    pressedAt_ = dpi().toTwips(border < 0 ? x : grid_.view().leftTop({0, border + 1}).x);
}

void HeaderBar::press(const MouseEvent& event) {
    border_ = grid_.columnBorderAt(event.at.x);
    if (border_ >= 0 && event.kind == MouseEvent::Kind::doubleClick) return fit(border_);
    borderRest_ = grid_.view().leftTop({0, border_ + 1}).x - event.at.x;
    pressed_ = true;
    invalidate();
    if (Surface* shownOn = surface()) shownOn->capture(*this);
}

// A press on a border is a click on the bar until the mouse moves.
void HeaderBar::drag(int32_t x) {
    if (!pressed_ || border_ < 0) return;
    if (!dragged_ && x == pressedX_) return;
    dragged_ = true;
    grid_.dragColumnBorder(border_, x + borderRest_);
}

void HeaderBar::endPress() {
    if (!std::exchange(pressed_, false)) return;
    dragged_ = false;
    border_ = -1;
    invalidate();
    if (Surface* shownOn = surface()) shownOn->releaseCapture(*this);
}

void HeaderBar::detach() {
    endPress();
    hovered_ = -1;
    Widget::detach();
}

void HeaderBar::pressCaption(int32_t col) {
    const GridView shown = grid_.view();
    const int32_t left = shown.leftTop({0, col}).x, right = shown.leftTop({0, col + 1}).x;
    pressedAt_ = 0.5 * dpi().toTwips(left + right);
    clicked();
}

void HeaderBar::fit(int32_t col) {
    grid_.fitColumn(col);
    const GridView shown = grid_.view();
    const Dpi scale = dpi();
    const int32_t text =
        platform().appearance().measure(model_.caption(col), font_.description(), scale).width;
    const int32_t needed = shown.leftTop({0, col}).x + text + 2 * cellMargin(scale) + scale.scaled(1);
    if (needed > shown.leftTop({0, col + 1}).x) grid_.dragColumnBorder(col, needed);
}

bool HeaderBar::inside(PixelPoint at) const {
    const PixelRect own = pixelBounds();
    return PixelRect{0, 0, own.width(), own.height()}.contains(at);
}

void HeaderBar::hover(PixelPoint at) {
    const bool over = inside(at);
    if (Surface* shownOn = surface()) {
        const bool resizes = dragged_ || (over && !pressed_ && grid_.columnBorderAt(at.x) >= 0);
        shownOn->setCursor(resizes ? Cursor::sizeColumn : Cursor::arrow);
    }
    const int32_t col = over ? grid_.view().colAt(at.x) : -1;
    if (std::exchange(hovered_, col) != col) invalidate();
}

AccessiblePart HeaderBar::accessiblePartAt(PixelPoint at) const {
    return {grid_.view().colAt(at.x - pixelBounds().left), -1};
}

AccessibleItem HeaderBar::accessible(AccessiblePart part) const {
    const PixelRect own = pixelBounds();
    if (part.whole()) return itemOf(AccessibleItem::Role::header, u"Captions");
    AccessibleItem item = itemOf(AccessibleItem::Role::columnHeader, model_.spoken(part.row));
    const GridView shown = grid_.view();
    const PixelRect bounds{own.left + shown.leftTop({0, part.row}).x, own.top,
                           own.left + shown.leftTop({0, part.row + 1}).x, own.bottom};
    item.bounds = bounds.intersected({own.left, own.top, own.left + shown.size().width, own.bottom});
    item.col = part.row;
    if (const auto indicator = model_.indicator(part.row))
        item.help = *indicator == SortDirection::descending ? u"sorted descending" : u"sorted ascending";
    item.set(AccessibleItem::pressed, pressed_ && part.row == hovered_);
    item.allow(AccessibleAction::Kind::press);
    return item;
}

void HeaderBar::useAccessible(AccessiblePart part, const AccessibleAction&) {
    announce(AccessibleEvent::invoked, part);
    pressCaption(part.row);
}

}  // namespace obk
