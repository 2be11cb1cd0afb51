#include "base/event.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace obk::test {
namespace {

struct EventTest : testing::Test {
    // A listener that notes its name.
    auto noting(char name) {
        return [this, name] { heard += name; };
    }
    std::string heard;
};

TEST_F(EventTest, ListenersAreCalledInTheOrderTheyConnectedUntilTheyDisconnect) {
    Event<> event;
    Connection a = event.connect(noting('a'));
    Connection b = event.connect(noting('b'));
    const Connection c = event.connect(noting('c'));
    event();
    b.disconnect();
    event();
    // A new one in the place of an old one, and one that is let go.
    a = event.connect(noting('A'));
    { const Connection passing = event.connect(noting('-')); }
    event();
    EXPECT_EQ(heard, "abcaccA");
}

TEST_F(EventTest, WhoDisconnectsDuringARaiseIsNotCalledAnyMore) {
    Event<> event;
    Connection a, b, c;
    a = event.connect([&] {
        heard += 'a';
        a.disconnect();
        c.disconnect();
    });
    b = event.connect(noting('b'));
    c = event.connect(noting('c'));
    event();
    event();
    EXPECT_EQ(heard, "abb");
}

TEST_F(EventTest, WhoConnectsDuringARaiseIsCalledFromTheNextOneOn) {
    Event<> event;
    std::vector<Connection> later;
    const Connection a = event.connect([&] {
        heard += 'a';
        // Enough of them that a list in one piece would move.
        for (int i = 0; i < 20 && later.size() < 20; ++i) later.push_back(event.connect(noting('+')));
    });
    const Connection b = event.connect(noting('b'));
    event();
    EXPECT_EQ(heard, "ab");
    heard.clear();
    event();
    EXPECT_EQ(heard, "ab" + std::string(20, '+'));
}

TEST_F(EventTest, ARaiseInsideARaiseReachesAllListeners) {
    Event<int> event;
    const Connection a = event.connect([&](int depth) {
        heard += static_cast<char>('0' + depth);
        if (depth < 3) event(depth + 1);
    });
    const Connection b = event.connect([&](int depth) { heard += static_cast<char>('a' + depth); });
    event(0);
    EXPECT_EQ(heard, "0123dcba");
}

TEST_F(EventTest, AnEventMayBeDestroyedWhileItIsRaised) {
    auto event = std::make_unique<Event<>>();
    std::optional<Connection> a, b;
    a = event->connect([&, big = std::string(100, 'x')] {
        event.reset();
        a.reset();  // ends the very listener that runs
        heard += big[99];
    });
    b = event->connect(noting('b'));
    (*event)();
    b.reset();
    EXPECT_EQ(heard, "xb");
}

}  // namespace
}  // namespace obk::test
