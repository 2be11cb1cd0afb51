#include "grid/edit_history.h"

#include "support/failing_memory.h"
#include "support/from_environment.h"

#include <gtest/gtest.h>

#include <map>
#include <random>

namespace obk {
namespace {

using Step = EditHistory::Step;
using Kind = EditHistory::RowEdit::Kind;

// Rows have a name in their first column, which nobody changes, and a text in the second one.
class NamedRows final : public CurrentCellGrid {
public:
    NamedRows() : CurrentCellGrid(0, 2, Dpi(96)) {}
    Text name(int32_t row) const { return Text(model().text({row, 0})); }
    Text text(int32_t row) const { return Text(model().text({row, 1})); }

private:
    void cellsChanged(const CellRange&) override {}
    void textsChanged(const CellRange&) override {}
    void selectionChanged(const CellRange&) override {}
    void placesChanged(int32_t, int32_t) override {}
};

// Every state that a person has made, whole; what a host does is done to all of them.
class EveryState {
public:
    using Row = std::pair<Text, Text>;
    using State = std::vector<Row>;

    void keep(const State& state) {
        states_.resize(at_ + (states_.empty() ? 0 : 1));
        states_.push_back(state);
        if (states_.size() > EditHistory::mostSteps + 1) states_.erase(states_.begin());
        at_ = states_.size() - 1;
    }
    const State* back() { return at_ == 0 ? nullptr : &states_[--at_]; }
    const State* forth() { return at_ + 1 >= states_.size() ? nullptr : &states_[++at_]; }
    void hostAdds(const Text& name) {
        for (State& state : states_) state.insert(state.begin(), {name, {}});
    }
    void hostRemoves(const Text& name) {
        for (State& state : states_) std::erase_if(state, [&](const Row& row) { return row.first == name; });
    }

private:
    std::vector<State> states_;
    size_t at_ = 0;
};

// What a person left and, the host's rows aside, in which order.
void expectEqual(const NamedRows& grid, const EveryState::State& state, bool& same) {
    std::map<Text, Text> left, expected;
    Text order, expectedOrder;
    const auto take = [](const Text& name, const Text& text, std::map<Text, Text>& texts, Text& names) {
        texts[name] = text;
        if (!name.starts_with(u"host")) names += name + u" ";
    };
    for (int32_t row = 0; row < grid.Rows(); ++row) take(grid.name(row), grid.text(row), left, order);
    for (const auto& [name, text] : state) take(name, text, expected, expectedOrder);
    same = left == expected && order == expectedOrder;
}

TEST(EditHistory, AgreesWithAModelThatKeepsEveryState) {
    for (uint32_t seed = 1; seed <= 40; ++seed) {
        std::mt19937 random(seed);
        const auto below = test::diceOf(random);
        NamedRows grid;
        EditHistory history(grid);
        EveryState states;
        int32_t names = 0;
        const auto state = [&grid] {
            EveryState::State now;
            for (int32_t row = 0; row < grid.Rows(); ++row) now.emplace_back(grid.name(row), grid.text(row));
            return now;
        };
        for (int32_t row = 0; row < 4; ++row) grid.AddItem(u"row" + decimalText(++names) + u"\t", row);
        history.begin();
        states.keep(state());
        const auto remove = [&](int32_t row, ChangedBy by) {
            auto gone = history.rowNow(Kind::removed, row);
            grid.RemoveItem(row);
            history.rowRemoved(std::move(gone), by);
        };
        for (int32_t round = 0; round < 400; ++round) {
            const int32_t rows = grid.Rows();
            bool same = true;
            switch (below(9)) {
                case 0: {
                    const int32_t row = below(rows + 1);
                    grid.AddItem(u"row" + decimalText(++names), row);
                    history.rowInserted(row, ChangedBy::person);
                    states.keep(state());
                    break;
                }
                case 1: {
                    if (rows < 3) break;
                    // Several rows are one step.
                    const EditHistory::Together together(history);
                    for (int32_t count = 1 + below(2), row = rows - 1 - below(2); count > 0; --count)
                        remove(row--, ChangedBy::person);
                    states.keep(state());
                    break;
                }
                case 2:
                case 3: {
                    if (rows == 0) break;
                    Step step;
                    history.begin();
                    for (int32_t count = 1 + below(3); count > 0; --count) {
                        const CellAddress cell{below(rows), 1};
                        step.cells.push_back({cell, grid.text(cell.row)});
                        grid.setText(cell, decimalText(round));
                    }
                    history.did(std::move(step));
                    states.keep(state());
                    break;
                }
                case 4: {
                    const int32_t row = below(rows + 1);
                    const Text name = u"host" + decimalText(++names);
                    grid.AddItem(name, row);
                    history.rowInserted(row, ChangedBy::host);
                    states.hostAdds(name);
                    break;
                }
                case 5: {
                    if (rows < 3 || below(3) != 0) break;
                    const int32_t row = below(rows);
                    states.hostRemoves(grid.name(row));
                    remove(row, ChangedBy::host);
                    break;
                }
                default: {
                    const bool back = below(3) != 0;
                    const auto done = back ? history.undo() : history.redo();
                    // A step of which a host has left nothing is passed over.
                    const EveryState::State* expected = back ? states.back() : states.forth();
                    for (same = false; expected; expected = back ? states.back() : states.forth()) {
                        expectEqual(grid, *expected, same);
                        if (same) break;
                    }
                    if (!expected) same = !done;
                    break;
                }
            }
            ASSERT_TRUE(same) << "seed " << seed << ", round " << round;
        }
    }
}

TEST(EditHistory, WhatIsNotFollowedIsForgotten) {
    NamedRows grid;
    EditHistory history(grid);
    grid.SetRows(2);
    history.begin();
    const auto write = [&] {
        history.begin();
        grid.setText({0, 1}, u"oak");
        history.did({{}, {{{0, 1}, u""}}});
    };
    for (const auto& change : std::initializer_list<std::function<void()>>{
             [&] { grid.Sort(1, SortDirection::descending); }, [&] { grid.SetRows(3); },
             [&] { grid.Clear(); }, [&] { grid.SetCols(3); }}) {
        write();
        change();
        EXPECT_FALSE(history.undo());
    }
    for (size_t step = 0; step < EditHistory::mostSteps + 5; ++step) write();
    size_t taken = 0;
    while (history.undo()) ++taken;
    EXPECT_EQ(taken, EditHistory::mostSteps);
}

TEST(EditHistory, AStepThatMemoryHasNoRoomForIsNotTakenForAnother) {
    using Keeps = std::function<void(NamedRows&, EditHistory&)>;
    const std::pair<const char*, Keeps> steps[] = {
        {"a row comes",
         [](NamedRows& grid, EditHistory& history) {
             grid.AddItem(u"new", 0);
             test::FailingMemory memory(0);
             history.rowInserted(0, ChangedBy::person);
         }},
        {"a row goes",
         [](NamedRows& grid, EditHistory& history) {
             auto gone = history.rowNow(Kind::removed, 0);
             grid.RemoveItem(0);
             test::FailingMemory memory(0);
             history.rowRemoved(std::move(gone), ChangedBy::person);
         }},
        {"a step is done that brings a row",
         [](NamedRows& grid, EditHistory& history) {
             history.begin();
             Step step{{{Kind::inserted, 0, 0, {}, {}}}, {}};
             grid.AddItem(u"new", 0);
             test::FailingMemory memory(0);
             history.did(std::move(step));
         }},
    };
    for (int round = 0; round < 24; ++round) {
        const auto& [name, keeps] = steps[round % std::size(steps)];
        SCOPED_TRACE(name);
        NamedRows grid;
        EditHistory history(grid);
        for (const char16_t* row : {u"a", u"b", u"c", u"d"}) grid.AddItem(row, grid.Rows());
        // Now and then so many that there is no room for the next one.
        for (int time = 0; time < 60 + round; ++time) {
            history.begin();
            grid.setText({2, 1}, decimalText(time + 1));
            history.did({{}, {{{2, 1}, decimalText(time)}}});
        }
        keeps(grid, history);
        while (history.undo()) continue;
        for (int32_t row = 0; row < grid.Rows(); ++row) {
            if (grid.name(row) == u"c") continue;
            EXPECT_EQ(grid.text(row), u"") << toUtf8(grid.name(row));
        }
    }
}

}  // namespace
}  // namespace obk
