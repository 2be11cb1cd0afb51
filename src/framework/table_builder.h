// Writes a control's member table in one expression; types are deduced from the C++ members it names.
#pragma once

#include "framework/control.h"
#include "framework/control_factory.h"
#include "framework/member_adapters.h"
#include "framework/member_token.h"
#include "framework/table_rows.h"

#include <type_traits>

namespace obk {

template <typename C>
class TableBuilder {
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

    // Persisted values follow in the order of loading and saving. `Loader` is what loading calls: the setter,
    // unless putting a property does more than loading it may; `Getter` is what saving calls: the
    // `Property`'s, unless a host's reading does more than saving may.
    template <auto Getter, auto Loader, auto Property = Getter>
    TableBuilder& persisted(const Persist& row) {
        savedOnly<Getter>(row);
        rows_.table.persisted.back().load = &detail::PropertyWrite<Loader>::put;
        rows_.table.persisted.back().token = memberToken<Property>();
        return *this;
    }
    // The value of the row before is loaded once more, by another function or the same.
    template <auto Loader>
    TableBuilder& loadedAgain() {
        rows_.repeatPersisted().load = &detail::PropertyWrite<Loader>::put;
        return *this;
    }
    // A value that is saved and never read back.
    template <auto Getter>
    TableBuilder& savedOnly(const Persist& row) {
        using Read = detail::PropertyRead<Getter>;
        constexpr ValueType type = detail::valueTypeOf<typename Read::Type>();
        rows_.addPersisted(row, type, memberToken<Getter>()).get = &Read::getConst;
        return *this;
    }
    // After the rows: saves them in another order than they are loaded in, named as the rows are.
    template <auto... Members>
    TableBuilder& savedInOrder() {
        (rows_.addSaved(memberToken<Members>()), ...);
        return *this;
    }
    // Changes of a property that are notified neither under its key nor under its name.
    TableBuilder& notifiedAs(int32_t number, LiteralText name) {
        rows_.addNotification(number, name);
        return *this;
    }

    ControlTable build() { return rows_.finished(); }

private:
    TableRows rows_;
};

}  // namespace obk
