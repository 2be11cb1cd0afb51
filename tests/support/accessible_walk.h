// What shows in a window system, and what a screen reader finds on a surface.
#pragma once

#include "platform/headless/headless_platform.h"
#include "platform/headless/headless_surface.h"
#include "widgets/accessible_tree.h"

#include <vector>

namespace obk::test {

// Calls use(surface) with each that shows, in the order they were made.
template <typename Use>
void eachShown(const headless::HeadlessPlatform& platform, const Use& use) {
    for (const NativeWindow id : platform.windows()) {
        if (headless::HeadlessSurface* const surface = platform.surface(id); surface && surface->visible())
            use(*surface);
    }
}

// The panels that were opened, shown or not, in that order.
inline std::vector<headless::HeadlessSurface*> panelsOf(const headless::HeadlessPlatform& platform) {
    std::vector<headless::HeadlessSurface*> panels;
    for (const NativeWindow id : platform.windows()) {
        headless::HeadlessSurface* const surface = platform.surface(id);
        if (surface && surface->kind() == SurfacePlacement::Kind::panel) panels.push_back(surface);
    }
    return panels;
}

inline const AccessibleTree& treeOf(const headless::HeadlessSurface& surface) {
    return *surface.surfaceClient().accessibleTree();
}

// Calls use(id) with a thing and all that is in it, each before what is in it.
template <typename Use>
void eachThing(const AccessibleTree& tree, const AccessibleId& from, const Use& use) {
    use(from);
    for (int32_t index = 0, count = tree.childCount(from); index < count; ++index)
        eachThing(tree, tree.child(from, index), use);
}

inline std::vector<AccessibleItem> everyItem(const headless::HeadlessSurface& surface) {
    std::vector<AccessibleItem> items;
    const AccessibleTree& tree = treeOf(surface);
    eachThing(tree, tree.root(), [&](const AccessibleId& id) { items.push_back(tree.item(id)); });
    return items;
}

// Those that are in sight.
inline std::vector<AccessibleItem> shownItems(const headless::HeadlessSurface& surface) {
    std::vector<AccessibleItem> items;
    const AccessibleTree& tree = treeOf(surface);
    for (std::vector<AccessibleId> left{tree.root()}; !left.empty();) {
        const AccessibleId id = left.back();
        left.pop_back();
        items.push_back(tree.item(id));
        if (items.back().is(AccessibleItem::offScreen)) continue;
        for (auto at = tree.childInSight(id, 0, 1); at;
             at = tree.childInSight(id, tree.indexInParent(at) + 1, 1))
            left.push_back(at);
    }
    return items;
}

// Those that have a role.
inline std::vector<AccessibleItem> partsOf(const headless::HeadlessSurface& surface,
                                           AccessibleItem::Role role) {
    std::vector<AccessibleItem> found = everyItem(surface);
    std::erase_if(found, [role](const AccessibleItem& item) { return item.role != role; });
    return found;
}

}  // namespace obk::test
