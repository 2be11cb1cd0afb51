#include "framework/table_builder.h"
#include "palette/button_palette.h"
#include "palette/palette_enumerations.h"

namespace obk {

const Enumeration& buttonTypes() {
    static constexpr EnumerationValue values[] = {
        {u"CButton", 1, u"A button"},
        {u"CFlat", 2, u"A flat button"},
        {u"CSoft", 3, u"A button with soft edges"},
        {u"CRaised", 4, u"A raised button"},
        {u"CSunken", 5, u"A sunken button"},
        {u"CEtched", 6, u"A button with etched edges"},
        {u"CBump", 7, u"A button with embossed edges"},
        {u"CFramed", 8, u"A button with a frame"},
        {u"CBorderless", 9, u"A button without edges"},
        {u"CToolbar", 10, u"A button of a toolbar"},
        {u"CHover", 11, u"A button with edges under the mouse"},
        {u"CLink", 12, u"A button like a link"},
        {u"CSplit", 13, u"A button with a part of its own for the arrow"},
        {u"CDropDown", 14, u"A button that drops something down"}};
    static const Enumeration enumeration{
        u"ButtonTypesdd",
        {0x16937dea, 0xbfde, 0x448b, {0xba, 0x9e, 0x42, 0xec, 0x91, 0xfb, 0x0c, 0x16}},
        u"Kinds of a button; all look the same, and a form keeps which one it was given",
        values};
    return enumeration;
}

const Enumeration& palettes() {
    static constexpr EnumerationValue values[] = {{u"QP8X2", 0, u"16 colours"},
                                                  {u"QP9X3", 1, u"27 colours"},
                                                  {u"QP8X8", 2, u"64 colours"},
                                                  {u"QP16X8", 3, u"128 colours"},
                                                  {u"QP24X8", 4, u"192 colours"},
                                                  {u"QP24X10", 5, u"240 colours"},
                                                  {u"QP8X4X4", 6, u"8 base colours with 16 shades each"},
                                                  {u"QP8X8X6", 7, u"8 base colours with 48 shades each"},
                                                  {u"QP12X6X6", 8, u"12 base colours with 36 shades each"},
                                                  {u"QP16X8X6", 9, u"16 base colours with 48 shades each"},
                                                  {u"QP24X8X6", 10, u"24 base colours with 48 shades each"},
                                                  {u"QP32X8X6", 11, u"32 base colours with 48 shades each"}};
    static const Enumeration enumeration{
        u"enQUILLPalette",
        {0x2b461ffe, 0x42cf, 0x40ec, {0x97, 0x29, 0x0d, 0x02, 0xb7, 0x90, 0x2d, 0x85}},
        u"Palettes: columns by rows, or base colours by rows by columns of shades",
        values};
    return enumeration;
}

const ControlTable& ButtonPalette::memberTable() {
    using C = ButtonPalette;
    static const ControlTable table =
        TableBuilder<C>(
            {.name = u"ButtonPalette",
             .help = u"A button that shows a colour and drops down a colour palette",
             .classId = {0x5e8a5a70, 0xbd73, 0x405c, {0xa7, 0x94, 0xf5, 0xe5, 0xae, 0xe1, 0xb7, 0xfd}},
             .interfaceId = {0xe89babc5, 0xf4d4, 0x4419, {0xb4, 0xb2, 0x90, 0xef, 0xdc, 0x3c, 0xec, 0x88}},
             .eventInterfaceId =
                 {0xc7d4b36e, 0x9deb, 0x4523, {0x90, 0x71, 0x03, 0xc3, 0x4b, 0x34, 0x3a, 0x21}},
             .toolboxPicture = 103})

            .readOnlyProperty<&C::ActiveColor>(1, u"ActiveColor",
                                               u"Colour of the swatch that was pressed or dragged over last")
            .readOnlyProperty<&C::ActiveText>(2, u"ActiveText",
                                              u"Name of the swatch that was pressed or dragged over last")
            .property<&C::BackColor, &C::SetBackColor>(3, u"BackColor", u"Background colour of the button")
            .property<&C::BackcolorCustom, &C::SetBackcolorCustom>(
                4, u"BackcolorCustom",
                u"Whether BackColor shows, until the button is first repainted, in place of the system's button face")
            .property<&C::bMOUSEPOSLOC, &C::SetbMOUSEPOSLOC>(
                5, u"bMOUSEPOSLOC", u"Whether the mouse is over the button; the same as MousePosn")
            .property<&C::bPOSITIONDEFAULT, &C::SetbPOSITIONDEFAULT>(
                6, u"bPOSITIONDEFAULT", u"Whether the panel drops down where there is room; else it goes up")
            .property<&C::ButtonType, &C::SetButtonType>(
                7, u"ButtonType", u"Kind of the button; kept, without effect on how it looks", &buttonTypes())
            .property<&C::Caption, &C::SetCaption>(8, u"Caption", u"Text on the button")
            .property<&C::Color, &C::SetColor>(9, u"Color", u"Colour that the button shows")
            .property<&C::Enabled, &C::SetEnabled>(10, u"Enabled", u"Whether the user can press the button")
            .property<&C::FocusRect, &C::SetFocusRect>(
                11, u"FocusRect", u"Whether the button with the focus shows a focus rectangle")
            .property<&C::Font, &C::SetFont>(12, u"Font", u"Font of the caption")
            .property<&C::ForeColor, &C::SetForeColor>(13, u"ForeColor", u"Colour of the caption")
            .method<&C::HidePopUp>(14, u"HidePopUp", u"Hides the panel; raises FocusHidden in any case")
            .readOnlyProperty<&C::hWnd>(15, u"hWnd", u"Handle of the control's window")
            .property<&C::MaskHLightColor, &C::SetMaskHLightColor>(
                16, u"MaskHLightColor", u"Colour that is left out of the pictures; not restored with a form")
            .property<&C::MousePosn, &C::SetMousePosn>(17, u"MousePosn",
                                                       u"Whether the mouse is over the button")
            .property<&C::Palette, &C::SetPalette>(18, u"Palette", u"Palette that the panel shows",
                                                   &palettes())
            .property<&C::Picture, &C::SetPicture>(19, u"Picture", u"Picture on the button")
            .property<&C::PictureDisabled, &C::SetPictureDisabled>(
                20, u"PictureDisabled", u"Picture on the button while it is disabled")
            .property<&C::PictureVisible, &C::SetPictureVisible>(21, u"PictureVisible",
                                                                 u"Whether the button shows its picture")
            .property<&C::PopupEnabled, &C::SetPopupEnabled>(
                22, u"PopupEnabled", u"Whether a click shows the panel; else it raises PopUp")
            .method<&C::SetTheme>(23, u"SetTheme", u"Applies the colours of the button face again")
            .property<&C::ShowButtonColor, &C::SetShowButtonColor>(24, u"ShowButtonColor",
                                                                   u"Whether the button shows its colour")
            .method<&C::ShowPopUp>(25, u"ShowPopUp", u"Shows the panel")
            .readOnlyProperty<&C::Text>(26, u"Text", u"Name of the chosen swatch")
            .method<&C::UserControl_Click>(27, u"UserControl_Click", u"Does what a click does")
            .method<&C::UserControl_ExitFocus>(28, u"UserControl_ExitFocus",
                                               u"Does what losing the focus does")
            .method<&C::UserControlMouseOut>(29, u"UserControlMouseOut",
                                             u"Tracks the mouse into or out of the button",
                                             {u"Button", u"Shift", u"X", u"Y"})

            .event<&C::Change>(1, u"Change", u"A swatch was pressed, dragged over or chosen",
                               {u"sCOLORCHANGED"})
            .event<&C::ChangeCustom>(2, u"ChangeCustom", u"A colour came from the colour chooser",
                                     {u"sCOLORCHANGED"})
            .event<&C::Click>(3, u"Click", u"The button was clicked, or another swatch was chosen")
            .event<&C::DblClick>(4, u"DblClick", u"The button was double-clicked")
            .event<&C::FocusHidden>(5, u"FocusHidden", u"The panel was hidden, or asked to be")
            .event<&C::FocusLost>(6, u"FocusLost", u"The control lost the focus")
            .event<&C::KeyDown>(7, u"KeyDown", u"A key went down; it has had its effect on the panel already",
                                {u"KeyCode", u"Shift"})
            .event<&C::KeyPress>(8, u"KeyPress", u"Never raised", {u"KeyAscii"})
            .neverRaised()
            .event<&C::KeyUp>(9, u"KeyUp", u"A key was released", {u"KeyCode", u"Shift"})
            .event<&C::MouseDown>(10, u"MouseDown", u"A mouse button, or Space, went down on the button",
                                  {u"Button", u"Shift", u"X", u"Y"})
            .event<&C::MouseMove>(11, u"MouseMove", u"The mouse moved over the button",
                                  {u"Button", u"Shift", u"X", u"Y"})
            .event<&C::MouseOut>(12, u"MouseOut", u"The mouse was tracked, inside the button or out of it",
                                 {u"Button", u"Shift", u"X", u"Y"})
            .event<&C::MouseUp>(13, u"MouseUp", u"A mouse button, or Space, was released, or the focus went",
                                {u"Button", u"Shift", u"X", u"Y"})
            .event<&C::PopUp>(14, u"PopUp", u"The button was clicked while PopupEnabled is False")

            // The key is not even a spelling of the name; its notification is.
            .notifiedAs(21, u"PICTUREVisible")

            // Read and written defaults differ: a form saved with the system's colours by reference gets
            // their present RGB values back.
            .persisted<&C::BackColor, &C::SetBackColor>({u"Backcolor",
                                                         SystemRgbDefault{SystemColour::buttonFace},
                                                         Value(OleColour(SystemColour::window))})
            .persisted<&C::BackcolorCustom, &C::SetBackcolorCustom>({u"BackcolorCUST", false})
            .persisted<&C::ButtonType, &C::SetButtonType>({u"BUTTONTYPE", int32_t{1}})
            // The key "TEXT" holds the caption, though a change of "TEXT" is told of the property Text.
            .persisted<&C::Caption, &C::SetCaption>({u"TEXT", obk::Text(u"Button")})
            .persisted<&C::Color, &C::loadColor>({u"FILLCOLOR", SystemRgbDefault{SystemColour::buttonFace}})
            .persisted<&C::Enabled, &C::SetEnabled>({u"ENABLED", true})
            .persisted<&C::FocusRect, &C::SetFocusRect>({u"FOCUSRECT", true})
            .persisted<&C::Font, &C::SetFont>({u"FONT", FontRef()})
            .persisted<&C::ForeColor, &C::SetForeColor>({u"FORECOLOR",
                                                         SystemRgbDefault{SystemColour::buttonText},
                                                         Value(OleColour(SystemColour::buttonText))})
            // Written and read under two keys, so that the value never comes back; forms rely on it.
            .persisted<&C::MaskHLightColor, &C::SetMaskHLightColor>(
                {u"MASKHLIGHTCOLOR", OleColour(SystemColour::buttonFace), {}, u"MASKHLIGHT"})
            .persisted<&C::Palette, &C::loadPalette>({u"Palette", int32_t{4}})
            .persisted<&C::Picture, &C::SetPicture>({u"PICTURE", PictureRef()})
            .persisted<&C::PictureDisabled, &C::SetPictureDisabled>({u"PICTUREDISABLED", PictureRef()})
            .persisted<&C::PictureVisible, &C::SetPictureVisible>({u"SHOWPICTURE", false})
            .persisted<&C::PopupEnabled, &C::SetPopupEnabled>({u"POPUPENABLED", true})
            .persisted<&C::ShowButtonColor, &C::SetShowButtonColor>({u"ShowButtonCLR", true})
            .persisted<&C::selectedColor, &C::loadSelectedColor>({u"SELECTEDCOLOR", OleColour(Rgb{2})})
            .persisted<&C::toolTip, &C::loadToolTip>({u"TOOLTIP", obk::Text()})
            .build();
    return table;
}

}  // namespace obk
