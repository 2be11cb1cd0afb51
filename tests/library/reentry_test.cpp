// A person at each control, whose host does the worst of things inside one of its events.
#include "base/attempt.h"
#include "base/scoped_value.h"
#include "library/library.h"
#include "support/control_monkey.h"
#include "support/from_environment.h"
#include "support/sample_values.h"
#include "support/skipped_statements.h"
#include "support/something_to_work_on.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <random>
#include <stdexcept>

namespace obk::test {
namespace {

// At a control with something to work on, and a host that may do the worst.
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
    // Takes the control away as it stands, window and all.
    void destroy() {
        control_->setHost(nullptr);
        control_.reset();
    }
    void callMembers() {
        const auto held = control_;
        for (int call = 0; call < 8 && control_; ++call) callMember();
    }
    // Every property, to what it is and to something else.
    void setProperties() {
        const auto held = control_;
        for (const Member& property : held->table().members) {
            Value value;
            if (!property.put || (property.get && getProperty(*held, property, value) != CallStatus::done))
                continue;
            if (property.get) putProperty(*held, property, value);
            for (const Value& other : valuesOf(property)) putProperty(*held, property, other);
            if (property.get) putProperty(*held, property, value);
        }
    }
    void callSameAgain() { callAgain(); }
    void moveFocus() {
        const auto held = control_;
        platform_.setFocus(0);
        if (control_ == held) held->focus();
    }
    // The host waits for something, and the person goes on.
    void runLoop() {
        for (int step = 0; step < 12 && control_; ++step) person();
        platform_.advance(std::chrono::milliseconds(1200));
        platform_.paintInvalid();
    }
    void disableAndEnable() {
        const auto held = control_;
        if (!disable()) return;
        for (int step = 0; step < 4; ++step) person();
        putProperty(*held, *held->table().member(u"Enabled"), true);
    }
    void changeFont() {
        const auto held = control_;
        for (const Member& property : held->table().members) {
            Value value;
            if (property.type != ValueType::font || getProperty(*held, property, value) != CallStatus::done)
                continue;
            if (const auto* font = std::get_if<FontRef>(&value); font && *font)
                (*font)->setDescription({u"Arial", (*font)->description().size == 20 ? 6.0 : 20.0});
        }
        held->ambientFontChanged();
    }
    void fail() { throw std::runtime_error("the host's own"); }
    // Also while a property is told as changed, and while the host is asked for another size.
    bool tellsAll = false;

private:
    void propertyChanged(const Member*) override {
        if (tellsAll) hear("changed");
    }
    void requestSize(Twips, Twips) override {
        if (tellsAll) hear("size");
    }
    void viewChanged() override {
        if (tellsAll) hear("view");
    }
    void prepare(Control& control) override { giveWork(control, 3, u"a,b,c,d,e"); }
};

class ReentryTest : public testing::TestWithParam<const ControlTable*> {};

INSTANTIATE_TEST_SUITE_P(Every, ReentryTest, testing::ValuesIn(library().controls),
                         [](const auto& row) { return toUtf8(row.param->name); });

// Each act in each thing that a host is told: whatever it does, what is left of the control is whole and
// works on.
TEST_P(ReentryTest, TheHostMayDoAnythingInsideEveryEvent) {
    using Monkey = BusyMonkey;
    enum class Then { goesOn, isAnother, isGone };
    const struct {
        const char* name;
        void (Monkey::*act)();
        Then then = Then::goesOn;
    } acts[] = {
        {"lets go", &Monkey::letGo, Then::isGone},
        {"destroys it as it stands", &Monkey::destroy, Then::isGone},
        {"places another", &Monkey::place, Then::isAnother},
        {"closes the window", &Monkey::closeWindow, Then::isAnother},
        {"opens another window", &Monkey::openAnotherWindow, Then::isAnother},
        {"loads another form", &Monkey::load},
        {"calls members", &Monkey::callMembers},
        {"sets every property", &Monkey::setProperties},
        {"calls the same again", &Monkey::callSameAgain},
        {"moves the focus", &Monkey::moveFocus},
        {"runs a message loop", &Monkey::runLoop},
        {"disables the control", &Monkey::disableAndEnable},
        {"changes the font", &Monkey::changeFont},
        {"throws", &Monkey::fail},
    };
    const AllowSkipped announced(SkippedStatement::Cause::other);
    constexpr int wanted = 2;
    std::mt19937 random(1);
    for (const auto& [name, act, then] : acts) {
        std::map<std::string, int> left;  // how often it is still to be done in each
        for (const Member& event : GetParam()->events) {
            if (!event.neverRaised) left[toUtf8(event.name)] = wanted;
        }
        for (const char* more : {"focus", "changed"}) {
            if (!GetParam()->events.empty()) left[more] = wanted;
        }
        if (const TextView control = GetParam()->name;
            act != &Monkey::fail &&
            (control == u"DateCalendar" || control == u"ButtonPalette" || control == u"GridEdit"))
            left["asking"] = wanted;
        for (int round = 0; round < 1500 && !left.empty(); ++round) {
            Monkey monkey(*GetParam(), diceOf(random));
            monkey.tellsAll = true;
            bool acting = false, happened = false;
            std::string trail;
            monkey.hears = [&, act = act, then = then](const std::string& what) {
                const auto found = left.find(what);
                if (acting || found == left.end() || monkey.gone() || (happened && then != Then::goesOn))
                    return;
                happened = true;
                trail += what + " ";
                if (--found->second == 0) left.erase(found);
                const ScopedFlag during(acting);
                (monkey.*act)();
            };
            monkey.place();
            for (int step = 0; step < 60 && !monkey.gone() && !(happened && then != Then::goesOn); ++step)
                monkey.act();
            SCOPED_TRACE("the host " + std::string(name) + " in " + trail);
            if (happened && act == &Monkey::openAnotherWindow) {
                EXPECT_TRUE(monkey.shows());
            }
            for (int step = 0; step < 5 && !monkey.gone(); ++step) monkey.act();
            monkey.hears = [](const std::string&) {};
            monkey.letGo();
            ASSERT_EQ(monkey.leftOver(), nullptr) << monkey.leftOver();
            ASSERT_EQ(monkey.broken(), nullptr) << monkey.broken();
        }
        for (const auto& [event, times] : left)
            ADD_FAILURE() << event << " was not raised: the host " << name;
    }
}

// OBK_MONKEY_SEED and OBK_MONKEY_STEPS as for the grid.
TEST_P(ReentryTest, AScreenReaderMayAskForEverythingInEachEvent) {
    const int32_t steps = fromEnvironment("OBK_MONKEY_STEPS", 150);
    const auto [first, last] = walkSeeds(4);
    for (int32_t seed = first; seed <= last; ++seed) {
        std::mt19937 random(static_cast<uint32_t>(seed));
        BusyMonkey monkey(*GetParam(), diceOf(random));
        monkey.asksAlways = true;
        monkey.tellsAll = true;
        for (int32_t step = 0; step < steps; ++step) {
            monkey.act();
            if (step % 30 == 0) monkey.paint();
            ASSERT_EQ(monkey.broken(), nullptr) << monkey.broken() << ": seed " << seed << ", step " << step;
        }
    }
}

TEST_P(ReentryTest, ADisabledControlTellsNothingOfAPerson) {
    std::mt19937 random(1);
    BusyMonkey monkey(*GetParam(), diceOf(random));
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
            BusyMonkey monkey(*GetParam(), diceOf(random));
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
