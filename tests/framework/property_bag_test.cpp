#include "framework/property_bag.h"

#include <gtest/gtest.h>

#include <cmath>

namespace obk::test {
namespace {

// One value of each type, with everything about it unusual.
MemoryBag fullBag() {
    MemoryBag bag;
    bag.write(u"empty", Value());
    bag.write(u"boolean", true);
    bag.write(u"byte", uint8_t{200});
    bag.write(u"integer", int16_t{-32768});
    bag.write(u"long", INT32_MIN);
    bag.write(u"single", -0.1f);
    bag.write(u"double", 1e-310);
    bag.write(u"text", Text(u"a\0\xD83D\xFFFF", 4));
    bag.write(u"colour", OleColour(0x80000005u));
    bag.write(u"font",
              std::make_shared<SharedFont>(FontDescription{u"\x00C9", 0.125, 901, 238, true, false, true}));
    bag.write(u"no font", FontRef());
    bag.write(u"picture",
              std::make_shared<SharedPicture>(PixelSize{2, 1}, std::vector<uint32_t>{0xFF000001u, 2}));
    bag.write(u"no picture", PictureRef());
    return bag;
}

TEST(MemoryBagTest, BytesGiveEveryValueBackInItsOrder) {
    const MemoryBag bag = fullBag();
    const auto parsed = MemoryBag::parsed(bag.serialized());
    ASSERT_TRUE(parsed);
    ASSERT_EQ(parsed->entries().size(), bag.entries().size());
    auto next = parsed->entries().begin();
    for (const auto& [key, value] : bag.entries()) {
        const auto& [otherKey, other] = *next++;
        EXPECT_EQ(otherKey, key);
        ASSERT_EQ(other.index(), value.index()) << toUtf8(key);
        if (const auto* font = std::get_if<FontRef>(&value); font && *font) {
            EXPECT_EQ(std::get<FontRef>(other)->description(), (*font)->description());
        } else if (const auto* picture = std::get_if<PictureRef>(&value); picture && *picture) {
            EXPECT_EQ(std::get<PictureRef>(other)->size(), (*picture)->size());
            EXPECT_EQ(std::get<PictureRef>(other)->pixels(), (*picture)->pixels());
        } else {
            EXPECT_EQ(other, value) << toUtf8(key);
        }
    }
}

TEST(MemoryBagTest, KeysIgnoreCaseAndKeepTheirFirstPlace) {
    MemoryBag bag;
    bag.write(u"Max", 1);
    bag.write(u"Min", 2);
    bag.write(u"MAX", 3);
    bag.write(u"object", std::make_shared<OpaqueObject>());  // nobody knows what is in it
    ASSERT_EQ(bag.entries().size(), 2u);
    EXPECT_EQ(bag.entries()[0], (MemoryBag::Entry{u"Max", 3}));
    EXPECT_EQ(bag.read(u"mIN", ValueType::longInteger), Value(2));
    EXPECT_EQ(bag.read(u"MinMax", ValueType::longInteger), std::nullopt);
}

TEST(MemoryBagTest, CutOrPaddedBytesGiveNothing) {
    const std::vector<std::byte> bytes = fullBag().serialized();
    for (size_t size = 0; size < bytes.size(); ++size)
        EXPECT_FALSE(MemoryBag::parsed(std::span(bytes).first(size))) << size;
    std::vector<std::byte> padded = bytes;
    padded.push_back({});
    EXPECT_FALSE(MemoryBag::parsed(padded));
}

TEST(MemoryBagTest, AFlippedBitGivesNothingOrAWholeBag) {
    const std::vector<std::byte> bytes = fullBag().serialized();
    size_t whole = 0;
    for (size_t at = 0; at < bytes.size() * 8; ++at) {
        std::vector<std::byte> damaged = bytes;
        damaged[at / 8] ^= static_cast<std::byte>(1 << at % 8);
        const auto parsed = MemoryBag::parsed(damaged);
        if (!parsed) continue;
        ++whole;
        EXPECT_TRUE(MemoryBag::parsed(parsed->serialized())) << at;
        EXPECT_GE(parsed->entries().size() + 1, fullBag().entries().size()) << at << ": all but a font";
    }
    EXPECT_GT(whole, 0u) << "most bits are content";
}

TEST(MemoryBagTest, AFontOfAnImpossibleSizeIsMissingAndTheRestIsRead) {
    for (const double size : {0.0, -8.25, 8193.0, HUGE_VAL, std::nan("")}) {
        MemoryBag bag;
        bag.write(u"before", 1);
        bag.write(u"Font", std::make_shared<SharedFont>(FontDescription{u"Arial", size}));
        bag.write(u"after", 2);
        auto parsed = MemoryBag::parsed(bag.serialized());
        ASSERT_TRUE(parsed) << size;
        EXPECT_EQ(parsed->read(u"before", ValueType::longInteger), Value(1));
        EXPECT_EQ(parsed->read(u"Font", ValueType::font), std::nullopt) << "so that it takes its default";
        EXPECT_EQ(parsed->read(u"after", ValueType::longInteger), Value(2));
    }
}

TEST(MemoryBagTest, ClaimsBeyondTheBytesAreNotBelieved) {
    MemoryBag bag;
    bag.write(u"p", std::make_shared<SharedPicture>(PixelSize{1, 1}, std::vector<uint32_t>{0}));
    const std::vector<std::byte> bytes = bag.serialized();
    // The picture's sides, and the length of a text, each as large as can be written.
    for (size_t at = 0; at + 4 <= bytes.size(); ++at) {
        for (const int high : {0x7F, 0x80, 0xFF}) {
            std::vector<std::byte> damaged = bytes;
            std::fill_n(damaged.begin() + static_cast<ptrdiff_t>(at), 3, std::byte{0xFF});
            damaged[at + 3] = static_cast<std::byte>(high);
            const auto parsed = MemoryBag::parsed(damaged);
            EXPECT_TRUE(!parsed || parsed->serialized().size() <= bytes.size()) << at;
        }
    }
}

}  // namespace
}  // namespace obk::test
