#include "grid/edit_history.h"

#include "base/attempt.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace obk {

namespace {

using RowEdit = EditHistory::RowEdit;

RowEdit rowOf(const GridModel& model, RowEdit::Kind kind, int32_t row) {
    RowEdit now;
    now.kind = kind;
    now.row = row;
    now.height = model.rowList().height(row);
    for (int32_t col = 0; col < model.cols(); ++col) {
        now.texts.emplace_back(model.text({row, col}));
        now.styles.push_back(model.style({row, col}));
    }
    return now;
}

void insert(GridModel& model, const RowEdit& edit) {
    const std::vector<TextView> texts(edit.texts.begin(), edit.texts.end());
    if (!model.addTexts(texts, edit.row, edit.styles)) return;
    if (edit.height != model.rowList().defaultHeight())
        attempt([&] { model.setRowHeight(edit.row, edit.height); });
}

}  // namespace

void EditHistory::forgetAll() {
    done_.clear();
    undone_.clear();
}

// Unless the grid has changed so often, and by what is known.
void EditHistory::forgetUnknown(uint32_t changes) {
    if (grid_.revision() != revision_ + changes) forgetAll();
    revision_ = grid_.revision();
}

void EditHistory::did(Step step) {
    revision_ = grid_.revision();
    if (step.empty()) return;
    // Without this one the others are about another grid.
    if (!attempt([&] { keep(std::move(step)); })) forgetAll();
}

void EditHistory::keep(Step step) {
    undone_.clear();
    if (together_ == Joined::all && !done_.empty()) {
        Step& joined = done_.back();
        std::move(step.rows.begin(), step.rows.end(), std::back_inserter(joined.rows));
        std::move(step.cells.begin(), step.cells.end(), std::back_inserter(joined.cells));
        return;
    }
    done_.push_back(std::move(step));
    if (done_.size() > mostSteps) done_.pop_front();
    if (together_ == Joined::next) together_ = Joined::all;
}

EditHistory::RowEdit EditHistory::rowNow(RowEdit::Kind kind, int32_t row) const {
    return grid_.model().contains({row, 0}) ? rowOf(grid_.model(), kind, row) : RowEdit{kind, row, 0, {}, {}};
}

void EditHistory::rowInserted(int32_t row, ChangedBy by) {
    forgetUnknown(1);
    if (by == ChangedBy::host) return follow({row, true});
    Step step;
    if (!attempt([&] { step.rows.push_back({RowEdit::Kind::inserted, row, 0, {}, {}}); })) return forgetAll();
    did(std::move(step));
}

void EditHistory::rowRemoved(RowEdit row, ChangedBy by) {
    // Emptying the only row is more than one change of the grid.
    forgetUnknown(row.kind == RowEdit::Kind::removed ? 1 : grid_.revision() - revision_);
    if (by == ChangedBy::host) return follow({row.row, false});
    Step step;
    if (!attempt([&] { step.rows.push_back(std::move(row)); })) return forgetAll();
    did(std::move(step));
}

// The newest steps are next to the grid as it is, on either side of it.
void EditHistory::follow(RowMove change) {
    RowMove back = change, forth = change;
    for (auto step = done_.rbegin(); step != done_.rend() && follow(back, *step, true); ++step) continue;
    for (auto step = undone_.rbegin(); step != undone_.rend() && follow(forth, *step, false); ++step)
        continue;
}

bool EditHistory::follow(RowMove& move, Step& step, bool done) {
    const auto followCells = [&] {
        std::erase_if(step.cells, [&](CellEdit& edit) {
            int32_t& row = edit.cell.row;
            if (!move.inserted && row == move.row) return true;
            if (row >= move.row) row += move.inserted ? 1 : -1;
            return false;
        });
    };
    bool known = true;
    const auto followRow = [&](RowEdit& edit) {
        if (!known) return false;
        const bool here =
            edit.kind == RowEdit::Kind::emptied || (edit.kind == RowEdit::Kind::inserted) == done;
        const bool stays = edit.kind == RowEdit::Kind::emptied;
        if (move.inserted) {
            const bool before = move.row <= edit.row;
            if (!before && !stays) move.row += here ? -1 : 1;
            if (before) ++edit.row;
            return false;
        }
        if (here && move.row == edit.row) {
            known = stays;
            return true;
        }
        const bool before = move.row < edit.row;
        if (!before && !stays) move.row += here ? -1 : 1;
        if (before) --edit.row;
        return false;
    };
    if (done) {
        followCells();
        std::reverse(step.rows.begin(), step.rows.end());
        std::erase_if(step.rows, followRow);
        std::reverse(step.rows.begin(), step.rows.end());
    } else {
        std::erase_if(step.rows, followRow);
        if (known) followCells();
    }
    return known;
}

void EditHistory::swap(GridModel& model, CellEdit& edit) {
    if (!model.contains(edit.cell)) return;
    Text now(model.text(edit.cell));
    model.setText(edit.cell, edit.other);
    edit.other = std::move(now);
}

void EditHistory::swap(GridModel& model, RowEdit& edit, bool back) {
    const RowEdit kept = edit;
    if (edit.kind == RowEdit::Kind::emptied) {
        edit = rowOf(model, edit.kind, edit.row);
        insert(model, kept);
        model.removeItem(kept.row + 1);
    } else if ((edit.kind == RowEdit::Kind::inserted) == back) {
        edit = rowOf(model, edit.kind, edit.row);
        model.removeItem(edit.row);
    } else {
        insert(model, edit);
    }
}

EditHistory::Outcome EditHistory::apply(std::deque<Step>& from, std::deque<Step>& to, bool back) {
    forgetUnknown(0);
    // What a host has taken away leaves nothing to do.
    while (!from.empty() && from.back().empty()) from.pop_back();
    if (from.empty()) return {};
    Step step = std::move(from.back());
    from.pop_back();
    const Outcome outcome{
        !step.rows.empty(), !step.cells.empty(),
        step.rows.empty() ? step.cells.front().cell : CellAddress{step.rows.front().row, -1}};
    const bool whole = attempt([&] {
        grid_.change([&](GridModel& model) {
            if (back) {
                for (auto edit = step.cells.rbegin(); edit != step.cells.rend(); ++edit) swap(model, *edit);
                for (auto edit = step.rows.rbegin(); edit != step.rows.rend(); ++edit)
                    swap(model, *edit, back);
            } else {
                for (RowEdit& edit : step.rows) swap(model, edit, back);
                for (CellEdit& edit : step.cells) swap(model, edit);
            }
        });
    });
    revision_ = grid_.revision();
    // Where memory has ended on the way, no other step fits any more.
    if (!whole || !attempt([&] { to.push_back(std::move(step)); })) forgetAll();
    return outcome;
}

EditHistory::Outcome EditHistory::undo() {
    return apply(done_, undone_, true);
}

EditHistory::Outcome EditHistory::redo() {
    return apply(undone_, done_, false);
}

}  // namespace obk
