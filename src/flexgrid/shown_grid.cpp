#include "flexgrid/shown_grid.h"

#include "base/attempt.h"
#include "widgets/drawing.h"
#include "widgets/surface.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace obk {

namespace {

constexpr int32_t startRows = 2, startCols = 2;
constexpr int32_t lineShare = 126;     // of a shadow in the grid's lines, out of 255
constexpr int32_t rowPaddingAt96 = 4;  // above and below the text together

}  // namespace

ShownGrid::ShownGrid(Container& parent)
    : Container(parent),
      CurrentCellGrid(startRows, startCols, parent.dpi()),
      font_([this] { useFont(); }),
      verticalBar_(*this, ScrollBar::Direction::vertical),
      horizontalBar_(*this, ScrollBar::Direction::horizontal) {
    SetBackColor(SystemColour::window);
    setOpaque();
    for (ScrollBar* bar : {&verticalBar_, &horizontalBar_}) bar->setVisible(false);
    const auto on = [this](auto& event, auto handler) {
        connections_.push_back(event.connect(std::move(handler)));
    };
    on(verticalBar_.stepped, [this](ScrollBar::Step by) { step(by, true); });
    on(horizontalBar_.stepped, [this](ScrollBar::Step by) { step(by, false); });
    on(verticalBar_.dragged, [this](int64_t to) { scrollTo(view().nearRowAt(to)); });
    on(horizontalBar_.dragged, [this](int64_t to) { scrollTo({to, offset_.y}); });
    useFont();
}

void ShownGrid::setColours(const GridColours& colours) {
    colours_ = colours;
    invalidate();
}

void ShownGrid::setLook(Look look) {
    verticalBar_.setLook(look);
    horizontalBar_.setLook(look);
}

bool ShownGrid::SetHighLight(int32_t setting) {
    if (setting < 0 || setting > 2) return false;
    highLight_ = static_cast<uint8_t>(setting);
    invalidate();
    return true;
}

void ShownGrid::SetRedraw(bool redraw) {
    if (redraw == redraw_) return;
    redraw_ = redraw;
    setWatched(redraw_ && attached_);
    if (!redraw) return;
    layOut();
    invalidate();
    announceStructure();
    if (hasFocus()) announce(AccessibleEvent::focus);
}

GridView ShownGrid::viewAt(ScrollOffset offset) const {
    const PixelRect own = pixelBounds();
    return GridView(model(), {own.width(), own.height()}, ScrollBar::thickness(dpi()), offset);
}

bool ShownGrid::SetTopRow(int32_t row) {
    if (row < 0 || row >= Rows()) return false;
    scrollTo(view().atRow(row));
    return true;
}

bool ShownGrid::SetLeftCol(int32_t col) {
    if (col < 0 || col >= Cols()) return false;
    scrollTo(view().atCol(col));
    return true;
}

void ShownGrid::scrollTo(ScrollOffset offset) {
    if (viewAt(offset).offset() == view().offset()) return;
    attempt([&] { disturbed(); });
    // Whoever listens may have scrolled as well.
    const ScrollOffset before = view().offset();
    offset_ = offset;
    const GridView after = view();
    offset_ = after.offset();
    if (offset_ == before) return;
    if (watched()) {
        if (offset_.x != before.x) announce(AccessibleEvent::scrolledAcross);
        if (offset_.y != before.y) announce(AccessibleEvent::scrolledDown);
        verticalBar_.setRange(after.verticalRange());
        horizontalBar_.setRange(after.horizontalRange());
        const PixelRect cells{0, 0, after.size().width, after.size().height};
        const int64_t x = before.x - offset_.x, y = before.y - offset_.y;
        if (std::abs(x) < cells.width() && std::abs(y) < cells.height()) {
            const PixelRect own = pixelBounds();
            surface()->scroll(cells.moved(own.left, own.top).intersected(pixelClip()),
                              static_cast<int32_t>(x), static_cast<int32_t>(y));
        } else {
            invalidateArea(cells);
        }
    }
    attempt([&] { scrolled(); });
}

