// The library as a whole: which controls it offers, and under which identity.
#pragma once

#include "framework/control_table.h"

namespace obk {

const Library& library();

}  // namespace obk
