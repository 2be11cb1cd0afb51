// The classes in the system's registry.
#pragma once

#include "library/registration.h"

#include <windows.h>

namespace obk::server {

enum class RegistrationScope { machine, user };

class ClassesKey final : public ClassesRegistry {
public:
    explicit ClassesKey(RegistrationScope scope)
        : root_(scope == RegistrationScope::machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER) {}

    std::optional<Text> read(Architecture view, const Text& key, const Text& name) const override;
    bool empty(Architecture view, const Text& key) const override;
    bool createKey(Architecture view, const Text& key) override;
    bool write(Architecture view, const Text& key, const Text& name, const Text& text) override;
    bool removeValue(Architecture view, const Text& key, const Text& name) override;
    bool removeEmptyKey(Architecture view, const Text& key) override;

private:
    class OpenKey;
    HKEY root_;
};

}  // namespace obk::server
