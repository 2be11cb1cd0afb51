// The member table: the one place where a control's public names, numbers, types, help texts, keys and
// defaults stand. Dispatch, the type library, persistence, notifications and the reference pages are derived
// by walking it.
#pragma once

#include "framework/member.h"
#include "framework/persisted_value.h"

#include <memory>
#include <vector>

namespace obk {

class Platform;

// What a class says of itself, beside its members.
struct ClassFacts {
    LiteralText name;  // "UpDownTextBox"; the programmatic identifier is made from it
    LiteralText help{};
    Guid classId{}, interfaceId{}, eventInterfaceId{};
    int32_t toolboxPicture = 0;  // resource number of its picture in a toolbox; 0: none
    bool actsLikeButton = false;
    bool takesFocus = true;  // false for decoration such as a line
    bool isPrivate = false;  // hosted by other controls only: no class factory, registration or type library
};

// Made by a TableBuilder, complete and checked; nothing changes it afterwards.
class ControlTable : public ClassFacts {
public:
    ControlTable(ControlTable&&) = default;

    std::vector<Member> members;  // properties and methods, sorted by number
    std::vector<Member> events;   // sorted by number
    std::vector<PersistedValue> persisted;
    std::vector<size_t> saved;  // positions of what is saved, in its order
    std::shared_ptr<Control> (*create)(Platform& platform) = nullptr;  // initialised, not yet loaded

    // Null when there is none. Names without regard to case.
    const Member* member(int32_t number) const;
    const Member* member(TextView memberName) const;
    const Member* event(int32_t number) const;
    const Member* memberByToken(const void* token) const;
    // The property that a change notification under this persisted name is about: the one of that name, else
    // the one stored under it; null where there is neither.
    const Member* notifiedProperty(TextView persistedName) const;
    // The name under which a property's changes are notified: its override, else its persisted key, else its
    // name.
    LiteralText notificationName(const Member& property) const;
    // The property that is notified when the C++ member `token` has been set: worked out once, as setters are
    // called often. Null for a token of no property.
    const Member* notifiedByToken(const void* token) const;

    // What is wrong with the rows: nothing, or a class that must not be offered to hosts.
    std::vector<Text> faults;

private:
    friend class TableRows;
    ControlTable() = default;
    void complete();
    void indexNames();
    void indexNotifications();

    struct NameIndex {
        uint32_t hash;
        uint32_t position;
    };
    struct TokenIndex {
        const void* token;
        const Member* notified;
    };
    struct NotificationOverride {
        int32_t number;
        LiteralText name;
    };

    std::vector<NameIndex> names_;    // open addressing, a power of two in size; position + 1, 0 is free
    std::vector<TokenIndex> tokens_;  // open addressing as well; a null token is free
    std::vector<NotificationOverride> overrides_;
};

}  // namespace obk
