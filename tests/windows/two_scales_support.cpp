#include "two_scales_support.h"

#include "panel_support.h"

#include <cstring>
#include <map>

namespace obk::testing_support {

namespace {

constexpr UINT dpiChanged = 0x02E0;  // WM_DPICHANGED

struct Scales {
    int line = 0;
    UINT rightDpi = 96;
    TwoScales::Tells tells = TwoScales::Tells::moved;
    std::map<HWND, UINT> told;
};
Scales scales;

void* target() {
    return reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), "GetDpiForWindow"));
}

void write(const BYTE* code, size_t size) {
    DWORD before = 0;
    VirtualProtect(target(), size, PAGE_EXECUTE_READWRITE, &before);
    std::memcpy(target(), code, size);
    VirtualProtect(target(), size, before, &before);
    FlushInstructionCache(GetCurrentProcess(), target(), size);
}

UINT dpiAt(HWND window) {
    const RECT place = windowRect(GetAncestor(window, GA_ROOT));
    return (place.left + place.right) / 2 >= scales.line ? scales.rightDpi : 96;
}

void tell(HWND window) {
    const UINT dpi = dpiAt(window);
    UINT& told = scales.told[window];
    if (dpi == told) return;
    told = dpi;
    RECT place = windowRect(window);
    SendMessageW(window, dpiChanged, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(&place));
}

}  // namespace

TwoScales::TwoScales(int line, UINT rightDpi, Tells tells)
    : hook_(SetWindowsHookExW(WH_CALLWNDPROCRET, watch, nullptr, GetCurrentThreadId())) {
    scales = {line, rightDpi, tells, {}};
    std::memcpy(original_, target(), sizeof original_);
    // mov rax, address; jmp rax. The shorter one will do for 32 bits: mov eax, address; jmp eax.
    BYTE code[12] = {0x48, 0xB8};
    const auto address = reinterpret_cast<uintptr_t>(&dpiOf);
    const size_t prefix = sizeof address == 8 ? 2 : 1;
    if (prefix == 1) code[0] = 0xB8;
    std::memcpy(code + prefix, &address, sizeof address);
    code[prefix + sizeof address] = 0xFF;
    code[prefix + sizeof address + 1] = 0xE0;
    write(code, prefix + sizeof address + 2);
}

TwoScales::~TwoScales() {
    UnhookWindowsHookEx(hook_);
    write(original_, sizeof original_);
}

void TwoScales::move(int line) {
    scales.line = line;
    for (const HWND window : shownWindows()) tell(window);
}

// What the system has told a window is its DPI; another one waits for its message.
UINT WINAPI TwoScales::dpiOf(HWND window) {
    const auto known = scales.told.find(GetAncestor(window, GA_ROOT));
    return known == scales.told.end() ? dpiAt(window) : known->second;
}

LRESULT CALLBACK TwoScales::watch(int code, WPARAM wParam, LPARAM lParam) {
    const auto& message = *reinterpret_cast<const CWPRETSTRUCT*>(lParam);
    const bool topLevel = (GetWindowLongW(message.hwnd, GWL_STYLE) & WS_CHILD) == 0;
    if (code == HC_ACTION && topLevel) {
        if (message.message == WM_NCCREATE) scales.told[message.hwnd] = dpiAt(message.hwnd);
        if (message.message == WM_NCDESTROY) scales.told.erase(message.hwnd);
        const bool tells = scales.tells == Tells::moved || IsWindowVisible(message.hwnd);
        if (message.message == WM_WINDOWPOSCHANGED && tells) tell(message.hwnd);
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace obk::testing_support
