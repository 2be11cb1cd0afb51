// Writes a control's member table in one expression; types are deduced from the C++ members it names.
#pragma once

#include "framework/control.h"
#include "framework/control_factory.h"
#include "framework/member_adapters.h"
#include "framework/member_token.h"
#include "framework/persisted_rows.h"

#include <type_traits>

namespace obk {

template <typename C>
class TableBuilder : public PersistedRows<TableBuilder<C>> {
public:
    explicit TableBuilder(const ClassFacts& facts) {
        static_cast<ClassFacts&>(rows_.table) = facts;
        rows_.table.create = [](Platform& platform) -> std::shared_ptr<Control> {
            auto control = std::make_shared<C>(platform);
            ControlFactory::start(*control);
            return control;
        };
    }

    template <auto Getter, auto Setter>
    TableBuilder& property(int32_t number, LiteralText name, LiteralText help,
                           const Enumeration* enumeration = nullptr) {
        using Write = detail::PropertyWrite<Setter>;
        static_assert(std::is_same_v<typename detail::PropertyRead<Getter>::Type, typename Write::Type>);
        readOnlyProperty<Getter>(number, name, help);
        Member& row = rows_.table.members.back();
        row.enumeration = enumeration;
        row.put = &Write::put;
        row.putByReference = row.type == ValueType::font || row.type == ValueType::picture;
        return *this;
    }
    // Names for the values of the property before, for people at a property browser; they outlive the table.
    TableBuilder& choices(std::span<const EnumerationValue> named) {
        rows_.table.members.back().choices = named;
        return *this;
    }
    template <auto Getter>
    TableBuilder& readOnlyProperty(int32_t number, LiteralText name, LiteralText help) {
        using Read = detail::PropertyRead<Getter>;
        Member& row = rows_.add(MemberKind::property, number, name, help, memberToken<Getter>());
        row.type = detail::valueTypeOf<typename Read::Type>();
        row.get = &Read::get;
        return *this;
    }
    template <auto Setter>
    TableBuilder& writeOnlyProperty(int32_t number, LiteralText name, LiteralText help) {
        using Write = detail::PropertyWrite<Setter>;
        Member& row = rows_.add(MemberKind::property, number, name, help, memberToken<Setter>());
        row.type = detail::valueTypeOf<typename Write::Type>();
        row.put = &Write::put;
        return *this;
    }
    // Where a method or an event has parameters, one list of their names stands last.
    template <auto Function, size_t... Count>
    TableBuilder& method(int32_t number, LiteralText name, LiteralText help,
                         ParameterNames<Count>... parameters) {
        using Row = detail::Method<Function>;
        Member& row = rows_.add(MemberKind::method, number, name, help, memberToken<Function>());
        row.type = Row::resultType;
        row.parameters = Row::parameters(parameters...);
        row.call = &Row::call;
        return *this;
    }
    template <auto Field, size_t... Count>
    TableBuilder& event(int32_t number, LiteralText name, LiteralText help,
                        ParameterNames<Count>... parameters) {
        using Row = detail::EventRow<C, Field>;
        Member& row = rows_.add(MemberKind::event, number, name, help, memberToken<Field>());
        row.parameters = Row::parameters(parameters...);
        row.connect = &Row::connect;
        return *this;
    }
    // The event of the row before is declared for hosts that know it, and nothing raises it.
    TableBuilder& neverRaised() {
        rows_.table.events.back().neverRaised = true;
        return *this;
    }

    ControlTable build() { return rows_.finished(); }

private:
    using PersistedRows<TableBuilder>::rows_;
};

}  // namespace obk
