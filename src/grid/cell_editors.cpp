#include "grid/cell_editors.h"

#include "base/attempt.h"
#include "grid/cell_values.h"
#include "widgets/drawing.h"
#include "widgets/surface.h"

#include <utility>

namespace obk {

CellEditors::CellEditors(Control& outer, FlexGrid& grid) : outer_(outer), grid_(grid), cboLIST(grid) {
    cboLIST.setVisible(false);
    connections_.push_back(cboLIST.pressed.connect([this] { listPressed(); }));
    connections_.push_back(cboLIST.chosen.connect([this] { itemChosen(); }));
}

bool CellEditors::isEdited(ColumnType type) {
    return type >= ColumnType::text && type <= ColumnType::time && type != ColumnType::readOnly;
}

std::unique_ptr<CellEditor> CellEditors::make(ColumnType type) {
    switch (type) {
        case ColumnType::text:
            return makeTextEditor(*this, grid_);
        case ColumnType::date:
            return makeDateEditor(*this, outer_, grid_);
        case ColumnType::checkBox:
            return makeCheckEditor(*this, outer_, grid_);
        case ColumnType::list:
            return makeListEditor(*this, cboLIST);
        case ColumnType::number:
            return makeNumberEditor(*this, outer_, grid_);
        case ColumnType::time:
            if (!dtpTIME) dtpTIME.emplace(grid_);
            if (dtpTIME->items().empty())
                for (const Text& time : timeList()) dtpTIME->add(time);
            return makeListEditor(*this, *dtpTIME);
        case ColumnType::readOnly:
            break;
    }
    return nullptr;
}

// Made when it is opened first: most grids are never edited in every way.
CellEditor& CellEditors::editor(ColumnType type) {
    std::unique_ptr<CellEditor>& known = editors_[static_cast<size_t>(type)];
    if (known) return *known;
    std::unique_ptr<CellEditor> made = make(type);
    made->widget().setVisible(false);
    made->setLook(look_);
    if (Surface* shownOn = grid_.surface()) shownOn->attach(made->widget());
    known = std::move(made);
    return *known;
}

void CellEditors::load(CellEditor& editor) {
    cellText_ = grid_.model().text(cell_);
    editor.load(cellText_);
    loaded_ = editor.value();
}

EditorLook CellEditors::lookOf(CellAddress cell) const {
    const StyleRef style = grid_.model().style(cell);
    const OleColour back = grid_.BackColor(), fore = style->foreColour.value_or(grid_.colours().fore);
    // The cell may have a background of its own, which the editor has not.
    const bool plain = readableOn(grid_.rgb(back), grid_.rgb(fore)) == grid_.rgb(fore);
    EditorLook look{back, plain ? fore : grid_.colours().fore, grid_.Font()};
    const FontDescription own = cellFont(grid_.Font()->description(), *style);
    if (own != grid_.Font()->description()) look.font = std::make_shared<SharedFont>(own);
    look.alignment = horizontalOf(grid_.model().alignment(cell));
    return look;
}

bool CellEditors::open(ColumnType type, CellAddress cell) {
    if (open_ || !has(type, cell)) return false;
    CellEditor& editor = this->editor(type);
    if (closed_ != &editor) hideClosed();
    closed_ = nullptr;
    type_ = type;
    cell_ = cell;
    attempt([&] { editor.wear(lookOf(cell)); });
    load(editor);
    open_ = &editor;
    place();
    if (open_) open_->widget().setVisible(true);
    return open_ != nullptr;
}

std::optional<Text> CellEditors::close() {
    if (!open_) return std::nullopt;
    Text left = open_->value();
    const bool changed = left != loaded_;
    closed_ = std::exchange(open_, nullptr);
    // An empty date cell gets the date that its editor shows; else only what a person has changed is
    // written, so that nothing is lost which an editor cannot show, or a host has written meanwhile.
    const bool fills = cellText_.empty() && grid_.model().text(cell_).empty();
    return changed || fills ? std::optional(std::move(left)) : std::nullopt;
}

void CellEditors::hideClosed() {
    CellEditor* const editor = std::exchange(closed_, nullptr);
    if (!editor || editor == open_) return;
    editor->closePanel();
    editor->widget().setVisible(false);
}

void CellEditors::place() {
    if (!open_) return;
    if (grid_.model().contains(cell_)) {
        open_->widget().move(grid_.cellPlace(cell_));
    } else {
        if (hasFocus()) grid_.takeFocus();
        closed_ = std::exchange(open_, nullptr);
        hideClosed();
    }
}

void CellEditors::moveTo(CellAddress cell) {
    cell_ = cell;
    place();
}

void CellEditors::cellWritten() {
    if (untouched()) load(*open_);
}

void CellEditors::paste(TextView text) {
    if (!open_) return;
    attempt([&] {
        if (const auto accepted = cellText(type_, text, cboLIST.items(), grid_.platform().regionalFormats()))
            open_->load(*accepted);
    });
    putCaretAtEnd();
}

void CellEditors::fontChanged() {
    if (open_) open_->wear(lookOf(cell_));
}

void CellEditors::setLook(Look look) {
    look_ = look;
    for (const auto& made : editors_)
        if (made) made->setLook(look);
}

}  // namespace obk
