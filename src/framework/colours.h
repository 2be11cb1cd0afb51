// Arithmetic on OLE colours.
#pragma once

#include "base/colour.h"
#include "widgets/platform.h"

#include <cstdint>

namespace obk {

// The RGB value of an OLE colour, or -1 for a value that is none. No palette is taken into account.
int32_t TranslateOleColor(Appearance& appearance, OleColour Color);

// Channel-wise mix, `Weight` out of 255 of `Color1` and the rest of `Color2`, halves rounded to even. A
// colour that cannot be translated counts as white. Weights outside 0 to 255 overshoot: channels stop at 255,
// and a negative one makes the result 0.
Rgb BlendColors(Appearance& appearance, OleColour Color1, OleColour Color2, int32_t Weight);

}  // namespace obk
