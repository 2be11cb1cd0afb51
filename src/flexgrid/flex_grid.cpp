#include "flexgrid/flex_grid.h"

#include "base/attempt.h"
#include "flexgrid/cell_texts.h"
#include "widgets/surface.h"

#include <algorithm>
#include <cmath>

namespace obk {

FlexGrid::FlexGrid(Container& parent) : ShownGrid(parent), dragTimer_(*this) {
    ticked_ = dragTimer_.ticked.connect([this] { scrollAtEdge(); });
}

// Measuring all rows would be seen: those of the most characters, and all that show.
std::vector<int32_t> FlexGrid::widestRows(int32_t col) const {
    constexpr size_t most = 200;
    std::vector<int32_t> rows;
    const auto longer = [&](int32_t left, int32_t right) {
        return model().text({left, col}).size() > model().text({right, col}).size();
    };
    const auto keepLongest = [&] {
        if (rows.size() <= most) return;
        std::nth_element(rows.begin(), rows.begin() + most, rows.end(), longer);
        rows.resize(most);
    };
    for (int32_t row = model().rowList().nextStored(0); row < Rows();
         row = model().rowList().nextStored(row + 1)) {
        if (model().text({row, col}).empty()) continue;
        rows.push_back(row);
        if (rows.size() == 16 * most) keepLongest();
    }
    keepLongest();
    view().eachVisibleRow([&](int32_t row, int32_t, int32_t) { rows.push_back(row); });
    return rows;
}

void FlexGrid::fitColumn(int32_t col) {
    if (col < 0 || col >= Cols()) return;
    int32_t width = 0;
    const Dpi scale = dpi();
    for (const int32_t row : widestRows(col)) {
        const StyleRef style = model().style({row, col});
        const FontDescription font = cellFont(fontDescription(), *style);
        const int32_t picture = style->picture ? scale.scaled(style->picture->size().width) : 0;
        const PixelSize text = platform().appearance().measure(model().text({row, col}), font, scale);
        width = std::max(width, text.width + picture);
    }
    if (width == 0) return;
    const int32_t pixels = width + 2 * cellMargin(scale);
    const double twips = std::ceil(scale.toTwips(pixels).value);
    resizeColumn(col, static_cast<int32_t>(std::min<double>(twips, GridModel::greatestLength)));
}

void FlexGrid::copySelection() const {
    if (Rows() == 0) return;
    const Surface* shownOn = surface();
    const NativeWindow owner = shownOn ? shownOn->window() : 0;
    // What does not fit into memory is not copied.
    attempt([&] { platform().putOnClipboard(owner, tabSeparated(model(), selection())); });
}

void FlexGrid::detach() {
    endDrag();
    ShownGrid::detach();
}

void FlexGrid::focusWentBelow() {
    endDrag();
    ShownGrid::focusWentBelow();
}

}  // namespace obk
