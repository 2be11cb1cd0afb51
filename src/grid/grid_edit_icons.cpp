// How a cell of the editable grid gets an icon.
#include "base/attempt.h"
#include "grid/grid_edit.h"

namespace obk {

void GridEdit::CellSetIcon(int32_t colno, int32_t rowno, const Text& iconname) {
    goTo(rowno, colno);
    // A picture of its own ground, and not of the cell's: this is meant.
    const Rgb ground = flexGRID.rgb(flexGRID.BackColor());
    attempt([&] {
        flexGRID.SetCellPicture(imlTREELISTICONS.picture(iconname, ground), CellAlignment::leftCentre);
    });
}

}  // namespace obk
