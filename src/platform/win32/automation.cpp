#include "platform/win32/automation.h"

#include "platform/win32/automation_values.h"

#include <uiautomationclient.h>

#include <type_traits>
#include <utility>

namespace obk::win32 {

namespace {

using Item = AccessibleItem;

// Numbers of the system that the compiler's headers lack.
namespace automation_event {
constexpr EVENTID focusChanged = 20005, invoked = 20009, elementAdded = 20010, elementSelected = 20012;
}

void ask(AutomationFunctions& functions) {
    if (std::exchange(functions.asked, true)) return;
    const HMODULE library = LoadLibraryExW(L"uiautomationcore.dll", nullptr, 0x800);  // of the system alone
    const auto find = [library](auto& function, const char* name) {
        if (library)
            function = reinterpret_cast<std::remove_reference_t<decltype(function)>>(
                reinterpret_cast<void*>(GetProcAddress(library, name)));
    };
    find(functions.returnProvider, "UiaReturnRawElementProvider");
    find(functions.hostProvider, "UiaHostProviderFromHwnd");
    find(functions.raiseEvent, "UiaRaiseAutomationEvent");
    find(functions.raiseChange, "UiaRaiseAutomationPropertyChangedEvent");
    find(functions.raiseStructure, "UiaRaiseStructureChangedEvent");
    find(functions.listening, "UiaClientsAreListening");
    find(functions.disconnect, "UiaDisconnectProvider");
}

}  // namespace

AutomationFunctions& automationFunctions() {
    static AutomationFunctions known;
    return known;
}

LRESULT returnProvider(HWND window, WPARAM wParam, LPARAM lParam, IRawElementProviderSimple* provider) {
    AutomationFunctions& system = automationFunctions();
    ask(system);
    return system.returnProvider ? system.returnProvider(window, wParam, lParam, provider) : 0;
}

bool automationListens() {
    return automationFunctions().listening && automationFunctions().listening();
}

void raiseAutomation(const std::shared_ptr<SurfaceWindow>& surface, AccessibleEvent event,
                     const AccessibleId& of, const AccessibleItem& item) {
    if (!automationListens() || item.window != 0) return;
    const auto provider = createProvider(surface, of);
    const auto raise = [&](EVENTID id) {
        if (automationFunctions().raiseEvent) automationFunctions().raiseEvent(provider.get(), id);
    };
    const auto changed = [&](PROPERTYID id, auto now) {
        VARIANT old{}, value{};
        put(&value, now);
        if (automationFunctions().raiseChange)
            automationFunctions().raiseChange(provider.get(), id, old, value);
        VariantClear(&value);
    };
    const auto structureChanged = [&] {
        constexpr int childrenInvalidated = 2;
        if (automationFunctions().raiseStructure)
            automationFunctions().raiseStructure(provider.get(), childrenInvalidated, nullptr, 0);
    };
    switch (event) {
        case AccessibleEvent::focus:
            return raise(automation_event::focusChanged);
        case AccessibleEvent::selection:
            return raise(automation_event::elementSelected);
        case AccessibleEvent::extended:
            return raise(automation_event::elementAdded);
        case AccessibleEvent::invoked:
            return raise(automation_event::invoked);
        case AccessibleEvent::value:
            if (item.range) changed(UIA_RangeValueValuePropertyId, item.range->value);
            if (item.is(Item::valued)) changed(UIA_ValueValuePropertyId, TextView(item.value));
            return;
        case AccessibleEvent::toggled:
            return changed(UIA_ToggleToggleStatePropertyId, item.is(Item::checked) ? 1 : 0);
        case AccessibleEvent::scrolledAcross:
        case AccessibleEvent::scrolledDown: {
            const Item::Scroll now = item.scroll.value_or(Item::Scroll());
            const bool across = event == AccessibleEvent::scrolledAcross;
            changed(across ? UIA_ScrollHorizontalScrollPercentPropertyId
                           : UIA_ScrollVerticalScrollPercentPropertyId,
                    across ? now.across : now.down);
            return structureChanged();  // other rows or columns are in sight
        }
        case AccessibleEvent::name:
            return changed(UIA_NamePropertyId, TextView(item.name));
        case AccessibleEvent::state:
            if (item.role == Item::Role::columnHeader)
                return changed(UIA_ItemStatusPropertyId, TextView(item.help));
            if (item.role == Item::Role::cell)
                return changed(UIA_ValueIsReadOnlyPropertyId, item.is(Item::readOnly));
            return changed(UIA_IsEnabledPropertyId, !item.is(Item::disabled));
        case AccessibleEvent::expanded:
            return changed(UIA_ExpandCollapseExpandCollapseStatePropertyId, item.is(Item::expanded) ? 1 : 0);
        case AccessibleEvent::structure:
            return structureChanged();
    }
}

void disconnectProvider(IRawElementProviderSimple* provider) {
    if (automationFunctions().disconnect) automationFunctions().disconnect(provider);
}

}  // namespace obk::win32
