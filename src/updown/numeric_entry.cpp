#include "updown/numeric_entry.h"

#include "framework/number_format.h"
#include "framework/value.h"
#include "widgets/input.h"

namespace obk::numeric_entry {

namespace {

constexpr int32_t fullStop = u'.';
constexpr int32_t fullStopKey = 190;

std::optional<Text> written(double value, Pattern pattern) {
    return fixedText(value, pattern == Pattern::onePlace ? 1 : 0);
}

}  // namespace

int32_t DecimalpointCheck(TextView Number) {
    return Number.find(static_cast<char16_t>(fullStop)) == TextView::npos ? 0 : 1;
}

uint8_t KeyLock(int32_t KeyAscii, bool Extra_Check, TextView Extra_sText) {
    // The code of the full-stop key is rejected even where the character is not: key codes are no characters.
    if (KeyAscii == fullStopKey) return 0;
    if (KeyAscii == fullStop)
        return Extra_Check && DecimalpointCheck(Extra_sText) != 1 ? static_cast<uint8_t>(fullStop)
                                                                  : uint8_t{0};
    const bool kept = KeyAscii == key::backspace || (KeyAscii >= u'0' && KeyAscii <= u'9');
    return kept ? static_cast<uint8_t>(KeyAscii) : uint8_t{0};
}

int16_t filteredCharacter(int16_t KeyAscii, bool AllowDecpoint, TextView text) {
    if (KeyAscii == fullStop && !AllowDecpoint) return 0;
    // The whole text counts, also what is selected and would be replaced.
    return KeyLock(KeyAscii, true, text);
}

std::optional<Text> stepped(TextView text, double amount, Pattern pattern) {
    const std::optional<double> value = numberFromText(text);
    return value ? written(*value + amount, pattern) : std::nullopt;
}

std::optional<Text> clampedToMax(TextView text, int32_t Max, Pattern pattern) {
    const std::optional<double> value = numberFromText(text);
    return value && *value > Max ? written(Max, pattern) : std::nullopt;
}

std::optional<Text> clampedToMin(TextView text, int32_t Min, Pattern pattern) {
    const std::optional<double> value = numberFromText(text);
    return value && *value < Min ? written(Min, pattern) : std::nullopt;
}

}  // namespace obk::numeric_entry
