// A member's parameters in its table: names and defaults as they are written there, types as C++ has them.
#pragma once

#include "framework/member.h"
#include "framework/value_type_of.h"

#include <iterator>
#include <type_traits>
#include <utility>

namespace obk {

// An argument's name, and the value that it has where a host leaves it out.
struct ParameterName {
    ParameterName(const char16_t* own) : name(own) {}
    ParameterName(const char16_t* own, Value otherwise) : name(own), defaultValue(std::move(otherwise)) {}

    TextView name;
    std::optional<Value> defaultValue;
};

// As many names as a member has parameters; the compiler counts them.
template <size_t Count>
using ParameterNames = const ParameterName (&)[Count];

namespace detail {

template <typename T>
Parameter parameterOf(const ParameterName& name) {
    constexpr bool byReference =
        std::is_lvalue_reference_v<T> && !std::is_const_v<std::remove_reference_t<T>>;
    return {Text(name.name), valueTypeOf<T>(), byReference, name.defaultValue};
}

template <typename... Arguments>
std::vector<Parameter> parametersOf() {
    static_assert(sizeof...(Arguments) == 0, "the parameters of this member have no names");
    return {};
}

template <typename... Arguments, size_t Count>
std::vector<Parameter> parametersOf(ParameterNames<Count> names) {
    static_assert(sizeof...(Arguments) == Count, "each parameter has one name");
    static_assert(Count <= mostParameters, "a call's arguments have no room");
    auto name = std::begin(names);
    return {parameterOf<Arguments>(*name++)...};
}

}  // namespace detail

}  // namespace obk
