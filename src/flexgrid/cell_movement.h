// Where keys move the current cell.
#pragma once

#include "flexgrid/grid_view.h"

#include <optional>

namespace obk {

// Arrows, Home, End and the Page keys; with `control` they go to the edges. Hidden rows and columns are
// passed over. Nothing for other keys, and in a grid without rows.
std::optional<CellAddress> movedBy(int16_t key, bool control, CellAddress from, const GridView& view);

}  // namespace obk
