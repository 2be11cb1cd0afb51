// The rows of a member table while it is being written: what is the same for every control and member.
#pragma once

#include "framework/control_table.h"

#include <vector>

namespace obk {

// How one persisted value is declared; see PersistedValue.
struct Persist {
    LiteralText key;
    DefaultValue readDefault;
    std::optional<DefaultValue> writeDefault{};  // the read default where there is none
    LiteralText writeKey{};                      // the key where there is none
    ValueType storedAs = ValueType::empty;       // the property's type where there is none
};

class TableRows {
public:
    ControlTable table;

    TableRows() = default;

    // A row that stays where it is until the next one is added; `token` is its C++ member's.
    Member& add(MemberKind kind, int32_t number, LiteralText name, LiteralText help, const void* token);
    PersistedValue& addPersisted(const Persist& row, ValueType type, const void* token);
    // The value of the row before is loaded once more, in another way.
    PersistedValue& repeatPersisted();
    // The next one in an order of saving of its own.
    void addSaved(const void* token);
    // Changes of the property with this number are notified under another name.
    void addNotification(int32_t number, LiteralText name);

    // What must not be offered to hosts: numbers or names that are missing or given twice, an argument that
    // must be given behind one that may be left out, an order of saving or a notification of something
    // unknown.
    std::vector<Text> faults() const;
    // The table with its indexes; the rows are gone then. One with a fault ends a native program, which is a
    // test or a tool; a server goes on without the class.
    ControlTable finished();

private:
    std::vector<Text> unknown_;  // what an order of saving names and no row has
};

}  // namespace obk
