// How a cell shows a check mark in place of a letter.
#pragma once

#include "base/attempt.h"
#include "flexgrid/grid_model.h"
#include "grid/cell_rules.h"

namespace obk {

// `cells` is a grid or its model.
template <typename Cells>
void showCheckMark(Cells& cells, CellAddress cell) {
    attempt([&] {
        cells.template setAttribute<&CellStyle::fontName>(cell, std::make_shared<const Text>(checkFontName));
    });
    attempt([&] { cells.template setAttribute<&CellStyle::fontSize>(cell, checkFontSize); });
}

}  // namespace obk
