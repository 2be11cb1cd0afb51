#include "grid/grid_edit.h"

#include "base/attempt.h"
#include "framework/kxlib_system.h"

#include <utility>

namespace obk {

namespace {

// When the grid shows what is selected: always.
constexpr int32_t highLightAlways = 1;

}  // namespace

GridEdit::GridEdit(Platform& platform)
    : Control(platform),
      gbrBORDER(root()),
      flexGRID(root()),
      picTOPBAR(root(), flexGRID, header_),
      editing_(*this, flexGRID, types_) {
    flexGRID.setCheckColumns([this](int32_t col) { return types_.type(col) == ColumnType::checkBox; });
    flexGRID.setDescriber(this);
    connectChildren();
    FontUpdate();
}

void GridEdit::initialize() {
    const Look look = lookOfSystem(platform());
    gbrBORDER.setLook(look);
    flexGRID.setLook(look);
    editing_.editors().setLook(look);
    picTOPBAR.setLook(look);
}

void GridEdit::connectChildren() {
    const auto on = [this](auto& event, auto handler) {
        connections_.push_back(event.connect(std::move(handler)));
    };
    on(flexGRID.mousePressed, [this](const MouseEvent& event) { raiseMouse(MouseDown, event); });
    on(flexGRID.mouseMoved, [this](const MouseEvent& event) { raiseMouse(MouseMove, event); });
    on(flexGRID.mouseReleased, [this](const MouseEvent& event) { raiseMouse(MouseUp, event); });
    on(flexGRID.dropped, [this](DropEvent& event) {
        const Dpi dpi = root().dpi();
        auto x = static_cast<float>(dpi.toTwips(event.at.x).value);
        auto y = static_cast<float>(dpi.toTwips(event.at.y).value);
        attempt([&] { OLEDragDrop(event.data, event.effect, event.button, event.shift, x, y); });
    });
    on(flexGRID.scrolled, [this] { picTOPBAR.invalidate(); });
    on(flexGRID.columnResized, [this](int32_t) { picTOPBAR.invalidate(); });
    on(picTOPBAR.clicked, [this] {
        BoxHide();
        attempt([&] { SortClick(); });
    });
}

void GridEdit::SetAllowGridEdit(bool allow) {
    editing_.allow(allow);
    // Its cells can be written, or no more.
    if (flexGRID.Redraw())
        flexGRID.announce(AccessibleEvent::state, {flexGRID.Row(), flexGRID.Row() < 0 ? -1 : flexGRID.Col()});
}

void GridEdit::SetBarHeader(bool BarHeader) {
    picTOPBAR.setVisible(BarHeader);
    if (flexGRID.Redraw()) announceSurface(AccessibleEvent::structure);
    resize();
    PropertyChanged<&GridEdit::BarHeader>();
}

void GridEdit::SetBarHeaderColorRefresh(OleColour colour) {
    picTOPBAR.setBackColour(colour);
    PropertyChanged<&GridEdit::BarHeaderColorRefresh>();
}

void GridEdit::SetBorderStyle(int32_t BorderStyle) {
    if (gbrBORDER.setBorderStyle(BorderStyle)) resize();
    PropertyChanged<&GridEdit::BorderStyle>();
}

void GridEdit::SetFont(const FontRef& Font) {
    loadFont(Font);
    PropertyChanged<&GridEdit::Font>();
}

void GridEdit::loadFont(const FontRef& font) {
    if (!font) return;
    attempt([&] { flexGRID.SetFont(font); });
    attempt([&] { fontConnection_ = flexGRID.Font()->changed.connect([this] { fontChanged(); }); });
    attempt([&] { followedFont_.took(font, ambientFont()); });
    FontUpdate();
    resize();
}

void GridEdit::fontChanged() {
    followedFont_.changed();
    resize();
    PropertyChanged<&GridEdit::Font>();
}

void GridEdit::useAmbientFont(const FontRef& font) {
    followedFont_.follow(font, Font());
}

// What a press with the left button at the grid's left top corner does, but that it takes no focus.
void GridEdit::loaded() {
    flexGRID.SetAllowUserResizing(true);
    flexGRID.SetHighLight(highLightAlways);
    resize();
    root().invalidate();
    BoxHide();
    raiseMouse(MouseDown, {MouseEvent::Kind::down, button::left, 0, {0, 0}});
    goTo(flexGRID.TopRow(), flexGRID.LeftCol());
    editing_.show(CellEditing::Focus::leave);
}

std::span<const KeyGroup> GridEdit::keyGroups() const {
    static const std::vector<KeyGroup> groups = CellEditing::keyGroups();
    return groups;
}

void GridEdit::resize() {
    const Twips border = borderOffset(), top = border + headerHeight();
    const Twips inner = width() - 2 * border;
    const TwipsRect cells{border, top, inner, height() - top - border};
    // An editor without the keyboard stays open over its cell.
    if (flexGRID.bounds() != cells && editing_.editors().hasFocus()) BoxHide();
    gbrBORDER.move({{0}, {0}, width(), height()});
    picTOPBAR.move({border, border, inner, headerHeight()});
    flexGRID.move(cells);
}

void GridEdit::exitFocus() {
    gbrBORDER.setFocused(false);
    editing_.commit();
}

void GridEdit::FontUpdate() {
    picTOPBAR.setFont(Font());
    editing_.editors().fontChanged();
}

void GridEdit::GridClear() {
    editing_.commit();
    flexGRID.Clear();
}

void GridEdit::GridHide() {
    editing_.commit();
    flexGRID.setVisible(false);
}

void GridEdit::GridShow() {
    // Said after each row that a host fills in: only a hidden grid has lost the keyboard, and asking costs.
    if (flexGRID.visible()) return;
    flexGRID.setVisible(true);
    editing_.returnFocus();
}

void GridEdit::GridReset() {
    editing_.commit();
    flexGRID.setVisible(false);
    flexGRID.Clear();
    attempt([&] { flexGRID.SetRows(1); });
    goTo(0, 0);
    flexGRID.SetHighLight(highLightAlways);
    GridChange();
}

void GridEdit::GridSetFocus(int32_t colno, int32_t rowno) {
    BoxHide();
    goTo(rowno, colno);
    BoxShow();
}

void GridEdit::GridColr(OleColour& newcol) {
    GridColours colours = flexGRID.colours();
    colours.lines = newcol;
    colours.selectionBack = newcol;
    flexGRID.setColours(colours);
}

void GridEdit::listKey(void (DropList::*act)(KeyEvent&), int16_t& keyCode, int16_t& shift) {
    if (!editing_.editors().isOpen(ColumnType::list)) return;
    KeyEvent event{keyCode, shift, false};
    attempt([&] { (editing_.editors().list().*act)(event); });
    keyCode = event.code;
    shift = event.shift;
}

void GridEdit::raiseMouse(const MouseRaised& event, const MouseEvent& mouse) {
    MouseArguments told = MouseArguments::inTwips(mouse, root().dpi());
    const bool right = mouse.button == button::right && mouse.kind != MouseEvent::Kind::move;
    if (right && mouse.kind != MouseEvent::Kind::up) editing_.rightClick().pressed();
    const auto raise = [&] { attempt([&] { told.raise(event); }); };
    if (right) {
        const bool menu = platform().opensMenu(raise);
        editing_.rightClick().told(told.Button, menu);
    } else {
        raise();
    }
}

}  // namespace obk
