// What the controls want to know of the operating system: registry strings, its version, and the look that
// goes with it.
#pragma once

#include "base/text.h"
#include "widgets/platform.h"
#include "widgets/widget.h"

namespace obk {

class kxlib_SYSTEM {
public:
    explicit kxlib_SYSTEM(Registry& registry) : registry_(registry) {}

    // A string value of the registry, cut at 254 characters. `RootKey` is a predefined root's handle as a
    // signed decimal number in a text. `Default` when the key or value is missing, longer, refused or of
    // another type.
    Text GetRegistryString(TextView RootKey, TextView SubKey, TextView ValueName, TextView Default) const;

private:
    Registry& registry_;
};

// The operating system's dotted version number as a text; empty when it cannot be read.
Text GetWindowsVersion(Platform& platform);

// Flat from version 5.0 on, classic before and where the version cannot be read.
Look lookOfSystem(Platform& platform);

}  // namespace obk
