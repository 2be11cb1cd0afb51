#include "grid/edit_session.h"

#include <algorithm>
#include <iterator>

namespace obk {

namespace {

using namespace edit_key_states;
// Bits of EditPlace.
constexpr uint8_t inCells = 1, inLine = 2, inMark = 4, inList = 8;
constexpr uint8_t everywhere = inCells | inLine | inMark | inList;
constexpr uint8_t inUntouched = 16;  // in any editor, as long as it is

struct Rule {
    KeyClaim key;
    uint8_t places;
    bool changes;  // what is shown: only where that is allowed
    EditAction action;
    uint16_t claimedIn = 0;  // where nothing else is asked for, wherever the rule holds
    TextView where = {};     // in words
};

constexpr uint16_t toChange = cells | editable, toChangeUntouched = untouched | editable;
constexpr TextView leaves = u"close it, and go to another cell";
constexpr TextView whereLine = u"in the editor of a text, number or date", whereMark = u"on a check mark";
constexpr TextView whereUntouched = u"in an editor that nothing was typed into";
constexpr TextView whereCells = u"in the cells";
constexpr TextView whereCellsChange = u"in the cells, while they can be edited";

constexpr Rule rules[] = {
    {keyClaim(key::escape, shifts::any, u"closes it, and keeps what it holds"), everywhere, false,
     EditAction::commit, editorOpen, u"while an editor is open"},
    {keyClaim(key::enter, shifts::shift, u"goes to the row above"), everywhere, false, EditAction::goBack},
    {keyClaim(key::enter, shifts::any, u"goes to the row below"), everywhere, false, EditAction::goOn},
    {keyClaim(key::up, shifts::none, leaves), inLine, false, EditAction::leave, line, whereLine},
    {keyClaim(key::down, shifts::none, leaves), inLine, false, EditAction::leave, line, whereLine},
    {{key::pageUp, key::pageDown, shifts::none, leaves}, inLine, false, EditAction::leave, line, whereLine},
    {{key::left, key::down, shifts::none, leaves}, inMark, false, EditAction::leave, mark, whereMark},
    {{key::pageUp, key::pageDown, shifts::none, leaves}, inMark, false, EditAction::leave, mark, whereMark},
    {keyClaim(key::tab, shifts::none, u"goes to that cell"), everywhere, false, EditAction::nextCell,
     cellAfter, u"where a cell with an editor follows"},
    {keyClaim(key::tab, shifts::shift, u"goes to that cell"), everywhere, false, EditAction::previousCell,
     cellBefore, u"where a cell with an editor comes before"},
    {keyClaim(key::down, shifts::none, u"adds a row behind the last one"), inCells, true, EditAction::addRow,
     toChange, whereCellsChange},
    {keyClaim(key::f2, shifts::none, u"opens the editor"), inCells, true, EditAction::openAtEnd, toChange,
     whereCellsChange},
    {keyClaim(key::insert, shifts::none, u"inserts a row"), inCells, true, EditAction::insertRow, toChange,
     whereCellsChange},
    {keyClaim(key::insert, shifts::shift, u"pastes"), inCells, true, EditAction::paste, toChange,
     whereCellsChange},
    {keyClaim(key::deleteKey, shifts::none, u"deletes the selected rows"), inCells, true,
     EditAction::deleteRows, toChange, whereCellsChange},
    {keyClaim('V', shifts::control, u"pastes"), inCells, true, EditAction::paste, toChange, whereCellsChange},
    {keyClaim('V', shifts::control, u"pastes several cells"), inUntouched, true, EditAction::pasteBlock,
     toChangeUntouched, whereUntouched},
    {keyClaim(key::insert, shifts::shift, u"pastes several cells"), inUntouched, true, EditAction::pasteBlock,
     toChangeUntouched, whereUntouched},
    {keyClaim('X', shifts::control, u"cuts what is selected"), inCells, true, EditAction::cut, toChange,
     whereCellsChange},
    {keyClaim(key::deleteKey, shifts::shift, u"cuts what is selected"), inCells, true, EditAction::cut,
     toChange, whereCellsChange},
    {keyClaim('A', shifts::control, u"selects all cells"), inCells, false, EditAction::selectAll, cells,
     whereCells},
    {keyClaim(key::add, shifts::control, u"makes the column as wide as its texts"), inCells, false,
     EditAction::fitColumn, cells, whereCells},
    {keyClaim(key::plus, shifts::control, u"makes the column as wide as its texts"), inCells, false,
     EditAction::fitColumn, cells, whereCells},
    {keyClaim(key::left, shifts::alt, u"makes the column narrower"), inCells, false, EditAction::narrowColumn,
     cells, whereCells},
    {keyClaim(key::right, shifts::alt, u"makes the column wider"), inCells, false, EditAction::widenColumn,
     cells, whereCells},
    {keyClaim(key::up, shifts::alt, u"presses the caption of the column"), inCells, false,
     EditAction::pressCaption, cells, whereCells},
    {keyClaim(key::menu, shifts::none | shifts::shift, u"opens the menu"), inCells, false, EditAction::none,
     cells, whereCells},
    {keyClaim(key::f10, shifts::shift, u"opens the menu"), inCells, false, EditAction::none, cells,
     whereCells},
    {keyClaim('D', shifts::control, u"fills the first selected row, or the one above, down"), inCells, true,
     EditAction::fillDown, toChange, whereCellsChange},
    {keyClaim('Z', shifts::control, u"takes the last step back, one of a hundred"), inCells, true,
     EditAction::undo, toChange, whereCellsChange},
    {keyClaim('Z', shifts::control, u"takes the last step back"), inUntouched, true, EditAction::undo,
     toChangeUntouched, whereUntouched},
    {keyClaim('Y', shifts::control, u"does it again"), inCells, true, EditAction::redo, toChange,
     whereCellsChange},
    {keyClaim('Y', shifts::control, u"does it again"), inUntouched, true, EditAction::redo, toChangeUntouched,
     whereUntouched},
    {typedCharacters(u"open the editor, and are written there"), inCells, true, EditAction::open, toChange,
     whereCellsChange},
};

}  // namespace

EditAction editAction(const KeyEvent& event, const EditState& state) {
    const bool fresh = state.untouched && state.place != EditPlace::cells;
    const auto place =
        static_cast<uint8_t>(1u << static_cast<unsigned>(state.place) | (fresh ? inUntouched : 0u));
    const auto* const rule = std::find_if(std::begin(rules), std::end(rules), [&](const Rule& each) {
        return each.key.claims(event) && (each.places & place) != 0;
    });
    if (rule == std::end(rules) || (rule->changes && !state.editable)) return EditAction::none;
    // A key that is held adds and deletes one row.
    switch (rule->action) {
        case EditAction::goOn:
            return state.onLastRow && state.editable && !event.repeated ? EditAction::addRowAndGoOn
                                                                        : EditAction::goOn;
        case EditAction::addRow:
            return state.onLastRow && !event.repeated ? EditAction::addRow : EditAction::none;
        case EditAction::insertRow:
        case EditAction::deleteRows:
        case EditAction::cut:
        case EditAction::fillDown:
            return event.repeated ? EditAction::none : rule->action;
        default:
            return rule->action;
    }
}

std::vector<KeyGroup> editKeyGroups() {
    std::vector<KeyGroup> groups;
    for (const Rule& rule : rules) groups.push_back({rule.where, rule.claimedIn, {&rule.key, 1}});
    return groups;
}

bool opensEditor(int16_t character) {
    constexpr int16_t firstPrintable = 32, controlBackspace = 127;
    // Units beyond the signed range are negative here.
    return (character >= firstPrintable || character < 0) && character != controlBackspace;
}

}  // namespace obk
