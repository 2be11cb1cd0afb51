// What is on a surface as a tree, for screen readers: worked out from the widgets whenever it is asked.
#pragma once

#include "widgets/accessible_item.h"

#include <vector>

namespace obk {

class Container;
class SurfaceOwner;

// Things are asked for by their number and never all made, so a million rows cost nothing. Whoever is not
// there any more has no parent, no children and an empty item.
class AccessibleTree {
public:
    // Both are borrowed.
    AccessibleTree(Container& root, SurfaceOwner& owner) : root_(root), owner_(owner) {}

    AccessibleId root() const;
    bool has(const AccessibleId& id) const;
    // With its place in the window, as far as it shows.
    AccessibleItem item(const AccessibleId& id) const;
    int32_t childCount(const AccessibleId& id) const;
    // None where there is no such child.
    AccessibleId child(const AccessibleId& id, int32_t index) const;
    // The same, but goes on from parts out of sight to the next child, or back to the one before.
    AccessibleId childInSight(const AccessibleId& id, int32_t index, int32_t by) const;
    AccessibleId parent(const AccessibleId& id) const;
    // Among its parent's children; -1 for what has none.
    int32_t indexInParent(const AccessibleId& id) const;
    // The innermost thing at a point of the window; none outside.
    AccessibleId at(PixelPoint point) const;
    // What has a window of its own; none where no such window is here.
    AccessibleId ofWindow(uintptr_t window) const;
    // What keys go to; none where that is not here.
    AccessibleId focus() const;
    // Of something with cells; none for a cell that is not there.
    AccessibleId cell(const AccessibleId& table, int32_t row, int32_t col) const;
    AccessibleId columnHeader(const AccessibleId& table, int32_t col) const;
    // The thing with cells that a cell is of; none for what is no cell.
    AccessibleId table(const AccessibleId& cell) const;
    // What is selected in something, of very much a part.
    std::vector<AccessibleId> selection(const AccessibleId& of) const;
    // Whether it was done: not on what is disabled, nor where the item does not offer it.
    bool act(const AccessibleId& id, const AccessibleAction& action) const;
    // The innermost thing that contains a widget's part.
    AccessibleId nearest(const AccessibleId& id) const;

private:
    AccessibleItem described(const AccessibleId& id) const;
    bool isNode(const Widget& widget) const;
    bool contains(const Widget& widget, const Widget& in) const;
    int32_t countIn(Widget& widget, AccessiblePart part) const;
    AccessibleId childIn(Widget& widget, AccessiblePart part, int32_t& index) const;
    bool findIn(Widget& widget, AccessiblePart part, const AccessibleId& id, int32_t& index) const;
    AccessibleId windowIn(Widget& widget, uintptr_t window) const;
    AccessibleId focusIn(Widget& widget) const;
    // The widget whose parts stand directly in something.
    Widget* partsIn(Widget& widget) const;
    Widget* headerIn(Widget& widget) const;

    Container& root_;
    SurfaceOwner& owner_;
};

}  // namespace obk
