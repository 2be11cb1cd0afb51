// The editors over a grid's cells: one for each type of column that has one, at most one of them open.
#pragma once

#include "flexgrid/flex_grid.h"
#include "grid/cell_editor.h"
#include "grid/column_types.h"
#include "widgets/drop_list.h"

#include <array>
#include <memory>
#include <optional>
#include <vector>

namespace obk {

// An open editor belongs to the cell that it was opened for, and stands over it, wherever the current cell
// goes. The events are those of the open editor.
class CellEditors : public CellEditorEvents {
public:
    // Both are borrowed; the editors are children of the grid, so that they show where its cells show.
    CellEditors(Control& outer, FlexGrid& grid);

    bool isOpen() const { return open_ != nullptr; }
    bool isOpen(ColumnType type) const { return open_ && type_ == type; }
    ColumnType type() const { return type_; }
    CellAddress cell() const { return cell_; }
    // The cell that a widget edits now.
    std::optional<CellAddress> cellUnder(const Widget& widget) const {
        return open_ && &open_->widget() == &widget ? std::optional(cell_) : std::nullopt;
    }
    bool hasFocus() const { return open_ && open_->widget().focused(); }
    // It has what it was opened with, and leaving it changes nothing but an empty date.
    bool untouched() const { return open_ && open_->value() == loaded_; }
    bool takeFocus() { return open_ && open_->widget().takeFocus(); }
    // Whether the keys are a calendar's, which is dropped down.
    bool droppedDown() const { return open_ && open_->droppedDown(); }
    bool usesTab() const { return open_ && open_->usesTab(); }

    bool has(ColumnType type, CellAddress cell) const {
        return isEdited(type) && grid_.model().contains(cell);
    }
    // Opens the editor of a type over a cell, with the cell's text. None may be open. False for a type that
    // has none.
    bool open(ColumnType type, CellAddress cell);
    // Ends the editing. The cell's new text; nothing where it keeps what it has. What is typed into a date
    // counts once the focus has left it. The editor shows until `hideClosed`.
    std::optional<Text> close();
    void hideClosed();
    // Over its cell again, which may stand elsewhere; without its cell, the editor goes.
    void place();
    // The cell has moved along with its row.
    void moveTo(CellAddress cell);
    // The cell has another text now: it is shown, unless a person has changed the editor's.
    void cellWritten();

    // For the open editor, if it has what it takes.
    void selectText() {
        if (open_) open_->selectText();
    }
    void putCaretAtEnd() {
        if (open_) open_->putCaretAtEnd();
    }
    void toggle() {
        if (open_) open_->toggle();
    }
    void paste(TextView text);

    // The grid's: an open editor takes its cell's anew, the others when they open.
    void fontChanged();
    void setTimeFont(const FontRef& font) {
        if (dtpTIME) dtpTIME->setFont(font);
    }
    void setLook(Look look);
    DropList& list() { return cboLIST; }

    Event<> listPressed, itemChosen;

private:
    static bool isEdited(ColumnType type);
    std::unique_ptr<CellEditor> make(ColumnType type);
    CellEditor& editor(ColumnType type);
    void load(CellEditor& editor);
    EditorLook lookOf(CellAddress cell) const;

    Control& outer_;
    FlexGrid& grid_;
    DropList cboLIST;
    std::optional<DropList> dtpTIME;
    static constexpr size_t types = 7;
    std::array<std::unique_ptr<CellEditor>, types> editors_;  // by type, those that have been opened
    Look look_ = Look::classic;

    CellEditor* open_ = nullptr;    // one of those
    CellEditor* closed_ = nullptr;  // still shows
    ColumnType type_ = ColumnType::readOnly;
    CellAddress cell_;
    Text cellText_;  // when the editor was opened
    Text loaded_;    // the value it had then
    std::vector<Connection> connections_;
};

}  // namespace obk
