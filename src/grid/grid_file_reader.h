// A grid's text file on its way in: its first line, then rows of cells.
#pragma once

#include "grid/column_types.h"
#include "grid/field_reader.h"

#include <optional>
#include <span>
#include <vector>

namespace obk {

struct GridFileHeader {
    // The number before the first "|"; nothing when there is none, and for what is no 32-bit number. Whether
    // a grid can have so many columns is for the grid to say.
    std::optional<int32_t> cols;
    // The line without its first three characters, however many the number had. Hosts count on it.
    Text caption;
};

class GridFileReader {
public:
    // A file that cannot be opened is an empty one. `waitCursor` is borrowed.
    GridFileReader(FileSystem& files, TextView path, WaitCursor& waitCursor);

    // To be read first.
    GridFileHeader header();
    bool atEnd() { return fields_.atEnd(); }
    // The texts of the next `cols` cells, each as its column shows it; cells that the file does not have get
    // the last text that it had, as the same memory. Valid until the next call.
    std::span<const TextView> row(int32_t cols, const ColumnTypes& types);

private:
    struct Place {
        size_t start, length;
    };

    FieldReader fields_;
    Text units_;
    std::vector<Place> places_;
    std::vector<TextView> texts_;
};

}  // namespace obk
