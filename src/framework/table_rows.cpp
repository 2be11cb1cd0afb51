#include "framework/table_rows.h"

#include <algorithm>
#include <utility>

namespace obk {

namespace {

Member& add(std::vector<Member>& rows, MemberKind kind, int32_t number, TextView name, TextView help) {
    Member& row = rows.emplace_back();
    row.kind = kind;
    row.number = number;
    row.name = name;
    row.help = help;
    return row;
}

}  // namespace

Member& TableRows::addMember(MemberKind kind, int32_t number, TextView name, TextView help) {
    return add(table.members, kind, number, name, help);
}

Member& TableRows::addEvent(int32_t number, TextView name, TextView help) {
    return add(table.events, MemberKind::event, number, name, help);
}

PersistedValue& TableRows::addPersisted(const Persist& row, ValueType type) {
    PersistedValue& value = table.persisted.emplace_back();
    value.readKey = row.key;
    value.writeKey = row.writeKey.empty() ? row.key : row.writeKey;
    value.type = type;
    value.storedAs = row.storedAs == ValueType::empty ? type : row.storedAs;
    value.readDefault = row.readDefault;
    value.writeDefault = row.writeDefault.value_or(row.readDefault);
    return value;
}

PersistedValue& TableRows::repeatPersisted() {
    PersistedValue value = table.persisted.back();
    value.get = nullptr;
    value.token = nullptr;
    return table.persisted.emplace_back(std::move(value));
}

void TableRows::addSaved(const void* token) {
    const auto row = std::find_if(table.persisted.begin(), table.persisted.end(),
                                  [token](const PersistedValue& value) { return value.token == token; });
    table.saved.push_back(static_cast<size_t>(row - table.persisted.begin()));
}

ControlTable TableRows::finished() {
    table.complete();
    for (PersistedValue& value : table.persisted) value.property = table.memberByToken(value.token);
    if (table.saved.empty()) {
        for (size_t position = 0; position < table.persisted.size(); ++position) {
            if (table.persisted[position].get) table.saved.push_back(position);
        }
    }
    table.indexNotifications();
    return std::move(table);
}

}  // namespace obk
