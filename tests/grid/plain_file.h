// The grid's text file once more, written and read in the simplest way: what the real one is compared with.
#pragma once

#include "grid/grid_file_rows.h"
#include "platform/headless/headless_machine.h"
#include "platform/headless/memory_file_system.h"

#include <memory>
#include <string>
#include <vector>

namespace obk::test {

using PlainTexts = std::vector<std::vector<Text>>;

// What the western code page has for a unit, "?" for what it has not; and back.
char plainByte(char16_t unit);
char16_t plainUnit(char byte);

std::string plainBytes(const PlainTexts& cells, int32_t cols, TextView caption);

// Every field of a whole file at once.
std::vector<Text> plainFields(const std::string& bytes);

// Rows of `cols` out of all fields but the first; the last row is filled up with its last field.
PlainTexts plainRows(const std::vector<Text>& fields, size_t cols);

std::unique_ptr<GridModel> gridOf(const PlainTexts& cells, int32_t cols);
PlainTexts textsOf(const GridModel& grid);

// Grids go into files and come back by the real writer and reader.
struct GridFiles {
    static constexpr TextView path = u"orders.txt";

    bool save(const GridModel& grid, TextView caption, TextView to = path);
    // What is there of the file goes into the grid, whose rows go first. Its caption.
    Text load(GridModel& grid);

    headless::MemoryFileSystem files;
    headless::ManualClock clock;
    ColumnTypes types;
    std::vector<bool> signs;  // that the work takes long
};

}  // namespace obk::test
