#include "platform/win32/pop_up_menu.h"

#include "platform/win32/display.h"
#include "platform/win32/handles.h"
#include "platform/win32/text_conversion.h"

#include <utility>

namespace obk::win32 {

std::optional<size_t> chooseFromMenu(HWND owner, std::span<const MenuItem> items, const PixelRect& beside) {
    const UniqueMenu menu(CreatePopupMenu());
    if (!menu) return std::nullopt;
    UINT_PTR identifier = 0;  // 0 stands for no choice, so that items count from 1
    for (const MenuItem& item : items) {
        const UINT state = (item.enabled ? 0u : MF_GRAYED) | (item.checked ? MF_CHECKED : 0u);
        ++identifier;
        if (item.caption.empty())
            AppendMenuW(menu.get(), MF_SEPARATOR, identifier, nullptr);
        else
            AppendMenuW(menu.get(), MF_STRING | state, identifier, toWide(item.caption).c_str());
    }
    TPMPARAMS keepClear{};
    keepClear.cbSize = sizeof keepClear;
    keepClear.rcExclude = toRect(beside);
    const int chosen = TrackPopupMenuEx(menu.get(), TPM_RETURNCMD | TPM_NONOTIFY | TPM_VERTICAL,
                                        static_cast<int>(keepClear.rcExclude.left),
                                        static_cast<int>(keepClear.rcExclude.bottom), owner, &keepClear);
    return chosen > 0 ? std::optional(static_cast<size_t>(chosen - 1)) : std::nullopt;
}

namespace {

thread_local bool menuSeen = false;

LRESULT CALLBACK watchMenus(int code, WPARAM wParam, LPARAM lParam) {
    if (code == MSGF_MENU) menuSeen = true;
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace

bool opensMenu(const std::function<void()>& work) {
    const bool before = std::exchange(menuSeen, false);
    const HHOOK hook = SetWindowsHookExW(WH_MSGFILTER, watchMenus, nullptr, GetCurrentThreadId());
    work();
    if (hook) UnhookWindowsHookEx(hook);
    const bool seen = menuSeen;
    menuSeen = before || seen;
    return seen;
}

}  // namespace obk::win32
