// A second grid model, as simple as can be: what GridModel is compared with.
#pragma once

#include "base/letter_case.h"
#include "flexgrid/grid_model.h"
#include "framework/value.h"

#include <algorithm>
#include <vector>

namespace obk::test {

struct PlainCell {
    Text text;
    CellStyle style;
};

struct PlainRow {
    std::vector<PlainCell> cells;
    int32_t height = -1;
};

// -1, 0 or 1: the generic order, worked out anew for each pair.
inline int genericOrder(TextView left, TextView right) {
    const auto kind = [](TextView text) {
        if (numberFromText(text)) return 1;
        return text.empty() || text.front() < u'0' ? 0 : 2;
    };
    const auto ordered = [](const auto& one, const auto& other) {
        return one < other ? -1 : one > other ? 1 : 0;
    };
    if (kind(left) != kind(right)) return ordered(kind(left), kind(right));
    if (kind(left) == 1) return ordered(*numberFromText(left), *numberFromText(right));
    Text one(left), other(right);
    for (Text* text : {&one, &other}) {
        for (char16_t& unit : *text) unit = upperSimple(unit);
    }
    return ordered(one, other);
}

// Vectors of vectors, every position summed up from the start, every order found by inserting. It is told
// only what GridModel has not refused.
struct PlainGrid {
    PlainGrid(int32_t rowCount, int32_t cols, Dpi scale)
        : dpi(scale), widths(static_cast<size_t>(cols), 960) {
        setRows(rowCount);
    }

    int32_t cols() const { return static_cast<int32_t>(widths.size()); }
    PlainRow emptyRow() const { return {std::vector<PlainCell>(widths.size()), -1}; }
    PlainRow& row(int32_t at) { return rows[static_cast<size_t>(at)]; }
    PlainCell& cell(CellAddress at) { return row(at.row).cells[static_cast<size_t>(at.col)]; }
    int32_t pixels(int32_t twips) const {
        return twips == 0 ? 0 : std::max(1, dpi.toPixels(Twips{static_cast<double>(twips)}));
    }
    int32_t height(int32_t at) { return row(at).height < 0 ? defaultHeight : row(at).height; }
    int64_t left(int32_t col) const {
        int64_t left = 0;
        for (int32_t at = 0; at < col; ++at) left += pixels(widths[static_cast<size_t>(at)]);
        return left;
    }

    void setRows(int32_t count) { rows.resize(static_cast<size_t>(count), emptyRow()); }
    void setCols(int32_t count) {
        widths.resize(static_cast<size_t>(count), 960);
        for (PlainRow& row : rows) row.cells.resize(widths.size());
    }
    void addItem(const Text& item, int32_t at) {
        PlainRow row = emptyRow();
        size_t col = 0;
        for (const char16_t unit : item) {
            if (unit == u'\t')
                ++col;
            else if (col < row.cells.size())
                row.cells[col].text.push_back(unit);
        }
        rows.insert(rows.begin() + at, row);
    }
    void removeItem(int32_t at) { rows.erase(rows.begin() + at); }
    void clear() {
        for (PlainRow& row : rows) row.cells.assign(widths.size(), {});
    }
    void sort(int32_t col, SortDirection direction, int32_t first, int32_t last) {
        for (int32_t at = first + 1; at <= last; ++at) {
            for (int32_t place = at; place > first; --place) {
                const int order = genericOrder(cell({place - 1, col}).text, cell({place, col}).text);
                if (direction == SortDirection::ascending ? order <= 0 : order >= 0) break;
                std::swap(row(place - 1), row(place));
            }
        }
    }
    void setText(CellAddress at, const Text& text) { cell(at).text = text; }
    void setStyle(CellAddress at, const CellStyle& style) { cell(at).style = style; }
    template <auto Attribute, typename Setting>
    void setAttribute(CellAddress at, const Setting& setting) {
        cell(at).style.*Attribute = setting;
    }
    void setRowHeight(int32_t at, int32_t twips) { row(at).height = twips; }
    void setColWidth(int32_t col, int32_t twips) { widths[static_cast<size_t>(col)] = twips; }
    void setDefaultRowHeight(int32_t twips) { defaultHeight = twips; }

    Dpi dpi;
    std::vector<int32_t> widths;
    std::vector<PlainRow> rows;
    int32_t defaultHeight = GridModel::defaultRowHeight;
};

}  // namespace obk::test
