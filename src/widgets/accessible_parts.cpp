#include "widgets/accessible_parts.h"

namespace obk {

AccessiblePart AccessibleParts::accessiblePartAt(PixelPoint at) const {
    const int32_t parts = accessibleParts({});
    for (int32_t part = 0; part < parts; ++part) {
        if (accessible({part, -1}).bounds.contains(at)) return {part, -1};
    }
    return {};
}

std::vector<AccessiblePart> AccessibleParts::accessibleSelection() const {
    std::vector<AccessiblePart> selected;
    const int32_t parts = accessibleParts({});
    for (int32_t part = 0; part < parts; ++part) {
        if (accessible({part, -1}).is(AccessibleItem::selected)) selected.push_back({part, -1});
    }
    return selected;
}

}  // namespace obk
