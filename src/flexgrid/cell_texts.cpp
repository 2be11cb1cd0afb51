#include "flexgrid/cell_texts.h"

#include <algorithm>

namespace obk {

namespace {

void appendCell(Text& all, TextView text) {
    if (!text.starts_with(u'"') && text.find_first_of(u"\t\r\n") == TextView::npos) {
        all += text;
        return;
    }
    all += u'"';
    for (const char16_t unit : text) all.append(unit == u'"' ? 2 : 1, unit);
    all += u'"';
}

// Takes the text of one cell off the start.
Text takeCell(TextView& rest) {
    Text cell;
    if (!rest.empty() && rest.front() == u'"') {
        // Quotation marks that nobody has closed, or that end before the cell does, are part of it.
        for (size_t at = 1; at < rest.size(); ++at) {
            if (rest[at] != u'"') {
                cell += rest[at];
            } else if (at + 1 < rest.size() && rest[at + 1] == u'"') {
                cell += rest[at++];
            } else if (at + 1 == rest.size() || TextView(u"\t\r\n").find(rest[at + 1]) != TextView::npos) {
                rest.remove_prefix(at + 1);
                return cell;
            } else {
                break;
            }
        }
    }
    const size_t end = std::min(rest.find_first_of(u"\t\r\n"), rest.size());
    cell = rest.substr(0, end);
    rest.remove_prefix(end);
    return cell;
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

void eachCell(TextView tabSeparated, const std::function<bool(int32_t, int32_t, TextView)>& use) {
    TextView rest = tabSeparated;
    for (int32_t row = 0; row == 0 || !rest.empty(); ++row) {
        for (int32_t col = 0;; ++col) {
            if (!use(row, col, takeCell(rest))) return;
            if (rest.empty() || rest.front() != u'\t') break;
            rest.remove_prefix(1);
        }
        if (rest.empty()) return;
        const bool two = rest.size() > 1 && rest[0] == u'\r' && rest[1] == u'\n';
        rest.remove_prefix(two ? 2 : 1);
    }
}

}  // namespace obk
