// The texts that tabs and their page colours are written down in.
#pragma once

#include "base/colour.h"
#include "base/text.h"

#include <cstdint>
#include <optional>

namespace obk {

// How many tabs a tab string makes. Captions are parted by commas, and by line breaks as well, a hyphen at
// the end of a line being part of its break; blanks alone make none.
int32_t countCaptions(TextView tabString);
// Field `k` (from 1) of a list whose fields `separator` parts; "0" where the list has no such field. Line
// breaks part nothing here, on purpose: captions on lines of their own count as tabs and have no captions of
// their own.
TextView fieldOf(TextView list, char16_t separator, int32_t k);
// Takes the next field off a list, for a walk along all of them; nothing is the rest behind the last one.
TextView takeField(std::optional<TextView>& rest, char16_t separator);
// The colour number in field `tab` of a list like "255|0|16777215"; 0 where there is none.
OleColour pageColourOf(TextView colours, int32_t tab);

}  // namespace obk
