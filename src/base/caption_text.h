// What a caption shows: "&" stands before the access key, "&&" is an ampersand.
#pragma once

#include "base/text.h"

#include <optional>

namespace obk {

// On one line: line breaks and other control characters show as blanks, and what lies beyond any screen is
// left out. The access key's mark stays, for the canvas to draw.
Text lineOfCaption(TextView caption);
// The same without the marks, as it is read aloud, shown in a tool tip and measured.
Text plainCaption(TextView caption);
// The upper-case character after the first mark; nothing where there is none.
std::optional<char16_t> accessKeyOf(TextView caption);
// The same as it is told, with the key that goes before it: "Alt+C"; empty where there is none.
Text spokenAccessKey(TextView caption);
// Whether a typed character means this caption: its access key or its first letter, in either case.
bool calledBy(TextView caption, char16_t character);

}  // namespace obk
