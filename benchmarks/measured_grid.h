// The flexible grid's model filled with the rows that it is measured with.
#pragma once

#include "flexgrid/grid_model.h"
#include "grid_data.h"

#include <memory>

namespace obk {

using GridPointer = std::unique_ptr<GridModel>;

inline GridPointer emptyGrid() {
    return std::make_unique<GridModel>(0, cols, Dpi(96));
}

inline void addAll(GridModel& grid, const Data& data) {
    for (const Text& item : data.items) grid.addItem(item, grid.rows());
}

inline GridPointer filledGrid(const Data& data) {
    GridPointer grid = emptyGrid();
    addAll(*grid, data);
    return grid;
}

}  // namespace obk
