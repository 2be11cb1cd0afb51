// Which key does what in a grid that is edited, whatever shows on the screen.
#pragma once

#include "framework/key_group.h"

#include <cstdint>
#include <vector>

namespace obk {

// Where the keyboard is: in the cells, or in an editor: of a line of text, of a check mark, of a list.
enum class EditPlace : uint8_t { cells, line, mark, list };

struct EditState {
    EditPlace place = EditPlace::cells;
    bool editable = true;    // editors may open, rows may come and go
    bool onLastRow = false;  // also in a grid without rows
    bool untouched = false;  // the editor has what it was opened with
};

enum class EditAction : uint8_t {
    none,           // the key is the cells' or the editor's own
    open,           // the current cell's editor, which gets what is typed in place of its text
    openAtEnd,      // the same, with the caret behind the text
    commit,         // an open editor closes
    leave,          // an open editor closes, and the key goes to another cell
    goOn,           // an open editor closes, and that of the row below opens
    goBack,         // the same with the row above
    addRow,         // behind the last row
    addRowAndGoOn,  // an open editor closes, and that of a new row opens
    nextCell,       // an open editor closes, and that of the next cell which has one opens
    previousCell,
    insertRow,   // before the current row
    deleteRows,  // all that the selection spans
    paste,
    pasteBlock,  // where there are several cells to paste; else the key is the editor's own
    cut,
    copy,
    selectAll,
    fillDown,
    undo,
    redo,
    fitColumn,
    narrowColumn,
    widenColumn,
    pressCaption,  // of the current column
};

// Nothing cancels: whatever closes an editor keeps what it holds.
EditAction editAction(const KeyEvent& event, const EditState& state);

// What the claims of keys depend on.
namespace edit_key_states {
constexpr uint16_t cells = 1;  // the keyboard is in the cells, and not in an editor
constexpr uint16_t editable = 2;
constexpr uint16_t editorOpen = 4;
constexpr uint16_t cellAfter = 8, cellBefore = 16;    // one with an editor, in reading order
constexpr uint16_t line = 32, mark = 64, list = 128;  // the keyboard is in such an editor
constexpr uint16_t untouched = 256;                   // and a person has changed nothing in it
}  // namespace edit_key_states

// The claims of the keys above.
std::vector<KeyGroup> editKeyGroups();

// Whether a character that no key has opened an editor for opens one: an input method's, say.
bool opensEditor(int16_t character);

}  // namespace obk
