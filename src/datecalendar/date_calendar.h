// A date field: its text is the date, typed, taken from a menu of quick dates or picked from a calendar that
// drops down.
#pragma once

#include "datecalendar/calendar_icon.h"
#include "datecalendar/calendar_model.h"
#include "datecalendar/calendar_panel.h"
#include "framework/control.h"
#include "framework/drop_down_state.h"
#include "framework/followed_font.h"
#include "framework/mouse_arguments.h"
#include "framework/pop_up_panel.h"
#include "widgets/decoration.h"
#include "widgets/text_box.h"

#include <vector>

namespace obk {

class DateCalendar final : public Control {
public:
    explicit DateCalendar(Platform& platform);

    static const ControlTable& memberTable();
    const ControlTable& table() const override { return memberTable(); }

    // Properties; what they mean stands in the table.
    OleColour BackColor() const { return txtfraBORDER.backColour(); }
    void SetBackColor(OleColour BackColor);
    bool bMOUSEPOSLOC() const { return drop_.mouseOver; }
    void SetbMOUSEPOSLOC(bool bMOUSEPOSLOC) { drop_.mouseOver = bMOUSEPOSLOC; }
    int32_t BorderStyle() const { return fraBORDER.borderStyle(); }
    void SetBorderStyle(int32_t BorderStyle);
    bool bPOSITIONDEFAULT() const { return drop_.positionDefault; }
    void SetbPOSITIONDEFAULT(bool bPOSITIONDEFAULT) { drop_.positionDefault = bPOSITIONDEFAULT; }
    bool Enabled() const { return txtfraBORDER.enabled(); }
    void SetEnabled(bool Enabled);
    FontRef Font() const { return txtfraBORDER.font(); }
    void SetFont(const FontRef& Font);
    int32_t hWnd() { return static_cast<int32_t>(window()); }
    bool MousePosn() const { return drop_.mouseOver; }
    void SetMousePosn(bool MousePosn) { drop_.mouseOver = MousePosn; }
    bool PopupEnabled() const { return drop_.popupEnabled; }
    void SetPopupEnabled(bool PopupEnabled);
    obk::Text Text() const;
    void SetText(const obk::Text& Text);

    // Methods.
    void CalendarUpdate() { model_.CalendarUpdate(); }
    void HidePopUp();
    void ShowPopUp();
    void subNEWDATE() { model_.subNEWDATE(); }
    void UserControl_Click();
    void UserControl_ExitFocus();
    void UserControlMouseOut(int16_t& Button, int16_t& Shift, float& X, float& Y);

    // For a control that hosts this one over a text: its own then stands in the middle as that one does.
    void standOverText();
    // Likewise: what is typed next replaces the text; whether the calendar is open.
    void selectText() { txtfraBORDER.setSelection({0, static_cast<int32_t>(txtfraBORDER.text().size())}); }
    bool droppedDown() const { return panel_.visible(); }

    // Events. X and Y are twips of the control.
    Event<> Change;  // never raised
    Event<> Click, DateUpdated, DblClick, FocusHidden, FocusLost;
    Event<int16_t&, int16_t&> KeyDown, KeyUp;
    Event<int16_t&> KeyPress;  // never raised
    Event<int16_t&, int16_t&, float&, float&> MouseDown, MouseMove, MouseOut, MouseUp;
    Event<> PopUp;

private:
    void initialize() override;
    void initProperties() override;
    void loaded() override;
    void resize() override;
    void enterFocus() override;
    void exitFocus() override;
    void useAmbientFont(const FontRef& font) override;
    bool mirrorsItself() const override { return true; }
    KeyRoute preTranslate(const KeyEvent& event) override;
    void surfacePressedElsewhere() override;
    std::span<const KeyGroup> keyGroups() const override;
    uint16_t keyStates() const override { return panel_.visible() ? 1 : 0; }
    AccessibleItem describeSurface() const override;
    void useSurface(const AccessibleAction& action) override;

    // Persisted without a property.
    const obk::Text& typedText() const { return model_.typed(); }
    void loadTypedText(const obk::Text& text);
    obk::Text toolTip() const { return toolTip_; }
    void loadToolTip(const obk::Text& text) { toolTip_ = text; }
    bool focusRect() const { return focusRect_; }
    void loadFocusRect(bool focusRect) { focusRect_ = focusRect; }
    OleColour foreColor() const { return txtfraBORDER.foreColour(); }
    void loadForeColor(OleColour colour) { txtfraBORDER.setForeColour(colour); }
    OleColour fillColor() const { return picfraICON.backColour(); }
    void loadFillColor(OleColour colour) { picfraICON.setBackColour(colour); }
    OleColour selectedColor() const { return SystemColour::highlight; }
    void loadFont(const FontRef& font);

    void connectChildren();
    void connectPanel();
    void showText(const obk::Text& shown);
    void dismiss();
    void endEditing();
    // For a person: on the date that was typed.
    void dropDown();
    void pickDay();
    // Steps of commands that end at their first failure.
    void write(const obk::Text& shown);
    void commitShown();
    void openQuickMenu(const PixelRect& beside);
    void keyDown(KeyEvent& event);
    bool actOn(const KeyEvent& event);
    void iconMouse(const MouseEvent& event);
    void press(const Widget& on, const MouseEvent& event);
    void release(const Widget& on, const MouseEvent& event);
    void moveMouse(const Widget& on, const MouseEvent& event);
    void leaveMouse();
    void raiseMouse(const MouseRaised& event, const Widget& on, const MouseEvent& mouse);
    void showIcon();

    CalendarModel model_;
    Frame fraBORDER;
    Container picfraBOX;
    CalendarIcon picfraICON;
    TextBox txtfraBORDER;
    PopUpPanel panel_;
    CalendarPanel picDROPDOWNPANEL;

    bool focusRect_ = true;
    bool overText_ = false;
    bool settingFont_ = false;
    bool dismissed_ = false;  // what hid the calendar may take the focus next: that is no news then
    bool writing_ = false;    // the text box gets its text from here, and not from a person
    DropDownState drop_;
    obk::Text toolTip_;
    FollowedFont followedFont_;
    std::vector<Connection> connections_;
};

}  // namespace obk
