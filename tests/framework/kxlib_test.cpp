#include "framework/colours.h"
#include "framework/kxlib_system.h"
#include "framework/kxlib_timer.h"
#include "platform/headless/headless_platform.h"

#include <gtest/gtest.h>

#include <random>

namespace obk::test {
namespace {

using headless::HeadlessPlatform;
using headless::MemoryRegistry;

constexpr char16_t localMachine[] = u"-2147483646";
constexpr char16_t windowsKey[] = u"SOFTWARE\\MICROSOFT\\WINDOWS\\CURRENTVERSION";
constexpr char16_t ntKey[] = u"SOFTWARE\\MICROSOFT\\WINDOWS NT\\CURRENTVERSION";

TEST(RegistryStringTest, OnlyStringsThatFitTheBufferAreRead) {
    const std::string nul(1, '\0');
    struct Row {
        const char* name;
        MemoryRegistry::Entry entry;
        Text text;
    };
    const Row rows[] = {
        {"plain", {1, "abc" + nul}, u"abc"},
        {"expandable", {2, "%abc%" + nul}, u"%abc%"},
        {"size 1", {1, nul}, u""},
        {"size 0", {1, ""}, Text(255, u' ')},
        {"no terminating zero", {1, "abcd"}, u"abc"},
        {"a zero inside", {1, "a" + nul + "b" + nul}, Text(u"a\0b", 3)},
        {"upper half of the code page", {1, "\xE9" + nul}, u"\xE9"},
        {"254 characters", {1, std::string(254, 'x') + nul}, Text(254, u'x')},
        {"255 characters", {1, std::string(255, 'x') + nul}, u"default"},
        {"REG_BINARY", {3, "abc" + nul}, u"default"},
        {"REG_DWORD", {4, std::string(4, '1')}, u"default"},
        {"REG_MULTI_SZ", {7, "abc" + nul + nul}, u"default"},
    };
    for (const Row& row : rows) {
        MemoryRegistry registry;
        registry.set(u"Key", u"Value", row.entry);
        const kxlib_SYSTEM system(registry);
        EXPECT_EQ(system.GetRegistryString(localMachine, u"KEY", u"value", u"default"), row.text) << row.name;
    }
}

TEST(RegistryStringTest, WhatIsMissingOrRefusedGivesTheDefault) {
    MemoryRegistry registry;
    registry.setString(u"Key", u"Value", "abc");
    const kxlib_SYSTEM system(registry);
    const auto read = [&](TextView root, TextView key, TextView value) {
        return system.GetRegistryString(root, key, value, u"d");
    };
    EXPECT_EQ(read(localMachine, u"Other", u"Value"), u"d");
    EXPECT_EQ(read(localMachine, u"Key", u"Other"), u"d");
    for (const TextView root : {u"-2147483647", u"2147483650", u"HKLM"})
        EXPECT_EQ(read(root, u"Key", u"Value"), u"d") << toUtf8(root);
    // An ordinary user is refused the full access that is asked for.
    registry.refuseWriting();
    EXPECT_EQ(read(localMachine, u"Key", u"Value"), u"d");
}

TEST(LookTest, FlatFromVersionFiveOn) {
    const auto look = [](const char* version, const char* older, bool refused = false) {
        HeadlessPlatform platform;
        platform.registry().setString(ntKey, u"CurrentVersion", version);
        if (older) platform.registry().setString(windowsKey, u"VersionNumber", older);
        if (refused) platform.registry().refuseWriting();
        return lookOfSystem(platform);
    };
    const std::pair<const char*, Look> rows[] = {
        {"4.99", Look::classic}, {"4.9", Look::classic},     {"4.10.2222", Look::classic},
        {"4.991", Look::flat},   {"5", Look::flat},          {"5.0", Look::flat},
        {"6.1", Look::flat},     {"10.0.19041", Look::flat}, {"beta 6", Look::classic},
    };
    for (const auto& [version, expected] : rows) {
        EXPECT_EQ(look(version, nullptr), expected) << version;
        EXPECT_EQ(look(version, ""), expected) << version;
        EXPECT_EQ(look(version, "4.0"), Look::classic) << version << ": the older key wins";
    }
    EXPECT_EQ(look("6.3", nullptr, true), Look::classic);
    HeadlessPlatform unreadable;
    EXPECT_EQ(GetWindowsVersion(unreadable), u"");
    EXPECT_EQ(lookOfSystem(unreadable), Look::classic);
}

struct ColoursTest : testing::Test {
    headless::FixedAppearance appearance;
    uint32_t blend(uint32_t first, uint32_t second, int32_t weight) {
        return BlendColors(appearance, OleColour(first), OleColour(second), weight).value;
    }
};

TEST_F(ColoursTest, TranslationKnowsRgbAndSystemColours) {
    appearance.setSystemColour(SystemColour::buttonShadow, Rgb::of(1, 2, 3));
    const std::pair<uint32_t, int32_t> rows[] = {
        {0x00000000, 0},        {0x00FFFFFF, 0xFFFFFF}, {0x02123456, 0x123456}, {0x80000010, 0x030201},
        {0x80000005, 0xFFFFFF}, {0x800000FF, -1},       {0x80000110, -1},       {0x01000001, -1},
        {0x40000000, -1},       {0xFFFFFFFF, -1},
    };
    for (const auto& [colour, rgb] : rows)
        EXPECT_EQ(TranslateOleColor(appearance, OleColour(colour)), rgb) << std::hex << colour;
}

TEST_F(ColoursTest, BlendingMixesEachChannelExactly) {
    std::mt19937 random(3);
    for (int i = 0; i < 20000; ++i) {
        const uint32_t first = random() & 0xFFFFFF, second = random() & 0xFFFFFF;
        const uint32_t weight = random() % 256;
        uint32_t expected = 0;
        for (int channel = 0; channel < 24; channel += 8) {
            // 255 is odd, so that a whole numerator never makes a tie.
            const uint32_t sum =
                (first >> channel & 255) * weight + (second >> channel & 255) * (255 - weight);
            expected |= (2 * sum + 255) / 510 << channel;
        }
        ASSERT_EQ(blend(first, second, weight), expected) << first << " " << second << " " << weight;
        ASSERT_EQ(blend(first, first, weight), first);
    }
    EXPECT_EQ(blend(0xFFFFFF, 0, 128), 0x808080u);
    EXPECT_EQ(blend(0xFFFFFF, 0, 150), 0x969696u);
    EXPECT_EQ(blend(0x8000000F, 0x80000005, 140), 0xF7F7F7u);
}

TEST_F(ColoursTest, ABlendOfAnUntranslatableColourTakesItForWhite) {
    EXPECT_EQ(blend(0x80000110, 0, 255), 0xFFFFFFu);
    EXPECT_EQ(blend(0, 0xFFFFFFFF, 0), 0xFFFFFFu);
    EXPECT_EQ(blend(0x40000000, 0, 150), 0x969696u);
    EXPECT_EQ(blend(0xFFFFFF, 0, 300), 0xFFFFFFu) << "overshoots and stops";
    EXPECT_EQ(blend(0xFFFFFF, 0, -1), 0u);
    for (const int32_t weight : {INT32_MIN, INT32_MAX}) blend(0x123456, 0x654321, weight);
}

struct PollingTimerTest : testing::Test {
    headless::ManualClock clock;
    kxlib_TIMER timer{clock};
    int ticks = 0;
};

TEST_F(PollingTimerTest, EnablingBlocksUntilAHandlerDisables) {
    EXPECT_FALSE(timer.Enabled());
    EXPECT_EQ(timer.Interval(), 450);
    timer.SetInterval(100);
    std::vector<int32_t> at;
    const Connection handler = timer.OnTimer.connect([&] {
        at.push_back(clock.tickCount());
        if (at.size() == 3) timer.SetEnabled(false);
    });
    EXPECT_TRUE(at.empty());
    timer.SetEnabled(true);
    ASSERT_EQ(at.size(), 3u);
    for (size_t i = 1; i < 3; ++i)
        EXPECT_NEAR(at[i] - at[i - 1], 100.5, 0.5) << "at the next look at the clock";
    EXPECT_FALSE(timer.Enabled());
    timer.SetInterval(20);
    EXPECT_EQ(at.size(), 3u) << "a disabled timer does not poll";
}

TEST_F(PollingTimerTest, AnIntervalBelowOneStopsIt) {
    const Connection handler = timer.OnTimer.connect([&] { timer.SetInterval(ticks--); });
    for (const int told : {-1, -2}) {
        timer.SetEnabled(true);
        EXPECT_EQ(timer.Interval(), 0);
        EXPECT_FALSE(timer.Enabled());
        EXPECT_EQ(ticks, told);
    }
}

TEST_F(PollingTimerTest, AnotherIntervalInAHandlerPollsInsideIt) {
    int deep = 0;
    const Connection handler = timer.OnTimer.connect([&] {
        EXPECT_EQ(deep++, ticks++);
        ticks == 1 ? timer.SetInterval(7) : timer.SetEnabled(false);
        --deep;
    });
    timer.SetEnabled(true);
    EXPECT_EQ(ticks, 2);
    EXPECT_EQ(timer.Interval(), 7);
}

TEST_F(PollingTimerTest, AHandlerMayDestroyTheTimerThatPolls) {
    auto own = std::make_unique<kxlib_TIMER>(clock);
    const Connection handler = own->OnTimer.connect([&] {
        // Polls inside the poll, and comes back to one whose timer is gone.
        ++ticks == 1 ? own->SetInterval(7) : own.reset();
    });
    own->SetEnabled(true);
    EXPECT_EQ(ticks, 2);
    EXPECT_FALSE(own);
}

TEST_F(PollingTimerTest, AnElapsedTimeBeyond32BitsEndsTheLoop) {
    const Connection handler = timer.OnTimer.connect([&] {
        ++ticks;
        timer.SetEnabled(false);
    });
    clock.setTickCount(INT32_MAX - 20);
    timer.SetEnabled(true);
    EXPECT_EQ(ticks, 0);
    EXPECT_TRUE(timer.Enabled()) << "nobody disabled it";
    // From the negative half through 0, which also stands for a period not begun.
    clock.setTickCount(-100);
    timer.SetInterval(500);
    EXPECT_EQ(ticks, 1);
    clock.setTickCount(0);
    timer.SetEnabled(true);
    EXPECT_EQ(ticks, 2);
}

}  // namespace
}  // namespace obk::test
