// UTF-16 text: the one string type of the library, with the few locale-free operations that rules need.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace obk {

// Lengths and positions count UTF-16 units, as hosts count them.
using Text = std::u16string;
using TextView = std::u16string_view;

// Ill-formed input becomes U+FFFD (UTF-8 side) or keeps its lone surrogates' place with U+FFFD.
Text fromUtf8(std::string_view utf8);
std::string toUtf8(TextView text);

// ASCII letters only: member names and keys are ASCII, and must not depend on the user's locale.
char16_t upperAscii(char16_t unit);
bool equalIgnoringCase(TextView left, TextView right);
Text upperAscii(TextView text);

// Removes blanks (U+0020 only, as automation hosts trim) at both ends.
TextView trimmed(TextView text);

Text decimalText(int64_t value);

}  // namespace obk
