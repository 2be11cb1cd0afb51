#include "grid/cell_editing.h"

#include "base/attempt.h"
#include "base/scoped_value.h"
#include "flexgrid/cell_movement.h"
#include "flexgrid/cell_texts.h"
#include "grid/cell_rules.h"
#include "grid/cell_values.h"
#include "grid/grid_edit.h"
#include "widgets/text_box.h"

#include <algorithm>
#include <utility>

namespace obk {

namespace {

// Beside those of the rules.
constexpr uint16_t inText = 256, inList = 512;

// What was a letter in the cell is a check mark from now on. `cells` is a grid or its model.
template <typename Cells>
void showCheckMark(Cells& cells, CellAddress cell) {
    attempt([&] {
        cells.template setAttribute<&CellStyle::fontName>(cell, std::make_shared<const Text>(checkFontName));
    });
    attempt([&] { cells.template setAttribute<&CellStyle::fontSize>(cell, checkFontSize); });
}

}  // namespace

CellEditing::CellEditing(GridEdit& control, FlexGrid& grid, const ColumnTypes& types)
    : control_(control), grid_(grid), types_(types), editors_(control, grid), lastChange_(grid) {
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
    on(editors_.keyWentDown, [this](KeyEvent& event) { keyDown(event, EditPlace::editor); });
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
    passOn(grid_.selectionMoved, control_.SelChange);
    on(grid_.clicked, [this] {
        const bool one = grid_.current() == grid_.corner();
        // An editor that opens is told of as a click.
        if (!one || !show()) attempt([&] { control_.Click(); });
    });
    passOn(grid_.doubleClicked, control_.DblClick);
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
    if (!editable()) return false;
    grid_.show(grid_.current());
    bool opened = false;
    attempt([&] { opened = editors_.open(types_.type(grid_.Col()), grid_.current()); });
    if (!opened) return false;
    editors_.selectText();
    if (focus == Focus::take) editors_.takeFocus();
    attempt([&] { control_.Click(); });
    return true;
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
    if (text) attempt([&] { write(cell, *text); });
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

void CellEditing::write(CellAddress cell, const Text& text) {
    std::vector<LastChange::CellBefore> before{{cell, Text(grid_.model().text(cell))}};
    if (before.front().text != text && grid_.setText(cell, text)) lastChange_.edited(std::move(before));
}

void CellEditing::returnFocus() {
    if (control_.hasFocus() && !editors_.hasFocus() && !grid_.hasFocus()) grid_.takeFocus();
}

void CellEditing::rowInserted(int32_t row) {
    const CellAddress cell = editors_.cell();
    if (editors_.isOpen() && row <= cell.row) editors_.moveTo({cell.row + 1, cell.col});
}

void CellEditing::rowRemoved(int32_t row) {
    const CellAddress cell = editors_.cell();
    if (!editors_.isOpen() || row > cell.row) return;
    editors_.moveTo({row < cell.row ? cell.row - 1 : -1, cell.col});
}

void CellEditing::cellWritten(CellAddress cell) {
    if (editors_.isOpen() && editors_.cell() == cell) editors_.cellWritten();
}

std::vector<KeyGroup> CellEditing::keyGroups() {
    std::vector<KeyGroup> groups = editKeyGroups();
    groups.insert(groups.end(), {{u"in the cells", edit_key_states::cells, flexGridKeys},
                                 {u"in the editor of a text", inText, textLineKeys},
                                 {u"in the editor of a text", inText, textLineArrows},
                                 {u"in a list, that of times as well", inList, dropListKeys},
                                 {u"in the editors of numbers and dates also the keys of `UpDownTextBox` and "
                                  u"`DateCalendar`, on a check mark Space",
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
    const ColumnType type = editors_.type();
    holds(cells, !typing);
    holds(edit_key_states::editable, editable());
    holds(editorOpen, editors_.isOpen());
    holds(cellAfter, neighbour(1).has_value());
    holds(cellBefore, neighbour(-1).has_value());
    holds(inText, typing && type == ColumnType::text);
    holds(inList, typing && (type == ColumnType::list || type == ColumnType::time));
    return states;
}

void CellEditing::keyComes(const KeyEvent& event) {
    othersKey_ = editors_.hasFocus() && editors_.droppedDown() && event.code != key::tab;
}

void CellEditing::keyDown(KeyEvent& event, EditPlace at) {
    bool used = false;
    if (!std::exchange(othersKey_, false)) {
        const EditState state{at, editable(), !rowBeside(key::down)};
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
            if (show() && event.code == key::space) editors_.toggle();
            return false;
        case EditAction::openAtEnd:
            show();
            editors_.putCaretAtEnd();
            return true;
        case EditAction::commit:
            hide();
            return true;
        case EditAction::goOn: {
            const auto below = rowBeside(key::down);
            goOnTo(below ? CellAddress{*below, focusedCell().col} : focusedCell());
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
        case EditAction::deleteRow:
            deleteRow();
            return true;
        case EditAction::paste:
            paste();
            return true;
        case EditAction::undo:
            undo();
            return true;
    }
    return false;
}

void CellEditing::selectFocusedCell() {
    grid_.Select(focusedCell());
}

void CellEditing::goOnTo(CellAddress cell) {
    selectFocusedCell();
    if (cell == grid_.current())
        hide();
    else
        grid_.goTo(cell);
    show();
}

void CellEditing::addRow(int32_t row) {
    const int32_t before = grid_.Rows();
    control_.RowAdd({}, row);
    if (grid_.Rows() <= before) return;
    grid_.show(grid_.current());
    auto number = static_cast<int16_t>(std::min<int32_t>(row, INT16_MAX));
    attempt([&] { control_.NewRow(number); });
    leftRow_ = -1;
    entered();
    attempt([&] { control_.SelChange(); });
}

void CellEditing::deleteRow() {
    commit();
    const int32_t row = grid_.Row();
    if (row < 0) return;
    const int32_t rows = grid_.Rows();
    const bool only = rows == 1;
    std::optional<LastChange::Row> gone;
    attempt([&] { gone = lastChange_.rowNow(row); });
    control_.RowDel(row);
    // The only row is emptied and the grid hidden; a person still needs it.
    if (only) control_.GridShow();
    // A host that was asked may have done something else.
    if (gone && (only || grid_.Rows() == rows - 1)) lastChange_.deleted(std::move(*gone));
    attempt([&] { control_.DelRow(); });
}

void CellEditing::paste() {
    const Surface* shownOn = grid_.surface();
    const NativeWindow owner = shownOn ? shownOn->window() : 0;
    const auto text = grid_.platform().textOnClipboard(owner);
    if (!text || text->empty()) {
        show();
        return;
    }
    int32_t cells = 0;
    Text first;
    eachCell(*text, [&](int32_t, int32_t, TextView cell) {
        if (cells == 0) first = cell;
        return ++cells < 2;
    });
    if (cells > 1) return pasteCells(*text);
    show();
    if (editors_.isOpen()) editors_.paste(first);
}

void CellEditing::pasteCells(TextView text) {
    commit();
    const CellAddress start = grid_.current();
    if (!grid_.model().contains(start)) return;
    std::vector<LastChange::CellBefore> before;
    const auto put = [&](GridModel& model, CellAddress cell, TextView pasted) {
        const ColumnType type = types_.type(cell.col);
        const auto own = cellText(type, pasted, editors_.list().items());
        if (!own) return;
        before.push_back({cell, Text(model.text(cell))});
        model.setText(cell, *own);
        if (type == ColumnType::checkBox) showCheckMark(model, cell);
    };
    // What memory has no room for is left out, and what was pasted before it can be taken back.
    attempt([&] {
        grid_.change([&](GridModel& model) {
            eachCell(text, [&](int32_t row, int32_t col, TextView pasted) {
                const CellAddress cell{start.row + row, start.col + col};
                if (model.contains(cell)) put(model, cell, pasted);
                return cell.row < model.rows();
            });
        });
    });
    if (before.empty()) return;
    lastChange_.edited(std::move(before));
    tellChanged();
}

void CellEditing::undo() {
    commit();
    switch (lastChange_.takeBack()) {
        case LastChange::Undone::nothing:
            break;
        case LastChange::Undone::cells:
            tellChanged();
            break;
        case LastChange::Undone::row:
            grid_.show(grid_.current());
            attempt([&] { control_.Change(); });
            break;
    }
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
