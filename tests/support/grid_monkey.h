// A person and a host who edit a grid as the dice say; its rules are checked after each step.
#pragma once

#include "grid/grid_edit.h"
#include "support/accessible_walk.h"
#include "support/control_monkey.h"
#include "support/something_to_work_on.h"

#include <algorithm>

namespace obk::test {

class GridMonkey final : public ControlMonkey {
public:
    explicit GridMonkey(Dice dice) : ControlMonkey(GridEdit::memberTable(), std::move(dice)) { place(); }

    // What does not hold after one step; null when all does.
    const char* step() {
        act();
        return broken_ ? broken_ : checked();
    }

private:
    using Role = AccessibleItem::Role;
    static constexpr int32_t mostRows = 60, cols = 7;

    std::shared_ptr<GridEdit> grid() const { return std::static_pointer_cast<GridEdit>(control_); }
    void prepare(Control& control) override {
        telling_ = false;  // what the one before tells is another story
        giveWork(control, 5, {});
        for (const char16_t* item : {u"elm", u"ash"}) static_cast<GridEdit&>(control).ComboAdd(item);
    }
    void act() override {
        const auto held = grid();
        if (held->RowsCurrent() > mostRows) return held->RowsSet(3);
        const int32_t what = below(12);
        if (what > 2) return ControlMonkey::act();
        if (what == 0) {
            held->SetAllowGridEdit(below(8) != 0);
            return held->GridSetFocus(below(cols), below(mostRows / 4));
        }
        // Nobody can work in a grid that stays hidden, or without the keyboard.
        held->GridShow();
        held->focus();
    }
    void raise(const Member& event, std::span<Value> arguments) override {
        const bool closing = event.name == u"ChangeEdited";
        if (closing && telling_) broken_ = "a host that is told of an editor closing is told once";
        telling_ = telling_ || closing;
        ControlMonkey::raise(event, arguments);
        if (closing) telling_ = false;
    }

    const char* checked() {
        const auto held = grid();
        GridEdit& grid = *held;
        const int32_t rows = grid.RowsCurrent(), row = grid.RowCurrent();
        if (rows == 0 ? row != -1 : row < 0 || row >= rows) return "the current row is in the grid";
        if (grid.ColCurrent() < 0 || grid.ColCurrent() >= grid.ColsCurrent())
            return "the current column is in the grid";
        const auto* const surface = platform_.surface(grid.window());
        if (!surface) return nullptr;
        // What shows of editors, and where cells show.
        std::vector<PixelRect> shown, cells;
        for (const headless::HeadlessWindow* child : surface->children()) {
            if (child->visible()) shown.push_back(child->bounds().intersected(child->clip()));
        }
        // Windows are seen at a glance. A list that is drawn is looked for in its own columns, elsewhere now
        // and then.
        const Text type = grid.ColTypeRead(grid.ColCurrent());
        if (type != u"4" && type != u"6" && below(8) != 0 && shown.empty()) return nullptr;
        for (const AccessibleItem& item : shownItems(*surface)) {
            const bool list = item.role == Role::comboBox && (item.name == u"List" || item.name == u"Time");
            if (list) shown.push_back(item.bounds);
            if (item.role == Role::cell && !item.bounds.empty()) cells.push_back(item.bounds);
        }
        std::erase_if(shown, [](const PixelRect& part) { return part.empty(); });
        if (shown.size() > 1) return "one editor is open at most";
        // Of a drawn one, as far as there are cells.
        PixelRect area = cells.empty() ? PixelRect() : cells[0];
        for (const PixelRect& cell : cells)
            area = {std::min(area.left, cell.left), std::min(area.top, cell.top),
                    std::max(area.right, cell.right), std::max(area.bottom, cell.bottom)};
        const auto over = [&](const PixelRect& cell) {
            const PixelRect part = shown[0].intersected(area);
            return part.empty() || part.intersected(cell) == part;
        };
        if (!shown.empty() && std::none_of(cells.begin(), cells.end(), over))
            return "an editor is over a cell";
        if (below(50) == 0) grid.BoxHide();
        return nullptr;
    }

    bool telling_ = false;
};

}  // namespace obk::test
