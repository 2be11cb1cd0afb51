// Where a pop-up panel goes: beside the rectangle it belongs to, whole on the monitor.
#pragma once

#include "base/units.h"

#include <cstdint>

namespace obk {

// Which side is tried first.
enum class PopUpSide : uint8_t { below, above };

// Screen rectangle of a panel of `size` for a control at `anchor`, in pixels. The first side, then the
// opposite one, then to the right and to the left of the control, whichever holds the panel whole inside
// `workArea`; where none does, as near to the first side as the area allows, and a panel larger than the area
// shows its left top part. Its left edge is below that of the control; its right one, and left before right,
// where people read from right to left.
PixelRect placePopUp(const PixelRect& anchor, PixelSize size, const PixelRect& workArea, PopUpSide first,
                     bool rightToLeft);

}  // namespace obk
