#include "flexgrid/cell_texts.h"

namespace obk {

namespace {

void appendCell(Text& all, TextView text) {
    if (text.find_first_of(u"\t\r\n") == TextView::npos) {
        all += text;
        return;
    }
    all += u'"';
    for (const char16_t unit : text) all.append(unit == u'"' ? 2 : 1, unit);
    all += u'"';
}

}  // namespace

Text tabSeparated(const GridModel& grid, const CellRange& cells) {
    Text all;
    for (int32_t row = cells.top; row <= cells.bottom; ++row) {
        for (int32_t col = cells.left; col <= cells.right; ++col) {
            if (col > cells.left) all += u'\t';
            appendCell(all, grid.text({row, col}));
        }
        all += u"\r\n";
    }
    return all;
}

}  // namespace obk
