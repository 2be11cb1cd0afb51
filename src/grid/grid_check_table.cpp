#include "framework/table_builder.h"
#include "grid/grid_check.h"

namespace obk {

const ControlTable& GridCheck::memberTable() {
    using C = GridCheck;
    static const ControlTable table =
        TableBuilder<C>(
            {.name = u"GridCheck", .help = u"The check box of a grid's check cells", .isPrivate = true})

            .property<&C::BackColor, &C::SetBackColor>(1, u"BackColor", u"Background colour")
            .property<&C::Value, &C::SetValue>(2, u"Value", u"The mark: 0 unchecked, 1 checked")
            .property<&C::Enabled, &C::SetEnabled>(3, u"Enabled", u"Whether the user can change the mark")

            .event<&C::Click>(1, u"Click", u"The mark was turned over")
            .event<&C::KeyDown>(2, u"KeyDown", u"A key went down", {u"KeyCode", u"Shift"})
            .event<&C::KeyPress>(3, u"KeyPress", u"A character was typed", {u"KeyAscii"})
            .event<&C::KeyUp>(4, u"KeyUp", u"A key was released", {u"KeyCode", u"Shift"})
            .event<&C::MouseDown>(5, u"MouseDown", u"A mouse button went down on the check box",
                                  {u"Button", u"Shift", u"X", u"Y"})
            .event<&C::MouseMove>(6, u"MouseMove", u"The mouse moved over the check box",
                                  {u"Button", u"Shift", u"X", u"Y"})
            .event<&C::MouseUp>(7, u"MouseUp", u"A mouse button was released over the check box",
                                {u"Button", u"Shift", u"X", u"Y"})

            .persisted<&C::Enabled, &C::SetEnabled>({u"ENABLED", true})
            // Forms hold either spelling. Where they hold both, the second one stands; where it is missing,
            // what it is then loaded with is no mark, and refused.
            .persisted<&C::Value, &C::SetValue>({u"VALUE", int16_t{0}})
            .persisted<&C::Value, &C::SetValue>({u"Value", int16_t{-1}, int16_t{0}})
            .persisted<&C::BackColor, &C::SetBackColor>({u"Backcolor", OleColour(SystemColour::buttonFace)})
            .notifiedAs(2, u"Value")
            .build();
    return table;
}

}  // namespace obk
