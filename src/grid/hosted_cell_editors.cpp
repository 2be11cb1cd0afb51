// The editors of cells that are controls of their own.
#include "datecalendar/date_calendar.h"
#include "datecalendar/date_text.h"
#include "grid/cell_editor.h"
#include "grid/cell_rules.h"
#include "grid/cell_values.h"
#include "grid/grid_check.h"
#include "grid/number_typing.h"
#include "updown/up_down_text_box.h"

namespace obk {

namespace {

class DateCellEditor final : public CellEditor {
public:
    DateCellEditor(const CellEditorEvents& events, Control& outer, Container& grid)
        : CellEditor(events), dtpDATE(outer, grid) {
        dtpDATE->SetBorderStyle(0);
        dtpDATE->standOverText();
        passOnKeys(dtpDATE);
        passOnDoubleClick(dtpDATE->DblClick);
    }

    Widget& widget() override { return dtpDATE; }
    void wear(const EditorLook& look) override {
        dtpDATE->SetBackColor(look.back);
        dtpDATE->SetFont(look.font);
    }
    void load(TextView text) override {
        const auto today = dateText(dtpDATE->platform().clock().today());
        dtpDATE->SetText(Text(text.empty() && today ? *today : text).append(displayBlanks));
    }
    Text value() const override {
        // What is no date is kept as it was typed, as the field itself does.
        const Text shown = dtpDATE->Text();
        return cellText(ColumnType::date, trimmed(shown), {}, dtpDATE->platform().regionalFormats())
            .value_or(Text(trimmed(shown)));
    }
    void selectText() override { dtpDATE->selectText(); }
    bool droppedDown() const override { return dtpDATE->droppedDown(); }
    bool usesTab() const override { return true; }
    void closePanel() override {
        if (dtpDATE->droppedDown()) dtpDATE->HidePopUp();
    }

private:
    Hosted<DateCalendar> dtpDATE;
};

class CheckCellEditor final : public CellEditor {
public:
    CheckCellEditor(const CellEditorEvents& events, Control& outer, Container& grid)
        : CellEditor(events), gchCHECKBOX(outer, grid) {
        passOnKeys(gchCHECKBOX);
    }

    Widget& widget() override { return gchCHECKBOX; }
    void load(TextView text) override { gchCHECKBOX->SetValue(trimmed(text) == checkedText ? 1 : 0); }
    void wear(const EditorLook& look) override {
        gchCHECKBOX.setAmbientBackColour(look.back);
        gchCHECKBOX->SetBackColor(look.back);
    }
    Text value() const override { return gchCHECKBOX->Value() == 1 ? Text(checkedText) : Text(); }
    void toggle() override { gchCHECKBOX->SetValue(gchCHECKBOX->Value() == 0 ? 1 : 0); }

private:
    Hosted<GridCheck> gchCHECKBOX;
};

class NumberCellEditor final : public CellEditor {
public:
    NumberCellEditor(const CellEditorEvents& events, Control& outer, Container& grid)
        : CellEditor(events), udnLIST(outer, grid) {
        udnLIST->SetBorderStyle(0);
        // The wheel is the grid's.
        udnLIST->SetAllowArrowKeys(false);
        udnLIST->setEntry(typing_);
        passOnKeys(udnLIST);
        passOnDoubleClick(udnLIST->DblClick);
    }

    Widget& widget() override { return udnLIST; }
    void wear(const EditorLook& look) override {
        udnLIST->SetBackColor(look.back);
        udnLIST->SetForeColor(look.fore);
        udnLIST->SetFont(look.font);
        udnLIST->SetAlignment(static_cast<int32_t>(look.alignment));
    }
    void load(TextView text) override {
        typing_.setDecimalSeparator(separator());
        udnLIST->SetText(Text(text));
        loaded_ = udnLIST->Text();
    }
    // What is no number, a sign without digits say, leaves the cell its text.
    Text value() const override {
        Text shown = udnLIST->Text();
        if (shown.empty() || shown == loaded_) return shown;
        return numberCellText(shown, separator()).value_or(loaded_);
    }
    void selectText() override { udnLIST->selectText(); }

private:
    char16_t separator() const { return udnLIST->platform().regionalFormats().decimalSeparator; }

    NumberTyping typing_;
    Text loaded_;
    Hosted<UpDownTextBox> udnLIST;
};

}  // namespace

std::unique_ptr<CellEditor> makeDateEditor(const CellEditorEvents& events, Control& outer, Container& grid) {
    return std::make_unique<DateCellEditor>(events, outer, grid);
}

std::unique_ptr<CellEditor> makeCheckEditor(const CellEditorEvents& events, Control& outer, Container& grid) {
    return std::make_unique<CheckCellEditor>(events, outer, grid);
}

std::unique_ptr<CellEditor> makeNumberEditor(const CellEditorEvents& events, Control& outer,
                                             Container& grid) {
    return std::make_unique<NumberCellEditor>(events, outer, grid);
}

}  // namespace obk
