// What a control's type information says about it: properties, methods, events, choices, help.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "container/variant.h"

namespace obk::container {

// How a person would edit a value.
enum class ValueKind { none, boolean, integer, number, text, colour, font, picture, choice, date, other };

struct Choice {
    std::wstring name;
    long value = 0;
};

// A type as an argument, result or property declares it.
struct DeclaredType {
    std::wstring name;        // in the words of a person: "Long", "OLE_COLOR", "ButtonTypesdd"
    VARTYPE type = VT_EMPTY;  // the plain automation type; an enumeration is VT_I4
    ValueKind kind = ValueKind::none;
    bool byReference = false;
    std::vector<Choice> choices;  // of an enumeration
};

struct Argument {
    std::wstring name;
    DeclaredType type;
    bool optional = false;
};

enum class MemberKind { property, method, event };

struct Member {
    DISPID number = DISPID_UNKNOWN;
    MemberKind kind = MemberKind::property;
    std::wstring name;
    std::wstring help;
    DeclaredType type;                // of a property's value or a method's result
    std::vector<Argument> arguments;  // of a method, event or property with arguments
    bool readable = false;
    bool writable = false;
    bool hidden = false;

    // "KeyDown(KeyCode, Shift)"
    std::wstring signature() const;
};

// The members of one class, in the order of the type information.
class TypeMembers {
public:
    TypeMembers() = default;
    // Reads the type information that the object itself offers; what it does not offer is empty.
    static TypeMembers of(IUnknown* object);
    static TypeMembers of(ITypeInfo* interfaceInfo, ITypeInfo* eventInfo);

    const std::wstring& className() const { return className_; }
    const std::vector<Member>& properties() const { return properties_; }
    const std::vector<Member>& methods() const { return methods_; }
    const std::vector<Member>& events() const { return events_; }

    // Null when there is none; names in any letter case.
    const Member* property(std::wstring_view name) const;
    const Member* method(std::wstring_view name) const;
    const Member* event(DISPID number) const;

private:
    std::wstring className_;
    std::vector<Member> properties_;
    std::vector<Member> methods_;
    std::vector<Member> events_;
};

// The object's default source interface: the interface of its events.
struct EventInterface {
    IID id = IID_NULL;
    ComPtr<ITypeInfo> info;  // may be empty though `id` is known
};
EventInterface eventInterfaceOf(IUnknown* object);

// The values that the object itself proposes for a property; empty when it proposes none.
std::vector<Choice> proposedChoices(IUnknown* object, DISPID property);

}  // namespace obk::container
