// The enumerations by which hosts know the kinds of buttons and palettes.
#pragma once

#include "framework/control_table.h"

namespace obk {

const Enumeration& buttonTypes();  // ButtonTypesdd
const Enumeration& palettes();     // enQUILLPalette

}  // namespace obk
