// What the editable grid does with cells, columns and rows.
#include "base/attempt.h"
#include "framework/value.h"
#include "grid/cell_rules.h"
#include "grid/grid_edit.h"

namespace obk {

namespace {

int32_t wholeTwips(Twips length) {
    return roundedLong(length.value).value_or(0);
}

}  // namespace

void GridEdit::CellChkSet(int32_t row, int32_t col, const Text& value) {
    CellTextSet(row, col, checkText(value));
}

// The colour of the whole grid and not the cell's, which `CellColorSetx` sets: this is meant.
OleColour GridEdit::CellColorReadx(int32_t rowno, int32_t colno) {
    goTo(rowno, colno);
    return flexGRID.BackColor();
}

void GridEdit::CellColorSetx(OleColour colour, int32_t rowno, int32_t colno) {
    flexGRID.SetCellBackColor({rowno, colno}, colour);
}

void GridEdit::CellEnabledSet(int32_t rowno, int32_t colno, bool strikeThru, OleColour oleForeColor) {
    goTo(rowno, colno);
    attempt([&] { flexGRID.SetCellFontStrikeThrough(strikeThru); });
    attempt([&] { flexGRID.SetCellForeColor(oleForeColor); });
}

void GridEdit::CellFontSet(int32_t rowno, int32_t colno, const Text& sFont, const Text& size, bool bold,
                           bool strikeThru, OleColour oleForeColor) {
    goTo(rowno, colno);
    attempt([&] { flexGRID.SetCellFontName(sFont); });
    if (const auto points = fontSizeFromText(size)) attempt([&] { flexGRID.SetCellFontSize(*points); });
    attempt([&] { flexGRID.SetCellFontBold(bold); });
    attempt([&] { flexGRID.SetCellFontStrikeThrough(strikeThru); });
    attempt([&] { flexGRID.SetCellForeColor(oleForeColor); });
    editing_.editors().setTimeFont(flexGRID.Font());
}

void GridEdit::CellFormatSet(int32_t rowno, int32_t colno, const Text& sFont, const Text& size, bool bold,
                             bool strikeThru, OleColour oleForeColor) {
    goTo(rowno, colno);
    attempt([&] { flexGRID.SetCellFontBold(bold); });
    attempt([&] { flexGRID.SetCellFontName(sFont); });
    if (const auto points = fontSizeFromText(size)) attempt([&] { flexGRID.SetCellFontSize(*points); });
    attempt([&] { flexGRID.SetCellFontStrikeThrough(strikeThru); });
    attempt([&] { flexGRID.SetCellForeColor(oleForeColor); });
}

// As if the current cell went there and back, without disturbing what a person has selected.
Text GridEdit::CellTextRead(int32_t rowno, int32_t colno) const {
    const CellAddress current = flexGRID.current();
    const bool hasRow = rowno >= 0 && rowno < flexGRID.Rows(), hasCol = colno >= 0 && colno < flexGRID.Cols();
    return Text(flexGRID.model().text({hasRow ? rowno : current.row, hasCol ? colno : current.col}));
}

void GridEdit::CellTextSet(int32_t rowno, int32_t colno, const Text& text) {
    goTo(rowno, colno);
    attempt([&] { flexGRID.SetText(text); });
    editing_.cellWritten();
}

int32_t GridEdit::CellCurrentHeight() const {
    return wholeTwips(flexGRID.cellPlace().height);
}

int32_t GridEdit::CellCurrentLeft() const {
    return wholeTwips(flexGRID.cellPlace().left);
}

int32_t GridEdit::CellCurrentTop() const {
    return wholeTwips(flexGRID.cellPlace().top);
}

int32_t GridEdit::CellCurrentWidth() const {
    return wholeTwips(flexGRID.cellPlace().width);
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
    constexpr auto left = static_cast<int32_t>(CellAlignment::leftCentre);
    constexpr auto leftBottom = static_cast<int32_t>(CellAlignment::leftBottom);
    editing_.commit();
    attempt([&] { flexGRID.SetCols(count); });
    for (int32_t col = 0; col <= lastAligned; ++col) flexGRID.SetColAlignment(col, left);
    // There is such a column only where the grid could not have so many.
    flexGRID.SetColAlignment(count, leftBottom);
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

void GridEdit::RowAdd(const Text& text, int32_t rowno) {
    // So that the insertion does not flicker; the host hears of it meanwhile.
    flexGRID.setVisible(false);
    BoxHide();
    addItem(text, rowno);
    flexGRID.SetRow(rowno);
    GridChange();
    attempt([&] { Change(); });
    GridShow();
}

void GridEdit::addItem(const Text& text, int32_t rowno) {
    attempt([&] {
        if (flexGRID.AddItem(text, rowno)) editing_.rowInserted(rowno);
    });
}

void GridEdit::RowAddQuick(const Text& text, int32_t rowno) {
    addItem(text, rowno);
    flexGRID.SetRow(rowno);
    GridShow();
}

void GridEdit::RowDel(int32_t rowno) {
    BoxHide();
    if (flexGRID.Rows() == 1) {
        flexGRID.Clear();
        GridReset();
    } else {
        attempt([&] {
            if (flexGRID.RemoveItem(rowno)) editing_.rowRemoved(rowno);
        });
    }
    GridChange();
    Change();
}

void GridEdit::RowsRefreshColors(int32_t& newColor) {
    GridRedraw(false);
    const OleColour colour(static_cast<uint32_t>(newColor));
    for (int32_t row = 0; row < flexGRID.Rows(); ++row) {
        const OleColour own = alternateRowColour(row, colour);
        for (int32_t col = 0; col < flexGRID.Cols(); ++col) attempt([&] { CellColorSetx(own, row, col); });
    }
}

void GridEdit::RowsSet(int32_t count) {
    editing_.commit();
    attempt([&] { flexGRID.SetRows(count); });
    GridChange();
    Change();
}

bool GridEdit::IsEven(int32_t number) const {
    return isEven(number);
}

}  // namespace obk
