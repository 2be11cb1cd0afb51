#include "datecalendar/date_calendar.h"
#include "framework/choices.h"
#include "framework/table_builder.h"

namespace obk {

const ControlTable& DateCalendar::memberTable() {
    using C = DateCalendar;
    static const ControlTable table =
        TableBuilder<C>(
            {.name = u"DateCalendar",
             .help = u"A date field with a menu of quick dates and a calendar to drop down",
             .classId = {0xa8dab03a, 0x805d, 0x413d, {0xa7, 0xf0, 0xcb, 0xe6, 0x18, 0x15, 0x88, 0x95}},
             .interfaceId = {0x167d77c5, 0x387c, 0x47ef, {0xb8, 0x52, 0x12, 0x3e, 0x9d, 0xeb, 0x58, 0x9e}},
             .eventInterfaceId =
                 {0x2cd8b3eb, 0x749e, 0x46c5, {0xa9, 0x02, 0x2e, 0x9f, 0x46, 0x91, 0x30, 0x08}},
             .toolboxPicture = 102})

            .property<&C::BackColor, &C::SetBackColor>(1, u"BackColor", u"Background colour of the field")
            .property<&C::bMOUSEPOSLOC, &C::SetbMOUSEPOSLOC>(
                2, u"bMOUSEPOSLOC", u"Whether the mouse is over the field; the same as MousePosn")
            .property<&C::BorderStyle, &C::SetBorderStyle>(
                3, u"BorderStyle", u"Border of the field: 0 none, 1 a border; not stored with a form")
            .choices(borderChoices())
            .property<&C::bPOSITIONDEFAULT, &C::SetbPOSITIONDEFAULT>(
                4, u"bPOSITIONDEFAULT",
                u"Whether the calendar drops down where there is room; else it goes up")
            .method<&C::CalendarUpdate>(5, u"CalendarUpdate",
                                        u"Fills the calendar for the month and year that are chosen in it")
            .property<&C::Enabled, &C::SetEnabled>(6, u"Enabled", u"Whether the user can change the date")
            .property<&C::Font, &C::SetFont>(7, u"Font", u"Font of the date")
            .method<&C::HidePopUp>(8, u"HidePopUp", u"Hides the calendar; raises FocusHidden in any case")
            .readOnlyProperty<&C::hWnd>(9, u"hWnd", u"Handle of the control's window")
            .property<&C::MousePosn, &C::SetMousePosn>(10, u"MousePosn",
                                                       u"Whether the mouse is over the field")
            .property<&C::PopupEnabled, &C::SetPopupEnabled>(
                11, u"PopupEnabled",
                u"Whether the calendar may open; else what would open it raises PopUp alone")
            .method<&C::ShowPopUp>(
                12, u"ShowPopUp",
                u"Shows the calendar on the month of the date; an empty date becomes today's")
            .method<&C::subNEWDATE>(
                13, u"subNEWDATE", u"Brings the calendar to the month and year that the date's text mentions")
            .property<&C::Text, &C::SetText>(
                14, u"Text",
                u"The date as it is shown, \"Sat 14 Nov 2026\", with eight blanks after it; empty after loading")
            .method<&C::UserControl_Click>(15, u"UserControl_Click", u"Does what a click on the icon does")
            .method<&C::UserControl_ExitFocus>(16, u"UserControl_ExitFocus",
                                               u"Raises FocusLost and MouseUp, as losing the focus does")
            .method<&C::UserControlMouseOut>(17, u"UserControlMouseOut",
                                             u"Tracks the mouse into or out of the field",
                                             {u"Button", u"Shift", u"X", u"Y"})

            .event<&C::Change>(1, u"Change", u"Never raised")
            .neverRaised()
            .event<&C::Click>(2, u"Click", u"The field was clicked")
            .event<&C::DateUpdated>(3, u"DateUpdated",
                                    u"The user changed the date, or ended the editing of its text")
            .event<&C::DblClick>(4, u"DblClick", u"The field was double-clicked")
            .event<&C::FocusHidden>(5, u"FocusHidden", u"The calendar was hidden, or asked to be")
            .event<&C::FocusLost>(6, u"FocusLost", u"The control lost the focus")
            .event<&C::KeyDown>(7, u"KeyDown",
                                u"A key went down; it has had its effect on the calendar already",
                                {u"KeyCode", u"Shift"})
            .event<&C::KeyPress>(8, u"KeyPress", u"Never raised", {u"KeyAscii"})
            .neverRaised()
            .event<&C::KeyUp>(9, u"KeyUp", u"A key was released", {u"KeyCode", u"Shift"})
            .event<&C::MouseDown>(10, u"MouseDown", u"A mouse button went down on the field",
                                  {u"Button", u"Shift", u"X", u"Y"})
            .event<&C::MouseMove>(11, u"MouseMove", u"The mouse moved over the field",
                                  {u"Button", u"Shift", u"X", u"Y"})
            .event<&C::MouseOut>(12, u"MouseOut", u"The mouse was tracked, inside the field or out of it",
                                 {u"Button", u"Shift", u"X", u"Y"})
            .event<&C::MouseUp>(13, u"MouseUp", u"A mouse button was released, or the focus went",
                                {u"Button", u"Shift", u"X", u"Y"})
            .event<&C::PopUp>(
                14, u"PopUp",
                u"The field was clicked, or the calendar was asked for while PopupEnabled is False")

            .persisted<&C::BackColor, &C::SetBackColor>({u"Backcolor", OleColour(SystemColour::window)})
            .persisted<&C::Enabled, &C::SetEnabled>({u"ENABLED", true})
            .persisted<&C::Font, &C::loadFont>({u"FONT", AmbientFontDefault{}})
            .persisted<&C::PopupEnabled, &C::SetPopupEnabled>({u"POPUPENABLED", true})
            // The text of the field and not the property: a form keeps what was typed, and loading it does
            // not make it the date.
            .persisted<&C::typedText, &C::loadTypedText>({u"TEXT", obk::Text()})
            .persisted<&C::toolTip, &C::loadToolTip>({u"TOOLTIP", obk::Text()})
            .persisted<&C::focusRect, &C::loadFocusRect>({u"FOCUSRECT", true})
            .persisted<&C::foreColor, &C::loadForeColor>(
                {u"FORECOLOR", SystemRgbDefault{SystemColour::buttonText}})
            .persisted<&C::fillColor, &C::loadFillColor>(
                {u"FILLCOLOR", SystemRgbDefault{SystemColour::buttonFace}})
            // The colour of the chosen day, for hosts that look for it in a form; the system says what it is,
            // so loading passes over it.
            .savedOnly<&C::selectedColor>({u"SELECTEDCOLOR", OleColour(Rgb{2})})
            .build();
    return table;
}

}  // namespace obk
