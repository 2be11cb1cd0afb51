#include "widgets/accessible_tree.h"

#include "base/attempt.h"
#include "widgets/container.h"
#include "widgets/surface.h"
#include "widgets/surface_owner.h"

#include <algorithm>

namespace obk {

using Role = AccessibleItem::Role;

// Hosts write what they like into captions: readers get no more than they can say.
void makeSpoken(Text& name) {
    constexpr size_t longest = 512;
    const auto half = [](char16_t unit) { return unit >= 0xD800 && unit < 0xDC00; };
    while (name.size() > longest || (!name.empty() && half(name.back()))) name.pop_back();
    std::replace_if(
        name.begin(), name.end(),
        [](char16_t unit) { return unit < u' ' || (unit >= 0xE000 && unit <= 0xF8FF); }, u' ');
}

AccessibleId AccessibleTree::root() const {
    return {&root_, {}};
}

AccessibleItem AccessibleTree::described(const AccessibleId& id) const {
    AccessibleItem item;
    if (!id) return item;
    attempt([&] { item = id == root() ? owner_.describeSurface() : id.widget->accessible(id.part); });
    return item;
}

bool AccessibleTree::isNode(const Widget& widget) const {
    return &widget == &root_ || widget.accessibleWhole();
}

bool AccessibleTree::contains(const Widget& widget, const Widget& in) const {
    if (&widget == &in) return true;
    const auto children = in.children();
    return std::any_of(children.begin(), children.end(),
                       [&](const Widget* child) { return child->visible() && contains(widget, *child); });
}

bool AccessibleTree::has(const AccessibleId& id) const {
    if (!id || !contains(*id.widget, root_)) return false;
    if (id.part.whole()) return isNode(*id.widget);
    return id.part.row < id.widget->accessibleParts({}) &&
           (id.part.col < 0 || id.part.col < id.widget->accessibleParts({id.part.row, -1}));
}

AccessibleItem AccessibleTree::item(const AccessibleId& id) const {
    if (!has(id)) return {};
    AccessibleItem item = described(id);
    makeSpoken(item.name);
    // What edits something is called as that.
    for (AccessibleId around = parent(id); around && trimmed(item.name).empty(); around = parent(around)) {
        item.name = described(around).name;
        makeSpoken(item.name);
    }
    item.bounds = item.bounds.intersected(id.widget->pixelClip());
    if (item.bounds.empty()) {
        item.bounds = {};
        item.set(AccessibleItem::offScreen);
    } else if (const Surface* shownOn = root_.surface()) {
        item.bounds = shownOn->inWindow(item.bounds);
    }
    item.set(AccessibleItem::focused, focus() == id);
    if (item.is(AccessibleItem::disabled)) item.disable();
    return item;
}

int32_t AccessibleTree::countIn(Widget& widget, AccessiblePart part) const {
    int32_t count = widget.accessibleParts(part);
    for (Widget* child : widget.children()) {
        if (!child->visible() || widget.accessiblePlaceOf(*child) != part) continue;
        count += isNode(*child) ? 1 : countIn(*child, {});
    }
    return count;
}

int32_t AccessibleTree::childCount(const AccessibleId& id) const {
    return has(id) ? countIn(*id.widget, id.part) : 0;
}

AccessibleId AccessibleTree::childIn(Widget& widget, AccessiblePart part, int32_t& index) const {
    const int32_t parts = widget.accessibleParts(part);
    if (index < parts)
        return {&widget, part.whole() ? AccessiblePart{index, -1} : AccessiblePart{part.row, index}};
    index -= parts;
    for (Widget* child : widget.children()) {
        if (!child->visible() || widget.accessiblePlaceOf(*child) != part) continue;
        if (!isNode(*child)) {
            if (const AccessibleId found = childIn(*child, {}, index)) return found;
        } else if (index-- == 0) {
            return {child, {}};
        }
    }
    return {};
}

AccessibleId AccessibleTree::child(const AccessibleId& id, int32_t index) const {
    return index >= 0 && has(id) ? childIn(*id.widget, id.part, index) : AccessibleId{};
}

AccessibleId AccessibleTree::childInSight(const AccessibleId& id, int32_t index, int32_t by) const {
    if (!has(id)) return {};
    const bool whole = id.part.whole();
    Widget* const parts = whole ? partsIn(*id.widget) : id.widget;
    int32_t first = 0;
    if (parts && findIn(*id.widget, id.part, {parts, {whole ? 0 : id.part.row, whole ? -1 : 0}}, first)) {
        const bool among = index >= first && index < first + parts->accessibleParts(id.part);
        if (among) index = first + parts->accessibleInSight(id.part, index - first, by);
    }
    return child(id, index);
}

AccessibleId AccessibleTree::nearest(const AccessibleId& id) const {
    if (!id || has(id)) return id;
    if (!contains(*id.widget, root_)) return {};
    if (!id.part.whole()) return nearest({id.widget, {}});
    return parent(id);
}

AccessibleId AccessibleTree::parent(const AccessibleId& id) const {
    if (!id || id == root() || !contains(*id.widget, root_)) return {};
    if (id.part.col >= 0) return {id.widget, {id.part.row, -1}};
    if (!id.part.whole()) return nearest({id.widget, {}});
    Container* const around = id.widget->parent();
    return around ? nearest({around, around->accessiblePlaceOf(*id.widget)}) : AccessibleId{};
}

bool AccessibleTree::findIn(Widget& widget, AccessiblePart part, const AccessibleId& id,
                            int32_t& index) const {
    if (id.widget == &widget && !id.part.whole()) {
        index += part.whole() ? id.part.row : id.part.col;
        return true;
    }
    index += widget.accessibleParts(part);
    for (Widget* child : widget.children()) {
        if (!child->visible() || widget.accessiblePlaceOf(*child) != part) continue;
        if (!isNode(*child)) {
            if (findIn(*child, {}, id, index)) return true;
        } else if (id == AccessibleId{child, {}}) {
            return true;
        } else {
            ++index;
        }
    }
    return false;
}

int32_t AccessibleTree::indexInParent(const AccessibleId& id) const {
    const AccessibleId around = parent(id);
    int32_t index = 0;
    return around && findIn(*around.widget, around.part, id, index) ? index : -1;
}

AccessibleId AccessibleTree::at(PixelPoint point) const {
    const Surface* const shownOn = root_.surface();
    if (shownOn) point = shownOn->fromWindow(point);
    Widget* const hit = root_.hitTest(point);
    return hit ? nearest({hit, hit->accessiblePartAt(point)}) : AccessibleId{};
}

AccessibleId AccessibleTree::windowIn(Widget& widget, uintptr_t window) const {
    for (Widget* child : widget.children()) {
        if (!child->visible()) continue;
        if (described({child, {}}).window == window) return {child, {}};
        if (const AccessibleId found = windowIn(*child, window)) return found;
    }
    return {};
}

AccessibleId AccessibleTree::ofWindow(uintptr_t window) const {
    return window != 0 ? windowIn(root_, window) : AccessibleId{};
}

AccessibleId AccessibleTree::focusIn(Widget& widget) const {
    if (!widget.visible()) return {};
    if (const AccessibleId own = widget.accessibleFocus()) return own;
    for (Widget* child : widget.children()) {
        if (const AccessibleId found = focusIn(*child)) return found;
    }
    return {};
}

AccessibleId AccessibleTree::focus() const {
    AccessibleId found = focusIn(root_);
    const Surface* const shownOn = root_.surface();
    if (!found && shownOn && shownOn->hasOwnFocus()) found = root();
    return nearest(found);
}

Widget* AccessibleTree::partsIn(Widget& widget) const {
    if (widget.accessibleParts({}) > 0) return &widget;
    for (Widget* child : widget.children()) {
        if (!child->visible() || isNode(*child)) continue;
        if (Widget* const found = partsIn(*child)) return found;
    }
    return nullptr;
}

Widget* AccessibleTree::headerIn(Widget& widget) const {
    for (Widget* child : widget.children()) {
        if (!child->visible()) continue;
        if (!isNode(*child)) {
            if (Widget* const found = headerIn(*child)) return found;
        } else if (described({child, {}}).role == Role::header) {
            return child;
        }
    }
    return nullptr;
}

AccessibleId AccessibleTree::cell(const AccessibleId& table, int32_t row, int32_t col) const {
    if (row < 0 || col < 0 || !has(table)) return {};
    Widget* const parts = partsIn(*table.widget);
    const AccessibleId found{parts, parts ? parts->accessibleCell(row, col) : AccessiblePart{}};
    return parts && !found.part.whole() && has(found) ? found : AccessibleId{};
}

AccessibleId AccessibleTree::columnHeader(const AccessibleId& table, int32_t col) const {
    if (col < 0 || !has(table)) return {};
    Widget* header = headerIn(*table.widget);
    if (!header) header = partsIn(*table.widget);
    const AccessibleId found{header, {col, -1}};
    return has(found) && described(found).role == Role::columnHeader ? found : AccessibleId{};
}

AccessibleId AccessibleTree::table(const AccessibleId& cell) const {
    AccessibleId around = parent(cell);
    while (around && described(around).rows == 0) around = parent(around);
    return around;
}

std::vector<AccessibleId> AccessibleTree::selection(const AccessibleId& of) const {
    std::vector<AccessibleId> found;
    Widget* const parts = has(of) && of.part.whole() ? partsIn(*of.widget) : nullptr;
    if (!parts) return found;
    attempt([&] {
        for (const AccessiblePart part : parts->accessibleSelection()) found.push_back({parts, part});
    });
    return found;
}

bool AccessibleTree::act(const AccessibleId& id, const AccessibleAction& action) const {
    if (!item(id).can(action.kind)) return false;
    return attempt([&] {
        if (id == root())
            owner_.useSurface(action);
        else
            id.widget->useAccessible(id.part, action);
    });
}

}  // namespace obk
