// Lists of registry values that are written, and removed again, as a whole.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace obk::server {

enum class RegistrationScope { machine, user };

// Where classes are registered, for the machine or for one user.
class ClassesKey {
public:
    explicit ClassesKey(RegistrationScope scope)
        : root_(scope == RegistrationScope::machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER) {}

    HKEY root() const { return root_; }
    static std::wstring path(const std::wstring& key) { return L"Software\\Classes\\" + key; }
    // A key's default value; empty when there is none.
    std::wstring text(const std::wstring& key) const;

private:
    HKEY root_;
};

class RegistryEntries {
public:
    // `key` is relative to the classes; an empty name is the key's default value.
    void add(std::wstring key, std::wstring text, std::wstring name = {});

    // Whether every key of the list exists.
    bool present(const ClassesKey& classes) const;
    // False when one could not be written; the others are.
    bool write(const ClassesKey& classes) const;
    // Removes the values, then every key above them that has become empty. False when one could not be
    // removed; one that is not there counts as removed.
    bool remove(const ClassesKey& classes) const;

private:
    struct Entry {
        std::wstring key, name, text;
    };
    std::vector<Entry> entries_;
};

}  // namespace obk::server
