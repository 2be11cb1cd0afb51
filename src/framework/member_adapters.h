// Calls C++ members through the general functions of a member table: values in, values out.
#pragma once

#include "framework/control.h"
#include "framework/member_parameters.h"

#include <array>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

namespace obk::detail {

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
            store(result, (control.*Function)(std::get<std::remove_cvref_t<Arguments>>(arguments[At])...));
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
    static void get(Control& control, Value& value) { store(value, (static_cast<C&>(control).*Getter)()); }
    static void getConst(const Control& control, Value& value) {
        store(value, (static_cast<const C&>(control).*Getter)());
    }
};

// A getter that may have to make what it answers, such as a window.
template <typename C, typename Result, Result (C::*Getter)()>
struct PropertyRead<Getter> {
    using Type = std::remove_cvref_t<Result>;
    static void get(Control& control, Value& value) { store(value, (static_cast<C&>(control).*Getter)()); }
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

template <typename T>
void writeBack(T& argument, const Value& value) {
    if constexpr (!std::is_const_v<T>) {
        if (const T* changed = std::get_if<T>(&value)) argument = *changed;
    }
}

// An event's arguments on their way to the container and back; the same code for all events with these.
template <typename... Arguments>
[[gnu::noinline]] Connection connectTo(Event<Arguments...>& event,
                                       std::function<void(std::span<Value>)> raise) {
    return event.connect([raise = std::move(raise)](Arguments... arguments) {
        std::array<Value, sizeof...(Arguments)> values{Value(arguments)...};
        raise(values);
        size_t at = 0;
        (writeBack(arguments, values[at++]), ...);
    });
}

template <typename C, auto Field>
struct EventRow;

template <typename C, typename... Arguments, Event<Arguments...> C::*Field>
struct EventRow<C, Field> {
    template <typename... Names>
    static std::vector<Parameter> parameters(const Names&... names) {
        return parametersOf<Arguments...>(names...);
    }
    static Connection connect(Control& control, std::function<void(std::span<Value>)> raise) {
        return connectTo(static_cast<C&>(control).*Field, std::move(raise));
    }
};

}  // namespace obk::detail
