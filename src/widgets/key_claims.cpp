#include "widgets/key_claims.h"

#include <algorithm>
#include <iterator>

namespace obk {

namespace {

struct KeyRange {
    int16_t first, last;
};

// Keys that move, command, or only change others: everything else is typed.
constexpr KeyRange notTyped[] = {
    {3, 3},  // Cancel
    {key::tab, key::tab},
    {12, key::enter},  // Clear
    {16, 20},          // Shift, Ctrl, Alt, Pause, Caps Lock
    {21, 26},          // switch an input method, on and off and to other characters
    {28, 31},          // convert in it
    {key::escape, key::escape},
    {key::pageUp, key::down},  // with End, Home and the arrows
    {41, key::deleteKey},      // Select, Print, Execute, Print Screen, Insert
    {91, 93},                  // Windows keys and the menu key
    {95, 95},                  // Sleep
    {112, 135},                // function keys
    {144, 145},                // Num Lock, Scroll Lock
    {240, 246},                // switch an input method on keyboards that have keys for it
    {160, 183},                // one side's Shift, Ctrl and Alt; browsers, volume, media, programs
};

}  // namespace

bool isTyped(const KeyEvent& event) {
    if ((event.shift & (shift::control | shift::alt)) != 0 || event.code <= 0) return false;
    return std::none_of(std::begin(notTyped), std::end(notTyped), [&event](const KeyRange& range) {
        return event.code >= range.first && event.code <= range.last;
    });
}

bool KeyClaim::claims(const KeyEvent& event) const {
    if (shifts == 0) return event.typesWithAltGr || isTyped(event);
    return event.code >= first && event.code <= last && (shifts >> event.shift & 1) != 0;
}

bool isClaimed(const KeyEvent& event, std::span<const KeyClaim> claims) {
    return std::any_of(claims.begin(), claims.end(),
                       [&event](const KeyClaim& claim) { return claim.claims(event); });
}

}  // namespace obk
