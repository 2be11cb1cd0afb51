#include "platform/win32/display.h"

#include "platform/win32/handles.h"

namespace obk::win32 {

namespace {

// Systems before Windows 10 lack these functions.
template <typename Function>
Function* user32Function(const char* name) {
    return reinterpret_cast<Function*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), name));
}

LONG withinGdi(int32_t coordinate) {
    constexpr int32_t limit = (1 << 26) - 1;
    return std::clamp(coordinate, -limit, limit);
}

}  // namespace

Dpi systemDpi() {
    static auto* const getDpiForSystem = user32Function<UINT WINAPI()>("GetDpiForSystem");
    if (getDpiForSystem) {
        if (const UINT dpi = getDpiForSystem()) return Dpi(static_cast<int32_t>(dpi));
    }
    const ScreenDc screen;
    return Dpi(screen.get() ? GetDeviceCaps(screen.get(), LOGPIXELSX) : 0);
}

Dpi windowDpi(HWND window) {
    static auto* const getDpiForWindow = user32Function<UINT WINAPI(HWND)>("GetDpiForWindow");
    if (getDpiForWindow && window) {
        if (const UINT dpi = getDpiForWindow(window)) return Dpi(static_cast<int32_t>(dpi));
    }
    return systemDpi();
}

PixelRect workAreaOf(const PixelRect& place) {
    MONITORINFO info{};
    info.cbSize = sizeof info;
    const RECT on = toRect(place);
    if (GetMonitorInfoW(MonitorFromRect(&on, MONITOR_DEFAULTTONEAREST), &info)) return fromRect(info.rcWork);
    RECT area{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    return fromRect(area);
}

RECT toRect(const PixelRect& rect) {
    return {withinGdi(rect.left), withinGdi(rect.top), withinGdi(rect.right), withinGdi(rect.bottom)};
}

PixelRect fromRect(const RECT& rect) {
    return {rect.left, rect.top, rect.right, rect.bottom};
}

BITMAPINFO bitmapInfo(PixelSize size) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = size.width;
    info.bmiHeader.biHeight = -size.height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    return info;
}

}  // namespace obk::win32
