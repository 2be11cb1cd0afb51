// What a person does to many cells at once: they are pasted, emptied, filled and checked in one step.
#pragma once

#include "flexgrid/flex_grid.h"
#include "grid/column_types.h"
#include "grid/edit_history.h"
#include "widgets/drop_list.h"

namespace obk {

// Each goes through the types of the columns and answers whether there was anything to change, of which the
// host has to hear.
class RangeEditing {
public:
    // All are borrowed. `list` holds what cells of lists may be.
    RangeEditing(FlexGrid& grid, const ColumnTypes& types, const DropList& list, EditHistory& history)
        : grid_(grid), types_(types), list_(list), history_(history) {}

    // Cells out of a text with tab characters and line ends between them, from the first selected cell on;
    // again and again where the selection has room for them several times. Rows come where the last one is
    // not enough.
    bool paste(TextView block);
    bool empty();
    // The first selected row into those below it; of one row, the row above it.
    bool fillDown();
    bool selectsMarks() const;
    // Checks all of them, or unchecks them where all are checked.
    bool turnMarks();
    // A text that its editor has made, as it is.
    bool write(CellAddress cell, TextView text);

private:
    class Writer;

    bool change(const std::function<void(Writer&)>& work);
    template <typename Use>
    void eachSelected(Use&& use) const;

    FlexGrid& grid_;
    const ColumnTypes& types_;
    const DropList& list_;
    EditHistory& history_;
};

}  // namespace obk
