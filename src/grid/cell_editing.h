// How a person edits a grid's cells: what keys, presses and typing do, and what the host hears of it.
#pragma once

#include "grid/cell_editors.h"
#include "grid/context_menu.h"
#include "grid/edit_session.h"
#include "grid/range_editing.h"

#include <vector>

namespace obk {

class GridEdit;

// Part of its control. Whatever a host does in an event, it is never told of itself once more.
class CellEditing {
public:
    // All are borrowed.
    CellEditing(GridEdit& control, FlexGrid& grid, const ColumnTypes& types);

    CellEditors& editors() { return editors_; }
    const CellEditors& editors() const { return editors_; }
    // Whether a cell has an editor that may open.
    bool opensFor(CellAddress cell) const { return editable() && editors_.has(types_.type(cell.col), cell); }
    // Whether editors open at all. What an open one holds is kept.
    void allow(bool allowed);

    enum class Focus : uint8_t { take, leave };
    // Opens the editor of the current cell, of which the host is told first. False where there is none to
    // open, and for one that is open already.
    bool show(Focus focus = Focus::take);
    // Closes the open editor and keeps what it holds. The host hears of it in any case.
    void hide();
    // Only where an editor is open.
    void commit();
    // Gives the grid the keyboard that the control has.
    void returnFocus();

    // An editor that a host has opened meanwhile goes along with its row.
    void rowInserted(int32_t row, ChangedBy by);
    void rowRemoved(EditHistory::RowEdit row, ChangedBy by);
    const EditHistory& history() const { return history_; }
    void cellWritten(CellAddress cell);

    RightClick& rightClick() { return rightClick_; }

    static std::vector<KeyGroup> keyGroups();
    uint16_t keyStates() const;
    // Before anything is done with a key.
    void keyComes(const KeyEvent& event);

private:
    void connect();
    void keyDown(KeyEvent& event, EditPlace at);
    EditPlace editorPlace() const;
    void typed(int16_t& character);
    // Whether the key has done its work.
    bool act(EditAction action, const KeyEvent& event);
    void entered();
    void tellChanged();

    // The cell that keys are about: that of the editor they go to, wherever a host has moved the current one.
    CellAddress focusedCell() const;
    void selectFocusedCell();
    void leaveFor(CellAddress cell);
    void goOnTo(CellAddress cell);
    void addRow(int32_t row);
    void deleteRows();
    // With `onlyBlock` false where there is but one cell to paste.
    bool paste(bool onlyBlock);
    std::optional<Text> clipboard() const;
    void changeCells(bool (RangeEditing::*how)());
    void pasteCells(TextView text);
    void showUndone(const EditHistory::Outcome& done);

    bool showMenu(std::optional<PixelPoint> at);
    void moveColumnBorder(int32_t steps);

    bool editable() const;
    // Whether the mouse is where the current cell's editor has its check box.
    bool mouseAtBox() const;
    // The row that an arrow leads to; nothing at the ends.
    std::optional<int32_t> rowBeside(int16_t key) const;
    // The next cell in reading order which has an editor; nothing beyond the last one.
    std::optional<CellAddress> neighbour(int32_t step) const;

    GridEdit& control_;
    FlexGrid& grid_;
    const ColumnTypes& types_;
    CellEditors editors_;
    EditHistory history_;
    RangeEditing ranges_;
    RightClick rightClick_;
    bool allowed_ = true;
    bool opening_ = false;     // the host is being told that one opens
    bool closing_ = false;     // the host is being told that an editor closes
    bool announcing_ = false;  // and has not yet been told of its text
    bool othersKey_ = false;   // the key under way is a dropped down calendar's
    int32_t leftRow_ = -1;     // of the cell that a person is about to leave
    std::vector<Connection> connections_;
};

}  // namespace obk
