// Cells as text for other programs.
#pragma once

#include "flexgrid/grid_view.h"

namespace obk {

// Rows end in CR LF, tab characters stand between their cells. A cell that holds a tab character or a line
// break is put in quotation marks, those inside it doubled, as spreadsheets read it.
Text tabSeparated(const GridModel& grid, const CellRange& cells);

}  // namespace obk
