// What a person finds in a control that is empty at first.
#pragma once

#include "grid/grid_edit.h"
#include "pagetab/page_tab.h"
#include "updown/up_down_text_box.h"

namespace obk::test {

inline void giveWork(Control& control, int32_t rows, const Text& tabs) {
    if (auto* const field = dynamic_cast<UpDownTextBox*>(&control)) field->SetInterval(1);
    if (auto* const strip = dynamic_cast<PageTab*>(&control)) strip->SetActiveTabs(tabs);
    if (auto* const grid = dynamic_cast<GridEdit*>(&control)) {
        grid->ColsSet(7);
        grid->RowsSet(rows);
        for (int32_t col = 0; col < 7; ++col) grid->ColTypeSet(col, col);
        grid->ComboAdd(u"oak");
    }
}

}  // namespace obk::test
