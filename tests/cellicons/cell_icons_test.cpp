#include "cellicons/cell_icons.h"

#include <gtest/gtest.h>

#include <string>

namespace obk::test {
namespace {

// One size of an icon on white paper, three channels a pixel.
std::vector<int32_t> onWhite(int32_t index, int32_t size) {
    std::vector<int32_t> shown;
    for (const uint32_t pixel : cell_icons::pixels(index, size)) {
        const int32_t alpha = static_cast<uint8_t>(pixel >> 24);
        for (const int shift : {16, 8, 0}) {
            const int32_t channel = static_cast<uint8_t>(pixel >> shift);
            EXPECT_LE(channel, alpha) << "is not premultiplied";
            shown.push_back(channel + 255 - alpha);
        }
    }
    return shown;
}

// Whether two pictures differ by this much (of 255) in the mean of their pixels.
bool apart(const std::vector<int32_t>& left, const std::vector<int32_t>& right, int32_t distance) {
    const auto enough = static_cast<int32_t>(left.size() / 3) * distance;
    const auto differ = [&](size_t at) { return std::abs(left[at] - right[at]); };
    int32_t sum = 0;
    for (size_t at = 0; at < left.size() && sum < enough; at += 3)
        sum += std::max({differ(at), differ(at + 1), differ(at + 2)});
    return sum >= enough;
}

std::string name(int32_t index) {
    return toUtf8(cell_icons::key(index));
}

// Another number for any other text, in practice (FNV-1a).
uint64_t digest(TextView text) {
    uint64_t number = 14695981039346656037u;
    for (const char16_t unit : text) number = (number ^ unit) * 1099511628211u;
    return number;
}

TEST(CellIcons, KeysStandInTheOrderOfTheirNumbers) {
    ASSERT_EQ(cell_icons::count(), 247);
    Text keys;
    for (int32_t index = 1; index <= cell_icons::count(); ++index) {
        const Text key = cell_icons::key(index);
        EXPECT_EQ(cell_icons::indexOf(key), index) << toUtf8(key);
        keys += (index == 1 ? u"" : u";") + key;
    }
    EXPECT_EQ(digest(keys), 0x35a6a50407a8434fu)
        << "hosts know the icons by these keys, and by their numbers";
}

TEST(CellIcons, WhatIsNoKeyAndNoNumberFindsNothing) {
    for (const TextView key :
         {u"", u"book - blue", u"Book - Blue ", u" Book - Blue", u"Book", u"Work - Baggage Cart",
          u"Home - Thermometer - Hot", u"Tech - Webcam", u"everywhere"})
        EXPECT_FALSE(cell_icons::indexOf(key)) << toUtf8(key);
    for (const int32_t index : {-1, 0, 248, INT32_MAX}) {
        EXPECT_EQ(cell_icons::key(index), u"");
        EXPECT_TRUE(cell_icons::pixels(index, 16).empty());
    }
    for (const int32_t size : {-1, 0, 20, 48}) EXPECT_TRUE(cell_icons::pixels(1, size).empty());
}

TEST(CellIcons, NoneIsBlankAndNoTwoLookAlike) {
    constexpr int32_t leastDistance = 15;
    for (const int32_t size : cell_icons::sizes) {
        // Blank paper stands for an icon, too.
        std::vector<std::vector<int32_t>> seen{
            std::vector<int32_t>(static_cast<size_t>(size * size) * 3, 255)};
        for (int32_t index = 1; index <= cell_icons::count(); ++index) {
            const std::vector<int32_t> shown = onWhite(index, size);
            ASSERT_EQ(shown.size(), seen[0].size());
            for (size_t other = 0; other < seen.size(); ++other) {
                EXPECT_TRUE(apart(shown, seen[other], leastDistance))
                    << name(index) << " looks like "
                    << (other ? name(static_cast<int32_t>(other)) : "nothing") << " at " << size;
            }
            seen.push_back(shown);
        }
    }
}

}  // namespace
}  // namespace obk::test
