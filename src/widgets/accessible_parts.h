// What screen readers are told of a widget and of the parts in it that are no widgets.
#pragma once

#include "widgets/accessible_item.h"

#include <cstdint>
#include <vector>

namespace obk {

// Nothing here is costly, whatever the number of parts.
class AccessibleParts {
public:
    virtual ~AccessibleParts() = default;

    // Whether the widget is a thing of its own; otherwise its parts and children stand in its place.
    virtual bool accessibleWhole() const { return false; }
    // What a part of this widget is or, where it is a thing of its own, the whole.
    virtual AccessibleItem accessible(AccessiblePart) const { return {}; }
    // How many parts are in it, or in a row of it; they come before the children.
    virtual int32_t accessibleParts(AccessiblePart) const { return 0; }
    // The first of the parts in something that is in sight, from `index` on or, where `by` is below 0, back
    // from it; -1 or their count where there is none. All are, unless a widget scrolls through very many.
    virtual int32_t accessibleInSight(AccessiblePart, int32_t index, int32_t) const { return index; }
    // At a point of the surface.
    virtual AccessiblePart accessiblePartAt(PixelPoint at) const;
    // The part that is a cell; none where there is no such cell.
    virtual AccessiblePart accessibleCell(int32_t row, int32_t col) const { return {row, col}; }
    virtual std::vector<AccessiblePart> accessibleSelection() const;
    // Only what the item offers, while it is enabled. A person's doing: hosts hear of it.
    virtual void useAccessible(AccessiblePart, const AccessibleAction&) {}
    // The part that a child stands in; none for one that stands beside the parts.
    virtual AccessiblePart accessiblePlaceOf(const Widget&) const { return {}; }
};

}  // namespace obk
