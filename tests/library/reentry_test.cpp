// A person at each control, whose host does the worst of things inside one of its events.
#include "base/attempt.h"
#include "grid/grid_edit.h"
#include "library/library.h"
#include "pagetab/page_tab.h"
#include "support/control_monkey.h"
#include "updown/up_down_text_box.h"

#include <gtest/gtest.h>

#include <random>

namespace obk::test {
namespace {

// At a control with something to work on.
class BusyMonkey final : public ControlMonkey {
public:
    using ControlMonkey::ControlMonkey;
    bool gone() const { return !control_; }
    bool shows() const { return control_ && control_->active(); }
    void person() { below(2) == 0 ? key() : mouse(); }
    bool disable() {
        const Member* const enabled = control_->table().member(u"Enabled");
        return enabled && putProperty(*control_, *enabled, false) == CallStatus::done;
    }
    std::vector<std::byte> saved() const {
        MemoryBag bag;
        if (control_) control_->save(bag);
        return bag.serialized();
    }
    void callMembers() {
        const auto held = control_;
        for (int call = 0; call < 8 && control_; ++call) callMember();
    }

private:
    void prepare(Control& control) override {
        if (auto* const field = dynamic_cast<UpDownTextBox*>(&control)) field->SetInterval(1);
        if (auto* const strip = dynamic_cast<PageTab*>(&control)) strip->SetActiveTabs(u"a,b,c,d,e");
        if (auto* const grid = dynamic_cast<GridEdit*>(&control)) {
            grid->ColsSet(7);
            grid->RowsSet(3);
            for (int32_t col = 0; col < 7; ++col) grid->ColTypeSet(col, col);
            grid->ComboAdd(u"oak");
        }
    }
};

class ReentryTest : public testing::TestWithParam<const ControlTable*> {};

INSTANTIATE_TEST_SUITE_P(Every, ReentryTest, testing::ValuesIn(library().controls),
                         [](const auto& row) { return toUtf8(row.param->name); });

TEST_P(ReentryTest, TheHostMayDoAnythingInsideEveryEvent) {
    using Monkey = BusyMonkey;
    const std::pair<const char*, void (Monkey::*)()> acts[] = {
        {"lets go", &Monkey::letGo},
        {"places another", &Monkey::place},
        {"closes the window", &Monkey::closeWindow},
        {"opens another window", &Monkey::openAnotherWindow},
        {"loads another form", &Monkey::load},
        {"calls members", &Monkey::callMembers},
    };
    std::vector<std::string> events;
    for (const Member& event : GetParam()->events) {
        if (!event.neverRaised) events.push_back(toUtf8(event.name));
    }
    if (const TextView name = GetParam()->name;
        name == u"DateCalendar" || name == u"ButtonPalette" || name == u"GridEdit")
        events.push_back("asking");
    std::mt19937 random(1);
    for (const std::string& event : events) {
        for (const auto& [name, act] : acts) {
            SCOPED_TRACE(event + ": the host " + name);
            int times = 0;
            for (int round = 0; round < 300 && times < 3; ++round) {
                Monkey monkey(*GetParam(), [&random](int32_t limit) {
                    return static_cast<int32_t>(random() % static_cast<uint32_t>(limit));
                });
                bool happened = false;
                monkey.hears = [&, act = act](const std::string& what) {
                    if (what == event && !monkey.gone() && !std::exchange(happened, true)) (monkey.*act)();
                };
                monkey.place();
                for (int step = 0; step < 60 && !monkey.gone() && !happened; ++step) monkey.act();
                times += happened;
                if (happened && act == &Monkey::openAnotherWindow) {
                    EXPECT_TRUE(monkey.shows());
                }
                for (int step = 0; step < 5 && !monkey.gone(); ++step) monkey.act();
                monkey.letGo();
                ASSERT_EQ(monkey.leftOver(), nullptr) << monkey.leftOver();
                ASSERT_EQ(monkey.broken(), nullptr) << monkey.broken();
            }
            EXPECT_GT(times, 0) << "it was never raised";
        }
    }
}

TEST_P(ReentryTest, ADisabledControlTellsNothingOfAPerson) {
    std::mt19937 random(1);
    BusyMonkey monkey(*GetParam(), [&random](int32_t limit) {
        return static_cast<int32_t>(random() % static_cast<uint32_t>(limit));
    });
    monkey.place();
    std::vector<std::string> told;
    if (!monkey.disable()) return;
    const std::vector<std::byte> before = monkey.saved();
    monkey.hears = [&](const std::string& what) { told.push_back(what); };
    for (int step = 0; step < 500; ++step) monkey.person();
    EXPECT_EQ(told, std::vector<std::string>{});
    EXPECT_EQ(monkey.saved(), before);
}

TEST_P(ReentryTest, AHostThatFailsInItsEventsStopsNoStepAfterThem) {
    for (uint32_t seed = 1; seed <= 12; ++seed) {
        const auto session = [&](bool fails) {
            std::mt19937 random(seed);
            BusyMonkey monkey(*GetParam(), [&random](int32_t limit) {
                return static_cast<int32_t>(random() % static_cast<uint32_t>(limit));
            });
            std::vector<std::string> told;
            monkey.hears = [&](const std::string& what) {
                told.push_back(what);
                if (fails && what != "asking") throw StatementFailed("the host's own");
            };
            monkey.place();
            for (int step = 0; step < 200; ++step) monkey.act();
            return std::pair(told, monkey.saved());
        };
        ASSERT_EQ(session(true), session(false)) << "seed " << seed;
    }
}

}  // namespace
}  // namespace obk::test