void ShownGrid::step(ScrollBar::Step by, bool vertical) {
    const GridView shown = view();
    switch (by) {
        case ScrollBar::Step::lineBack:
            return scrollTo(vertical ? shown.byRows(-1) : shown.byCols(-1));
        case ScrollBar::Step::lineForward:
            return scrollTo(vertical ? shown.byRows(1) : shown.byCols(1));
        case ScrollBar::Step::pageBack:
            return scrollTo(vertical ? shown.byPagesDown(-1) : shown.byPagesRight(-1));
        case ScrollBar::Step::pageForward:
            return scrollTo(vertical ? shown.byPagesDown(1) : shown.byPagesRight(1));
    }
}

TwipsRect ShownGrid::cellPlace(CellAddress cell) const {
    if (!model().contains(cell)) return {};
    const PixelRect rect = view().rect(cell);
    const Dpi scale = dpi();
    return {scale.toTwips(rect.left), scale.toTwips(rect.top), scale.toTwips(rect.width()),
            scale.toTwips(rect.height())};
}

bool ShownGrid::hasFocus() const {
    const Surface* shownOn = surface();
    return shownOn && shownOn->focusedOn(*this);
}

bool ShownGrid::takeFocus() {
    Surface* shownOn = surface();
    return shownOn && enabled() && !pixelClip().empty() && shownOn->focus(*this);
}

void ShownGrid::cellsChanged(const CellRange& cells) {
    invalidateCells(cells);
}

void ShownGrid::textsChanged(const CellRange& cells) {
    const CellRange shown = cells.intersected(view().visible());
    if (shown.empty()) return;
    if (shown.single())
        announce(checks(shown.left) ? AccessibleEvent::toggled : AccessibleEvent::value,
                 {shown.top, shown.left});
    else
        announceStructure();
}

void ShownGrid::selectionChanged(const CellRange& before) {
    invalidateCells(before);
    invalidateCells(selection());
    const bool several = current() != corner();
    announce(several ? AccessibleEvent::extended : AccessibleEvent::selection,
             {corner().row, corner().row < 0 ? -1 : corner().col});
    // It stays where the selection began.
    if (hasFocus() && !several) announce(AccessibleEvent::focus);
}

// Of what it stands in: so it is heard of a grid that hides, too.
void ShownGrid::announceStructure() {
    if (parent()) parent()->announce(AccessibleEvent::structure);
}

void ShownGrid::placesChanged(int32_t fromRow, int32_t fromCol) {
    if (!attached_) return;
    // What stands over a cell is a window and shows all the time.
    if (!redraw_) {
        attempt([&] { laidOut(); });
        return;
    }
    // Rows that are sized or hidden are still there.
    if (std::exchange(toldRevision_, revision()) != revision()) announceStructure();
    const GridView wanted = view();
    const bool same = offset_ == wanted.offset() && verticalBar_.visible() == wanted.verticalBar() &&
                      horizontalBar_.visible() == wanted.horizontalBar();
    layOut();
    const PixelRect cells{0, 0, wanted.size().width, wanted.size().height};
    if (!same) return invalidate();
    const PixelPoint start = wanted.leftTop({fromRow, fromCol});
    const int32_t reach = GridPainter::frameReach(dpi());
    invalidateArea(PixelRect{start.x - reach, start.y - reach, cells.right, cells.bottom}.intersected(cells));
}

void ShownGrid::invalidateCells(const CellRange& cells) {
    const GridView shown = view();
    const CellRange visible = cells.intersected(shown.visible());
    if (visible.empty()) return;
    PixelRect rect = shown.rect(visible);
    rect.left -= GridPainter::frameReach(dpi());
    rect.top -= GridPainter::frameReach(dpi());
    invalidateArea(rect.intersected({0, 0, shown.size().width, shown.size().height}));
}

void ShownGrid::invalidateArea(const PixelRect& onWidget) {
    const PixelRect own = pixelBounds();
    if (Surface* shownOn = surface(); shownOn && !onWidget.empty())
        shownOn->invalidate(onWidget.moved(own.left, own.top).intersected(pixelClip()));
}

