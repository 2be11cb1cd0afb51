// Calls C++ members through the general functions of a member table: values in, values out.
#pragma once

#include "framework/control.h"
#include "framework/member.h"
#include "framework/value_type_of.h"

#include <array>
#include <iterator>
#include <tuple>
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
    auto name = std::begin(names);
    return {parameterOf<Arguments>(*name++)...};
}

template <auto Function, typename C, typename Result, typename... Arguments>
struct MethodOf {
    static constexpr ValueType resultType = valueTypeOf<Result>();
    template <typename... Names>
    static std::vector<Parameter> parameters(const Names&... names) {
        return parametersOf<Arguments...>(names...);
    }
    static void call(Control& control, std::span<Value> arguments, Value& result) {
        invoke(static_cast<C&>(control), arguments, result, std::index_sequence_for<Arguments...>());
    }
    template <size_t... At>
    static void invoke(C& control, std::span<Value> arguments, Value& result, std::index_sequence<At...>) {
        if constexpr (std::is_void_v<Result>)
            (control.*Function)(std::get<std::remove_cvref_t<Arguments>>(arguments[At])...);
        else
            result = (control.*Function)(std::get<std::remove_cvref_t<Arguments>>(arguments[At])...);
    }
};

template <auto Function>
struct Method;

template <typename C, typename Result, typename... Arguments, Result (C::*Function)(Arguments...)>
struct Method<Function> : MethodOf<Function, C, Result, Arguments...> {};

template <typename C, typename Result, typename... Arguments, Result (C::*Function)(Arguments...) const>
struct Method<Function> : MethodOf<Function, C, Result, Arguments...> {};

template <auto Getter>
struct PropertyRead;

template <typename C, typename Result, Result (C::*Getter)() const>
struct PropertyRead<Getter> {
    using Type = std::remove_cvref_t<Result>;
    static void get(Control& control, Value& value) { value = (static_cast<C&>(control).*Getter)(); }
    static void getConst(const Control& control, Value& value) {
        value = (static_cast<const C&>(control).*Getter)();
    }
};

// A getter that may have to make what it answers, such as a window.
template <typename C, typename Result, Result (C::*Getter)()>
struct PropertyRead<Getter> {
    using Type = std::remove_cvref_t<Result>;
    static void get(Control& control, Value& value) { value = (static_cast<C&>(control).*Getter)(); }
};

template <auto Setter>
struct PropertyWrite;

template <typename C, typename Argument, void (C::*Setter)(Argument)>
struct PropertyWrite<Setter> {
    using Type = std::remove_cvref_t<Argument>;
    static void put(Control& control, const Value& value) {
        (static_cast<C&>(control).*Setter)(std::get<Type>(value));
    }
};

// An event's arguments on their way to the container and back.
template <typename C, auto Field>
struct EventRow;

template <typename C, typename... Arguments, Event<Arguments...> C::*Field>
struct EventRow<C, Field> {
    template <typename... Names>
    static std::vector<Parameter> parameters(const Names&... names) {
        return parametersOf<Arguments...>(names...);
    }
    static Connection connect(Control& control, std::function<void(std::span<Value>)> raise) {
        return (static_cast<C&>(control).*Field).connect([raise = std::move(raise)](Arguments... arguments) {
            std::array<Value, sizeof...(Arguments)> values{Value(arguments)...};
            raise(values);
            size_t at = 0;
            (writeBack(arguments, values[at++]), ...);
        });
    }
    template <typename T>
    static void writeBack(T& argument, const Value& value) {
        if constexpr (!std::is_const_v<T>) {
            if (const T* changed = std::get_if<T>(&value)) argument = *changed;
        }
    }
};

}  // namespace detail

}  // namespace obk
