// What is dragged from other windows onto a surface.
#pragma once

#include <windows.h>

#include <oleidl.h>

#include <memory>

namespace obk::win32 {

class SurfaceWindow;

// With a reference for the caller; null when memory ends. Does nothing once the surface is gone.
IDropTarget* createDropTarget(const std::shared_ptr<SurfaceWindow>& surface,
                              std::shared_ptr<void> moduleLock);

}  // namespace obk::win32
