// The keys that a text line uses.
#pragma once

#include "widgets/key_claims.h"

namespace obk {

// What the window of one edits with.
constexpr KeyClaim textLineKeys[] = {
    typedCharacters(u"written, as far as the text takes them"),
    {key::left, key::left, shifts::withoutAlt, u"moves the caret"},
    {key::right, key::right, shifts::withoutAlt, u"moves the caret"},
    {key::end, key::home, shifts::withoutAlt, u"moves the caret"},
    keyClaim(key::deleteKey, shifts::none | shifts::control, u"deletes"),
    keyClaim('A', shifts::control, u"selects all"),
    keyClaim('C', shifts::control, u"copies"),
    keyClaim(key::insert, shifts::control, u"copies"),
    keyClaim('X', shifts::control, u"cuts"),
    keyClaim(key::deleteKey, shifts::shift, u"cuts"),
    keyClaim('V', shifts::control, u"pastes"),
    keyClaim(key::insert, shifts::shift, u"pastes"),
    keyClaim('Z', shifts::control, u"takes back"),
    keyClaim(key::backspace, shifts::alt, u"takes back"),
    keyClaim(key::menu, shifts::none | shifts::shift, u"opens the menu"),
    keyClaim(key::f10, shifts::shift, u"opens the menu"),
};
// Where they are for nothing else.
constexpr KeyClaim textLineArrows[] = {
    {key::up, key::up, shifts::none | shifts::shift, u"moves the caret"},
    {key::down, key::down, shifts::none | shifts::shift, u"moves the caret"},
};

}  // namespace obk
