// A member's parameters in its table: names and defaults as they are written there, types as C++ has them.
#pragma once

#include "framework/member.h"
#include "framework/value_type_of.h"

#include <array>
#include <type_traits>
#include <vector>

namespace obk {

// An argument's name, and the value that it has where a host leaves it out.
struct ParameterName {
    constexpr ParameterName(const char16_t* own) : name(own) {}
    constexpr ParameterName(const char16_t* own, ArgumentDefault otherwise)
        : name(own), defaultValue(otherwise) {}

    LiteralText name;
    ArgumentDefault defaultValue;
};

// As many names as a member has parameters; the compiler counts them.
template <size_t Count>
using ParameterNames = const ParameterName (&)[Count];

namespace detail {

struct ParameterType {
    ValueType type;
    bool byReference;
};

template <typename... Arguments>
inline constexpr std::array<ParameterType, sizeof...(Arguments)> parameterTypes{ParameterType{
    valueTypeOf<Arguments>(),
    std::is_lvalue_reference_v<Arguments> && !std::is_const_v<std::remove_reference_t<Arguments>>}...};

std::vector<Parameter> parametersOf(std::span<const ParameterType> types,
                                    std::span<const ParameterName> names);

template <typename... Arguments>
std::vector<Parameter> parametersOf() {
    static_assert(sizeof...(Arguments) == 0, "the parameters of this member have no names");
    return {};
}

template <typename... Arguments, size_t Count>
std::vector<Parameter> parametersOf(ParameterNames<Count> names) {
    static_assert(sizeof...(Arguments) == Count, "each parameter has one name");
    static_assert(Count <= mostParameters, "a call's arguments have no room");
    return parametersOf(parameterTypes<Arguments...>, names);
}

}  // namespace detail

}  // namespace obk
