// Cells as text for other programs.
#pragma once

#include "flexgrid/grid_view.h"

#include <functional>

namespace obk {

// Rows end in CR LF, tab characters stand between their cells. A cell that holds a tab character or a line
// break is put in quotation marks, those inside it doubled, as spreadsheets read it.
Text tabSeparated(const GridModel& grid, const CellRange& cells);

// The reverse: calls use(row, col, text) for each cell, counted from 0, until it answers false. A line break
// at the end begins no further row.
void eachCell(TextView tabSeparated, const std::function<bool(int32_t, int32_t, TextView)>& use);

}  // namespace obk
