// The editable grid's text file: saved and loaded step by step, whatever happens to the file.
#include "base/attempt.h"
#include "grid/grid_edit.h"
#include "grid/grid_file_rows.h"

namespace obk {

void GridEdit::GridSave(const Text& path, const Text& header) {
    const CellAddress current = flexGRID.current();
    BoxHide();
    flexGRID.SetRedraw(false);
    // The writer fails as a whole, before it has touched the file.
    attemptSequence([&] {
        WaitCursor waitCursor(platform().clock(), [this](bool shown) { platform().showWaitCursor(shown); });
        GridFileWriter file(platform().files(), path, waitCursor);
        file.writeHeader(flexGRID.Cols(), header);
        writeRows(flexGRID.model(), file);
        file.close();
    });
    // Only a host that was told can have moved it.
    if (flexGRID.current() != current) goTo(current.row, current.col);
    flexGRID.SetRedraw(true);
}

Text GridEdit::GridLoad(const Text& path) {
    Text caption;
    BoxHide();
    flexGRID.Clear();
    attempt([&] { flexGRID.SetRows(0); });
    flexGRID.setVisible(false);
    // A grid of no rows stays hidden, as does one whose file cannot be read.
    attemptSequence([&] {
        WaitCursor waitCursor(platform().clock(), [this](bool shown) { platform().showWaitCursor(shown); });
        GridFileReader file(platform().files(), path, waitCursor);
        GridFileHeader header = file.header();
        if (header.cols) attempt([&] { flexGRID.SetCols(*header.cols); });
        caption = std::move(header.caption);
        if (file.atEnd()) return;
        flexGRID.setVisible(true);
        flexGRID.change([&](GridModel& grid) { readRows(grid, file, types_); });
    });
    goTo(0, 0);
    picTOPBAR.invalidate();
    GridChange();
    FontUpdate();
    return caption;
}

}  // namespace obk
