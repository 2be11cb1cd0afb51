// The property pages that the library's server offers to form designers.
#pragma once

#include "framework/control_table.h"

#include <span>
#include <vector>

namespace obk {

struct PropertyPageFacts {
    enum class Kind : uint8_t { properties, tabs, palettes };

    Kind kind;
    TextView title;
    Guid id;
};

std::span<const PropertyPageFacts> propertyPages();
const PropertyPageFacts& propertyPage(PropertyPageFacts::Kind kind);

// The pages of a control, the one of its own first.
std::vector<const PropertyPageFacts*> pagesOf(const ControlTable& table);
// Where a property is edited that is more than a value in a list; null for all others.
const PropertyPageFacts* pageOf(const ControlTable& table, const Member& property);

}  // namespace obk
