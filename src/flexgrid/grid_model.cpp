#include "flexgrid/grid_model.h"

#include <algorithm>
#include <cmath>

namespace obk {

GridModel::GridModel(int32_t rows, int32_t cols, Dpi dpi) : rows_(dpi, defaultRowHeight), columns_(dpi) {
    columns_.resize(std::clamp(cols, 1, mostCols));
    rows_.appendEmpty(std::max(rows, 0));
}

bool GridModel::setRows(int32_t count) {
    if (count < 0) return false;
    if (count > rows()) return rows_.appendEmpty(count - rows());
    rows_.erase(count, rows() - count);
    return true;
}

bool GridModel::setCols(int32_t count) {
    if (count < 1 || count > mostCols) return false;
    const bool fewer = count < cols();
    columns_.resize(count);
    if (fewer) rows_.truncateCells(count);
    return true;
}

bool GridModel::addItem(TextView item, int32_t row) {
    if (row < 0 || row > rows()) return false;
    return rows_.insert(row, PackedRow::fromItem(item, cols()));
}

bool GridModel::addTexts(std::span<const TextView> texts, int32_t row, std::span<const StyleRef> styles) {
    if (row < 0 || row > rows()) return false;
    const auto most = static_cast<size_t>(cols());
    RowHandle made = PackedRow::fromTexts(texts.first(std::min(texts.size(), most)));
    if (!styles.empty()) PackedRow::setStyles(made, styles.first(std::min(styles.size(), most)));
    return rows_.insert(row, std::move(made));
}

bool GridModel::removeItem(int32_t row) {
    if (row < 0 || row >= rows()) return false;
    rows_.erase(row, 1);
    return true;
}

bool GridModel::sort(int32_t col, SortDirection direction, int32_t first, int32_t last,
                     const SortKeyOf& keyOf, int32_t* follow) {
    if (col < 0 || col >= cols() || first < 0 || last < first || last >= rows()) return false;
    const auto key = [this, first, col](uint32_t place) {
        const PackedRow* row = rows_.at(first + static_cast<int32_t>(place));
        return row ? row->text(col) : TextView();
    };
    const auto order = sortedOrder(static_cast<uint32_t>(last - first) + 1, key, direction, keyOf);
    rows_.reorder(first, order);
    if (follow && *follow >= first && *follow <= last) {
        const auto moved = std::find(order.begin(), order.end(), static_cast<uint32_t>(*follow - first));
        *follow = first + static_cast<int32_t>(moved - order.begin());
    }
    return true;
}

bool GridModel::setText(CellAddress cell, TextView text) {
    if (!contains(cell)) return false;
    RowHandle* row = rows_.stored(cell.row);
    if (!row && text.empty()) return true;  // what is a run of empty rows stays one
    PackedRow::setText(row ? *row : rows_.slot(cell.row), cell.col, text, cols());
    return true;
}

bool GridModel::setStyle(CellAddress cell, const CellStyle& style) {
    if (!contains(cell) || (style.fontName && style.fontName->empty())) return false;
    if (style.fontSize && !(*style.fontSize > 0 && *style.fontSize <= largestFont)) return false;
    return putStyle(cell, styles_.shared(style));
}

bool GridModel::putStyle(CellAddress cell, StyleRef style) {
    RowHandle* row = rows_.stored(cell.row);
    if (!row && !style) return true;  // what is a run of empty rows stays one
    PackedRow::setStyle(row ? *row : rows_.slot(cell.row), cell.col, std::move(style));
    return true;
}

CellAlignment GridModel::alignment(CellAddress cell) const {
    if (!contains(cell)) return CellAlignment::leftCentre;
    const CellAlignment said = style(cell)->alignment.value_or(columns_.alignment(cell.col));
    if (said != CellAlignment::general) return said;
    return isNumber(text(cell)) ? CellAlignment::rightCentre : CellAlignment::leftCentre;
}

bool GridModel::setColWidth(int32_t col, int32_t twips) {
    if (col < 0 || col >= cols() || twips < 0 || twips > greatestLength) return false;
    columns_.setWidth(col, twips);
    return true;
}

bool GridModel::setColAlignment(int32_t col, CellAlignment alignment) {
    if (col < 0 || col >= cols()) return false;
    columns_.setAlignment(col, alignment);
    return true;
}

bool GridModel::setRowHeight(int32_t row, int32_t twips) {
    if (row < 0 || row >= rows() || twips < 0 || twips > greatestLength) return false;
    rows_.setHeight(row, twips);
    return true;
}

bool GridModel::setDefaultRowHeight(int32_t twips) {
    if (twips < 1 || twips > greatestLength) return false;
    rows_.setDefaultHeight(twips);
    return true;
}

void GridModel::setDpi(Dpi dpi) {
    rows_.setDpi(dpi);
    columns_.setDpi(dpi);
}

}  // namespace obk
