// A property as people read, choose and type it: in a property browser's list and on a property page.
#pragma once

#include "framework/control_table.h"

#include <vector>

namespace obk {

// One value with the text that people choose it by.
struct PropertyChoice {
    Text text;
    Value value;
};

// "1 - CButton", "True"; none for a property whose values have no names.
std::vector<PropertyChoice> choicesOf(const Member& property);
// "&H8000000F - Button face", for all colours of the system that people may choose.
std::vector<PropertyChoice> systemColourChoices();

// The properties that can be read and put, in the table's order.
std::vector<const Member*> editableProperties(const ControlTable& table);

// What stands for a value: a choice's text, a colour in hexadecimal, a font's name and size, a number or text
// as it is.
Text shownText(const Member& property, const Value& value);
// What such a text, chosen or typed, means. Nothing for a text that the property does not take, a font and a
// picture among them.
std::optional<Value> valueOfText(const Member& property, TextView text);

}  // namespace obk
