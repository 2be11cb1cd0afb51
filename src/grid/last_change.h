// What a person has changed last in a grid's cells, to take it back.
#pragma once

#include "flexgrid/current_cell_grid.h"

#include <variant>
#include <vector>

namespace obk {

// One step, of which the grid forgets nothing until rows or columns come, go or change places by another way.
class LastChange {
public:
    // `grid` is borrowed and outlives what is remembered of its styles.
    explicit LastChange(CurrentCellGrid& grid) : grid_(grid) {}

    struct CellBefore {
        CellAddress cell;
        Text text;
    };
    // To be told once the grid has changed.
    void edited(std::vector<CellBefore> cells);

    // A row as it is, and where it stands.
    struct Row {
        int32_t row = 0;
        int32_t height = 0;  // twips
        bool only = false;   // it was emptied and stayed
        std::vector<Text> texts;
        std::vector<StyleRef> styles;
    };
    Row rowNow(int32_t row) const;
    void deleted(Row row);

    enum class Undone : uint8_t { nothing, cells, row };
    // Afterwards there is nothing to take back.
    Undone takeBack();

private:
    CurrentCellGrid& grid_;
    std::variant<std::monostate, std::vector<CellBefore>, Row> change_;
    uint32_t revision_ = 0;  // of the grid, after the change
};

}  // namespace obk
