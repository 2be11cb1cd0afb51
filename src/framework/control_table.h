// The member table: the one place where a control's public names, numbers, types, help texts, keys and
// defaults stand. Dispatch, the type library, persistence, notifications and the reference pages are derived
// by walking it.
#pragma once

#include "base/event.h"
#include "base/guid.h"
#include "framework/property_bag.h"
#include "framework/value.h"

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <variant>
#include <vector>

namespace obk {

class Control;
class Platform;

// One value of a public enumeration.
struct EnumerationValue {
    Text name;
    int32_t value = 0;
    Text help;
};

// A public enumeration that properties refer to.
struct Enumeration {
    Text name;
    Guid id;
    Text help;
    std::vector<EnumerationValue> values;
};

struct Parameter {
    Text name;
    ValueType type = ValueType::empty;
    bool byReference = false;    // what the callee changes, the caller sees
    std::optional<Value> usual;  // of an argument that may be left out, as may all after it
};

enum class MemberKind : uint8_t { property, method, event };

// How a call ended. The control itself never reports an error; these tell a caller that it called wrongly.
enum class CallStatus : uint8_t { done, noSuchMember, wrongArgumentCount, wrongArgumentType };

// One property, method or event. Numbers are written in the tables, never counted and never reused.
struct Member {
    MemberKind kind = MemberKind::method;
    int32_t number =
        0;  // the dispatch identifier, from 1; properties and methods share one sequence, events have theirs
    Text name;
    Text help;
    ValueType type = ValueType::empty;         // of a property's value or a method's result; empty: no result
    const Enumeration* enumeration = nullptr;  // the values of a longInteger that has names
    std::vector<Parameter> parameters;
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

// A default that only the running system knows.
struct AmbientFontDefault {};
// The RGB value of a system colour, read when the control is loaded.
struct SystemRgbDefault {
    SystemColour index;
};
using DefaultValue = std::variant<Value, AmbientFontDefault, SystemRgbDefault>;

// One persisted value, in the order of loading, and of saving where the table names no other.
struct PersistedValue {
    Text readKey;
    Text writeKey;                          // differs from the read key only where that is required
    ValueType type = ValueType::empty;      // what a stored value is converted to on reading
    ValueType storedAs = ValueType::empty;  // what is written
    DefaultValue readDefault;
    DefaultValue writeDefault;                                    // a value equal to it is left out on saving
    const Member* property = nullptr;                             // the public property it belongs to, if any
    const void* token = nullptr;                                  // which C++ getter it has; see memberToken
    void (*get)(const Control& control, Value& value) = nullptr;  // null: only read
    void (*load)(Control& control, const Value& value) = nullptr;  // null: only written
};

class ControlTable {
public:
    Text name;  // "UpDownTextBox"; the programmatic identifier is made from it
    Text help;
    Guid classId, interfaceId, eventInterfaceId;
    bool isPrivate = false;  // hosted by other controls only: no class factory, registration or type library
    bool takesFocus = true;  // false for decoration such as a line
    bool actsLikeButton = false;
    int32_t toolboxPicture = 0;   // resource number of its picture in a toolbox; 0: none
    std::vector<Member> members;  // properties and methods, sorted by number
    std::vector<Member> events;   // sorted by number
    std::vector<PersistedValue> persisted;
    std::vector<size_t> saved;  // positions of what is saved, in its order
    std::shared_ptr<Control> (*create)(Platform& platform) = nullptr;  // initialised, not yet loaded

    // Null when there is none. Names without regard to case.
    const Member* member(int32_t number) const;
    const Member* member(TextView memberName) const;
    const Member* event(int32_t number) const;
    const Member* memberByToken(const void* token) const;
    // The property that a change notification under this persisted name is about: the one of that name, else
    // the one stored under it; null where there is neither.
    const Member* notifiedProperty(TextView persistedName) const;
    // The name under which a property's changes are notified: its override, else its persisted key, else its
    // name.
    const Text& notificationName(const Member& property) const;
    // The property that is notified when the C++ member `token` has been set: worked out once, as setters are
    // called often. Null for a token of no property.
    const Member* notifiedByToken(const void* token) const;

    // Finishes a table: sorts, links persisted values to their properties, builds the indexes.
    void complete();
    void overrideNotification(int32_t number, Text name);
    // The last step, after persisted values and overrides.
    void indexNotifications();

private:
    struct NameIndex {
        uint32_t hash;
        uint32_t position;
    };
    struct TokenIndex {
        const void* token;
        const Member* notified;
    };
    struct NotificationOverride {
        int32_t number;
        Text name;
    };

    std::vector<NameIndex> names_;    // open addressing, a power of two in size; position + 1, 0 is free
    std::vector<TokenIndex> tokens_;  // open addressing as well; a null token is free
    std::vector<NotificationOverride> overrides_;
};

// Late-bound calls as any host makes them: arguments in the declared order, converted by the rules of Value;
// an argument that is an empty value counts as left out and takes its usual value, or its type's zero. Never
// throws.
CallStatus getProperty(Control& control, const Member& member, Value& value);
CallStatus putProperty(Control& control, const Member& member, const Value& value);
CallStatus callMethod(Control& control, const Member& member, std::span<Value> arguments, Value& result);

// A library is the set of its public controls' tables.
struct Library {
    Text name;
    Text description;
    Guid id;
    uint16_t majorVersion = 1, minorVersion = 0;
    std::vector<const ControlTable*> controls;  // in the order of the type library, private ones included
    std::vector<const Enumeration*> enumerations;

    // Without regard to case; null when there is none.
    const ControlTable* control(TextView controlName) const;
};

}  // namespace obk
