#include "container/window_metrics.h"

namespace obk::container {

namespace {

constexpr int himetricPerInch = 2540;

// Functions that older systems do not have.
template <typename Function>
Function systemFunction(const char* name) {
    return reinterpret_cast<Function>(GetProcAddress(GetModuleHandleW(L"user32.dll"), name));
}

}  // namespace

int systemDpi() {
    const HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    return dpi > 0 ? dpi : 96;
}

int windowDpi(HWND window) {
    static const auto getDpi = systemFunction<UINT(WINAPI*)(HWND)>("GetDpiForWindow");
    const int dpi = getDpi && window ? static_cast<int>(getDpi(window)) : 0;
    return dpi > 0 ? dpi : systemDpi();
}

LOGFONTW messageLogFont(int dpi) {
    static const auto getForDpi =
        systemFunction<BOOL(WINAPI*)(UINT, UINT, void*, UINT, UINT)>("SystemParametersInfoForDpi");
    NONCLIENTMETRICSW metrics = {};
    metrics.cbSize = sizeof metrics;
    if (getForDpi && getForDpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, static_cast<UINT>(dpi)))
        return metrics.lfMessageFont;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    metrics.lfMessageFont.lfHeight = MulDiv(metrics.lfMessageFont.lfHeight, dpi, systemDpi());
    return metrics.lfMessageFont;
}

SIZE himetricFromPixels(SIZE pixels, int dpi) {
    return {MulDiv(pixels.cx, himetricPerInch, dpi), MulDiv(pixels.cy, himetricPerInch, dpi)};
}

SIZE pixelsFromHimetric(SIZE himetric, int dpi) {
    return {MulDiv(himetric.cx, dpi, himetricPerInch), MulDiv(himetric.cy, dpi, himetricPerInch)};
}

}  // namespace obk::container
