#include "framework/table_rows.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>

namespace obk {

Member& TableRows::add(MemberKind kind, int32_t number, LiteralText name, LiteralText help,
                       const void* token) {
    Member& row = (kind == MemberKind::event ? table.events : table.members).emplace_back();
    row.kind = kind;
    row.number = number;
    row.name = name;
    row.help = help;
    row.token = token;
    return row;
}

PersistedValue& TableRows::addPersisted(const Persist& row, ValueType type, const void* token) {
    PersistedValue& value = table.persisted.emplace_back();
    value.readKey = row.key;
    value.writeKey = row.writeKey.empty() ? row.key : row.writeKey;
    value.type = type;
    value.token = token;
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
    const auto position = static_cast<size_t>(row - table.persisted.begin());
    if (row == table.persisted.end() || !row->get)
        unknown_.push_back(u"place " + decimalText(static_cast<int64_t>(table.saved.size())));
    else
        table.saved.push_back(position);
}

void TableRows::addNotification(int32_t number, LiteralText name) {
    table.overrides_.push_back({number, name});
}

std::vector<Text> TableRows::faults() const {
    std::vector<Text> found;
    const auto check = [&found](const std::vector<Member>& rows) {
        for (auto row = rows.begin(); row != rows.end(); ++row) {
            const auto fault = [&](TextView what) {
                found.push_back(Text(row->name).append(u": ").append(what));
            };
            if (row->number < 1) fault(u"its number is below 1");
            if (row->name.empty()) fault(u"a row without a name");
            if (std::any_of(rows.begin(), row, [&](const Member& at) { return at.number == row->number; }))
                fault(u"its number stands twice");
            if (std::any_of(rows.begin(), row,
                            [&](const Member& at) { return equalIgnoringCase(at.name, row->name); }))
                fault(u"its name stands twice");
            bool mayBeLeftOut = false;
            for (const Parameter& parameter : row->parameters) {
                if (parameter.name.empty()) fault(u"a parameter without a name");
                if (mayBeLeftOut && !parameter.mayBeLeftOut()) fault(u"a default is missing");
                mayBeLeftOut = parameter.mayBeLeftOut();
            }
        }
    };
    check(table.members);
    check(table.events);
    for (const Text& place : unknown_) found.push_back(u"the order of saving: nothing is saved for " + place);
    for (const auto& notified : table.overrides_) {
        if (std::none_of(table.members.begin(), table.members.end(),
                         [&](const Member& at) { return at.number == notified.number; }))
            found.push_back(Text(notified.name) + u": notified for no property");
    }
    return found;
}

ControlTable TableRows::finished() {
    table.faults = faults();
#ifndef _WIN32
    for (const Text& fault : table.faults)
        std::fprintf(stderr, "The table of %s: %s\n", toUtf8(table.name).c_str(), toUtf8(fault).c_str());
    if (!table.faults.empty()) std::abort();
#endif
    table.complete();
    return std::move(table);
}

}  // namespace obk
