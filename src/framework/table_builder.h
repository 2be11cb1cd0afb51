// Writes a control's member table in one expression; types are deduced from the C++ members it names.
#pragma once

#include "framework/control.h"
#include "framework/member_adapters.h"
#include "framework/member_token.h"
#include "framework/table_rows.h"

#include <type_traits>

namespace obk {

template <typename C>
class TableBuilder {
public:
    TableBuilder(TextView name, TextView help) {
        rows_.table.name = name;
        rows_.table.help = help;
        rows_.table.create = [](Platform& platform) -> std::shared_ptr<Control> {
            auto control = std::make_shared<C>(platform);
            ControlFactory::start(*control);
            return control;
        };
    }

    TableBuilder& identifiers(const Guid& classId, const Guid& interfaceId, const Guid& eventInterfaceId) {
        rows_.table.classId = classId;
        rows_.table.interfaceId = interfaceId;
        rows_.table.eventInterfaceId = eventInterfaceId;
        return *this;
    }
    TableBuilder& toolboxPicture(int32_t resource) {
        rows_.table.toolboxPicture = resource;
        return *this;
    }
    TableBuilder& actsLikeButton() {
        rows_.table.actsLikeButton = true;
        return *this;
    }
    TableBuilder& takesNoFocus() {
        rows_.table.takesFocus = false;
        return *this;
    }

    // For other controls to host; nobody else can create it.
    TableBuilder& hostedOnly() {
        rows_.table.isPrivate = true;
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
        Member& row = rows_.addMember(MemberKind::property, number, name, help);
        row.type = detail::valueTypeOf<typename detail::PropertyWrite<Setter>::Type>();
        row.put = &detail::PropertyWrite<Setter>::put;
        row.token = memberToken<Setter>();
        return *this;
    }
    template <auto Function>
    TableBuilder& method(int32_t number, TextView name, TextView help) {
        return addMethod<Function>(number, name, help);
    }
    template <auto Function, size_t Count>
    TableBuilder& method(int32_t number, TextView name, TextView help, ParameterNames<Count> parameters) {
        return addMethod<Function>(number, name, help, parameters);
    }
    template <auto Field>
    TableBuilder& event(int32_t number, TextView name, TextView help) {
        return addEvent<Field>(number, name, help);
    }
    template <auto Field, size_t Count>
    TableBuilder& event(int32_t number, TextView name, TextView help, ParameterNames<Count> parameters) {
        return addEvent<Field>(number, name, help, parameters);
    }
    // The event of the row before is declared for hosts that know it, and nothing raises it.
    TableBuilder& neverRaised() {
        rows_.table.events.back().neverRaised = true;
        return *this;
    }

    // Persisted values follow in the order of loading and saving. `Loader` is what loading calls: the setter,
    // unless putting a property does more than loading it may.
    template <auto Getter, auto Loader>
    TableBuilder& persisted(const Persist& row) {
        savedOnly<Getter>(row);
        rows_.table.persisted.back().load = &detail::PropertyWrite<Loader>::put;
        return *this;
    }

    // A property whose reading by a host does more than saving it may.
    template <auto Property, auto Getter, auto Loader>
    TableBuilder& persistedOf(const Persist& row) {
        persisted<Getter, Loader>(row);
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
        PersistedValue& value =
            rows_.addPersisted(row, detail::valueTypeOf<typename detail::PropertyRead<Getter>::Type>());
        value.get = &detail::PropertyRead<Getter>::getConst;
        value.token = memberToken<Getter>();
        return *this;
    }

    // After the rows: saves them in another order than they are loaded in, named as the rows are.
    template <auto... Members>
    TableBuilder& savedInOrder() {
        (rows_.addSaved(memberToken<Members>()), ...);
        return *this;
    }

    // Changes of a property that are notified neither under its key nor under its name.
    TableBuilder& notifiedAs(int32_t number, TextView name) {
        rows_.addNotification(number, name);
        return *this;
    }

    ControlTable build() { return rows_.finished(); }

private:
    template <auto Function, typename... Names>
    TableBuilder& addMethod(int32_t number, TextView name, TextView help, const Names&... names) {
        using Row = detail::Method<Function>;
        Member& row = rows_.addMember(MemberKind::method, number, name, help);
        row.type = Row::resultType;
        row.parameters = Row::parameters(names...);
        row.call = &Row::call;
        row.token = memberToken<Function>();
        return *this;
    }
    template <auto Field, typename... Names>
    TableBuilder& addEvent(int32_t number, TextView name, TextView help, const Names&... names) {
        using Row = detail::EventRow<C, Field>;
        Member& row = rows_.addEvent(number, name, help);
        row.parameters = Row::parameters(names...);
        row.token = memberToken<Field>();
        row.connect = &Row::connect;
        return *this;
    }
    template <auto Getter>
    Member& readable(int32_t number, TextView name, TextView help, const Enumeration* enumeration) {
        Member& row = rows_.addMember(MemberKind::property, number, name, help);
        row.type = detail::valueTypeOf<typename detail::PropertyRead<Getter>::Type>();
        row.enumeration = enumeration;
        row.get = &detail::PropertyRead<Getter>::get;
        row.token = memberToken<Getter>();
        return row;
    }

    TableRows rows_;
};

}  // namespace obk
