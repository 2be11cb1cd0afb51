#include "grid/edit_session.h"

#include <gtest/gtest.h>

namespace obk {

// The names of failures.
void PrintTo(EditAction action, std::ostream* out) {
    *out << "action " << static_cast<int>(action);
}

namespace {

using enum EditAction;

constexpr EditState cells{}, lastRow{EditPlace::cells, true, true};

TEST(EditSession, AHeldKeyAddsAndDeletesOneRow) {
    for (const auto& [code, action] :
         {std::pair(key::enter, goOn), std::pair(key::down, none), std::pair(key::insert, none),
          std::pair(key::deleteKey, none), std::pair(int16_t{'X'}, open)})
        EXPECT_EQ(editAction({code, 0, true}, lastRow), action) << code;
}

TEST(EditSession, WhatTypesNothingOpensNothing) {
    const auto opens = [](int16_t code) { return editAction({code, 0, false}, cells) == open; };
    for (const int16_t code :
         std::initializer_list<int16_t>{12, 16, 17, 18, 19,  20,  21,  25,  28,  29,  31,  35, 39,
                                        44, 91, 92, 93, 112, 123, 144, 145, 173, 240, 243, 244})
        EXPECT_FALSE(opens(code)) << code;
    for (const auto& [code, held] :
         {std::pair(int16_t{'V'}, shift::alt), {int16_t{'Q'}, shift::control | shift::alt}})
        EXPECT_EQ(editAction({code, held, false}, cells), none) << code;
    // Letters, digits, the number pad, punctuation, an input method's keys.
    for (const int16_t code :
         std::initializer_list<int16_t>{8, 32, 48, 65, 90, 96, 107, 111, 186, 191, 222, 226, 229, 231})
        EXPECT_TRUE(opens(code)) << code;
}

TEST(EditSession, CharactersWithoutAKeyOfTheirOwnOpenAnEditor) {
    for (const char16_t typed : {u' ', u'@', u'\u20AC', u'\u65E5', u'\xFF5E'})
        EXPECT_TRUE(opensEditor(static_cast<int16_t>(typed))) << static_cast<int>(typed);
    for (const int16_t control : std::initializer_list<int16_t>{0, 8, 9, 13, 22, 27, 127})
        EXPECT_FALSE(opensEditor(control)) << control;
}

}  // namespace
}  // namespace obk
