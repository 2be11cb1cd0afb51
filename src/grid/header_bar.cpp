#include "grid/header_bar.h"

#include "widgets/drawing.h"

namespace obk {

namespace {

constexpr int32_t paddingAt96 = 6;  // above and below the captions together

}  // namespace

HeaderBar::HeaderBar(Container& parent, const FlexGrid& grid)
    : Widget(parent), grid_(grid), font_([this] { invalidate(); }) {}

void HeaderBar::setBackColour(OleColour colour) {
    backColour_ = colour;
    invalidate();
}

void HeaderBar::setForeColour(OleColour colour) {
    foreColour_ = colour;
    invalidate();
}

Twips HeaderBar::naturalHeight() const {
    const FontMetrics metrics = platform().appearance().metrics(font_.description(), dpi());
    return dpi().toTwips(metrics.height() + dpi().scaled(paddingAt96));
}

TextView HeaderBar::caption(int32_t col) const {
    const auto found = captions_.find(col);
    return found == captions_.end() ? TextView() : found->second;
}

bool HeaderBar::setCaption(int32_t col, Text caption) {
    if (col < 0 || col >= GridModel::mostCols) return false;
    captions_[col] = std::move(caption);
    invalidate();
    return true;
}

void HeaderBar::paint(Canvas& canvas, const PixelRect& bounds) {
    const bool highContrast = platform().appearance().highContrast();
    const Rgb back = rgb(highContrast ? OleColour(SystemColour::window) : backColour_);
    const Rgb fore = rgb(highContrast ? OleColour(SystemColour::windowText) : foreColour_);
    const Rgb edge = highContrast ? fore : mixed(fore, back, 64);
    const int32_t line = canvas.dpi().scaled(1);
    TextStyle style;
    style.font = font_.description();
    style.colour = fore;
    canvas.fillRect(bounds, back);
    grid_.view().eachVisibleCol([&](int32_t col, int32_t left, int32_t right) {
        const PixelRect cell{bounds.left + left, bounds.top, bounds.left + right, bounds.bottom};
        canvas.fillRect({cell.right - line, cell.top, cell.right, cell.bottom}, edge);
        const int32_t margin = cellMargin(canvas.dpi());
        const PixelRect text{cell.left + margin, cell.top, cell.right - line - margin, cell.bottom - line};
        if (const TextView shown = caption(col); !shown.empty() && !text.empty())
            canvas.drawText(shown, text, style);
    });
    canvas.fillRect({bounds.left, bounds.bottom - line, bounds.right, bounds.bottom}, edge);
}

void HeaderBar::mouse(const MouseEvent& event) {
    switch (event.kind) {
        case MouseEvent::Kind::down:
        case MouseEvent::Kind::doubleClick:
            if (event.button != button::left) return;
            pressedAt_ = dpi().toTwips(event.at.x);
            pressed_ = true;
            break;
        case MouseEvent::Kind::up:
            if (event.button == button::left && std::exchange(pressed_, false)) clicked();
            break;
        case MouseEvent::Kind::leave:
            pressed_ = false;
            break;
        case MouseEvent::Kind::move:
            break;
    }
}

void HeaderBar::describe(std::vector<AccessibleItem>& items) const {
    const PixelRect own = pixelBounds();
    grid_.view().eachVisibleCol([&](int32_t col, int32_t left, int32_t right) {
        const PixelRect rect{own.left + left, own.top, own.left + right, own.bottom};
        if (!caption(col).empty())
            items.push_back({AccessibleItem::Role::staticText,
                             Text(caption(col)),
                             {},
                             rect.intersected(own),
                             enabled(),
                             false});
    });
}

}  // namespace obk
