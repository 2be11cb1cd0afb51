// What a member table says of one value that a container keeps for a control.
#pragma once

#include "base/colour.h"
#include "framework/member.h"

#include <variant>

namespace obk {

// A default that only the running system knows.
struct AmbientFontDefault {};
// The RGB value of a system colour, read when the control is loaded.
struct SystemRgbDefault {
    SystemColour index;
};
using DefaultValue = std::variant<Value, AmbientFontDefault, SystemRgbDefault>;

// One persisted value, in the order of loading, and of saving where the table names no other.
struct PersistedValue {
    LiteralText readKey;
    LiteralText writeKey;                   // differs from the read key only where that is required
    ValueType type = ValueType::empty;      // what a stored value is converted to on reading
    ValueType storedAs = ValueType::empty;  // what is written
    DefaultValue readDefault;
    DefaultValue writeDefault;                                    // a value equal to it is left out on saving
    const Member* property = nullptr;                             // the public property it belongs to, if any
    const void* token = nullptr;                                  // which C++ getter it has; see memberToken
    void (*get)(const Control& control, Value& value) = nullptr;  // null: only read
    void (*load)(Control& control, const Value& value) = nullptr;  // null: only written
};

}  // namespace obk
