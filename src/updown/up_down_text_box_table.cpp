#include "framework/choices.h"
#include "framework/table_builder.h"
#include "updown/up_down_text_box.h"

namespace obk {

const ControlTable& UpDownTextBox::memberTable() {
    using C = UpDownTextBox;
    // A few numbers are 16 bits wide in a bag.
    constexpr auto asInteger = ValueType::integer;
    static const ControlTable table =
        TableBuilder<C>(
            {.name = u"UpDownTextBox",
             .help = u"A numeric text box with a spinner",
             .classId = {0xd8cfd887, 0x69fc, 0x498c, {0x8c, 0x1c, 0x8a, 0x9f, 0x2d, 0x84, 0x31, 0xfb}},
             .interfaceId = {0x91f977b5, 0x5907, 0x4153, {0x87, 0xe4, 0x9d, 0x7c, 0x34, 0x6b, 0x69, 0x51}},
             .eventInterfaceId =
                 {0xe1afbd5f, 0x531d, 0x46e4, {0xb6, 0xc7, 0x10, 0xb8, 0xc0, 0xb8, 0x02, 0x20}},
             .toolboxPicture = 101})

            .property<&C::Alignment, &C::SetAlignment>(1, u"Alignment",
                                                       u"Alignment of the text: 0 left, 1 right, 2 centre")
            .choices(alignmentChoices())
            .property<&C::AllowArrowKeys, &C::SetAllowArrowKeys>(
                2, u"AllowArrowKeys", u"Whether the mouse wheel steps the value; the arrow keys always do")
            .property<&C::AllowDecpoint, &C::SetAllowDecpoint>(
                3, u"AllowDecpoint",
                u"Whether a decimal point may be typed; stepped values then show one decimal")
            .property<&C::BackColor, &C::SetBackColor>(
                4, u"BackColor", u"Background colour; enabling the control sets it to the window background")
            .property<&C::BorderStyle, &C::SetBorderStyle>(5, u"BorderStyle",
                                                           u"Border of the field: 0 none, 1 a border")
            .choices(borderChoices())
            .property<&C::BuddyAlignment, &C::SetBuddyAlignment>(6, u"BuddyAlignment",
                                                                 u"Side of the buttons: 0 right, 1 left")
            .choices(sideChoices())
            .method<&C::DecimalpointCheck>(7, u"DecimalpointCheck",
                                           u"1 when a text holds a full stop, else 0", {u"Number"})
            .property<&C::Enabled, &C::SetEnabled>(8, u"Enabled", u"Whether the user can change the value")
            .property<&C::Font, &C::SetFont>(9, u"Font", u"Font of the text")
            .property<&C::ForeColor, &C::SetForeColor>(10, u"ForeColor", u"Colour of the text")
            .property<&C::Interval, &C::SetInterval>(11, u"Interval",
                                                     u"Amount of one step; 0 on a freshly placed control")
            .method<&C::KeyLock>(12, u"KeyLock",
                                 u"The typed character's code, or 0 when a numeric field should reject it",
                                 {u"KeyAscii", u"Extra_Check", u"Extra_sText"})
            .property<&C::Max, &C::SetMax>(13, u"Max", u"Largest value")
            .property<&C::MaxLength, &C::SetMaxLength>(
                14, u"MaxLength", u"Most characters that the text may have; 0 is no limit")
            .property<&C::Min, &C::SetMin>(15, u"Min", u"Smallest value")
            .method<&C::Refresh>(16, u"Refresh", u"Lays the control out again and redraws the spinner")
            .method<&C::RefreshFont>(17, u"RefreshFont",
                                     u"Takes over changes of the font and lays the control out again")
            .method<&C::ShiftColor>(18, u"ShiftColor",
                                    u"Lightens (positive value) or darkens (negative value) an RGB colour",
                                    {u"Color", u"Value", u"IsXP"})
            .property<&C::SyncBuddy, &C::SetSyncBuddy>(
                19, u"SyncBuddy", u"Held for hosts that keep a field and its spinner in step")
            .property<&C::Text, &C::SetText>(20, u"Text", u"The value as text")
            .property<&C::ThousandsSeparator, &C::SetThousandsSeparator>(
                21, u"ThousandsSeparator",
                u"Held for hosts; a text with grouping commas reads as the number it shows")

            .event<&C::Change>(1, u"Change", u"The text has changed")
            .event<&C::Click>(2, u"Click", u"The text box was clicked")
            .event<&C::DblClick>(3, u"DblClick", u"The text box was double-clicked")
            .event<&C::DownClick>(4, u"DownClick", u"The value is about to be increased")
            .event<&C::KeyDown>(5, u"KeyDown",
                                u"A key went down in the text box; a stepping key has stepped already",
                                {u"KeyCode", u"Shift"})
            .event<&C::KeyPress>(6, u"KeyPress", u"A character was typed; 0 when it was rejected",
                                 {u"KeyAscii"})
            .event<&C::KeyUp>(7, u"KeyUp", u"A key was released in the text box", {u"KeyCode", u"Shift"})
            .event<&C::MouseDown>(8, u"MouseDown", u"A mouse button went down on the text box or the spinner",
                                  {u"Button", u"Shift", u"X", u"Y"})
            .event<&C::MouseMove>(9, u"MouseMove", u"The mouse moved over the text box",
                                  {u"Button", u"Shift", u"X", u"Y"})
            .event<&C::MouseUp>(10, u"MouseUp", u"A mouse button was released over the text box",
                                {u"Button", u"Shift", u"X", u"Y"})
            .event<&C::UpClick>(11, u"UpClick", u"The value is about to be decreased")

            .persisted<&C::Font, &C::loadFont>({u"Font", AmbientFontDefault{}})
            .persisted<&C::ForeColor, &C::SetForeColor>({u"ForeColor", OleColour(SystemColour::windowText)})
            // Not through the setter, which resets the back colour.
            .persisted<&C::Enabled, &C::loadEnabled>({u"Enabled", true})
            .persisted<&C::BackColor, &C::SetBackColor>({u"Backcolor", OleColour(SystemColour::window)})
            .persisted<&C::BorderStyle, &C::SetBorderStyle>({u"BorderStyle", int16_t{1}, {}, {}, asInteger})
            .persisted<&C::Alignment, &C::SetAlignment>({u"Alignment", int16_t{0}, {}, {}, asInteger})
            .persisted<&C::AllowArrowKeys, &C::SetAllowArrowKeys>({u"AllowArrowKeys", true})
            .persisted<&C::BuddyAlignment, &C::SetBuddyAlignment>(
                {u"BuddyAlignment", int16_t{0}, {}, {}, asInteger})
            .persisted<&C::Max, &C::SetMax>({u"Max", int32_t{10}})
            .persisted<&C::Interval, &C::SetInterval>({u"Interval", 1.0})
            .persisted<&C::AllowDecpoint, &C::SetAllowDecpoint>({u"AllowDecpoint", false})
            .persisted<&C::MaxLength, &C::SetMaxLength>({u"MaxLength", int32_t{0}})
            .persisted<&C::Min, &C::SetMin>({u"Min", int32_t{0}})
            .persisted<&C::SyncBuddy, &C::SetSyncBuddy>({u"SyncBuddy", false})
            .persisted<&C::ThousandsSeparator, &C::SetThousandsSeparator>({u"ThousandsSeparator", true})
            .persisted<&C::Text, &C::SetText>({u"Text", obk::Text(u"1")})
            .build();
    return table;
}

}  // namespace obk
