// What is dragged from other windows onto a surface.
#pragma once

#include "com/com_ptr.h"

#include <oleidl.h>

#include <memory>

namespace obk::win32 {

class SurfaceWindow;

// Does nothing once the surface is gone.
ComPtr<IDropTarget> createDropTarget(const std::shared_ptr<SurfaceWindow>& surface,
                                     std::shared_ptr<void> moduleLock);

}  // namespace obk::win32
