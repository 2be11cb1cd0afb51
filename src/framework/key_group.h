// The keys of a control, as its table of them says: which it claims, and in which of its states.
#pragma once

#include "base/text.h"
#include "widgets/key_claims.h"

#include <span>

namespace obk {

struct KeyGroup {
    // For people, as the end of "keys that the control uses"; empty wherever the keyboard is in the control.
    TextView where;
    uint16_t states = 0;  // bits of the control's own numbering: all of them hold
    std::span<const KeyClaim> claims;
};

}  // namespace obk
