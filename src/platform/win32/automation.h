// What UI Automation is told of a surface and the things on it.
#pragma once

#include "com/com_ptr.h"
#include "widgets/accessible_item.h"

#include <windows.h>

#include <oleacc.h>
#include <uiautomationcore.h>

#include <memory>

namespace obk::win32 {

class SurfaceWindow;

// What a window message that asks for a provider asks for.
constexpr LONG automationRoot = -25;

// Held longer than what it stands for lives, it answers that this is not available.
ComPtr<IRawElementProviderSimple> createProvider(const std::shared_ptr<SurfaceWindow>& surface,
                                                 const AccessibleId& of);
// The answer to a window message that asks for a provider; 0 where the system has no UI Automation, which is
// asked for only now: older systems load the module without it.
LRESULT returnProvider(HWND window, WPARAM wParam, LPARAM lParam, IRawElementProviderSimple* provider);
// Whether anyone listens to events, as far as a provider has ever been asked for.
bool automationListens();
void raiseAutomation(const std::shared_ptr<SurfaceWindow>& surface, AccessibleEvent event,
                     const AccessibleId& of, const AccessibleItem& item);
// Its clients in other processes let go of it.
void disconnectProvider(IRawElementProviderSimple* provider);

}  // namespace obk::win32
