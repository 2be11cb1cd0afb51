// The steps that a person has done in a grid's cells, to take them back and to do them again.
#pragma once

#include "flexgrid/current_cell_grid.h"

#include <deque>
#include <vector>

namespace obk {

// Whose change of the rows: only a person's is a step.
enum class ChangedBy : uint8_t { host, person };

// Rows that a host inserts and removes meanwhile move the cells of the steps. What else it does to rows and
// columns ends what is remembered: no step ever changes another cell than the one it was about.
class EditHistory {
public:
    static constexpr size_t mostSteps = 100;

    // `grid` is borrowed and outlives what is remembered of its styles.
    explicit EditHistory(CurrentCellGrid& grid) : grid_(grid) {}

    struct CellEdit {
        CellAddress cell;
        Text other;  // the text that it has not now
    };
    struct RowEdit {
        enum class Kind : uint8_t { inserted, removed, emptied };  // by the step
        Kind kind = Kind::inserted;
        int32_t row = 0;
        // What it has when it is not in the grid, or not as it is there.
        int32_t height = 0;  // twips
        std::vector<Text> texts;
        std::vector<StyleRef> styles;
    };
    // The rows first, then the cells, each in their order.
    struct Step {
        std::vector<RowEdit> rows;
        std::vector<CellEdit> cells;
        bool empty() const { return rows.empty() && cells.empty(); }
    };

    // Before a person changes anything.
    void begin() { forgetUnknown(0); }
    // Once the grid has changed. Where memory has no room for the step, all others are forgotten, too.
    void did(Step step);
    // Before a row goes or is emptied.
    RowEdit rowNow(RowEdit::Kind kind, int32_t row) const;
    // Each once the grid has changed, by this alone.
    void rowInserted(int32_t row, ChangedBy by);
    void rowRemoved(RowEdit row, ChangedBy by);

    // What is done within it is one step.
    class Together {
    public:
        explicit Together(EditHistory& history) : history_(history) { history.together_ = Joined::next; }
        Together(const Together&) = delete;
        Together& operator=(const Together&) = delete;
        ~Together() { history_.together_ = Joined::none; }

    private:
        EditHistory& history_;
    };

    // What was done: nothing where there is no such step.
    struct Outcome {
        bool rows = false, cells = false;
        CellAddress at;  // one of them
        explicit operator bool() const { return rows || cells; }
    };
    Outcome undo();
    Outcome redo();
    bool hasUndo() const { return known() && !done_.empty(); }
    bool hasRedo() const { return known() && !undone_.empty(); }

private:
    enum class Joined : uint8_t { none, next, all };
    // A row that a host has inserted or removed, in the grid as it is now or was.
    struct RowMove {
        int32_t row;
        bool inserted;
    };

    bool known() const { return grid_.revision() == revision_; }
    void forgetUnknown(uint32_t changes);
    void forgetAll();
    void keep(Step step);
    void follow(RowMove change);
    // Whether the row is known on the far side of the step.
    static bool follow(RowMove& move, Step& step, bool done);
    Outcome apply(std::deque<Step>& from, std::deque<Step>& to, bool back);
    static void swap(GridModel& model, CellEdit& edit);
    static void swap(GridModel& model, RowEdit& edit, bool back);

    CurrentCellGrid& grid_;
    std::deque<Step> done_, undone_;  // the latest at the back
    Joined together_ = Joined::none;
    uint32_t revision_ = 0;  // of the grid, as the steps know it
};

}  // namespace obk
