#include "grid/cell_editing.h"

#include "base/attempt.h"
#include "base/scoped_value.h"
#include "flexgrid/cell_movement.h"
#include "flexgrid/cell_texts.h"
#include "grid/cell_values.h"
#include "grid/check_mark.h"
#include "grid/grid_edit.h"
#include "widgets/text_box.h"
#include "widgets/text_line_keys.h"

#include <algorithm>
#include <utility>

namespace obk {

namespace {

// Beside those of the rules.
constexpr uint16_t inText = 512, inNumber = 1024, listDropped = 2048;

constexpr KeyClaim numberKeys[] = {
    keyClaim(key::up, shifts::alt, u"steps up"),
    keyClaim(key::down, shifts::alt, u"steps down"),
};

}  // namespace

CellEditing::CellEditing(GridEdit& control, FlexGrid& grid, const ColumnTypes& types)
    : control_(control),
      grid_(grid),
      types_(types),
      editors_(control, grid),
      history_(grid),
      ranges_(grid, types, editors_.list(), history_) {
    connect();
}

void CellEditing::connect() {
    const auto on = [this](auto& event, auto handler) {
        connections_.push_back(event.connect(std::move(handler)));
    };
    const auto passOn = [&](auto& event, const auto& raised) {
        on(event, [&raised](auto&... arguments) { attempt([&] { raised(arguments...); }); });
    };
    on(grid_.keyWentDown, [this](KeyEvent& event) { keyDown(event, EditPlace::cells); });
    on(editors_.keyWentDown, [this](KeyEvent& event) { keyDown(event, editorPlace()); });
    for (auto* const keyWentUp : {&grid_.keyWentUp, &editors_.keyWentUp})
        on(*keyWentUp,
           [this](KeyEvent& event) { attempt([&] { control_.KeyUp(event.code, event.shift); }); });
    on(grid_.characterTyped, [this](int16_t& character) { typed(character); });
    on(grid_.leavingCell, [this](bool& leaves) {
        leftRow_ = grid_.Row();
        hide();
        // A host that does not take what was typed has opened the editor again.
        leaves = !editors_.isOpen();
    });
    on(grid_.cellEntered, [this] { entered(); });
    on(grid_.selectionMoved, [this] {
        if (grid_.current() != grid_.corner()) commit();
        attempt([&] { control_.SelChange(); });
    });
    on(grid_.clicked, [this] {
        const bool one = grid_.current() == grid_.corner();
        // An editor that opens is told of as a click.
        if (!one || !show())
            attempt([&] { control_.Click(); });
        else if (mouseAtBox())
            editors_.toggle();
    });
    passOn(grid_.doubleClicked, control_.DblClick);
    on(grid_.menuAsked, [this](std::optional<PixelPoint> at, bool& shown) { shown = showMenu(at); });
    on(grid_.disturbed, [this] { commit(); });
    on(grid_.scrolled, [this] { editors_.place(); });
    on(grid_.laidOut, [this] { editors_.place(); });
    passOn(editors_.characterTyped, control_.KeyPress);
    passOn(editors_.doubleClicked, control_.DblClickExt);
    passOn(editors_.listPressed, control_.CboBoxClick);
    passOn(editors_.itemChosen, control_.CboClick);
}

bool CellEditing::editable() const {
    return allowed_ && !control_.designMode();
}

CellAddress CellEditing::focusedCell() const {
    return editors_.hasFocus() ? editors_.cell() : grid_.current();
}

std::optional<int32_t> CellEditing::rowBeside(int16_t key) const {
    const auto moved = movedBy(key, false, focusedCell(), grid_.view());
    return moved && moved->row != focusedCell().row ? std::optional(moved->row) : std::nullopt;
}

void CellEditing::allow(bool allowed) {
    if (!allowed) commit();
    allowed_ = allowed;
}

bool CellEditing::show(Focus focus) {
    // Whatever asks the host about an editor that closes goes on without one.
    if (announcing_) return false;
    if (editors_.isOpen() && editors_.cell() != grid_.current()) hide();
    if (editors_.isOpen()) {
        if (editors_.cell() == grid_.current() && focus == Focus::take) editors_.takeFocus();
        return false;
    }
    if (opening_ || !editable() || !editors_.has(types_.type(grid_.Col()), grid_.current())) return false;
    {
        const ScopedFlag opening(opening_);
        attempt([&] { control_.Click(); });
    }
    // The host may have filled the list, gone to another cell, or forbidden editing.
    if (!editable()) return true;
    grid_.show(grid_.current());
    attempt([&] { editors_.open(types_.type(grid_.Col()), grid_.current()); });
    editors_.selectText();
    if (focus == Focus::take) editors_.takeFocus();
    return true;
}

bool CellEditing::mouseAtBox() const {
    constexpr int32_t reach = 12;  // pixels at 96 DPI from the middle of the cell
    if (!editors_.isOpen(ColumnType::checkBox)) return false;
    const PixelRect cell = grid_.view().rect(editors_.cell());
    return std::abs(grid_.mouseAt().x - (cell.left + cell.right) / 2) <= grid_.dpi().scaled(reach);
}

void CellEditing::hide() {
    if (closing_) return;
    const ScopedFlag closing(closing_);
    const bool open = editors_.isOpen();
    {
        const ScopedFlag announcing(announcing_);
        attempt([&] { control_.ChangeEdited(); });
    }
    if (!open || !editors_.isOpen()) return;
    if (editors_.hasFocus()) grid_.takeFocus();
    const CellAddress cell = editors_.cell();
    const ColumnType type = editors_.type();
    std::optional<Text> text;
    attempt([&] { text = editors_.close(); });
    if (text) attempt([&] { ranges_.write(cell, *text); });
    // Also in a cell that keeps its text.
    if (type == ColumnType::checkBox) showCheckMark(grid_, cell);
    tellChanged();
    editors_.hideClosed();
}

void CellEditing::tellChanged() {
    attempt([&] { control_.Change(); });
    attempt([&] { control_.ChangePost(); });
}

void CellEditing::commit() {
    if (editors_.isOpen()) hide();
}

void CellEditing::returnFocus() {
    if (control_.focusInside() && !editors_.hasFocus() && !grid_.hasFocus()) grid_.takeFocus();
}

void CellEditing::rowInserted(int32_t row, ChangedBy by) {
    history_.rowInserted(row, by);
    const CellAddress cell = editors_.cell();
    if (editors_.isOpen() && row <= cell.row) editors_.moveTo({cell.row + 1, cell.col});
}

void CellEditing::rowRemoved(EditHistory::RowEdit row, ChangedBy by) {
    const int32_t gone = row.row;
    history_.rowRemoved(std::move(row), by);
    const CellAddress cell = editors_.cell();
    if (!editors_.isOpen() || gone > cell.row) return;
    editors_.moveTo({gone < cell.row ? cell.row - 1 : -1, cell.col});
}

void CellEditing::cellWritten(CellAddress cell) {
    if (editors_.isOpen() && editors_.cell() == cell) editors_.cellWritten();
}

std::vector<KeyGroup> CellEditing::keyGroups() {
    std::vector<KeyGroup> groups = editKeyGroups();
    groups.insert(groups.end(), {{u"in the cells", edit_key_states::cells, flexGridKeys},
                                 {u"in the editor of a text or number", inText, textLineKeys},
                                 {u"in the editor of a number", inNumber, numberKeys},
                                 {u"in a list, that of times as well", edit_key_states::list, dropListKeys},
                                 {u"in a list that is dropped down", listDropped, openListKeys},
                                 {u"in the editor of a date also the keys of `DateCalendar`, on a check mark "
                                  u"Space",
                                  0,
                                  {}}});
    return groups;
}

uint16_t CellEditing::keyStates() const {
    using namespace edit_key_states;
    uint16_t states = 0;
    const auto holds = [&states](uint16_t state, bool now) {
        if (now) states = static_cast<uint16_t>(states | state);
    };
    const bool typing = editors_.hasFocus();
    const bool text = editors_.type() == ColumnType::text, number = editors_.type() == ColumnType::number;
    holds(cells, !typing);
    holds(edit_key_states::editable, editable());
    holds(editorOpen, editors_.isOpen());
    holds(cellAfter, neighbour(1).has_value());
    holds(cellBefore, neighbour(-1).has_value());
    holds(line, typing && editorPlace() == EditPlace::line && !editors_.droppedDown());
    holds(mark, typing && editorPlace() == EditPlace::mark);
    holds(untouched, typing && editors_.untouched() && !editors_.droppedDown());
    holds(list, typing && editorPlace() == EditPlace::list);
    holds(listDropped, typing && editorPlace() == EditPlace::list && editors_.droppedDown());
    holds(inText, typing && (text || number));
    holds(inNumber, typing && number);
    return states;
}

EditPlace CellEditing::editorPlace() const {
    switch (editors_.type()) {
        case ColumnType::checkBox:
            return EditPlace::mark;
        case ColumnType::list:
        case ColumnType::time:
            return EditPlace::list;
        default:
            return EditPlace::line;
    }
}

void CellEditing::keyComes(const KeyEvent& event) {
    // Tab takes what a list marks and goes on, but goes round the parts of a calendar.
    othersKey_ =
        editors_.hasFocus() && editors_.droppedDown() && (event.code != key::tab || editors_.usesTab());
}

void CellEditing::keyDown(KeyEvent& event, EditPlace at) {
    bool used = false;
    if (!std::exchange(othersKey_, false)) {
        const EditState state{at, editable(), !rowBeside(key::down), editors_.untouched()};
        attempt([&] { used = act(editAction(event, state), event); });
    }
    attempt([&] { control_.KeyDown(event.code, event.shift); });
    if (used) event.code = 0;
}

void CellEditing::typed(int16_t& character) {
    if (opensEditor(character)) show();
    // The character is the editor's, which tells of it, if that has the keyboard now.
    if (!editors_.hasFocus()) attempt([&] { control_.KeyPress(character); });
}

bool CellEditing::act(EditAction action, const KeyEvent& event) {
    switch (action) {
        case EditAction::none:
            return false;
        case EditAction::open:
            if (event.code == key::space && ranges_.selectsMarks()) {
                changeCells(&RangeEditing::turnMarks);
                return true;
            }
            if (show() && event.code == key::space) editors_.toggle();
            return false;
        case EditAction::openAtEnd:
            show();
            editors_.putCaretAtEnd();
            return true;
        case EditAction::commit:
            hide();
            return true;
        case EditAction::leave:
            leaveFor(movedBy(grid_.towards(event.code), false, focusedCell(), grid_.view())
                         .value_or(focusedCell()));
            return true;
        case EditAction::goOn: {
            const auto below = rowBeside(key::down);
            goOnTo(below ? CellAddress{*below, focusedCell().col} : focusedCell());
            return true;
        }
        case EditAction::goBack: {
            const auto above = rowBeside(key::up);
            goOnTo(above ? CellAddress{*above, focusedCell().col} : focusedCell());
            return true;
        }
        case EditAction::addRow:
            addRow(grid_.Rows());
            return true;
        case EditAction::addRowAndGoOn:
            selectFocusedCell();
            addRow(grid_.Rows());
            show();
            return true;
        case EditAction::nextCell:
        case EditAction::previousCell: {
            const auto next = neighbour(action == EditAction::nextCell ? 1 : -1);
            if (next) goOnTo(*next);
            return next.has_value();
        }
        case EditAction::insertRow:
            addRow(std::max(grid_.Row(), 0));
            return true;
        case EditAction::deleteRows:
            deleteRows();
            return true;
        case EditAction::paste:
            return paste(false);
        case EditAction::pasteBlock:
            return paste(true);
        case EditAction::cut:
            grid_.copySelection();
            changeCells(&RangeEditing::empty);
            return true;
        case EditAction::copy:
            grid_.copySelection();
            return true;
        case EditAction::fitColumn:
            control_.fitColumn(grid_.Col());
            return true;
        case EditAction::narrowColumn:
            moveColumnBorder(grid_.towards(key::left) == key::left ? -1 : 1);
            return true;
        case EditAction::widenColumn:
            moveColumnBorder(grid_.towards(key::left) == key::left ? 1 : -1);
            return true;
        case EditAction::pressCaption:
            control_.pressCaption(grid_.Col());
            return true;
        case EditAction::selectAll:
            commit();
            grid_.selectAll();
            return true;
        case EditAction::fillDown:
            changeCells(&RangeEditing::fillDown);
            return true;
        case EditAction::undo:
            commit();
            showUndone(history_.undo());
            return true;
        case EditAction::redo:
            commit();
            showUndone(history_.redo());
            return true;
    }
    return false;
}

void CellEditing::selectFocusedCell() {
    grid_.Select(focusedCell());
}

void CellEditing::leaveFor(CellAddress cell) {
    selectFocusedCell();
    if (cell == grid_.current())
        hide();
    else
        grid_.goTo(cell);
}

void CellEditing::goOnTo(CellAddress cell) {
    leaveFor(cell);
    show();
}

void CellEditing::addRow(int32_t row) {
    const int32_t before = grid_.Rows();
    control_.insertRow({}, row, ChangedBy::person);
    if (grid_.Rows() <= before) return;
    grid_.show(grid_.current());
    auto number = static_cast<int16_t>(std::min<int32_t>(row, INT16_MAX));
    attempt([&] { control_.NewRow(number); });
    leftRow_ = -1;
    entered();
    attempt([&] { control_.SelChange(); });
}

void CellEditing::deleteRows() {
    commit();
    const CellRange selected = grid_.selection();
    const EditHistory::Together together(history_);
    // From below, so that those that are left keep their numbers; a host that is told may take more away.
    for (int32_t row = selected.bottom; row >= std::max(selected.top, 0); --row) {
        if (row >= grid_.Rows()) continue;
        const bool only = grid_.Rows() == 1;
        control_.removeRow(row, ChangedBy::person);
        // The only row is emptied and the grid hidden; a person still needs it.
        if (only) control_.GridShow();
        attempt([&] { control_.DelRow(); });
    }
}

std::optional<Text> CellEditing::clipboard() const {
    const Surface* shownOn = grid_.surface();
    auto text = grid_.platform().textOnClipboard(shownOn ? shownOn->window() : 0);
    return text && !text->empty() ? std::move(text) : std::nullopt;
}

bool CellEditing::paste(bool onlyBlock) {
    const auto text = clipboard();
    int32_t cells = 0;
    Text first;
    if (text)
        eachCell(*text, [&](int32_t, int32_t, TextView cell) {
            if (cells == 0) first = cell;
            return ++cells < 2;
        });
    const bool one = cells < 2;
    if (onlyBlock && one) return false;
    if (!one || (cells > 0 && grid_.current() != grid_.corner())) {
        pasteCells(*text);
        return true;
    }
    show();
    if (text && editors_.isOpen()) editors_.paste(first);
    return true;
}

bool CellEditing::showMenu(std::optional<PixelPoint> at) {
    Surface* const shownOn = grid_.surface();
    // A host that has taken the keyboard elsewhere means another thing.
    if ((at && !rightClick_.take()) || !shownOn || !grid_.hasFocus() || control_.designMode()) return false;
    const GridView view = grid_.view();
    PixelRect beside = view.rect(grid_.current());
    if (at) {
        const CellAddress cell{view.rowAt(at->y), view.colAt(at->x)};
        if (grid_.model().contains(cell) && !grid_.selection().contains(cell)) grid_.goTo(cell);
        beside = {at->x, at->y, at->x, at->y};
    }
    commit();
    const PixelRect own = grid_.pixelBounds();
    const auto items =
        contextMenu({editable(), clipboard().has_value(), history_.hasUndo(), history_.hasRedo()});
    const auto chosen = shownOn->chooseFromMenu(items, beside.moved(own.left, own.top));
    if (chosen && *chosen < items.size()) act(contextMenuLines()[*chosen].action, {});
    return true;
}

void CellEditing::moveColumnBorder(int32_t steps) {
    constexpr int32_t step = 8;  // pixels at 96 DPI
    const int32_t col = grid_.Col();
    grid_.dragColumnBorder(col, grid_.view().leftTop({0, col + 1}).x + steps * grid_.dpi().scaled(step));
}

void CellEditing::pasteCells(TextView text) {
    commit();
    if (ranges_.paste(text)) tellChanged();
}

void CellEditing::changeCells(bool (RangeEditing::*how)()) {
    commit();
    if ((ranges_.*how)()) tellChanged();
}

void CellEditing::showUndone(const EditHistory::Outcome& done) {
    if (!done) return;
    const int32_t row = std::min(done.at.row, grid_.Rows() - 1);
    grid_.goTo({row, done.cells ? done.at.col : grid_.Col()});
    attempt([&] { control_.Change(); });
    if (done.cells) attempt([&] { control_.ChangePost(); });
}

std::optional<CellAddress> CellEditing::neighbour(int32_t step) const {
    if (!editable()) return std::nullopt;
    const CellAddress cell = focusedCell();
    const auto shown = [this](int32_t col) {
        return grid_.ColWidth(col) > 0 && types_.type(col) != ColumnType::readOnly;
    };
    const auto inRow = [&](int32_t from) -> std::optional<int32_t> {
        for (int32_t col = from; col >= 0 && col < grid_.Cols(); col += step) {
            if (shown(col)) return col;
        }
        return std::nullopt;
    };
    if (!grid_.model().contains(cell)) return std::nullopt;
    if (const auto col = inRow(cell.col + step)) return CellAddress{cell.row, *col};
    const auto row = rowBeside(step > 0 ? key::down : key::up);
    const auto col = inRow(step > 0 ? 0 : grid_.Cols() - 1);
    return row && col ? std::optional(CellAddress{*row, *col}) : std::nullopt;
}

void CellEditing::entered() {
    const bool anotherRow = grid_.Row() != leftRow_;
    attempt([&] { control_.CellSelected(); });
    if (anotherRow) attempt([&] { control_.NewRowSelected(); });
}

}  // namespace obk
