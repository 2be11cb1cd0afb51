#include "widgets/pop_up_placement.h"

#include <algorithm>

namespace obk {

namespace {

// `at` moved so that `length` from it lies between the ends; the beginning wins when it does not fit.
int32_t shifted(int32_t at, int32_t length, int32_t begin, int32_t end) {
    return std::max(std::min(at, end - length), begin);
}

}  // namespace

PixelRect placePopUp(const PixelRect& anchor, PixelSize size, const PixelRect& workArea, PopUpSide first,
                     bool rightToLeft) {
    const auto at = [size](int32_t left, int32_t top) {
        return PixelRect{left, top, left + size.width, top + size.height};
    };
    const int32_t aligned = rightToLeft ? anchor.right - size.width : anchor.left;
    const int32_t left = shifted(aligned, size.width, workArea.left, workArea.right);
    const int32_t top = shifted(anchor.top, size.height, workArea.top, workArea.bottom);
    const PixelRect below = at(left, anchor.bottom);
    const PixelRect above = at(left, anchor.top - size.height);
    const PixelRect preferred = first == PopUpSide::below ? below : above;
    const PixelRect opposite = first == PopUpSide::below ? above : below;
    const PixelRect atRight = at(anchor.right, top);
    const PixelRect atLeft = at(anchor.left - size.width, top);
    for (const PixelRect& place :
         {preferred, opposite, rightToLeft ? atLeft : atRight, rightToLeft ? atRight : atLeft}) {
        if (place == place.intersected(workArea)) return place;
    }
    return at(left, shifted(preferred.top, size.height, workArea.top, workArea.bottom));
}

}  // namespace obk
