// Writes a control's member table in one expression; types are deduced from the C++ members it names.
#pragma once

#include "framework/control.h"
#include "framework/control_table.h"
#include "framework/member_token.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <tuple>
#include <type_traits>
#include <utility>

namespace obk {

// An argument's name, and the value that it has where a host leaves it out.
struct ParameterName {
    ParameterName(const char16_t* own) : name(own) {}
    ParameterName(const char16_t* own, Value usually) : name(own), usual(std::move(usually)) {}

    TextView name;
    std::optional<Value> usual;
};

namespace detail {

// The automation type of a C++ type; enumerations of hosts are 32-bit numbers.
template <typename T>
constexpr ValueType valueTypeOf() {
    using Bare = std::remove_cvref_t<T>;
    if constexpr (std::is_void_v<Bare>)
        return ValueType::empty;
    else if constexpr (std::is_same_v<Bare, bool>)
        return ValueType::boolean;
    else if constexpr (std::is_same_v<Bare, uint8_t>)
        return ValueType::byte;
    else if constexpr (std::is_same_v<Bare, int16_t>)
        return ValueType::integer;
    else if constexpr (std::is_same_v<Bare, int32_t>)
        return ValueType::longInteger;
    else if constexpr (std::is_same_v<Bare, float>)
        return ValueType::single;
    else if constexpr (std::is_same_v<Bare, double>)
        return ValueType::doubleFloat;
    else if constexpr (std::is_same_v<Bare, Text>)
        return ValueType::text;
    else if constexpr (std::is_same_v<Bare, OleColour>)
        return ValueType::colour;
    else if constexpr (std::is_same_v<Bare, FontRef>)
        return ValueType::font;
    else if constexpr (std::is_same_v<Bare, ObjectRef>)
        return ValueType::object;
    else {
        static_assert(std::is_same_v<Bare, PictureRef>, "this type does not cross the boundary");
        return ValueType::picture;
    }
}

template <typename T>
Parameter parameterOf(const ParameterName& name) {
    constexpr bool byReference =
        std::is_lvalue_reference_v<T> && !std::is_const_v<std::remove_reference_t<T>>;
    return {Text(name.name), valueTypeOf<T>(), byReference, name.usual};
}

template <typename... Arguments>
std::vector<Parameter> parametersOf(std::initializer_list<ParameterName> names) {
    auto name = names.begin();
    return {parameterOf<Arguments>(*name++)...};
}

template <auto Function, typename C, typename Result, typename... Arguments>
struct MethodOf {
    static constexpr ValueType resultType = valueTypeOf<Result>();
    static std::vector<Parameter> parameters(std::initializer_list<ParameterName> names) {
        return parametersOf<Arguments...>(names);
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
    static std::vector<Parameter> parameters(std::initializer_list<ParameterName> names) {
        return parametersOf<Arguments...>(names);
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

// How one persisted value is declared; see PersistedValue.
struct Persist {
    TextView key;
    DefaultValue readDefault;
    std::optional<DefaultValue> writeDefault{};  // the read default where there is none
    TextView writeKey{};                         // the key where there is none
    ValueType storedAs = ValueType::empty;       // the property's type where there is none
};

template <typename C>
class TableBuilder {
public:
    TableBuilder(TextView name, TextView help) {
        table_.name = name;
        table_.help = help;
        table_.create = [](Platform& platform) -> std::shared_ptr<Control> {
            auto control = std::make_shared<C>(platform);
            ControlFactory::start(*control);
            return control;
        };
    }

    TableBuilder& identifiers(const Guid& classId, const Guid& interfaceId, const Guid& eventInterfaceId) {
        table_.classId = classId;
        table_.interfaceId = interfaceId;
        table_.eventInterfaceId = eventInterfaceId;
        return *this;
    }
    TableBuilder& toolboxPicture(int32_t resource) {
        table_.toolboxPicture = resource;
        return *this;
    }
    TableBuilder& actsLikeButton() {
        table_.actsLikeButton = true;
        return *this;
    }
    TableBuilder& takesNoFocus() {
        table_.takesFocus = false;
        return *this;
    }

    // For other controls to host; nobody else can create it.
    TableBuilder& hostedOnly() {
        table_.isPrivate = true;
        return *this;
    }

    template <auto Getter, auto Setter>
    TableBuilder& property(int32_t number, TextView name, TextView help,
                           const Enumeration* enumeration = nullptr) {
        static_assert(std::is_same_v<typename detail::PropertyRead<Getter>::Type,
                                     typename detail::PropertyWrite<Setter>::Type>);
        Member& row = readable<Getter>(number, name, help, enumeration);
        row.put = &detail::PropertyWrite<Setter>::put;
        row.putByReference = row.type == ValueType::font || row.type == ValueType::picture;
        return *this;
    }
    template <auto Getter>
    TableBuilder& readOnlyProperty(int32_t number, TextView name, TextView help) {
        readable<Getter>(number, name, help, nullptr);
        return *this;
    }
    template <auto Setter>
    TableBuilder& writeOnlyProperty(int32_t number, TextView name, TextView help) {
        Member& row = add(table_.members, MemberKind::property, number, name, help);
        row.type = detail::valueTypeOf<typename detail::PropertyWrite<Setter>::Type>();
        row.put = &detail::PropertyWrite<Setter>::put;
        row.token = memberToken<Setter>();
        return *this;
    }
    template <auto Function>
    TableBuilder& method(int32_t number, TextView name, TextView help,
                         std::initializer_list<ParameterName> parameters = {}) {
        using Row = detail::Method<Function>;
        Member& row = add(table_.members, MemberKind::method, number, name, help);
        row.type = Row::resultType;
        row.parameters = Row::parameters(parameters);
        row.call = &Row::call;
        row.token = memberToken<Function>();
        return *this;
    }
    template <auto Field>
    TableBuilder& event(int32_t number, TextView name, TextView help,
                        std::initializer_list<ParameterName> parameters = {}) {
        using Row = detail::EventRow<C, Field>;
        Member& row = add(table_.events, MemberKind::event, number, name, help);
        row.parameters = Row::parameters(parameters);
        row.token = memberToken<Field>();
        row.connect = &Row::connect;
        return *this;
    }

    // Persisted values follow in the order of loading and saving. `Loader` is what loading calls: the setter,
    // unless putting a property does more than loading it may.
    template <auto Getter, auto Loader>
    TableBuilder& persisted(Persist row) {
        PersistedValue& value =
            addPersisted(row, detail::valueTypeOf<typename detail::PropertyRead<Getter>::Type>());
        value.get = &detail::PropertyRead<Getter>::getConst;
        value.load = &detail::PropertyWrite<Loader>::put;
        value.token = memberToken<Getter>();
        return *this;
    }

    // A property whose reading by a host does more than saving it may.
    template <auto Property, auto Getter, auto Loader>
    TableBuilder& persistedOf(Persist row) {
        persisted<Getter, Loader>(row);
        table_.persisted.back().token = memberToken<Property>();
        return *this;
    }

    // The value of the row before is loaded once more, by another function or the same.
    template <auto Loader>
    TableBuilder& loadedAgain() {
        PersistedValue value = table_.persisted.back();
        value.get = nullptr;
        value.token = nullptr;
        value.load = &detail::PropertyWrite<Loader>::put;
        table_.persisted.push_back(std::move(value));
        return *this;
    }

    // A value that is saved and never read back.
    template <auto Getter>
    TableBuilder& savedOnly(Persist row) {
        PersistedValue& value =
            addPersisted(row, detail::valueTypeOf<typename detail::PropertyRead<Getter>::Type>());
        value.get = &detail::PropertyRead<Getter>::getConst;
        value.token = memberToken<Getter>();
        return *this;
    }

    // After the rows: saves them in another order than they are loaded in, named as the rows are.
    template <auto... Members>
    TableBuilder& savedInOrder() {
        (table_.saved.push_back(savedRow(memberToken<Members>())), ...);
        return *this;
    }

    // Changes of a property that are notified neither under its key nor under its name.
    TableBuilder& notifiedAs(int32_t number, TextView name) {
        table_.overrideNotification(number, Text(name));
        return *this;
    }

    ControlTable build() {
        table_.complete();
        for (PersistedValue& value : table_.persisted) value.property = table_.memberByToken(value.token);
        if (table_.saved.empty()) {
            for (size_t position = 0; position < table_.persisted.size(); ++position) {
                if (table_.persisted[position].get) table_.saved.push_back(position);
            }
        }
        table_.indexNotifications();
        return std::move(table_);
    }

private:
    Member& add(std::vector<Member>& rows, MemberKind kind, int32_t number, TextView name, TextView help) {
        Member& row = rows.emplace_back();
        row.kind = kind;
        row.number = number;
        row.name = name;
        row.help = help;
        return row;
    }
    template <auto Getter>
    Member& readable(int32_t number, TextView name, TextView help, const Enumeration* enumeration) {
        Member& row = add(table_.members, MemberKind::property, number, name, help);
        row.type = detail::valueTypeOf<typename detail::PropertyRead<Getter>::Type>();
        row.enumeration = enumeration;
        row.get = &detail::PropertyRead<Getter>::get;
        row.token = memberToken<Getter>();
        return row;
    }
    size_t savedRow(const void* token) const {
        const auto row = std::find_if(table_.persisted.begin(), table_.persisted.end(),
                                      [token](const PersistedValue& value) { return value.token == token; });
        return static_cast<size_t>(row - table_.persisted.begin());
    }
    PersistedValue& addPersisted(const Persist& row, ValueType type) {
        PersistedValue& value = table_.persisted.emplace_back();
        value.readKey = row.key;
        value.writeKey = row.writeKey.empty() ? row.key : row.writeKey;
        value.type = type;
        value.storedAs = row.storedAs == ValueType::empty ? type : row.storedAs;
        value.readDefault = row.readDefault;
        value.writeDefault = row.writeDefault.value_or(row.readDefault);
        return value;
    }

    ControlTable table_;
};

}  // namespace obk
