// The library as a whole: which controls it offers, and under which identity.
#pragma once

#include "framework/control_table.h"

#include <vector>

namespace obk {

// A library is the set of its public controls' tables.
struct Library {
    Text name;
    Text description;
    Text release;  // "1.0.0": of the product; the version below is that of the contract with hosts
    Guid id;
    uint16_t majorVersion = 1, minorVersion = 0;
    std::vector<const ControlTable*> controls;  // in the order of the type library, private ones included
    std::vector<const Enumeration*> enumerations;

    // Without regard to case; null when there is none.
    const ControlTable* control(TextView controlName) const;
};

const Library& library();

}  // namespace obk
