// What kind of cells each column of a grid has.
#pragma once

#include "base/text.h"

#include <cstdint>
#include <vector>

namespace obk {

// In the numbering that hosts know.
enum class ColumnType : int32_t {
    text = 0,
    date = 1,
    readOnly = 2,
    checkBox = 3,
    list = 4,
    number = 5,
    time = 6,
};

// Keeps any code that a host gives; columns beyond the table have none.
class ColumnTypes {
public:
    static constexpr int32_t count = 10001;

    // False, and nothing stored, for a column that the table does not have. Throws when there is no memory.
    bool set(int32_t col, int32_t code);
    // The code as decimal text; empty for a column that the table does not have.
    Text read(int32_t col) const;
    // What decides which editor opens: an unknown code, or no column of the table, opens none.
    ColumnType type(int32_t col) const;

private:
    int32_t code(int32_t col) const;

    std::vector<int32_t> codes_;  // up to the last column that a host gave one; text beyond it
};

}  // namespace obk
