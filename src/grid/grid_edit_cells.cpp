// What the editable grid does with cells, columns and rows.
#include "base/attempt.h"
#include "base/left_undone.h"
#include "framework/value.h"
#include "grid/grid_edit.h"

namespace obk {

void GridEdit::CellChkSet(int32_t row, int32_t col, const Text& value) {
    CellTextSet(row, col, checkText(value));
}

// The colour of the whole grid and not the cell's, which `CellColorSetx` sets: this is meant.
OleColour GridEdit::CellColorReadx(int32_t rowno, int32_t colno) {
    goTo(rowno, colno);
    return flexGRID.BackColor();
}

void GridEdit::CellColorSetx(OleColour colour, int32_t rowno, int32_t colno) {
    const CellAddress cell = goTo(rowno, colno);
    attempt([&] { flexGRID.setAttribute<&CellStyle::backColour>(cell, colour); });
}

void GridEdit::CellEnabledSet(int32_t rowno, int32_t colno, bool strikeThru, OleColour oleForeColor) {
    const CellAddress cell = goTo(rowno, colno);
    attempt([&] { flexGRID.setAttribute<&CellStyle::strikeThrough>(cell, strikeThru); });
    attempt([&] { flexGRID.setAttribute<&CellStyle::foreColour>(cell, oleForeColor); });
}

void GridEdit::CellFontSet(int32_t rowno, int32_t colno, const Text& sFont, const Text& size, bool bold,
                           bool strikeThru, OleColour oleForeColor) {
    CellFormatSet(rowno, colno, sFont, size, bold, strikeThru, oleForeColor);
    editing_.editors().setTimeFont(flexGRID.Font());
}

void GridEdit::CellFormatSet(int32_t rowno, int32_t colno, const Text& sFont, const Text& size, bool bold,
                             bool strikeThru, OleColour oleForeColor) {
    const CellAddress cell = goTo(rowno, colno);
    attempt([&] { flexGRID.setAttribute<&CellStyle::bold>(cell, bold); });
    attempt([&] { flexGRID.setAttribute<&CellStyle::fontName>(cell, std::make_shared<const Text>(sFont)); });
    if (const auto points = fontSizeFromText(size))
        attempt([&] { flexGRID.setAttribute<&CellStyle::fontSize>(cell, *points); });
    attempt([&] { flexGRID.setAttribute<&CellStyle::strikeThrough>(cell, strikeThru); });
    attempt([&] { flexGRID.setAttribute<&CellStyle::foreColour>(cell, oleForeColor); });
}

// As if the current cell went there and back, without disturbing what a person has selected.
Text GridEdit::CellTextRead(int32_t rowno, int32_t colno) const {
    const CellAddress current = flexGRID.current();
    const bool hasRow = rowno >= 0 && rowno < flexGRID.Rows(), hasCol = colno >= 0 && colno < flexGRID.Cols();
    if (!hasRow) tellUndone({.kind = LeftUndone::Kind::row, .number = rowno, .limit = flexGRID.Rows()});
    if (!hasCol) tellUndone({.kind = LeftUndone::Kind::column, .number = colno, .limit = flexGRID.Cols()});
    return Text(flexGRID.model().text({hasRow ? rowno : current.row, hasCol ? colno : current.col}));
}

void GridEdit::CellTextSet(int32_t rowno, int32_t colno, const Text& text) {
    const CellAddress cell = goTo(rowno, colno);
    attempt([&] { flexGRID.setText(cell, text); });
    editing_.cellWritten(cell);
}

void GridEdit::CellSetIcon(int32_t colno, int32_t rowno, const Text& iconname) {
    const CellAddress cell = goTo(rowno, colno);
    // A picture of its own background, and not of the cell's: this is meant.
    const Rgb background = flexGRID.rgb(flexGRID.BackColor());
    attempt([&] {
        flexGRID.setPicture(cell, imlTREELISTICONS.picture(iconname, background), CellAlignment::leftCentre);
    });
}

int32_t GridEdit::currentPlace(Twips TwipsRect::*part) const {
    const TwipsRect place = flexGRID.cellPlace(flexGRID.current());
    return roundedLong((place.*part).value).value_or(0);
}

void GridEdit::ColAdd(double width) {
    BoxHide();
    attempt([&] { flexGRID.SetCols(flexGRID.Cols() + 1); });
    if (const auto twips = roundedLong(width)) flexGRID.SetColWidth(flexGRID.Cols() - 1, *twips);
    picTOPBAR.invalidate();
    GridChange();
}

void GridEdit::ColDel() {
    BoxHide();
    if (flexGRID.Cols() == 1)
        flexGRID.Clear();
    else
        attempt([&] { flexGRID.SetCols(flexGRID.Cols() - 1); });
    picTOPBAR.invalidate();
    GridChange();
}

void GridEdit::ColsSet(int32_t count) {
    constexpr int32_t lastAligned = 8;
    editing_.commit();
    attempt([&] { flexGRID.SetCols(count); });
    for (int32_t col = 0; col <= lastAligned; ++col) flexGRID.SetColAlignment(col, CellAlignment::leftCentre);
    // There is such a column only where the grid could not have so many.
    flexGRID.SetColAlignment(count, CellAlignment::leftBottom);
    picTOPBAR.invalidate();
}

void GridEdit::ColumnVisible(int32_t colno, int32_t width, bool visible) {
    editing_.commit();
    flexGRID.SetColWidth(colno, visible ? width : 0);
    picTOPBAR.invalidate();
}

void GridEdit::ColWidth(int32_t colno, double width) {
    BoxHide();
    if (const auto twips = usableColumnWidth(width)) flexGRID.SetColWidth(colno, *twips);
    picTOPBAR.invalidate();
}

void GridEdit::insertRow(const Text& text, int32_t rowno, ChangedBy by) {
    // So that the insertion does not flicker; the host hears of it meanwhile. A grid that is not drawn stands
    // still by itself.
    if (flexGRID.Redraw()) flexGRID.setVisible(false);
    BoxHide();
    addItem(text, rowno, by);
    flexGRID.SetRow(rowno);
    GridChange();
    attempt([&] { Change(); });
    GridShow();
}

void GridEdit::addItem(const Text& text, int32_t rowno, ChangedBy by) {
    attempt([&] {
        if (flexGRID.AddItem(text, rowno)) editing_.rowInserted(rowno, by);
    });
}

void GridEdit::RowAddQuick(const Text& text, int32_t rowno) {
    addItem(text, rowno, ChangedBy::host);
    flexGRID.SetRow(rowno);
    GridShow();
}

void GridEdit::removeRow(int32_t rowno, ChangedBy by) {
    using RowEdit = EditHistory::RowEdit;
    BoxHide();
    const bool only = flexGRID.Rows() == 1;
    RowEdit gone{only ? RowEdit::Kind::emptied : RowEdit::Kind::removed, rowno, 0, {}, {}};
    // A row that cannot be remembered is gone for good, as one that a host removes.
    if (by == ChangedBy::person && !attempt([&] { gone = editing_.history().rowNow(gone.kind, rowno); }))
        by = ChangedBy::host;
    if (only) {
        flexGRID.Clear();
        GridReset();
        if (by == ChangedBy::person) editing_.rowRemoved(std::move(gone), by);
    } else {
        attempt([&] {
            if (flexGRID.RemoveItem(rowno)) editing_.rowRemoved(std::move(gone), by);
        });
    }
    GridChange();
    attempt([&] { Change(); });
}

void GridEdit::RowsRefreshColors(int32_t& newColor) {
    GridRedraw(false);
    const OleColour colour(static_cast<uint32_t>(newColor));
    for (int32_t row = 0; row < flexGRID.Rows(); ++row) {
        const OleColour own = alternateRowColour(row, colour);
        for (int32_t col = 0; col < flexGRID.Cols(); ++col) CellColorSetx(own, row, col);
    }
}

void GridEdit::RowsSet(int32_t count) {
    editing_.commit();
    attempt([&] { flexGRID.SetRows(count); });
    GridChange();
    attempt([&] { Change(); });
}

}  // namespace obk
