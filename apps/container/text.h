// Small text helpers that the container's parts share.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace obk::container {

// Equal apart from letter case, by the system's ordinal table (not the user's language).
bool sameName(std::wstring_view first, std::wstring_view second);

// Without blanks and tabs at both ends.
std::wstring_view trimmed(std::wstring_view text);

// A caption as it is read: "&" marks the access key, "&&" is an ampersand.
std::wstring withoutAccessKey(std::wstring_view caption);

// Unpaired surrogates and invalid bytes become U+FFFD.
std::string toUtf8(std::wstring_view text);
std::wstring fromUtf8(std::string_view bytes);

// The shortest decimal text that reads back as the same number, with a full stop.
std::wstring numberText(double value);
std::wstring numberText(float value);
// Reads the whole text as a number, nothing else before or after it.
std::optional<double> readNumber(std::wstring_view text);
std::optional<float> readSingle(std::wstring_view text);
// Amounts of money: exact, in units of 1/10000.
std::wstring currencyText(long long tenThousandths);
std::optional<long long> readCurrency(std::wstring_view text);
// Decimal, or hexadecimal as "&H80000005" or "0x80000005"; the whole text.
std::optional<long long> readWhole(std::wstring_view text);

// The whole file; nothing when it cannot be read.
std::optional<std::string> readFile(const std::wstring& path);
// Replaces the file; false when it cannot be written whole.
bool writeFile(const std::wstring& path, std::string_view bytes);

}  // namespace obk::container
