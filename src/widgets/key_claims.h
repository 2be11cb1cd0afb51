// Which keys a widget or a control claims: it uses them before its container gets them.
#pragma once

#include "base/text.h"
#include "widgets/input.h"

#include <span>

namespace obk {

// Sets of shift states: bit n stands for the state n of shift::.
namespace shifts {
constexpr uint8_t none = 1 << 0;
constexpr uint8_t shift = 1 << obk::shift::shift;
constexpr uint8_t control = 1 << obk::shift::control;
constexpr uint8_t controlShift = 1 << (obk::shift::control | obk::shift::shift);
constexpr uint8_t alt = 1 << obk::shift::alt;
constexpr uint8_t withoutAlt = none | shift | control | controlShift;
constexpr uint8_t any = 0xFF;
}  // namespace shifts

struct KeyClaim {
    int16_t first = 0, last = 0;  // virtual key codes
    uint8_t shifts = 0;
    TextView use;

    bool claims(const KeyEvent& event) const;
};

// The claim of everything that types a character, AltGr's among them, or takes the last one back.
constexpr KeyClaim typedCharacters(TextView use) {
    return {0, 0, 0, use};
}
constexpr KeyClaim keyClaim(int16_t code, uint8_t shifts, TextView use) {
    return {code, code, shifts, use};
}

bool isClaimed(const KeyEvent& event, std::span<const KeyClaim> claims);
// Whether the key types a character, or is Backspace; without regard to what AltGr types.
bool isTyped(const KeyEvent& event);

}  // namespace obk
