#include "grid/grid_file_rows.h"

#include "grid/cell_rules.h"

namespace obk {

void writeRows(const GridModel& grid, GridFileWriter& file) {
    const RowSequence& rows = grid.rowList();
    for (int32_t at = 0; at < grid.rows() && file.good(); ++at) {
        const PackedRow* row = rows.at(at);
        for (int32_t col = 0; col < grid.cols(); ++col) file.writeValue(row ? row->text(col) : TextView());
    }
}

void readRows(GridModel& grid, GridFileReader& file, const ColumnTypes& types) {
    if (file.atEnd()) return;
    const StyleRef plain = grid.sharedStyle(loadedStyle(ColumnType::text));
    const StyleRef check = grid.sharedStyle(loadedStyle(ColumnType::checkBox));
    std::vector<StyleRef> styles;
    styles.reserve(static_cast<size_t>(grid.cols()));
    for (int32_t col = 0; col < grid.cols(); ++col)
        styles.push_back(types.type(col) == ColumnType::checkBox ? check : plain);
    bool room = true;
    while (room && !file.atEnd()) room = grid.addTexts(file.row(grid.cols(), types), grid.rows(), styles);
}

}  // namespace obk
