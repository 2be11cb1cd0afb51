// The values of a numeric field, and the rules of what its text becomes by them. The text is the text box's.
#pragma once

#include "base/text.h"

#include <cstdint>
#include <optional>

namespace obk {

struct NumericField {
    // How a value is written.
    enum class Pattern : uint8_t {
        whole,     // "0": no decimals
        onePlace,  // "0.0": one decimal always shown
    };

    double Interval = 0;  // a freshly placed control does not step until a host sets another one
    bool AllowDecpoint = false;
    int32_t Max = 10;
    int32_t Min = 0;
    // Kept for hosts; no rule asks for them.
    bool SyncBuddy = false;
    bool ThousandsSeparator = true;

    Pattern pattern() const { return AllowDecpoint ? Pattern::onePlace : Pattern::whole; }

    // 1 when the text holds a full stop, else 0. The user's decimal separator is not consulted.
    static int32_t DecimalpointCheck(TextView Number);
    // The character code to keep, or 0 to reject it. Digits and backspace are kept; with `Extra_Check` also
    // one full stop, when `Extra_sText`, the text before the key stroke, has none yet. Codes outside 0 to 255
    // are rejected.
    static uint8_t KeyLock(int32_t KeyAscii, bool Extra_Check, TextView Extra_sText);
    // What a typed character becomes. All of the text counts, also what is selected and would be replaced.
    int16_t filtered(int16_t KeyAscii, TextView text) const { return KeyLock(KeyAscii, AllowDecpoint, text); }

    // The text that follows in a step up and in one down. Nothing where `text` is no number or the sum is
    // beyond a double.
    std::optional<Text> increased(TextView text) const;
    std::optional<Text> decreased(TextView text) const;

    // Whether a step leads no further. Not where `text` is no number.
    bool atMax(TextView text) const;
    bool atMin(TextView text) const;

    // The bound, where the value of `text` is strictly beyond it; else nothing.
    std::optional<Text> heldByMax(TextView text, Pattern writtenAs) const;
    std::optional<Text> heldByMin(TextView text, Pattern writtenAs) const;
};

}  // namespace obk
