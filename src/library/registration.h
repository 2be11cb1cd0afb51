// Makes the controls known to a system on which the servers of two architectures may live side by side.
#pragma once

#include "library/library.h"

#include <vector>

namespace obk {

enum class Architecture { x86, x64 };

// The classes of one user or of the machine, each key relative to them. A system shows some keys to the
// programs of one architecture only and all others to both; one of a single architecture shows the same to
// both views.
class ClassesRegistry {
public:
    // An empty name is a key's default value.
    virtual std::optional<Text> read(Architecture view, const Text& key, const Text& name) const = 0;
    // Whether the key is there and holds neither values nor keys.
    virtual bool empty(Architecture view, const Text& key) const = 0;

    // Each answers whether things are now as wanted; what is not there counts as removed.
    virtual bool createKey(Architecture view, const Text& key) = 0;
    virtual bool write(Architecture view, const Text& key, const Text& name, const Text& text) = 0;
    virtual bool removeValue(Architecture view, const Text& key, const Text& name) = 0;
    virtual bool removeEmptyKey(Architecture view, const Text& key) = 0;

protected:
    ~ClassesRegistry() = default;
};

// One value; a key that only has to exist has neither name nor text.
struct RegistryEntry {
    Text key, name, text;
};

// What registering writes, for those who write it themselves, such as an installer.
struct RegistryEntries {
    std::vector<RegistryEntry> own;     // keys that each architecture sees for itself
    std::vector<RegistryEntry> shared;  // names and the type library
};
RegistryEntries registryEntries(const Library& library, Architecture architecture, const Text& file);

// Every public class, its names and the type library, for the server in `file`. False when something could
// not be written; the rest is.
bool registerServer(const Library& library, Architecture architecture, const Text& file,
                    ClassesRegistry& classes);
// Removes what registering writes, and nothing else: keys that hold anything of others stay, and so does what
// the other architecture's server still needs. False when something could not be removed; the rest is.
bool unregisterServer(const Library& library, Architecture architecture, ClassesRegistry& classes);

}  // namespace obk
