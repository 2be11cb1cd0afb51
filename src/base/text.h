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

// A text that stands in the program itself, used as any other.
class LiteralText : public TextView {
public:
    constexpr LiteralText() = default;
    constexpr LiteralText(const char16_t* literal) : TextView(literal) {}
    operator Text() const { return Text(data(), size()); }

    friend Text operator+(Text left, LiteralText right) { return std::move(left.append(right)); }
    friend Text operator+(LiteralText left, LiteralText right) { return Text(left).append(right); }
    friend Text operator+(LiteralText left, const Text& right) { return Text(left).append(right); }
    friend Text operator+(LiteralText left, const char16_t* right) { return Text(left).append(right); }
    friend Text operator+(const char16_t* left, LiteralText right) { return Text(left).append(right); }
};

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
