#include "grid/range_editing.h"

#include "base/attempt.h"
#include "flexgrid/cell_texts.h"
#include "grid/cell_values.h"
#include "grid/check_mark.h"

#include <algorithm>
#include <utility>

namespace obk {

// Puts texts into cells, as their columns take them, and remembers what was there.
class RangeEditing::Writer {
public:
    Writer(RangeEditing& editing, GridModel& model)
        : editing_(editing), model_(model), formats_(editing.grid_.platform().regionalFormats()) {}

    GridModel& model() { return model_; }
    void put(CellAddress cell, TextView text) {
        if (!model_.contains(cell)) return;
        const ColumnType type = editing_.types_.type(cell.col);
        if (const auto own = cellText(type, text, editing_.list_.items(), formats_)) write(cell, type, *own);
    }
    // As it is, whatever the column takes.
    void copy(CellAddress from, CellAddress to) {
        const ColumnType type = editing_.types_.type(to.col);
        if (type != ColumnType::readOnly) write(to, type, Text(model_.text(from)));
    }
    void appendRow() {
        const int32_t row = model_.rows();
        step.rows.push_back({EditHistory::RowEdit::Kind::inserted, row, 0, {}, {}});
        if (!model_.setRows(row + 1)) step.rows.pop_back();
    }
    bool written() const { return written_ || !step.rows.empty(); }

    EditHistory::Step step;

private:
    void write(CellAddress cell, ColumnType type, const Text& text) {
        written_ = true;
        if (model_.text(cell) != text) {
            step.cells.push_back({cell, Text(model_.text(cell))});
            model_.setText(cell, text);
        }
        if (type == ColumnType::checkBox) showCheckMark(model_, cell);
    }

    RangeEditing& editing_;
    GridModel& model_;
    RegionalFormats formats_;
    bool written_ = false;
};

bool RangeEditing::change(const std::function<void(Writer&)>& work) {
    history_.begin();
    EditHistory::Step step;
    bool written = false;
    grid_.change([&](GridModel& model) {
        Writer writer(*this, model);
        // What memory has no room for is left out, and what was done before it can be taken back.
        attempt([&] { work(writer); });
        step = std::move(writer.step);
        written = writer.written();
    });
    history_.did(std::move(step));
    return written;
}

template <typename Use>
void RangeEditing::eachSelected(Use&& use) const {
    const CellRange selected = grid_.selection();
    for (int32_t row = std::max(selected.top, 0); row <= selected.bottom; ++row) {
        for (int32_t col = selected.left; col <= selected.right; ++col) use(CellAddress{row, col});
    }
}

bool RangeEditing::paste(TextView block) {
    std::vector<std::vector<Text>> texts;
    size_t width = 0;
    const CellRange selected = grid_.selection();
    // Texts beyond the last column take neither memory nor time, however many there are.
    const int32_t room = grid_.model().cols() - selected.left;
    const bool read = attempt([&] {
        eachCell(block, [&](int32_t row, int32_t col, TextView text) {
            if (static_cast<size_t>(row) >= texts.size()) texts.emplace_back();
            if (col < room) texts.back().emplace_back(text);
            width = std::max(width, static_cast<size_t>(col) + 1);
            return true;
        });
    });
    if (!read || texts.empty() || selected.left < 0) return false;
    const CellAddress start{std::max(selected.top, 0), selected.left};
    // How often it goes into the selection: once where it does not do so evenly.
    const auto repeated = [](int32_t available, size_t length) {
        const auto once = static_cast<int32_t>(length);
        return available % once == 0 ? available : once;
    };
    const int32_t rows = repeated(selected.bottom - start.row + 1, texts.size());
    const int32_t cols = std::min(repeated(selected.right - start.col + 1, width), room);
    return change([&](Writer& writer) {
        while (writer.model().rows() < start.row + rows) writer.appendRow();
        for (int32_t row = 0; row < rows; ++row) {
            const std::vector<Text>& line = texts[static_cast<size_t>(row) % texts.size()];
            for (int32_t col = 0; col < cols; ++col) {
                const size_t from = static_cast<size_t>(col) % width;
                if (from < line.size()) writer.put({start.row + row, start.col + col}, line[from]);
            }
        }
    });
}

bool RangeEditing::empty() {
    return change([&](Writer& writer) { eachSelected([&](CellAddress cell) { writer.put(cell, {}); }); });
}

bool RangeEditing::fillDown() {
    const CellRange selected = grid_.selection();
    const bool fromAbove = selected.top == selected.bottom;
    const int32_t source = fromAbove ? selected.top - 1 : selected.top;
    if (source < 0) return false;
    return change([&](Writer& writer) {
        eachSelected([&](CellAddress cell) {
            if (cell.row != source) writer.copy({source, cell.col}, cell);
        });
    });
}

bool RangeEditing::selectsMarks() const {
    const CellRange selected = grid_.selection();
    if (grid_.current() == grid_.corner()) return false;
    for (int32_t col = selected.left; col <= selected.right; ++col) {
        if (types_.type(col) == ColumnType::checkBox) return true;
    }
    return false;
}

bool RangeEditing::turnMarks() {
    const auto isMark = [this](CellAddress cell) { return types_.type(cell.col) == ColumnType::checkBox; };
    bool all = true;
    eachSelected([&](CellAddress cell) {
        if (isMark(cell)) all = all && trimmed(grid_.model().text(cell)) == checkedText;
    });
    return change([&](Writer& writer) {
        eachSelected([&](CellAddress cell) {
            if (isMark(cell)) writer.put(cell, all ? TextView() : checkedText);
        });
    });
}

bool RangeEditing::write(CellAddress cell, TextView text) {
    history_.begin();
    EditHistory::Step step{{}, {{cell, Text(grid_.model().text(cell))}}};
    if (step.cells.front().other == text || !grid_.setText(cell, text)) return false;
    history_.did(std::move(step));
    return true;
}

}  // namespace obk
