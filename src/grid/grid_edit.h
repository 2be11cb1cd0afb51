// The editable grid: rows of cells that a host fills from text, with a type for each column, captions above
// them and a text file to keep them in.
#pragma once

#include "flexgrid/flex_grid.h"
#include "framework/control.h"
#include "framework/followed_font.h"
#include "framework/mouse_arguments.h"
#include "grid/cell_editing.h"
#include "grid/cell_rules.h"
#include "grid/column_types.h"
#include "grid/header_bar.h"
#include "grid/icon_list.h"
#include "widgets/decoration.h"

#include <vector>

namespace obk {

// Rows and columns count from 0, the caption bar is none of them. Lengths are twips. What members do stands
// in the table. A step that names a row or column that is not there does nothing, and the next one runs: what
// is then set goes to the current cell.
class GridEdit final : public Control, private CellDescriber {
public:
    explicit GridEdit(Platform& platform);

    static const ControlTable& memberTable();
    const ControlTable& table() const override { return memberTable(); }

    // Properties.
    const Text& mstrDragInfo() const { return dragInfo_; }
    void SetmstrDragInfo(const Text& info) { dragInfo_ = info; }
    bool blnPUBSHOWALARM() const { return showAlarm_; }
    void SetblnPUBSHOWALARM(bool show) { showAlarm_ = show; }
    bool BarHeader() const { return picTOPBAR.visible(); }
    void SetBarHeader(bool BarHeader);
    OleColour BarHeaderColorRefresh() const { return picTOPBAR.backColour(); }
    void SetBarHeaderColorRefresh(OleColour colour);
    int32_t BorderStyle() const { return gbrBORDER.borderStyle(); }
    void SetBorderStyle(int32_t BorderStyle);
    FontRef Font() const { return flexGRID.Font(); }
    void SetFont(const FontRef& Font);
    int32_t hWnd() { return static_cast<int32_t>(window()); }
    int32_t MousePosn() const { return mousePosn_; }
    void SetMousePosn(int32_t MousePosn) { mousePosn_ = MousePosn; }

    // Cells. All but `CellTextRead` leave the current cell on the one they were called for.
    void CellChkSet(int32_t row, int32_t col, const Text& value);
    OleColour CellColorReadx(int32_t rowno, int32_t colno);
    void CellColorSetx(OleColour colour, int32_t rowno, int32_t colno);
    void CellEnabledSet(int32_t rowno, int32_t colno, bool strikeThru, OleColour oleForeColor);
    void CellFontSet(int32_t rowno, int32_t colno, const Text& sFont, const Text& size, bool bold,
                     bool strikeThru, OleColour oleForeColor);
    void CellFormatSet(int32_t rowno, int32_t colno, const Text& sFont, const Text& size, bool bold,
                       bool strikeThru, OleColour oleForeColor);
    Text CellTextRead(int32_t rowno, int32_t colno) const;
    void CellTextSet(int32_t rowno, int32_t colno, const Text& text);
    void CellSetIcon(int32_t colno, int32_t rowno, const Text& iconname);
    int32_t CellCurrentHeight() const { return currentPlace(&TwipsRect::height); }
    int32_t CellCurrentLeft() const { return currentPlace(&TwipsRect::left); }
    int32_t CellCurrentTop() const { return currentPlace(&TwipsRect::top); }
    int32_t CellCurrentWidth() const { return currentPlace(&TwipsRect::width); }
    int32_t CellLeft() const { return CellCurrentLeft(); }
    int32_t CelWidth() const { return CellCurrentWidth(); }

    // Columns and rows.
    void ColAdd(double width);
    int32_t ColCurrent() const { return flexGRID.Col(); }
    void ColDel();
    int32_t ColsCurrent() const { return flexGRID.Cols(); }
    void ColSetFocus(int32_t colno) { flexGRID.SetCol(colno); }
    void ColsSet(int32_t count);
    Text ColTypeRead(int32_t colno) const { return types_.read(colno); }
    void ColTypeSet(int32_t colno, int32_t type) { types_.set(colno, type); }
    void ColumnVisible(int32_t colno, int32_t width, bool visible);
    void ColWidth(int32_t colno, double width);
    void RowAdd(const Text& text, int32_t rowno) { insertRow(text, rowno, ChangedBy::host); }
    void RowAddQuick(const Text& text, int32_t rowno);
    int32_t RowCurrent() const { return flexGRID.Row(); }
    void RowDel(int32_t rowno) { removeRow(rowno, ChangedBy::host); }
    int32_t RowsCurrent() const { return flexGRID.Rows(); }
    void RowSetFocus(int32_t rowno) { flexGRID.SetRow(rowno); }
    void RowsRefreshColors(int32_t& newColor);
    void RowsSet(int32_t count);
    int32_t TopRowRead() const { return flexGRID.TopRow(); }
    void TopRowSet(int32_t row) { flexGRID.SetTopRow(row); }

    // The grid as a whole.
    void FontUpdate();
    void GridChange() {}  // a hook without effect; called after every change of structure
    void GridClear();
    void GridColr(OleColour& newcol);
    void GridFocusShow() { flexGRID.takeFocus(); }
    void GridHide();
    Text GridLoad(const Text& path);
    void GridRedraw(bool status) { flexGRID.SetRedraw(status); }
    void GridRefresh() { resize(); }
    void GridReset();
    void GridSave(const Text& path, const Text& header);
    void GridSetFocus(int32_t colno, int32_t rowno);
    void GridShow();
    bool IsEven(int32_t number) const { return isEven(number); }
    int32_t MouseCol() const { return flexGRID.MouseCol(); }
    int32_t MouseRow() const { return flexGRID.MouseRow(); }
    void raiseChange() { Change(); }
    void raiseChangePost() { ChangePost(); }

