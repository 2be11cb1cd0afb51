// The rules of numeric entry: which characters a field takes, how its text steps, and how it is held in its
// range.
#pragma once

#include "base/text.h"

#include <cstdint>
#include <optional>

namespace obk::numeric_entry {

// How a value is written.
enum class Pattern : uint8_t {
    whole,     // "0": no decimals
    onePlace,  // "0.0": one decimal always shown
};

// 1 when the text holds a full stop, else 0. The user's decimal separator is not consulted.
int32_t DecimalpointCheck(TextView Number);

// The character code to keep, or 0 to reject it. Digits and backspace are kept; with `Extra_Check` also one
// full stop, when `Extra_sText`, the text before the key stroke, has none yet. Codes outside 0 to 255 are
// rejected.
uint8_t KeyLock(int32_t KeyAscii, bool Extra_Check, TextView Extra_sText);

// What a typed character becomes in a field that holds `text`.
int16_t filteredCharacter(int16_t KeyAscii, bool AllowDecpoint, TextView text);

// The text's value moved by `amount`. Nothing when the text is no number or the sum is beyond a double.
std::optional<Text> stepped(TextView text, double amount, Pattern pattern);

// The bound as a text when the text's value is strictly beyond it; nothing when it is not, or is no number.
std::optional<Text> clampedToMax(TextView text, int32_t Max, Pattern pattern);
std::optional<Text> clampedToMin(TextView text, int32_t Min, Pattern pattern);

}  // namespace obk::numeric_entry
