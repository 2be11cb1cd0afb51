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

// The system's functions, as far as it has them: asked for when a provider first is, because older systems
// load the module without them. Another journal of events may be put in their place.
struct AutomationFunctions {
    LRESULT(WINAPI* returnProvider)(HWND, WPARAM, LPARAM, IRawElementProviderSimple*) = nullptr;
    HRESULT(WINAPI* hostProvider)(HWND, IRawElementProviderSimple**) = nullptr;
    HRESULT(WINAPI* raiseEvent)(IRawElementProviderSimple*, EVENTID) = nullptr;
    HRESULT(WINAPI* raiseChange)(IRawElementProviderSimple*, PROPERTYID, VARIANT, VARIANT) = nullptr;
    HRESULT(WINAPI* raiseStructure)(IRawElementProviderSimple*, int, int*, int) = nullptr;
    BOOL(WINAPI* listening)() = nullptr;
    HRESULT(WINAPI* disconnect)(IRawElementProviderSimple*) = nullptr;
    bool asked = false;
};
AutomationFunctions& automationFunctions();

// Held longer than what it stands for lives, it answers that this is not available.
ComPtr<IRawElementProviderSimple> createProvider(const std::shared_ptr<SurfaceWindow>& surface,
                                                 const AccessibleId& of);
// The answer to a window message that asks for a provider; 0 where the system has no UI Automation.
LRESULT returnProvider(HWND window, WPARAM wParam, LPARAM lParam, IRawElementProviderSimple* provider);
// Whether anyone listens to events, as far as a provider has ever been asked for.
bool automationListens();
void raiseAutomation(const std::shared_ptr<SurfaceWindow>& surface, AccessibleEvent event,
                     const AccessibleId& of, const AccessibleItem& item);
// Its clients in other processes let go of it.
void disconnectProvider(IRawElementProviderSimple* provider);

}  // namespace obk::win32
