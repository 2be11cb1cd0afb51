// The rows of a grid to its text file, and from there.
#pragma once

#include "flexgrid/grid_model.h"
#include "grid/grid_file_reader.h"
#include "grid/grid_file_writer.h"

namespace obk {

// Every cell, row by row. Ends early when the file can take no more.
void writeRows(const GridModel& grid, GridFileWriter& file);

// Appends the file's rows. Cells stand to the left in the middle of their height; those of check columns show
// check marks. Where memory ends, std::bad_alloc leaves the rows that were read.
void readRows(GridModel& grid, GridFileReader& file, const ColumnTypes& types);

}  // namespace obk
