#include "base/letter_case.h"

#include <gtest/gtest.h>

namespace obk {
namespace {

TEST(LetterCase, FindsTheOneCapitalOfALetter) {
    const char16_t pairs[][2] = {{u'a', u'A'},     {u'z', u'Z'},     {0xE9, 0xC9},     {0xFF, 0x178},
                                 {0xB5, 0x39C},    {0x101, 0x100},   {0x17F, u'S'},    {0x3B1, 0x391},
                                 {0x3C2, 0x3A3},   {0x439, 0x419},   {0x45F, 0x40F},   {0x586, 0x556},
                                 {0x1E81, 0x1E80}, {0x1F00, 0x1F08}, {0x24D0, 0x24B6}, {0xFF41, 0xFF21},
                                 {0x1C6, 0x1C4},   {0x1C5, 0x1C4},   {0x2184, 0x2183}, {0xAB70, 0x13A0}};
    for (const auto& [small, capital] : pairs) {
        EXPECT_EQ(upperSimple(small), capital);
        EXPECT_EQ(upperSimple(capital), capital);
    }
}

TEST(LetterCase, LeavesWhatHasNoneOrMoreThanOne) {
    for (const char16_t unit : {u'1', u'@', u'[', u'{', u'\x7F', u'\xDF', u'\xF7', u'\xAA', u'\x149',
                                u'\x3094', u'\xD801', u'\xDC28', u'\xFFFF', u'\0', u'\x138', u'\x100'})
        EXPECT_EQ(upperSimple(unit), unit);
}

}  // namespace
}  // namespace obk