    // The caption bar, and sorting by it.
    void barCol(OleColour& newcol) { picTOPBAR.setBackColour(newcol); }
    void BarColText(OleColour& newcol) { picTOPBAR.setForeColour(newcol); }
    Text BarHeaderCaptionRead(int32_t colno) const { return Text(header_.caption(colno)); }
    void BarHeaderCaptionSet(int32_t colno, const Text& caption);
    int32_t BarHeaderColumn();
    void BarHeaderRefresh() { picTOPBAR.invalidate(); }
    void BarHeaderSort();
    void ColumnRefreshHeaders(int32_t) { picTOPBAR.invalidate(); }  // captions follow all columns at once
    void GridColSort(int32_t colno);
    void GridColSortInitialDate();

    // What `RowAdd` and `RowDel` do, for whom.
    void insertRow(const Text& text, int32_t rowno, ChangedBy by);
    void removeRow(int32_t rowno, ChangedBy by);

    // As a person does at the caption bar.
    void fitColumn(int32_t col) { picTOPBAR.fit(col); }
    void pressCaption(int32_t col) { picTOPBAR.pressCaption(col); }

    // Editors over a cell.
    void SetAllowGridEdit(bool allow);
    void BoxHide() { editing_.hide(); }
    void BoxSelect() { editing_.editors().selectText(); }
    void BoxShow() { editing_.show(); }
    void cboLIST_KeyDown(int16_t& keyCode, int16_t& shift) { listKey(&DropList::keyDown, keyCode, shift); }
    void cboLIST_KeyUp(int16_t& keyCode, int16_t& shift) { listKey(&DropList::keyUp, keyCode, shift); }
    void ComboAdd(const Text& item) { editing_.editors().list().add(item); }
    void ComboClear() { editing_.editors().list().clear(); }
    void ComboDel(int32_t index) { editing_.editors().list().remove(index); }

    // Events. X and Y are twips of the grid.
    Event<> CboBoxClick, CboClick, CellSelected, Change, ChangeEdited, ChangePost, Click, DblClick,
        DblClickExt, DelRow;
    Event<int16_t&, int16_t&> KeyDown, KeyUp;
    Event<int16_t&> KeyPress;
    Event<int16_t&, int16_t&, float&, float&> MouseDown, MouseMove, MouseUp;
    Event<int16_t&> NewRow;
    Event<> SelChange, NewRowSelected, SortClick;
    Event<ObjectRef&, int32_t&, int16_t&, int16_t&, float&, float&> OLEDragDrop;

private:
    void initialize() override;
    void initProperties() override { loadFont(ambientFont()); }
    void loaded() override;
    bool mirrorsItself() const override { return true; }
    void resize() override;
    void enterFocus() override { gbrBORDER.setFocused(true); }
    void exitFocus() override;
    std::span<const KeyGroup> keyGroups() const override;
    uint16_t keyStates() const override { return editing_.keyStates(); }
    KeyRoute preTranslate(const KeyEvent& event) override {
        editing_.keyComes(event);
        return Control::preTranslate(event);
    }
    void useAmbientFont(const FontRef& font) override;
    AccessibleItem describeSurface() const override;
    void useSurface(const AccessibleAction& action) override;
    void describeCell(AccessibleItem& item, CellAddress cell) const override;
    void useCell(CellAddress cell, const AccessibleAction& action) override;
    std::optional<CellAddress> cellUnder(const Widget& child) const override;

    void connectChildren();
    void loadFont(const FontRef& font);
    void fontChanged();
    // Hosts name a cell by making it the current one, as far as there is its row or its column: the current
    // cell then is the one that a member is about.
    CellAddress goTo(int32_t rowno, int32_t colno) { return flexGRID.SelectByHalves({rowno, colno}); }
    int32_t currentPlace(Twips TwipsRect::*part) const;  // whole twips
    void addItem(const Text& text, int32_t rowno, ChangedBy by);
    // By the column that the captions say; `sortedBefore` had the mark until now.
    void sortRows(SortDirection direction, int32_t sortedBefore);
    void listKey(void (DropList::*act)(KeyEvent&), int16_t& keyCode, int16_t& shift);
    void raiseMouse(const MouseRaised& event, const MouseEvent& mouse);
    // What the grid lies inside the control's edges by, and below the bar.
    Twips borderOffset() const { return {BorderStyle() == 1 ? 30.0 : 0.0}; }
    Twips headerHeight() const { return BarHeader() ? picTOPBAR.naturalHeight() : Twips{}; }

    Frame gbrBORDER;
    FlexGrid flexGRID;
    HeaderModel header_;
    HeaderBar picTOPBAR;
    IconList imlTREELISTICONS;

    ColumnTypes types_;
    CellEditing editing_;
    Text dragInfo_;
    bool showAlarm_ = false;
    int32_t mousePosn_ = 0;
    FollowedFont followedFont_;
    Connection fontConnection_;
    std::vector<Connection> connections_;
};

}  // namespace obk
