// The part of a table's expression that says what is persisted.
#pragma once

#include "framework/member_adapters.h"
#include "framework/member_token.h"
#include "framework/table_rows.h"

namespace obk {

// `Builder` is the class that has these, whose expression goes on.
template <typename Builder>
class PersistedRows {
public:
    // Persisted values follow in the order of loading and saving. `Loader` is what loading calls: the setter,
    // unless putting a property does more than loading it may; `Getter` is what saving calls: the
    // `Property`'s, unless a host's reading does more than saving may.
    template <auto Getter, auto Loader, auto Property = Getter>
    Builder& persisted(const Persist& row) {
        savedOnly<Getter>(row);
        rows_.table.persisted.back().load = &detail::PropertyWrite<Loader>::put;
        rows_.table.persisted.back().token = memberToken<Property>();
        return builder();
    }
    // The value of the row before is loaded once more, by another function or the same.
    template <auto Loader>
    Builder& loadedAgain() {
        rows_.repeatPersisted().load = &detail::PropertyWrite<Loader>::put;
        return builder();
    }
    // A value that is saved and never read back.
    template <auto Getter>
    Builder& savedOnly(const Persist& row) {
        using Read = detail::PropertyRead<Getter>;
        constexpr ValueType type = detail::valueTypeOf<typename Read::Type>();
        rows_.addPersisted(row, type, memberToken<Getter>()).get = &Read::getConst;
        return builder();
    }
    // After the rows: saves them in another order than they are loaded in, named as the rows are.
    template <auto... Members>
    Builder& savedInOrder() {
        (rows_.addSaved(memberToken<Members>()), ...);
        return builder();
    }
    // Changes of a property that are notified neither under its key nor under its name.
    Builder& notifiedAs(int32_t number, LiteralText name) {
        rows_.addNotification(number, name);
        return builder();
    }

protected:
    TableRows rows_;

private:
    Builder& builder() { return static_cast<Builder&>(*this); }
};

}  // namespace obk
