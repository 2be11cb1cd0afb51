#include "grid/edit_history.h"

#include "support/failing_memory.h"
#include "support/from_environment.h"

#include <gtest/gtest.h>

#include <random>
#include <set>

namespace obk {
namespace {

using Step = EditHistory::Step;
using Kind = EditHistory::RowEdit::Kind;

using Row = std::pair<Text, Text>;  // its name and its text
using State = std::vector<Row>;

// Rows have a name in their first column, which nobody changes, and a text in the second one.
class NamedRows final : public CurrentCellGrid {
public:
    NamedRows() : CurrentCellGrid(0, 2, Dpi(96)) {}
    Text name(int32_t row) const { return Text(model().text({row, 0})); }
    Text text(int32_t row) const { return Text(model().text({row, 1})); }
    State state() const {
        State rows;
        for (int32_t row = 0; row < Rows(); ++row) rows.emplace_back(name(row), text(row));
        return rows;
    }

private:
    void cellsChanged(const CellRange&) override {}
    void textsChanged(const CellRange&) override {}
    void selectionChanged(const CellRange&) override {}
    void placesChanged(int32_t, int32_t) override {}
};

// Every state that a person has made, whole; what a host does is done to all of them.
class EveryState {
public:
    void keep(const State& state) {
        states_.resize(at_ + (states_.empty() ? 0 : 1));
        states_.push_back(state);
        if (states_.size() > EditHistory::mostSteps + 1) states_.erase(states_.begin());
        at_ = states_.size() - 1;
    }
    const State* back() { return at_ == 0 ? nullptr : &states_[--at_]; }
    const State* forth() { return at_ + 1 >= states_.size() ? nullptr : &states_[++at_]; }
    void hostAdds(const Text& name) {
        for (State& state : states_) state.emplace_back(name, Text());
    }
    void hostRemoves(const Text& name) {
        for (State& state : states_) std::erase_if(state, [&](const Row& row) { return row.first == name; });
    }

private:
    std::vector<State> states_;
    size_t at_ = 0;
};

// A person's rows in their order, and the host's, which may stand anywhere.
std::pair<State, std::set<Row>> parts(const State& rows) {
    std::pair<State, std::set<Row>> parts;
    for (const Row& row : rows) {
        if (row.first.starts_with(u"host"))
            parts.second.insert(row);
        else
            parts.first.push_back(row);
    }
    return parts;
}

TEST(EditHistory, AgreesWithAModelThatKeepsEveryState) {
    for (uint32_t seed = 1; seed <= 40; ++seed) {
        std::mt19937 random(seed);
        const auto below = test::diceOf(random);
        NamedRows grid;
        EditHistory history(grid);
        EveryState states;
        int32_t names = 0;
        const auto add = [&](TextView kind, int32_t row) {
            Text name = Text(kind) + decimalText(++names);
            grid.AddItem(name, row);
            return name;
        };
        const auto remove = [&](int32_t row, ChangedBy by) {
            auto gone = history.rowNow(Kind::removed, row);
            grid.RemoveItem(row);
            history.rowRemoved(std::move(gone), by);
        };
        for (int32_t row = 0; row < 4; ++row) add(u"row", row);
        history.begin();
        states.keep(grid.state());
        for (int32_t round = 0; round < 400; ++round) {
            const int32_t rows = grid.Rows(), action = below(9);
            bool same = true;
            if (action == 0) {
                const int32_t row = below(rows + 1);
                add(u"row", row);
                history.rowInserted(row, ChangedBy::person);
                states.keep(grid.state());
            } else if (action == 1 && rows >= 3) {
                // Several rows are one step.
                const EditHistory::Together together(history);
                for (int32_t count = 1 + below(2), row = rows - 1 - below(2); count > 0; --count)
                    remove(row--, ChangedBy::person);
                states.keep(grid.state());
            } else if (action <= 3 && rows > 0) {
                Step step;
                history.begin();
                for (int32_t count = 1 + below(3); count > 0; --count) {
                    const CellAddress cell{below(rows), 1};
                    step.cells.push_back({cell, grid.text(cell.row)});
                    grid.setText(cell, decimalText(round));
                }
                history.did(std::move(step));
                states.keep(grid.state());
            } else if (action == 4) {
                const int32_t row = below(rows + 1);
                states.hostAdds(add(u"host", row));
                history.rowInserted(row, ChangedBy::host);
            } else if (action == 5 && rows >= 3 && below(3) == 0) {
                const int32_t row = below(rows);
                states.hostRemoves(grid.name(row));
                remove(row, ChangedBy::host);
            } else {
                const bool back = below(3) != 0;
                const auto done = back ? history.undo() : history.redo();
                // A step of which a host has left nothing is passed over.
                const State* expected = nullptr;
                do {
                    expected = back ? states.back() : states.forth();
                    same = expected ? parts(grid.state()) == parts(*expected) : !done;
                } while (expected && !same);
            }
            ASSERT_TRUE(same) << "seed " << seed << ", round " << round;
        }
    }
}

TEST(EditHistory, WhatIsNotFollowedIsForgotten) {
    NamedRows grid;
    EditHistory history(grid);
    grid.SetRows(2);
    const auto write = [&] {
        history.begin();
        grid.setText({0, 1}, u"oak");
        history.did({{}, {{{0, 1}, u""}}});
    };
    const std::function<void()> changes[] = {[&] { grid.Sort(1, SortDirection::descending); },
                                             [&] { grid.SetRows(3); }, [&] { grid.Clear(); },
                                             [&] { grid.SetCols(3); }};
    for (const auto& change : changes) {
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
    for (int round = 0; round < 24; ++round) {
        NamedRows grid;
        EditHistory history(grid);
        for (const char16_t* row : {u"a", u"b", u"c", u"d"}) grid.AddItem(row, grid.Rows());
        // Now and then so many that there is no room for the next one.
        for (int time = 0; time < 60 + round; ++time) {
            history.begin();
            grid.setText({2, 1}, decimalText(time + 1));
            history.did({{}, {{{2, 1}, decimalText(time)}}});
        }
        const bool removes = round % 3 == 0, tellsOfARow = round % 3 == 1;
        history.begin();
        auto gone = history.rowNow(Kind::removed, 0);
        Step step{{{Kind::inserted, 0, 0, {}, {}}}, {}};
        if (removes)
            grid.RemoveItem(0);
        else
            grid.AddItem(u"new", 0);
        {
            test::FailingMemory memory(0);
            if (removes)
                history.rowRemoved(std::move(gone), ChangedBy::person);
            else if (tellsOfARow)
                history.rowInserted(0, ChangedBy::person);
            else
                history.did(std::move(step));
        }
        while (history.undo()) continue;
        for (int32_t row = 0; row < grid.Rows(); ++row) {
            if (grid.name(row) == u"c") continue;
            EXPECT_EQ(grid.text(row), u"") << toUtf8(grid.name(row)) << ", " << round;
        }
    }
}

}  // namespace
}  // namespace obk
