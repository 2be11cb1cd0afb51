// Everything that a control asks of the machine fails once, in each thing that is done with it: each
// allocation, and each window, timer, menu, capture and the like. The control is whole afterwards, keeps what
// it had, works on, and leaves nothing.
#include "grid/grid_edit.h"
#include "library/library.h"
#include "platform/headless/headless_platform.h"
#include "platform/headless/headless_surface.h"
#include "support/failing_memory.h"
#include "support/from_environment.h"
#include "support/sample_values.h"
#include "support/something_to_work_on.h"

#include "framework/member_call.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>

namespace obk::test {
namespace {

// Wants nothing, and needs no memory.
class QuietHost final : public ControlHost {
public:
    void raise(const Member&, std::span<Value>) override {}
    void propertyChanged(const Member*) override {}
    FontRef ambientFont() override { return nullptr; }
    void requestSize(Twips, Twips) override {}
    void focusChanged(bool) override {}
    bool offerToContainer(const KeyEvent&) override { return false; }
    void viewChanged() override {}
};

// What a control has: what it saves, and the texts of a grid.
using State = std::map<Text, std::vector<std::byte>>;
const Text allCells = u"cells";

// One control, from its creation on.
class Life {
public:
    explicit Life(const ControlTable& table) : table_(table) {
        platform.answerMenu(
            [](std::span<const MenuItem>, const PixelRect&) { return std::optional<size_t>(0); });
        platform.answerColour([](const ColourQuestion&) { return std::optional(Rgb{77}); });
        platform.setClipboard(u"1\t2\r\n3\t4\r\n");
        // A form that says something other than the default of everything.
        for (const PersistedValue& row : table.persisted) {
            Member like;
            like.type = row.type;
            if (const std::vector<Value> values = valuesOf(like); !values.empty())
                form_.write(row.readKey, values[0]);
        }
    }
    ~Life() {
        if (control_) control_->setHost(nullptr);
    }
    Life(const Life&) = delete;
    Life& operator=(const Life&) = delete;

    void create() {
        control_ = table_.create(platform);
        control_->setHost(&host_);
        control_->initNew();
    }
    void fill() {
        giveWork(*control_, 4, u"a,b,c,d,e,f,g,h");
        if (GridEdit* const cells = grid()) {
            for (int32_t row = 0; row < 4; ++row)
                cells->CellTextSet(row, 0, Text(30, static_cast<char16_t>(u'd' - row)));
        }
    }
    void activate() { control_->activate(1000, {0, 0, 300, 160}); }
    void paint() {
        for (const NativeWindow id : platform.windows()) {
            if (headless::HeadlessSurface* const surface = platform.surface(id))
                surface->invalidate({0, 0, 999, 999});
        }
        platform.paintInvalid();
    }
    void useKeys() {
        control_->focus();
        platform.type(u"12x");
        for (const int16_t code :
             {key::down, key::f4, key::down, key::enter, key::f4, key::escape, key::space, key::tab})
            platform.pressKey(code);
    }
    void useMouse() {
        const NativeWindow window = control_->window();
        for (const PixelPoint at : {PixelPoint{290, 10}, {10, 40}, {10, 10}, {100, 30}})
            platform.click(window, at);
        for (const NativeWindow id : platform.windows()) platform.click(id, {20, 100});
        platform.click(window, {10, 40}, button::right);
        platform.wheel(window, {-120, false, 0, {10, 40}});
        platform.mouse(window, {MouseEvent::Kind::down, button::left, 0, {290, 4}});
        platform.advance(std::chrono::milliseconds(900));
        platform.mouse(window, {MouseEvent::Kind::up, button::left, 0, {290, 4}});
    }
    // Opens and closes an editor of each type.
    void edit() {
        if (GridEdit* const cells = grid()) {
            for (int32_t col = 0; col < 7; ++col) {
                cells->GridSetFocus(col, 1);
                platform.pressKey(key::f2);
                platform.type(u"7");
                platform.pressKey(key::enter);
            }
        }
    }
    void sort() {
        if (grid()) grid()->GridColSort(0);
    }
    void press(char letter) {
        if (!grid()) return;
        grid()->GridSetFocus(0, 0);
        platform.pressKey(letter, shift::control);
    }
    void saveFile() {
        if (grid()) grid()->GridSave(u"file", u"caption");
    }
    void load() { control_->load(form_); }
    void save() {
        MemoryBag bag;
        control_->save(bag);
    }
    void closeWindow() {
        control_->deactivate();
        control_->activate(1000, {0, 0, 200, 100});
    }

    bool made() const { return control_ != nullptr; }
    State state() {
        MemoryBag bag;
        if (control_) control_->save(bag);
        GridEdit* const cells = grid();
        Text all;
        for (int32_t row = 0; cells && row < cells->RowsCurrent(); ++row) {
            for (int32_t col = 0; col < cells->ColsCurrent(); ++col) {
                const Text text = cells->CellTextRead(row, col);
                bag.write(u"cell " + decimalText(row) + u" " + decimalText(col), text);
                all += text + u"|";
            }
        }
        bag.write(allCells, all);
        return stateOf(bag);
    }
    State form() const { return stateOf(form_); }
    // What must hold of a control at any time; null when it does.
    const char* end() {
        if (control_) {
            paint();
            control_->setHost(nullptr);
            control_->deactivate();
            control_.reset();
        }
        if (platform.windowCount() != 0) return "a window is left";
        if (platform.timerCount() != 0) return "a timer is left";
        return platform.capture() != 0 ? "the capture is left" : nullptr;
    }

