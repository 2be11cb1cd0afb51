// What screen readers are told of a surface and the parts drawn on it.
#pragma once

#include "com/com_ptr.h"

#include <memory>

namespace obk::win32 {

class SurfaceWindow;

// An IAccessible. Children 1, 2, … are the drawn parts in the order the client
// lists them, then the surface's child windows. `moduleLock` is held as long as anyone holds the object,
// which may be longer than the surface lives: it then answers that it is disconnected.
ComPtr<IUnknown> createAccessible(const std::shared_ptr<SurfaceWindow>& surface,
                                  std::shared_ptr<void> moduleLock);

}  // namespace obk::win32
