// A button that shows a colour and drops down a panel of swatches to choose another one from.
#pragma once

#include "framework/control.h"
#include "framework/drop_down_state.h"
#include "framework/followed_font.h"
#include "framework/hosted_control.h"
#include "framework/kxlib_timer.h"
#include "framework/mouse_arguments.h"
#include "framework/pop_up_panel.h"
#include "palette/button_arrow.h"
#include "palette/button_face.h"
#include "palette/colour_chooser.h"
#include "palette/palette_panel.h"

namespace obk {

class ButtonPalette final : public Control {
public:
    explicit ButtonPalette(Platform& platform);

    static const ControlTable& memberTable();
    const ControlTable& table() const override { return memberTable(); }

    // Properties; what they mean stands in the table.
    OleColour ActiveColor() const { return chooser_.choice().active().Color; }
    obk::Text ActiveText() const { return chooser_.choice().active().Name(); }
    OleColour BackColor() const { return backColor_; }
    void SetBackColor(OleColour BackColor);
    bool BackcolorCustom() const { return backcolorCustom_; }
    void SetBackcolorCustom(bool BackcolorCustom);
    bool bMOUSEPOSLOC() const { return drop_.mouseOver; }
    void SetbMOUSEPOSLOC(bool bMOUSEPOSLOC);
    bool bPOSITIONDEFAULT() const { return drop_.positionDefault; }
    void SetbPOSITIONDEFAULT(bool bPOSITIONDEFAULT);
    int32_t ButtonType() const { return buttonType_; }
    void SetButtonType(int32_t ButtonType);
    obk::Text Caption() const { return cmdMAINBTN.state.caption; }
    void SetCaption(const obk::Text& Caption);
    OleColour Color() const { return cmdMAINBTN.state.swatch; }
    void SetColor(OleColour Color);
    bool Enabled() const { return cmdMAINBTN.enabled(); }
    void SetEnabled(bool Enabled);
    bool FocusRect() const { return cmdMAINBTN.state.showsFocus; }
    void SetFocusRect(bool FocusRect);
    FontRef Font() const { return cmdMAINBTN.font.font(); }
    void SetFont(const FontRef& Font);
    OleColour ForeColor() const { return cmdMAINBTN.state.textColour; }
    void SetForeColor(OleColour ForeColor);
    int32_t hWnd() { return static_cast<int32_t>(window()); }
    OleColour MaskHLightColor() const { return cmdMAINBTN.state.mask; }
    void SetMaskHLightColor(OleColour MaskHLightColor);
    bool MousePosn() const { return drop_.mouseOver; }
    void SetMousePosn(bool MousePosn);
    int32_t Palette() const { return static_cast<int32_t>(picDROPDOWNPANEL.kind()); }
    void SetPalette(int32_t Palette);
    PictureRef Picture() const { return cmdMAINBTN.state.picture; }
    void SetPicture(const PictureRef& Picture);
    PictureRef PictureDisabled() const { return cmdMAINBTN.state.pictureDisabled; }
    void SetPictureDisabled(const PictureRef& PictureDisabled);
    bool PictureVisible() const { return cmdMAINBTN.state.showsPicture; }
    void SetPictureVisible(bool PictureVisible);
    bool PopupEnabled() const { return drop_.popupEnabled; }
    void SetPopupEnabled(bool PopupEnabled);
    bool ShowButtonColor() const { return cmdMAINBTN.state.showsSwatch; }
    void SetShowButtonColor(bool ShowButtonColor);
    obk::Text Text() const { return chooser_.choice().selected().Name(); }

    // Methods.
    void HidePopUp();
    void SetTheme();
    void ShowPopUp();
    void UserControl_Click();
    void UserControl_ExitFocus();
    void UserControlMouseOut(int16_t& Button, int16_t& Shift, float& X, float& Y);

    // Events. Colours are OLE colours; X and Y are pixels of the control.
    Event<int32_t&> Change, ChangeCustom;
    Event<> Click, DblClick, FocusHidden, FocusLost;
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
    KeyRoute preTranslate(const KeyEvent& event) override;
    void surfaceKeyDown(KeyEvent& event) override;
    void surfaceKeyUp(KeyEvent& event) override;
    AccessibleItem describeSurface() const override;

    // Persisted without a property.
    OleColour selectedColor() const { return chooser_.choice().colour(); }
    void loadSelectedColor(OleColour colour);
    obk::Text toolTip() const { return toolTip_; }
    void loadToolTip(const obk::Text& text);
    void loadColor(OleColour colour);
    void loadPalette(int32_t palette);

    void connectChildren();
    void refresh();
    void showBackground();
    void buttonMouse(const MouseEvent& event);
    void press(int16_t mouseButton, int16_t shift, float x, float y);
    void release(int16_t mouseButton, int16_t shift, float x, float y);
    void releaseOwnCapture();

    void activeChanged();
    void chosen(PaletteChoice::Outcome outcome);
    void chooseCustomColour();

    ButtonFace cmdMAINBTN;
    Hosted<ButtonArrow> barPALETTE;
    PopUpPanel panel_;
    PalettePanel picDROPDOWNPANEL;
    ColourChooser chooser_;
    kxlib_TIMER cTIMER;

    OleColour backColor_{SystemColour::buttonFace};
    bool backcolorCustom_ = false;
    int32_t buttonType_ = 1;
    DropDownState drop_;
    obk::Text toolTip_;
    FollowedFont followedFont_;

    int16_t lastButton_ = button::left;
    int16_t lastKeyDown_ = 0;
    std::vector<Connection> connections_;
};

}  // namespace obk
