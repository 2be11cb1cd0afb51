// The keys that the flexible grid uses.
#pragma once

#include "widgets/key_claims.h"

namespace obk {

constexpr KeyClaim flexGridKeys[] = {
    {key::left, key::down, shifts::withoutAlt, u"go to another cell, or select up to it"},
    {key::end, key::home, shifts::withoutAlt, u"go to another cell, or select up to it"},
    {key::pageUp, key::pageDown, shifts::withoutAlt, u"go to another cell, or select up to it"},
    keyClaim('C', shifts::control, u"copies what is selected"),
    keyClaim(key::insert, shifts::control, u"copies what is selected"),
};

}  // namespace obk
