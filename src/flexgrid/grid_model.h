// The cells of a flexible grid, without a widget: texts, styles, sizes and their order.
#pragma once

#include "flexgrid/column_list.h"
#include "flexgrid/row_sequence.h"
#include "flexgrid/sort_order.h"
#include "flexgrid/style_table.h"

#include <span>

namespace obk {

struct CellAddress {
    int32_t row = 0, col = 0;
    friend bool operator==(CellAddress, CellAddress) = default;
};

// Rows and columns count from 0. What is out of range is refused: nothing changes, and the answer is false or
// an empty value. When memory ends, std::bad_alloc leaves the grid as it was.
class GridModel {
public:
    static constexpr int32_t mostCols = 10001;
    static constexpr int32_t greatestLength = 1'000'000;  // twips: what a row may be high, a column wide
    static constexpr int32_t defaultRowHeight = 240;      // twips
    static constexpr float largestFont = 8192;            // points

    GridModel(int32_t rows, int32_t cols, Dpi dpi);

    int32_t rows() const { return rows_.size(); }
    int32_t cols() const { return columns_.size(); }
    // Rows that come are empty, and so are columns; those that go take their cells along.
    bool setRows(int32_t count);
    bool setCols(int32_t count);  // 1 to mostCols
    bool contains(CellAddress cell) const {
        return static_cast<uint32_t>(cell.row) < static_cast<uint32_t>(rows()) &&
               static_cast<uint32_t>(cell.col) < static_cast<uint32_t>(cols());
    }

    // A new row before `row`, or after the last. Tab characters stand between the cells of `item`; what is
    // beyond the last column is dropped.
    bool addItem(TextView item, int32_t row);
    // A new row out of one text for each cell. Neighbours that are the very same memory are kept once. Its
    // first cells get `styles`, which are this grid's.
    bool addTexts(std::span<const TextView> texts, int32_t row, std::span<const StyleRef> styles = {});
    bool removeItem(int32_t row);
    // Texts, pictures and styles go; rows, columns and their sizes stay.
    void clear() { rows_.clearCells(); }
    // Reorders rows `first` to `last` as wholes by the texts of one column.
    // Without an alphabet of `keyOf` by their capitals. Where the row that is now at `follow` goes is told
    // there.
    bool sort(int32_t col, SortDirection direction, int32_t first, int32_t last, const SortKeyOf& keyOf = {},
              int32_t* follow = nullptr);

    // Valid until the next change of the grid.
    TextView text(CellAddress cell) const {
        const PackedRow* row = rows_.at(cell.row);
        return row ? row->text(cell.col) : TextView();
    }
    bool setText(CellAddress cell, TextView text);

    StyleRef style(CellAddress cell) const {
        const PackedRow* row = rows_.at(cell.row);
        return row ? row->style(cell.col) : StyleRef();
    }
    // Refused for a font size that is none (0 or less, more than `largestFont`) and for an empty font name.
    bool setStyle(CellAddress cell, const CellStyle& style);
    // For rows that come with their styles; `style` is one that setStyle() takes.
    StyleRef sharedStyle(const CellStyle& style) { return styles_.shared(style); }
    // One attribute of a cell's style: setAttribute<&CellStyle::bold>(cell, true). Refused as by setStyle().
    template <auto Attribute, typename Setting>
    bool setAttribute(CellAddress cell, const Setting& setting) {
        RowHandle* const row = contains(cell) ? rows_.stored(cell.row) : nullptr;
        StyleRef* const own = row && *row ? (*row)->styleSlot(cell.col) : nullptr;
        return (own && styles_.repeatChange<Attribute>(*own, setting)) ||
               setFirstAttribute<Attribute>(cell, setting);
    }
    // How many different styles the cells have.
    size_t styleCount() const { return styles_.size(); }
    // How the cell's text stands: as the cell says, else as the column says; never `general`.
    CellAlignment alignment(CellAddress cell) const;

    const ColumnList& columns() const { return columns_; }
    bool setColWidth(int32_t col, int32_t twips);  // 0 hides the column
    bool setColAlignment(int32_t col, CellAlignment alignment);
    const RowSequence& rowList() const { return rows_; }
    bool setRowHeight(int32_t row, int32_t twips);  // 0 hides the row
    bool setDefaultRowHeight(int32_t twips);        // 1 or more
    void setDpi(Dpi dpi);

private:
    // The same for a row's first styled cell, and for one of another look than the cells before.
    template <auto Attribute, typename Setting>
    [[gnu::noinline]] bool setFirstAttribute(CellAddress cell, const Setting& setting) {
        if (!contains(cell)) return false;
        const StyleRef from = style(cell);
        StyleRef to = from;
        if (styles_.repeatChange<Attribute>(to, setting)) return putStyle(cell, std::move(to));
        CellStyle changed = *from;
        changed.*Attribute = setting;
        if (!setStyle(cell, changed)) return false;
        styles_.rememberChange<Attribute>(from, style(cell));
        return true;
    }
    bool putStyle(CellAddress cell, StyleRef style);

    StyleTable styles_;  // outlives the rows that refer to it
    RowSequence rows_;
    ColumnList columns_;
};

}  // namespace obk
