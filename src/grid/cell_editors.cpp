#include "grid/cell_editors.h"

#include "datecalendar/date_text.h"
#include "grid/cell_rules.h"
#include "grid/cell_values.h"

#include <utility>

namespace obk {

CellEditors::CellEditors(Control& outer, FlexGrid& grid)
    : grid_(grid),
      txtTEXTBOX(grid),
      dtpDATE(outer, grid),
      gchCHECKBOX(outer, grid),
      cboLIST(grid, u"List"),
      udnLIST(outer, grid),
      dtpTIME(grid, u"Time") {
    txtTEXTBOX.setAccessibleName(u"Cell");
    dtpDATE->SetBorderStyle(0);
    udnLIST->SetBorderStyle(0);
    udnLIST->SetInterval(1);
    udnLIST->SetMin(INT32_MIN);
    udnLIST->SetMax(INT32_MAX);
    udnLIST->SetAllowDecpoint(true);
    for (const Text& time : timeList()) dtpTIME.add(time);
    for (Widget* widget : {editor(ColumnType::text), editor(ColumnType::date), editor(ColumnType::checkBox),
                           editor(ColumnType::list), editor(ColumnType::number), editor(ColumnType::time)})
        widget->setVisible(false);
    connectEditors();
}

void CellEditors::connectEditors() {
    const auto on = [this](auto& event, auto handler) {
        connections_.push_back(event.connect(std::move(handler)));
    };
    const auto drawn = [&](auto& editor) {
        on(editor.keyWentDown, [this](KeyEvent& event) { keyWentDown(event); });
        on(editor.keyWentUp, [this](KeyEvent& event) { keyWentUp(event); });
        on(editor.characterTyped, [this](int16_t& character) { characterTyped(character); });
    };
    const auto hosted = [&](auto& editor) {
        const auto passOn = [](const Event<KeyEvent&>& event) {
            return [&event](int16_t& code, int16_t& state) {
                KeyEvent key{code, state, false};
                event(key);
                code = key.code;
                state = key.shift;
            };
        };
        on(editor.KeyDown, passOn(keyWentDown));
        on(editor.KeyUp, passOn(keyWentUp));
        on(editor.KeyPress, [this](int16_t& character) { characterTyped(character); });
    };
    drawn(txtTEXTBOX);
    drawn(cboLIST);
    drawn(dtpTIME);
    hosted(*dtpDATE);
    hosted(*gchCHECKBOX);
    hosted(*udnLIST);
    for (Event<>* twice : {&txtTEXTBOX.doubleClicked, &dtpDATE->DblClick, &udnLIST->DblClick})
        on(*twice, [this] { doubleClicked(); });
    on(txtTEXTBOX.wheelTurned, [this](const WheelEvent& event, bool& used) { used = grid_.wheel(event); });
    on(dtpTIME.pressed, [this] { dtpTIME.takeFocus(); });
    on(cboLIST.pressed, [this] {
        cboLIST.takeFocus();
        listPressed();
    });
    on(cboLIST.chosen, [this] { itemChosen(); });
    on(udnLIST->Change, [this] {
        if (udnLIST.focused()) number_ = udnLIST->Text();
        udnLIST->SetAllowDecpoint(true);
    });
    // A step writes as many decimals as the number has, one at most; a decimal point can always be typed.
    for (Event<>* step : {&udnLIST->UpClick, &udnLIST->DownClick})
        on(*step, [this] { udnLIST->SetAllowDecpoint(udnLIST->DecimalpointCheck(udnLIST->Text()) != 0); });
}

Widget* CellEditors::editor(ColumnType type) {
    switch (type) {
        case ColumnType::text:
            return &txtTEXTBOX;
        case ColumnType::date:
            return &dtpDATE;
        case ColumnType::checkBox:
            return &gchCHECKBOX;
        case ColumnType::list:
            return &cboLIST;
        case ColumnType::number:
            return &udnLIST;
        case ColumnType::time:
            return &dtpTIME;
        case ColumnType::readOnly:
            break;
    }
    return nullptr;
}

void CellEditors::load(TextView text) {
    const OleColour ground = grid_.BackColor();
    switch (type_) {
        case ColumnType::text:
            txtTEXTBOX.setBackColour(ground);
            txtTEXTBOX.setText(text);
            break;
        case ColumnType::date: {
            dtpDATE->SetBackColor(ground);
            const auto today = dateText(grid_.platform().clock().today());
            dtpDATE->SetText(Text(text.empty() && today ? *today : text).append(displayBlanks));
            break;
        }
        case ColumnType::checkBox:
            gchCHECKBOX.setAmbientBackColour(ground);
            gchCHECKBOX->SetBackColor(ground);
            gchCHECKBOX->SetValue(trimmed(text) == checkedText ? 1 : 0);
            break;
        case ColumnType::list:
            cboLIST.setBackColour(ground);
            cboLIST.show(text);
            break;
        case ColumnType::number:
            udnLIST->SetBackColor(ground);
            udnLIST->SetText(Text(text));
            number_ = udnLIST->Text();
            break;
        case ColumnType::time:
            dtpTIME.setBackColour(ground);
            dtpTIME.show(text);
            break;
        case ColumnType::readOnly:
            break;
    }
}

Text CellEditors::value() const {
    switch (type_) {
        case ColumnType::text:
            return txtTEXTBOX.text();
        case ColumnType::date: {
            // What is no date is kept as it was typed, as the field itself does.
            const Text shown = dtpDATE->Text();
            return cellText(type_, trimmed(shown), {}).value_or(Text(trimmed(shown)));
        }
        case ColumnType::checkBox:
            return gchCHECKBOX->Value() == 1 ? Text(checkedText) : Text();
        case ColumnType::list:
            return cboLIST.text();
        case ColumnType::number:
            return number_;
        case ColumnType::time:
            return dtpTIME.text();
        case ColumnType::readOnly:
            break;
    }
    return {};
}

bool CellEditors::open(ColumnType type, CellAddress cell) {
    Widget* const widget = editor(type);
    if (!widget || open_ || !grid_.model().contains(cell)) return false;
    if (closed_ != widget) hideClosed();
    closed_ = nullptr;
    type_ = type;
    cell_ = cell;
    cellText_ = grid_.model().text(cell);
    load(cellText_);
    loaded_ = value();
    open_ = widget;
    place();
    if (open_) open_->setVisible(true);
    return open_ != nullptr;
}

std::optional<Text> CellEditors::close() {
    if (!open_) return std::nullopt;
    Text left = value();
    const bool changed = left != loaded_;
    closed_ = std::exchange(open_, nullptr);
    // An empty date cell gets the date that its editor shows; else only what a person has changed is
    // written, so that nothing is lost which an editor cannot show, or a host has written meanwhile.
    const bool fills = cellText_.empty() && grid_.model().text(cell_).empty();
    return changed || fills ? std::optional(std::move(left)) : std::nullopt;
}

void CellEditors::hideClosed() {
    Widget* const widget = std::exchange(closed_, nullptr);
    if (!widget || widget == open_) return;
    if (widget == &dtpDATE && dtpDATE->droppedDown()) dtpDATE->HidePopUp();
    widget->setVisible(false);
}

void CellEditors::place() {
    if (!open_) return;
    if (grid_.model().contains(cell_)) {
        open_->move(grid_.cellPlace(cell_));
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
    if (!open_ || touched()) return;
    cellText_ = grid_.model().text(cell_);
    load(cellText_);
    loaded_ = value();
}

void CellEditors::selectText() {
    if (open_ == &txtTEXTBOX)
        txtTEXTBOX.setSelection({0, static_cast<int32_t>(txtTEXTBOX.text().size())});
    else if (open_ == &dtpDATE)
        dtpDATE->selectText();
    else if (open_ == &udnLIST)
        udnLIST->selectText();
}

void CellEditors::putCaretAtEnd() {
    if (open_ == &txtTEXTBOX) txtTEXTBOX.setSelection({static_cast<int32_t>(txtTEXTBOX.text().size()), 0});
}

void CellEditors::toggle() {
    if (open_ == &gchCHECKBOX) gchCHECKBOX->SetValue(gchCHECKBOX->Value() == 0 ? 1 : 0);
}

void CellEditors::paste(TextView text) {
    if (!open_) return;
    if (const auto accepted = cellText(type_, text, cboLIST.items())) load(*accepted);
    putCaretAtEnd();
}

void CellEditors::setFont(const FontRef& font) {
    txtTEXTBOX.setFont(font);
    dtpDATE->SetFont(font);
    cboLIST.setFont(font);
    udnLIST->SetFont(font);
    dtpTIME.setFont(font);
}

void CellEditors::setLook(Look look) {
    cboLIST.setLook(look);
    dtpTIME.setLook(look);
}

}  // namespace obk
