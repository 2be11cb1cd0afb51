// A button that shows a colour and drops down a panel of swatches to choose another one from.
#pragma once

#include "framework/control.h"
#include "framework/followed_font.h"
#include "framework/hosted_control.h"
#include "framework/kxlib_timer.h"
#include "framework/mouse_arguments.h"
#include "framework/pop_up_panel.h"
#include "palette/button_arrow.h"
#include "palette/button_face.h"
#include "palette/palette_panel.h"

#include <vector>

namespace obk {

class ButtonPalette final : public Control {
public:
    explicit ButtonPalette(Platform& platform);

    static const ControlTable& memberTable();
    const ControlTable& table() const override { return memberTable(); }

    // Properties; what they mean stands in the table.
    OleColour ActiveColor() const { return model_.ActiveCell().Color; }
    obk::Text ActiveText() const { return model_.ActiveCell().Name(); }
    OleColour BackColor() const { return button_.BackColor; }
    void SetBackColor(OleColour BackColor);
    bool BackcolorCustom() const { return button_.BackcolorCustom; }
    void SetBackcolorCustom(bool BackcolorCustom);
    bool bMOUSEPOSLOC() const { return model_.drop.mouseOver; }
    void SetbMOUSEPOSLOC(bool bMOUSEPOSLOC) { model_.drop.mouseOver = bMOUSEPOSLOC; }
    bool bPOSITIONDEFAULT() const { return model_.drop.positionDefault; }
    void SetbPOSITIONDEFAULT(bool bPOSITIONDEFAULT) { model_.drop.positionDefault = bPOSITIONDEFAULT; }
    int32_t ButtonType() const { return button_.ButtonType; }
    void SetButtonType(int32_t ButtonType);
    obk::Text Caption() const { return button_.Caption; }
    void SetCaption(const obk::Text& Caption);
    OleColour Color() const { return button_.ButtonColor; }
    void SetColor(OleColour Color);
    bool Enabled() const { return cmdMAINBTN.enabled(); }
    void SetEnabled(bool Enabled);
    bool FocusRect() const { return button_.FocusRect; }
    void SetFocusRect(bool FocusRect);
    FontRef Font() const { return cmdMAINBTN.font(); }
    void SetFont(const FontRef& Font);
    OleColour ForeColor() const { return button_.ForeColor; }
    void SetForeColor(OleColour ForeColor);
    int32_t hWnd() { return static_cast<int32_t>(window()); }
    OleColour MaskHLightColor() const { return button_.MaskHLightColor; }
    void SetMaskHLightColor(OleColour MaskHLightColor);
    bool MousePosn() const { return model_.drop.mouseOver; }
    void SetMousePosn(bool MousePosn) { model_.drop.mouseOver = MousePosn; }
    int32_t Palette() const { return static_cast<int32_t>(model_.palette().kind()); }
    void SetPalette(int32_t Palette);
    PictureRef Picture() const { return button_.Picture; }
    void SetPicture(const PictureRef& Picture);
    PictureRef PictureDisabled() const { return button_.PictureDisabled; }
    void SetPictureDisabled(const PictureRef& PictureDisabled);
    bool PictureVisible() const { return button_.PictureVisible; }
    void SetPictureVisible(bool PictureVisible);
    bool PopupEnabled() const { return model_.drop.popupEnabled; }
    void SetPopupEnabled(bool PopupEnabled);
    bool ShowButtonColor() const { return button_.ShowButtonColor; }
    void SetShowButtonColor(bool ShowButtonColor);
    obk::Text Text() const { return model_.SelectedCell().Name(); }

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
    bool mirrorsItself() const override { return true; }
    KeyRoute preTranslate(const KeyEvent& event) override;
    obk::Text accessKeys() const override;
    void useAccessKey(char16_t character) override;
    std::span<const KeyGroup> keyGroups() const override;
    uint16_t keyStates() const override;
    void surfaceKeyDown(KeyEvent& event) override;
    void surfaceKeyUp(KeyEvent& event) override;
    AccessibleItem describeSurface() const override;
    void useSurface(const AccessibleAction& action) override;

    // Persisted without a property.
    OleColour selectedColor() const { return model_.SelectedCell().Color; }
    void loadSelectedColor(OleColour colour) { model_.loadSelected(colour, root().rgb(colour)); }
    obk::Text toolTip() const { return button_.ToolTip; }
    void loadToolTip(const obk::Text& text);
    void loadColor(OleColour colour) { model_.set(&ButtonState::ButtonColor, colour); }
    void loadPalette(int32_t palette);

    // The steps of a setter: what fails of the first, a copy for want of memory, does not keep the container
    // from hearing of it.
    template <auto Getter, typename T>
    void put(T ButtonState::*place, const T& value);
    Rgb buttonFace() const;
    void refresh();
    PixelSize layOutPanel(Dpi scale);

    // The button.
    void buttonMouse(const MouseEvent& event);
    void press(MouseArguments at);
    void release(MouseArguments at);
    void releaseOwnCapture();

    // The open panel.
    void panelMouse(const MouseEvent& event);
    bool panelKeyDown(const KeyEvent& event);
    void panelPress(int16_t mouseButton, PixelPoint at);
    void panelMove(int16_t mouseButton, const PalettePanel::Spot& spot);
    void panelRelease(PixelPoint at);
    void activate(const PaletteCell& cell);
    void select(const PaletteCell& cell);
    void chooseCustomColour();

    PaletteModel model_;
    const ButtonState& button_ = model_.button();
    ButtonFace cmdMAINBTN;
    Hosted<ButtonArrow> barPALETTE;
    PopUpPanel panel_;
    PalettePanel picDROPDOWNPANEL;
    kxlib_TIMER cTIMER;
    FollowedFont followedFont_;
    std::vector<Connection> connections_;
};

}  // namespace obk
