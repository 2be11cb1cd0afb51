// What a member table says of one property, method or event.
#pragma once

#include "base/event.h"
#include "base/guid.h"
#include "framework/value.h"

#include <functional>
#include <optional>
#include <span>
#include <variant>
#include <vector>

namespace obk {

class Control;

// All names and help texts of tables are literals.

// One value of a public enumeration.
struct EnumerationValue {
    LiteralText name;
    int32_t value = 0;
    LiteralText help;
};

// A public enumeration that properties refer to.
struct Enumeration {
    LiteralText name;
    Guid id;
    LiteralText help;
    std::span<const EnumerationValue> values;
};

// That a method or an event may have.
constexpr size_t mostParameters = 8;

// Of an argument that may be left out, as may all after it.
using ArgumentDefault = std::variant<std::monostate, bool, OleColour, TextView>;
Value valueOf(const ArgumentDefault& value);

struct Parameter {
    LiteralText name;
    ValueType type = ValueType::empty;
    bool byReference = false;  // what the callee changes, the caller sees
    ArgumentDefault defaultValue;

    bool mayBeLeftOut() const { return defaultValue.index() != 0; }
};

enum class MemberKind : uint8_t { property, method, event };

// One property, method or event. Numbers are written in the tables, never counted and never reused.
struct Member {
    MemberKind kind = MemberKind::method;
    // The dispatch identifier, from 1; properties and methods share one sequence, events have theirs.
    int32_t number = 0;
    LiteralText name;
    LiteralText help;
    ValueType type = ValueType::empty;         // of a property's value or a method's result; empty: no result
    const Enumeration* enumeration = nullptr;  // the values of a longInteger that has names
    // Names for the values of a number that has no public enumeration, for people at a property browser.
    std::span<const EnumerationValue> choices;
    std::vector<Parameter> parameters;
    bool neverRaised = false;     // an event that hosts know and that nothing raises
    bool putByReference = false;  // a font or picture, which hosts put with "Set" as well
    const void* token = nullptr;  // which C++ member this is; see memberToken

    // Null where the member has no such access. Conversions have been done: `value` and `arguments` have the
    // declared types. By-reference arguments carry the callee's changes back.
    void (*get)(Control& control, Value& value) = nullptr;
    void (*put)(Control& control, const Value& value) = nullptr;
    void (*call)(Control& control, std::span<Value> arguments, Value& result) = nullptr;
    // Of an event: calls `raise` with the event's arguments each time, and takes back what it changed.
    Connection (*connect)(Control& control, std::function<void(std::span<Value>)> raise) = nullptr;
};

}  // namespace obk