    headless::HeadlessPlatform platform;

private:
    static State stateOf(const MemoryBag& bag) {
        State state;
        for (const auto& [key, value] : bag.entries()) {
            MemoryBag one;
            one.write(key, value);
            state[key] = one.serialized();
        }
        return state;
    }
    GridEdit* grid() const { return dynamic_cast<GridEdit*>(control_.get()); }

    const ControlTable& table_;
    QuietHost host_;
    MemoryBag form_;
    std::shared_ptr<Control> control_;
};

struct Step {
    const char* name;
    std::function<void(Life&)> work;
    // Whether it is done or not done: as a whole, or value by value; a person's typing may stop half way.
    enum class Done { whole, byValue, halfWay } done = Done::whole;
};
using Done = Step::Done;
const Step steps[] = {
    {"creating", &Life::create},
    {"filling", &Life::fill, Done::halfWay},
    {"activating", &Life::activate},
    {"painting", &Life::paint},
    {"typing", &Life::useKeys, Done::halfWay},
    {"pointing", &Life::useMouse, Done::halfWay},
    {"editing", &Life::edit, Done::halfWay},
    {"sorting", &Life::sort},
    {"pasting", [](Life& life) { life.press('V'); }, Done::byValue},
    {"undoing", [](Life& life) { life.press('Z'); }, Done::byValue},
    {"doing again", [](Life& life) { life.press('Y'); }, Done::byValue},
    {"copying", [](Life& life) { life.press('C'); }},
    {"saving a file", &Life::saveFile},
    {"closing the window", &Life::closeWindow},
    {"loading", &Life::load},
    {"saving", &Life::save},
};

class FailureTest : public testing::TestWithParam<const ControlTable*> {
protected:
    // Lets each thing fail that a step asks for; `Failing` is made with its number, and knows whether it has
    // failed.
    template <typename Failing>
    void failEach() {
        for (size_t at = 0; at < std::size(steps); ++at) {
            SCOPED_TRACE(steps[at].name);
            const auto upTo = [&](Life& life) {
                for (size_t before = 0; before < at; ++before) steps[before].work(life);
            };
            State before, after;
            {
                Life life(*GetParam());
                upTo(life);
                before = life.state();
                steps[at].work(life);
                after = life.state();
                ASSERT_EQ(life.end(), nullptr);
            }
            bool failed = true;
            for (uint64_t number = 0; failed; ++number) {
                SCOPED_TRACE(number);
                Life life(*GetParam());
                upTo(life);
                {
                    const Failing failing(life, number);
                    // The window system's procedures and the server end an exception; what it passes must
                    // bear it.
                    try {
                        steps[at].work(life);
                    } catch (const std::bad_alloc&) {
                    }
                    failed = failing.failed();
                }
                if (life.made()) {
                    if (steps[at].done != Done::halfWay && at > 0)
                        expectOneOf(life.state(), before, after, life.form(), steps[at].done);
                    steps[at].work(life);
                }
                ASSERT_EQ(life.end(), nullptr);
                if (HasFailure()) return;
                failures += failed;
            }
        }
        RecordProperty("failures", std::to_string(failures));
    }
    // A control that cannot say what follows from a form keeps what stands there.
    static void expectOneOf(State now, State before, State after, State form, Done done) {
        for (const State* all : {&now, &before, &after}) {
            for (const auto& [key, value] : *all) {
                if (done == Done::byValue && key == allCells) continue;
                const auto& is = now[key];
                ASSERT_TRUE(is == before[key] || is == after[key] || is == form[key]) << toUtf8(key);
            }
        }
    }

    int failures = 0;
};

INSTANTIATE_TEST_SUITE_P(Every, FailureTest, testing::ValuesIn(library().controls),
                         [](const auto& row) { return toUtf8(row.param->name); });

struct OneAllocation : FailingMemory {
    OneAllocation(Life&, uint64_t number) : FailingMemory(number, Ends::once) {}
};
struct OneRequest {
    OneRequest(Life& life, uint64_t number) : platform(life.platform) { platform.refuseRequest(number); }
    bool failed() const { return platform.hasRefused(); }
    headless::HeadlessPlatform& platform;
};

TEST_P(FailureTest, AnAllocationThatFailsOnceHarmsNothing) {
    failEach<OneAllocation>();
}

TEST_P(FailureTest, ARequestThatTheSystemRefusesOnceHarmsNothing) {
    failEach<OneRequest>();
}

// OBK_LIVES says how often.
TEST_P(FailureTest, ALifeLeavesNothing) {
    const auto live = [] {
        Life life(*GetParam());
        for (const Step& step : steps) step.work(life);
        EXPECT_EQ(life.end(), nullptr);
    };
    live();
    const int64_t before = liveAllocations();
    for (int32_t left = fromEnvironment("OBK_LIVES", 20); left > 0; --left) live();
    EXPECT_EQ(liveAllocations(), before);
}

}  // namespace
}  // namespace obk::test
