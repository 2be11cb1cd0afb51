#include "server/late_binding.h"

#include "base/attempt.h"
#include "framework/member_call.h"
#include "framework/trace_line.h"
#include "server/system_text.h"
#include "server/variant_value.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <vector>

namespace obk::server {

namespace {

// Values of a call, on the stack: as many as it has.
template <size_t most>
class StackValues {
public:
    explicit StackValues(size_t count = most) : count_(count) {
        std::uninitialized_value_construct_n(values().data(), count);
    }
    template <typename Number>
    StackValues(std::in_place_type_t<Number> type, Number only) {
        std::construct_at(values().data(), type, only);
    }
    StackValues(const StackValues&) = delete;
    StackValues& operator=(const StackValues&) = delete;
    ~StackValues() {
        // Most are numbers, which leave nothing to end.
        for (Value& value : values())
            if (typeOf(value) >= ValueType::text) std::destroy_at(&value);
    }
    std::span<Value> values() { return {reinterpret_cast<Value*>(room_), count_}; }

private:
    size_t count_ = 1;
    alignas(Value) std::byte room_[most * sizeof(Value)];
};

void setWrongArgument(UINT* wrongArgument, UINT place) {
    if (wrongArgument) *wrongArgument = place;
}

// Tells of an argument that does not convert; `position` counts from 1, and is 0 for a property's value.
HRESULT refused(HRESULT why, const VARIANT& given, ValueType wanted, size_t position) {
    if (!undoneIsObserved()) return why;
    Value came;
    if (V_VT(&given) != VT_NULL && FAILED(valueFromVariant(given, ValueType::empty, came)))
        came = ObjectRef();  // an array, or something foreign
    const auto number = static_cast<int64_t>(position);
    tellUnconverted({.kind = LeftUndone::Kind::argument, .number = number}, came, wanted);
    return why;
}

// The member is there and its arguments fit before it is called, so no call is refused below.
HRESULT get(Control& control, const Member& member, const DISPPARAMS& arguments, VARIANT* result) {
    if (!member.get) return DISP_E_MEMBERNOTFOUND;
    if (arguments.cArgs != 0) return DISP_E_BADPARAMCOUNT;
    StackValues<1> answered;
    Value& value = answered.values().front();
    getProperty(control, member, value);
    if (result && typeOf(value) == ValueType::doubleFloat) {
        V_R8(result) = std::get<double>(value);
        V_VT(result) = VT_R8;
        return S_OK;
    }
    return result ? variantFromValue(value, *result) : S_OK;
}

template <typename Number>
HRESULT putNumber(Control& control, const Member& member, Number number) {
    StackValues<1> given(std::in_place_type<Number>, number);
    attempt([&] { member.put(control, given.values().front()); });
    return S_OK;
}

[[gnu::noinline]] HRESULT putConverted(Control& control, const Member& member, const VARIANT& given,
                                       UINT* wrongArgument) {
    Value value;
    if (const HRESULT read = valueFromVariant(given, member.type, value); FAILED(read)) {
        setWrongArgument(wrongArgument, 0);
        return refused(read, given, member.type, 0);
    }
    if (typeOf(value) == ValueType::empty && isLeftOut(given))
        return setWrongArgument(wrongArgument, 0), DISP_E_PARAMNOTOPTIONAL;
    putProperty(control, member, value);
    return S_OK;
}

HRESULT put(Control& control, const Member& member, WORD flags, const DISPPARAMS& arguments,
            UINT* wrongArgument) {
    if (!member.put) return DISP_E_MEMBERNOTFOUND;
    if (!(flags & DISPATCH_PROPERTYPUT) && !member.putByReference) return DISP_E_MEMBERNOTFOUND;
    if (arguments.cArgs != 1) return DISP_E_BADPARAMCOUNT;
    const bool named = arguments.cNamedArgs == 1;
    if (arguments.cNamedArgs > 1) return DISP_E_NONAMEDARGS;
    if (named && (!arguments.rgdispidNamedArgs || arguments.rgdispidNamedArgs[0] != DISPID_PROPERTYPUT))
        return setWrongArgument(wrongArgument, 0), DISP_E_PARAMNOTFOUND;
    const VARIANT& given = arguments.rgvarg[0];
    if (V_VT(&given) == VT_R8 && member.type == ValueType::doubleFloat)
        return putNumber(control, member, V_R8(&given));
    if (V_VT(&given) == VT_I4 && member.type == ValueType::longInteger)
        return putNumber(control, member, static_cast<int32_t>(V_I4(&given)));
    return putConverted(control, member, given, wrongArgument);
}

// Where each parameter's argument stands in the caller's list; none for one that is left out.
constexpr UINT none = ~0u;
using Places = std::array<UINT, mostParameters>;

HRESULT place(const Member& method, const DISPPARAMS& arguments, Places& places, UINT* wrongArgument) {
    const size_t count = method.parameters.size();
    if (arguments.cArgs > count) return DISP_E_BADPARAMCOUNT;
    if (arguments.cNamedArgs > arguments.cArgs) return E_INVALIDARG;
    std::fill_n(places.begin(), count, none);
    // Named ones come first, positional ones follow from the last to the first.
    for (UINT at = 0; at < arguments.cNamedArgs; ++at) {
        const auto parameter = static_cast<size_t>(arguments.rgdispidNamedArgs[at]);
        if (arguments.rgdispidNamedArgs[at] < 0 || parameter >= count || places[parameter] != none)
            return setWrongArgument(wrongArgument, at), DISP_E_PARAMNOTFOUND;
        places[parameter] = at;
    }
    const UINT positional = arguments.cArgs - arguments.cNamedArgs;
    for (UINT at = 0; at < positional; ++at) {
        const UINT place = arguments.cArgs - 1 - at;
        if (places[at] != none) return setWrongArgument(wrongArgument, places[at]), DISP_E_PARAMNOTFOUND;
        places[at] = place;
    }
    return S_OK;
}

[[gnu::noinline]] HRESULT call(Control& control, const Member& method, const DISPPARAMS& arguments,
                               VARIANT* result, UINT* wrongArgument) {
    Places places;
    if (const HRESULT placed = place(method, arguments, places, wrongArgument); FAILED(placed)) return placed;
    StackValues<mostParameters> list(method.parameters.size());
    const std::span<Value> values = list.values();
    bool tellsChanges = false;
    for (size_t at = 0; at < values.size(); ++at) {
        if (places[at] == none || isLeftOut(arguments.rgvarg[places[at]])) {
            if (method.parameters[at].mayBeLeftOut()) continue;
            if (places[at] != none) setWrongArgument(wrongArgument, places[at]);
            return DISP_E_PARAMNOTOPTIONAL;
        }
        tellsChanges = tellsChanges || method.parameters[at].byReference;
        const ValueType wanted = method.parameters[at].type;
        const HRESULT read = valueFromVariant(arguments.rgvarg[places[at]], wanted, values[at]);
        if (FAILED(read)) {
            setWrongArgument(wrongArgument, places[at]);
            return refused(read, arguments.rgvarg[places[at]], wanted, at + 1);
        }
    }
    std::vector<Value> before;
    if (tellsChanges) before.assign(values.begin(), values.end());
    StackValues<1> answered;
    Value& answer = answered.values().front();
    callMethod(control, method, values, answer);
    for (size_t at = 0; at < before.size(); ++at) {
        if (places[at] != none && method.parameters[at].byReference && values[at] != before[at])
            writeBack(values[at], arguments.rgvarg[places[at]]);
    }
    return result ? variantFromValue(answer, *result) : S_OK;
}

}  // namespace

HRESULT idsOfNames(const ControlTable& table, LPOLESTR* names, UINT count, DISPID* ids) {
    if (count == 0) return S_OK;
    if (!names || !ids) return E_POINTER;
    const Member* member = table.member(viewOf(names[0]));
    ids[0] = member ? member->number : DISPID_UNKNOWN;
    HRESULT result = member ? S_OK : DISP_E_UNKNOWNNAME;
    for (UINT at = 1; at < count; ++at) {
        ids[at] = DISPID_UNKNOWN;
        const TextView name = viewOf(names[at]);
        if (member) {
            for (size_t parameter = 0; parameter < member->parameters.size(); ++parameter) {
                if (equalIgnoringCase(member->parameters[parameter].name, name))
                    ids[at] = static_cast<DISPID>(parameter);
            }
        }
        if (ids[at] == DISPID_UNKNOWN) result = DISP_E_UNKNOWNNAME;
    }
    return result;
}

HRESULT invokeMember(const ControlTable& table, Control& control, DISPID id, WORD flags,
                     const DISPPARAMS& arguments, VARIANT* result, UINT* wrongArgument) {
    if (result) V_VT(result) = VT_EMPTY;
    const Member* member = table.member(id);
    if (!member) return DISP_E_MEMBERNOTFOUND;
    if (arguments.cArgs > 0 && !arguments.rgvarg) return E_INVALIDARG;
    const AtWork work(control, member->name);
    if (member->kind == MemberKind::property) {
        if (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF))
            return put(control, *member, flags, arguments, wrongArgument);
        if (flags & DISPATCH_PROPERTYGET) return get(control, *member, arguments, result);
        return DISP_E_MEMBERNOTFOUND;
    }
    // Callers that cannot tell a function from a property ask for both.
    if (flags & DISPATCH_METHOD) return call(control, *member, arguments, result, wrongArgument);
    return DISP_E_MEMBERNOTFOUND;
}

}  // namespace obk::server
