#include "framework/control_table.h"

#include <algorithm>
#include <bit>

namespace obk {

namespace {

uint32_t nameHash(TextView name) {
    uint32_t hash = 2166136261u;
    for (const char16_t unit : name) hash = (hash ^ upperAscii(unit)) * 16777619u;
    return hash;
}

size_t tokenHash(const void* token) {
    // The high bits of a product differ also for neighbours.
    return static_cast<uint32_t>(reinterpret_cast<uintptr_t>(token)) * 2654435769u >> 16;
}

const Member* byNumber(const std::vector<Member>& members, int32_t number) {
    // Tables number without gaps, so the place is nearly always known.
    const auto place = static_cast<size_t>(static_cast<int64_t>(number) - 1);
    if (place < members.size() && members[place].number == number) return &members[place];
    const auto found = std::find_if(members.begin(), members.end(),
                                    [number](const Member& member) { return member.number == number; });
    return found == members.end() ? nullptr : &*found;
}

}  // namespace

const Member* ControlTable::member(int32_t number) const {
    return byNumber(members, number);
}

const Member* ControlTable::event(int32_t number) const {
    return byNumber(events, number);
}

const Member* ControlTable::member(TextView memberName) const {
    if (names_.empty()) return nullptr;
    const uint32_t hash = nameHash(memberName);
    const size_t mask = names_.size() - 1;
    for (size_t at = hash & mask; names_[at].position != 0; at = (at + 1) & mask) {
        const Member& candidate = members[names_[at].position - 1];
        if (names_[at].hash == hash && equalIgnoringCase(candidate.name, memberName)) return &candidate;
    }
    return nullptr;
}

const Member* ControlTable::memberByToken(const void* token) const {
    const auto found = std::find_if(members.begin(), members.end(),
                                    [token](const Member& member) { return member.token == token; });
    return found == members.end() ? nullptr : &*found;
}

const Member* ControlTable::notifiedProperty(TextView persistedName) const {
    if (const Member* named = member(persistedName); named && named->kind == MemberKind::property)
        return named;
    for (const PersistedValue& value : persisted) {
        if (value.property && equalIgnoringCase(value.writeKey, persistedName)) return value.property;
    }
    return nullptr;
}

LiteralText ControlTable::notificationName(const Member& property) const {
    for (const NotificationOverride& entry : overrides_) {
        if (entry.number == property.number) return entry.name;
    }
    for (const PersistedValue& value : persisted) {
        if (value.property == &property) return value.writeKey;
    }
    return property.name;
}

const Member* ControlTable::notifiedByToken(const void* token) const {
    if (tokens_.empty()) return nullptr;
    const size_t mask = tokens_.size() - 1;
    for (size_t at = tokenHash(token) & mask; tokens_[at].token; at = (at + 1) & mask) {
        if (tokens_[at].token == token) return tokens_[at].notified;
    }
    return nullptr;
}

void ControlTable::indexNotifications() {
    tokens_.assign(std::bit_ceil(members.size() * 2 + 1), {});
    const size_t mask = tokens_.size() - 1;
    for (const Member& member : members) {
        if (member.kind != MemberKind::property || !member.token) continue;
        size_t at = tokenHash(member.token) & mask;
        while (tokens_[at].token) at = (at + 1) & mask;
        tokens_[at] = {member.token, notifiedProperty(notificationName(member))};
    }
}

void ControlTable::complete() {
    const auto ascending = [](const Member& left, const Member& right) { return left.number < right.number; };
    std::sort(members.begin(), members.end(), ascending);
    std::sort(events.begin(), events.end(), ascending);
    for (PersistedValue& value : persisted) value.property = memberByToken(value.token);
    if (saved.empty()) {
        for (size_t position = 0; position < persisted.size(); ++position) {
            if (persisted[position].get) saved.push_back(position);
        }
    }
    indexNames();
    indexNotifications();
}

void ControlTable::indexNames() {
    names_.assign(std::bit_ceil(members.size() * 2 + 1), {0, 0});
    const size_t mask = names_.size() - 1;
    for (size_t position = 0; position < members.size(); ++position) {
        const uint32_t hash = nameHash(members[position].name);
        size_t at = hash & mask;
        while (names_[at].position != 0) at = (at + 1) & mask;
        names_[at] = {hash, static_cast<uint32_t>(position + 1)};
    }
}

}  // namespace obk
