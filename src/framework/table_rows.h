// The rows of a member table while it is being written: what is the same for every control and member.
#pragma once

#include "framework/control_table.h"

namespace obk {

// How one persisted value is declared; see PersistedValue.
struct Persist {
    TextView key;
    DefaultValue readDefault;
    std::optional<DefaultValue> writeDefault{};  // the read default where there is none
    TextView writeKey{};                         // the key where there is none
    ValueType storedAs = ValueType::empty;       // the property's type where there is none
};

class TableRows {
public:
    ControlTable table;

    Member& addMember(MemberKind kind, int32_t number, TextView name, TextView help);
    Member& addEvent(int32_t number, TextView name, TextView help);
    PersistedValue& addPersisted(const Persist& row, ValueType type);
    // The value of the row before is loaded once more, in another way.
    PersistedValue& repeatPersisted();
    // The next one in an order of saving of its own.
    void addSaved(const void* token);
    // The table with its indexes; the rows are gone then.
    ControlTable finished();
};

}  // namespace obk
