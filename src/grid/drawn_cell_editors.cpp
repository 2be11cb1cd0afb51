// The editors of cells that are plain widgets.
#include "flexgrid/flex_grid.h"
#include "grid/cell_editor.h"
#include "widgets/drop_list.h"
#include "widgets/text_box.h"

namespace obk {

namespace {

class TextCellEditor final : public CellEditor {
public:
    TextCellEditor(const CellEditorEvents& events, FlexGrid& grid) : CellEditor(events), txtTEXTBOX(grid) {
        // As the cell's own text, which stands above the grid's line.
        txtTEXTBOX.centreAbove(1);
        passOnKeys(txtTEXTBOX);
        passOnDoubleClick(txtTEXTBOX.doubleClicked);
    }

    Widget& widget() override { return txtTEXTBOX; }
    void load(TextView text) override { txtTEXTBOX.setText(text); }
    void wear(const EditorLook& look) override {
        txtTEXTBOX.setBackColour(look.back);
        txtTEXTBOX.setForeColour(look.fore);
        txtTEXTBOX.setFont(look.font);
        txtTEXTBOX.setAlignment(static_cast<int32_t>(look.alignment));
    }
    Text value() const override { return txtTEXTBOX.text(); }
    void selectText() override { txtTEXTBOX.setSelection({0, length()}); }
    void putCaretAtEnd() override { txtTEXTBOX.setSelection({length(), 0}); }

private:
    int32_t length() const { return static_cast<int32_t>(txtTEXTBOX.text().size()); }

    TextBox txtTEXTBOX;
};

// Of the items that a host has put into the list, or of times.
class ListCellEditor final : public CellEditor {
public:
    ListCellEditor(const CellEditorEvents& events, DropList& list) : CellEditor(events), list_(list) {
        passOnKeys(list_);
        on(list_.pressed, [this] { list_.takeFocus(); });
    }

    Widget& widget() override { return list_; }
    void load(TextView text) override { list_.show(text); }
    void wear(const EditorLook& look) override {
        list_.setBackColour(look.back);
        list_.setForeColour(look.fore);
        list_.setFont(look.font);
    }
    Text value() const override { return list_.text(); }
    void setLook(Look look) override { list_.setLook(look); }
    bool droppedDown() const override { return list_.listOpen(); }
    void closePanel() override { list_.closeList(); }

private:
    DropList& list_;
};

}  // namespace

std::unique_ptr<CellEditor> makeTextEditor(const CellEditorEvents& events, FlexGrid& grid) {
    return std::make_unique<TextCellEditor>(events, grid);
}

std::unique_ptr<CellEditor> makeListEditor(const CellEditorEvents& events, DropList& list) {
    return std::make_unique<ListCellEditor>(events, list);
}

}  // namespace obk
