// Room for the line of a text box in any font.
#pragma once

#include "widgets/text_box.h"

#include <algorithm>

namespace obk {

// The place that a control's geometry gives to a text box; taller about the same middle where one line of its
// font is taller.
inline TwipsRect wholeLine(const TextBox& box, const TwipsRect& place) {
    const Dpi dpi = box.dpi();
    const int32_t line = box.platform().appearance().metrics(box.font()->description(), dpi).height();
    // One pixel more, which the rounding of edges may take away.
    const Twips height = std::max(place.height, dpi.toTwips(line + 1));
    return {place.left, place.top - 0.5 * (height - place.height), place.width, height};
}

}  // namespace obk
