// What the older interface for screen readers, IAccessible, tells of a surface and the things on it.
#pragma once

#include "com/com_ptr.h"
#include "widgets/accessible_item.h"

#include <windows.h>

#include <memory>

namespace obk::win32 {

class SurfaceWindow;

// An IAccessible of one thing. Its children 1, 2, … have objects of their own; so has whatever an event has
// named by a number below 0. Held longer than the surface lives, it answers that it is disconnected.
ComPtr<IUnknown> createAccessible(const std::shared_ptr<SurfaceWindow>& surface, const AccessibleId& of);
// Tells whoever has hooked the system's events.
void notifyAccessible(SurfaceWindow& surface, AccessibleEvent event, const AccessibleId& of,
                      const AccessibleItem& item);

}  // namespace obk::win32
