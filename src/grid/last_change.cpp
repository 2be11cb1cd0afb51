#include "grid/last_change.h"

#include "base/attempt.h"

#include <utility>

namespace obk {

void LastChange::edited(std::vector<CellBefore> cells) {
    change_ = std::move(cells);
    revision_ = grid_.revision();
}

LastChange::Row LastChange::rowNow(int32_t row) const {
    Row now;
    now.row = row;
    now.height = grid_.RowHeight(row);
    now.only = grid_.Rows() == 1;
    for (int32_t col = 0; col < grid_.Cols(); ++col) {
        now.texts.emplace_back(grid_.model().text({row, col}));
        now.styles.push_back(grid_.model().style({row, col}));
    }
    return now;
}

void LastChange::deleted(Row row) {
    change_ = std::move(row);
    revision_ = grid_.revision();
}

LastChange::Undone LastChange::takeBack() {
    const auto change = std::exchange(change_, {});
    if (revision_ != grid_.revision()) return Undone::nothing;
    if (const auto* cells = std::get_if<std::vector<CellBefore>>(&change)) {
        // What memory has no room for is left out.
        attempt([&] {
            grid_.change([&](GridModel& model) {
                for (auto before = cells->rbegin(); before != cells->rend(); ++before)
                    model.setText(before->cell, before->text);
            });
        });
        return Undone::cells;
    }
    const auto* gone = std::get_if<Row>(&change);
    if (!gone) return Undone::nothing;
    grid_.change([&](GridModel& model) {
        const std::vector<TextView> texts(gone->texts.begin(), gone->texts.end());
        if (!model.addTexts(texts, gone->row, gone->styles)) return;
        if (gone->height != model.rowList().defaultHeight())
            attempt([&] { model.setRowHeight(gone->row, gone->height); });
        if (gone->only) model.removeItem(gone->row + 1);
    });
    grid_.SetRow(gone->row);
    return Undone::row;
}

}  // namespace obk
