// What the flexible grid does with the mouse, the wheel and the keyboard.
#include "base/attempt.h"
#include "flexgrid/cell_movement.h"
#include "flexgrid/cell_texts.h"
#include "flexgrid/flex_grid.h"
#include "widgets/surface.h"
#include "widgets/wheel_notches.h"

#include <cmath>
#include <cstdlib>

namespace obk {

namespace {

// Pixels at 96 DPI.
constexpr int32_t borderReach = 3;
constexpr int32_t dragReach = 4;        // that the mouse moves before a press becomes a drag of texts
constexpr int32_t narrowestColumn = 8;  // that dragging leaves
constexpr int32_t sidewaysLine = 32;    // a line of the horizontal wheel

}  // namespace

void FlexGrid::mouse(const MouseEvent& event) {
    mouse_ = event.at;
    if (!enabled()) return;
    switch (event.kind) {
        case MouseEvent::Kind::down:
        case MouseEvent::Kind::doubleClick:
            takeFocus();
            attempt([&] { mousePressed(event); });
            // The host may have taken the grid away meanwhile.
            if (event.button == button::left && attached() && enabled()) press(event);
            break;
        case MouseEvent::Kind::move:
            attempt([&] { mouseMoved(event); });
            if (drag_ == Drag::selection)
                dragSelection();
            else if (drag_ == Drag::column)
                dragColumnBorder(draggedCol_, event.at.x + dragRest_);
            else if (drag_ == Drag::carry)
                carryOut();
            else
                showCursor(event.at);
            break;
        case MouseEvent::Kind::up: {
            const bool carried = event.button == button::left && drag_ == Drag::carry;
            const bool clicks = carried || (event.button == button::left && drag_ == Drag::selection);
            if (event.button == button::left) endDrag();
            // What did not become a drag was a press on this cell alone.
            if (carried) select(view().nearest(pressedAt_), false);
            attempt([&] { mouseReleased(event); });
            if (clicks) click();
            break;
        }
        case MouseEvent::Kind::leave:
            showCursor(event.at);
            break;
    }
}

void FlexGrid::click() {
    // Where a drag has selected many, none of them was meant.
    if (selection().single()) announce(AccessibleEvent::invoked, {Row(), Col()});
    clicked();
}

void FlexGrid::press(const MouseEvent& event) {
    const bool twice = event.kind == MouseEvent::Kind::doubleClick;
    const int32_t border = borderAt(event.at);
    if (border >= 0 && twice) return fitColumn(border);
    const GridView shown = view();
    if (border >= 0) {
        draggedCol_ = border;
        dragRest_ = shown.rect(CellAddress{0, border}).right - event.at.x;
        beginDrag(Drag::column);
        return;
    }
    const CellAddress cell{shown.rowAt(event.at.y), shown.colAt(event.at.x)};
    if (cell.row < 0 || cell.col < 0) return disturbed();
    // The first press made the cell one end of the selection. If it went elsewhere, the second is one of its
    // own.
    if (twice && (cell == current() || cell == corner())) return doubleClicked();
    const bool extends = (event.shift & shift::shift) != 0;
    pressedAt_ = event.at;
    const bool carries = showsSelection() && current() != corner() && selection().contains(cell);
    if (carries && !extends) return beginDrag(Drag::carry);
    beginDrag(Drag::selection);
    select(cell, extends);
}

void FlexGrid::beginDrag(Drag drag) {
    drag_ = drag;
    if (Surface* shownOn = surface()) shownOn->capture(*this);
}

void FlexGrid::endDrag() {
    if (drag_ == Drag::none) return;
    drag_ = Drag::none;
    dragTimer_.stop();
    if (Surface* shownOn = surface()) shownOn->releaseCapture(*this);
}

void FlexGrid::dragColumnBorder(int32_t col, int32_t x) {
    if (col < 0 || col >= Cols()) return;
    const int32_t left = view().leftTop({0, col}).x;
    const Dpi scale = dpi();
    const int32_t pixels = std::max(x - left, scale.scaled(narrowestColumn));
    const double twips = std::min<double>(scale.toTwips(pixels).value, GridModel::greatestLength);
    const auto width = static_cast<int32_t>(std::lround(twips));
    if (width != ColWidth(col)) resizeColumn(col, width);
}

void FlexGrid::resizeColumn(int32_t col, int32_t twips) {
    attempt([&] { disturbed(); });
    // Whoever listens may have taken the column away.
    if (SetColWidth(col, twips)) attempt([&] { columnResized(col); });
}

void FlexGrid::dragSelection() {
    const GridView shown = view();
    const bool inside = PixelRect{0, 0, shown.size().width, shown.size().height}.contains(mouse_);
    if (inside)
        dragTimer_.stop();
    else if (!dragTimer_.running())
        dragTimer_.start(platform().appearance().metrics().repeatInterval);
    select(shown.nearest(mouse_), true);
}

void FlexGrid::carryOut() {
    const int32_t reach = dpi().scaled(dragReach);
    if (std::abs(mouse_.x - pressedAt_.x) < reach && std::abs(mouse_.y - pressedAt_.y) < reach) return;
    endDrag();
    attempt([&] { platform().dragText(tabSeparated(model(), selection())); });
}

// The mouse holds a selection beyond an edge; farther away it scrolls faster.
void FlexGrid::scrollAtEdge() {
    if (drag_ != Drag::selection) return dragTimer_.stop();
    const auto steps = [this](int32_t at, int32_t end) {
        const int32_t beyond = at < 0 ? at : std::max(at - end + 1, 0);
        return beyond / dpi().scaled(sidewaysLine) + (beyond > 0) - (beyond < 0);
    };
    scrollTo(view().byRows(steps(mouse_.y, view().size().height)));
    scrollTo(view().byCols(steps(mouse_.x, view().size().width)));
    if (drag_ == Drag::selection) select(view().nearest(mouse_), true);
}

int32_t FlexGrid::columnBorderAt(int32_t x) const {
    return allowUserResizing_ ? view().colBorderAt(x, dpi().scaled(borderReach)) : -1;
}

int32_t FlexGrid::borderAt(PixelPoint at) const {
    return view().rowAt(at.y) < 0 ? -1 : columnBorderAt(at.x);
}

void FlexGrid::showCursor(PixelPoint at) {
    if (Surface* shownOn = surface())
        shownOn->setCursor(borderAt(at) >= 0 ? Cursor::sizeColumn : Cursor::arrow);
}

// Makes a cell the current one, or the other corner of the selection.
void FlexGrid::select(CellAddress cell, bool extend) {
    if (!model().contains(cell)) return;
    const bool another = !extend && cell != current();
    if (!another && cell == corner()) return;
    bool leaves = true;
    if (another) attempt([&] { leavingCell(leaves); });
    if (!leaves) return;
    // Whoever listens may have taken the cell away.
    if (!Select(extend ? current() : cell, cell)) return;
    if (another) attempt([&] { cellEntered(); });
    attempt([&] { selectionMoved(); });
}

void FlexGrid::selectAll() {
    select({0, 0}, false);
    // Whoever listens may have gone elsewhere.
    if (current() == CellAddress{0, 0}) select({Rows() - 1, Cols() - 1}, true);
}

bool FlexGrid::contextMenu(std::optional<PixelPoint> at) {
    bool shown = false;
    if (enabled()) attempt([&] { menuAsked(at, shown); });
    return shown;
}

void FlexGrid::drop(DropEvent& event) {
    mouse_ = event.at;
    dropped(event);
}

void FlexGrid::keyDown(KeyEvent& event) {
    attempt([&] { keyWentDown(event); });
    if (event.code == 0 || !enabled() || drag_ != Drag::none || (event.shift & shift::alt) != 0) return;
    const bool control = (event.shift & shift::control) != 0;
    const bool extend = (event.shift & shift::shift) != 0;
    if (control && !extend && (event.code == 'C' || event.code == key::insert)) return copySelection();
    const CellAddress from = extend ? corner() : current();
    const auto to = movedBy(towards(event.code), control, from, view());
    if (!to) return;
    if (!extend) return goTo(*to);
    select(*to, extend);
    if (model().contains(*to)) show(*to);
}

int16_t FlexGrid::towards(int16_t key) const {
    return surface() && surface()->mirrored() ? key::mirrored(key) : key;
}

void FlexGrid::goTo(CellAddress cell) {
    select(cell, false);
    if (current() == cell) show(cell);
}

int16_t FlexGrid::keyPress(int16_t character) {
    characterTyped(character);
    return character;
}

bool FlexGrid::wheel(const WheelEvent& event) {
    if ((event.shift & shift::control) != 0) return false;
    const GridView shown = view();
    const bool sideways = event.horizontal || (event.shift & shift::shift) != 0;
    if ((sideways ? shown.horizontalRange() : shown.verticalRange()).last() == 0) return false;
    int32_t delta = std::clamp<int32_t>(event.delta, INT16_MIN, INT16_MAX);
    if (!event.horizontal) delta = -delta;  // away from the user is back
    const int32_t lines = platform().appearance().metrics().wheelLines;
    const bool byPage = lines < 0 || lines > shown.visible().bottom - shown.visible().top;
    if (!sideways && delta % WheelNotches::notch == 0 && wheelRest_ == 0) {
        const int32_t notches = delta / WheelNotches::notch;
        scrollTo(byPage ? shown.byPagesDown(notches) : shown.byRows(notches * lines));
        return true;
    }
    const int32_t row = dpi().toPixels(Twips{static_cast<double>(model().rowList().defaultHeight())});
    const int32_t line = sideways ? dpi().scaled(sidewaysLine) : row;
    const double notch = byPage ? shown.size().height : double{1} * lines * line;
    if ((delta > 0) != (wheelRest_ > 0)) wheelRest_ = 0;
    wheelRest_ += delta * notch / WheelNotches::notch;
    const double pixels = std::trunc(wheelRest_);
    wheelRest_ -= pixels;
    const auto by = static_cast<int64_t>(pixels);
    scrollTo({shown.offset().x + (sideways ? by : 0), shown.offset().y + (sideways ? 0 : by)});
    return true;
}

}  // namespace obk