// Brings the offset into range and the scroll bars to where they are needed.
void ShownGrid::layOut() {
    const Dpi scale = dpi();
    if (model().rowList().dpi() != scale) {
        ownModel().setDpi(scale);
        useFont();
        return;
    }
    const GridView shown = view();
    offset_ = shown.offset();
    const auto place = [&](ScrollBar& bar, bool needed, const PixelRect& at, const ScrollRange& range) {
        bar.setEnabled(enabled());
        bar.setVisible(needed);
        bar.move({scale.toTwips(at.left), scale.toTwips(at.top), scale.toTwips(at.width()),
                  scale.toTwips(at.height())});
        bar.setRange(range, watched());
    };
    const PixelSize cells = shown.size();
    const int32_t thickness = ScrollBar::thickness(scale);
    place(verticalBar_, shown.verticalBar(), {cells.width, 0, cells.width + thickness, cells.height},
          shown.verticalRange());
    place(horizontalBar_, shown.horizontalBar(), {0, cells.height, cells.width, cells.height + thickness},
          shown.horizontalRange());
    attempt([&] { laidOut(); });
}

void ShownGrid::useFont() {
    const Dpi scale = dpi();
    const FontMetrics metrics = platform().appearance().metrics(font_.description(), scale);
    const double twips = scale.toTwips(metrics.height() + scale.scaled(rowPaddingAt96)).value;
    ownModel().setDefaultRowHeight(static_cast<int32_t>(std::lround(twips)));
    layOut();
    invalidate();
}

GridLook ShownGrid::look() const {
    GridLook look;
    look.checkColumns = checkColumns_;
    look.font = font_.description();
    look.rgb = [this](OleColour colour) { return rgb(colour); };
    look.window = systemRgb(platform(), SystemColour::window);
    look.focus = systemRgb(platform(), SystemColour::highlight);
    if (platform().appearance().highContrast()) {
        look.ownColours = false;
        look.back = look.ground = look.window;
        look.fore = systemRgb(platform(), SystemColour::windowText);
        look.lines = systemRgb(platform(), SystemColour::greyText);
        look.selectionBack = look.focus;
        look.selectionFore = systemRgb(platform(), SystemColour::highlightText);
    } else {
        look.back = rgb(BackColor());
        look.fore = rgb(colours_.fore);
        look.ground = rgb(colours_.beyond);
        look.lines = colours_.lines
                         ? rgb(*colours_.lines)
                         : mixed(systemRgb(platform(), SystemColour::buttonShadow), look.window, lineShare);
        look.selectionBack = rgb(colours_.selectionBack);
        look.selectionFore = readableOn(look.selectionBack, rgb(colours_.selectionFore));
    }
    if (!enabled()) look.fore = systemRgb(platform(), SystemColour::greyText);
    return look;
}

GridMarks ShownGrid::marks() const {
    GridMarks marks;
    marks.current = current();
    marks.focused = hasFocus();
    if (highLight_ == 1 || (highLight_ == 2 && marks.focused)) marks.selection = selection();
    return marks;
}

void ShownGrid::paint(Canvas& canvas, const PixelRect& bounds) {
    // Also for a picture without a window, at the scale of the canvas's widget.
    const GridView shown = view();
    const GridLook drawn = look();
    const GridMarks marked = marks();
    GridPainter(canvas, {bounds.left, bounds.top}, shown, drawn, marked).paint();
    if (shown.verticalBar() && shown.horizontalBar())
        canvas.fillRect(
            {bounds.left + shown.size().width, bounds.top + shown.size().height, bounds.right, bounds.bottom},
            systemRgb(platform(), SystemColour::buttonFace));
    paintChildren(canvas, bounds);
}

void ShownGrid::attach(SurfacePeer& peer) {
    attached_ = true;
    setWatched(redraw_);
    Container::attach(peer);
    peer.acceptDrops();
    layOut();
}

void ShownGrid::detach() {
    attached_ = false;
    setWatched(false);
    Container::detach();
}

void ShownGrid::placed() {
    if (redraw_ && std::exchange(toldVisible_, visible()) != visible()) announceStructure();
    layOut();
    Container::placed();
}

void ShownGrid::appearanceChanged() {
    useFont();
    Container::appearanceChanged();
}

void ShownGrid::showFocus() {
    invalidateCells(highLight_ == 2 ? selection() : CellRange::between(current(), current()));
}

}  // namespace obk
