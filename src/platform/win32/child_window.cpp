#include "platform/win32/child_window.h"

#include "com/com_ptr.h"
#include "platform/win32/display.h"
#include "platform/win32/handles.h"
#include "platform/win32/surface_window.h"
#include "platform/win32/text_conversion.h"

#include <initguid.h>
#include <oleacc.h>

#include <algorithm>

namespace obk::win32 {

ChildWindow::ChildWindow(const std::shared_ptr<Environment>& environment,
                         const std::shared_ptr<SurfaceWindow>& surface, PeerClient& client,
                         const ChildPlacement& placement)
    : ClientWindow(environment, client),
      surface_(surface),
      bounds_(placement.bounds),
      clip_(placement.clip) {}

DWORD ChildWindow::styleAtFirst(bool enabled) const {
    const bool shows = !bounds_.intersected(clip_).empty();
    return WS_CHILD | WS_CLIPSIBLINGS | (enabled ? 0 : WS_DISABLED) | (shows ? WS_VISIBLE : 0);
}

HWND ChildWindow::makeWindow(const wchar_t* type, const std::wstring& text, DWORD style, DWORD extended,
                             HWND parent) const {
    const RECT area = toRect(bounds_);
    return CreateWindowExW(extended, type, text.c_str(), style, area.left, area.top,
                           std::max(0L, area.right - area.left), std::max(0L, area.bottom - area.top), parent,
                           nullptr, environment().module(), nullptr);
}

void ChildWindow::closeChild() {
    // The focus of a window that goes falls to its parent, which is no news: it stays in the surface.
    if (const auto surface = surface_.lock())
        surface->closeSilently(*this);
    else
        close();
}

void ChildWindow::setBounds(const PixelRect& bounds, const PixelRect& clip) {
    bounds_ = bounds;
    clip_ = clip;
    place();
}

void ChildWindow::setVisible(bool visible) {
    visible_ = visible;
    showOrHide();
}

bool ChildWindow::shows() const {
    return hwnd() && (GetWindowLongPtrW(hwnd(), GWL_STYLE) & WS_VISIBLE) != 0;
}

LRESULT ChildWindow::send(UINT message, WPARAM wParam, LPARAM lParam) const {
    return hwnd() ? SendMessageW(hwnd(), message, wParam, lParam) : 0;
}

// What a window shows of itself, where its surface's window does not cut it anyway. It paints itself anew
// where it has been painted before.
void ChildWindow::cut(bool paint) {
    const HWND window = hwnd();
    const PixelRect shown = bounds_.intersected(clip_);
    RECT around{};
    GetClientRect(GetParent(window), &around);
    const bool clipped = !shown.empty() && shown != bounds_.intersected(fromRect(around));
    if (clipped) {
        const PixelRect inside = shown.moved(-bounds_.left, -bounds_.top);
        UniqueRegion region(CreateRectRgn(inside.left, inside.top, inside.right, inside.bottom));
        // The system owns the region from then on.
        if (SetWindowRgn(window, region.get(), paint)) static_cast<void>(region.release());
    } else if (clipped_) {
        SetWindowRgn(window, nullptr, paint);
    }
    clipped_ = clipped;
}

void ChildWindow::place() {
    const HWND window = hwnd();
    if (!window) return;
    const bool wasShown = shows();
    cut(wasShown);
    const RECT area = toRect(bounds_);
    // What comes into sight does so together with its place.
    const UINT showing = visible_ && !bounds_.intersected(clip_).empty() && !wasShown ? SWP_SHOWWINDOW : 0;
    SetWindowPos(window, nullptr, area.left, area.top, std::max(0L, area.right - area.left),
                 std::max(0L, area.bottom - area.top), SWP_NOZORDER | SWP_NOACTIVATE | showing);
    showOrHide();
}

void ChildWindow::showOrHide() {
    const HWND window = hwnd();
    if (!window) return;
    const bool nothing = !visible_ || bounds_.intersected(clip_).empty();
    if (nothing == shows()) ShowWindow(window, nothing ? SW_HIDE : SW_SHOWNA);
}

LRESULT ChildWindow::passWheelOn(const Message& message) {
    const auto surface = surface_.lock();
    return surface ? surface->passWheelToHost(message) : 0;
}

void ChildWindow::focusIsInside(bool inside) {
    if (const auto surface = surface_.lock()) surface->focusIsInside(inside);
}

// Screen readers know the system's windows better than anything of ours could describe them: only the name is
// added, when one looks.
void ChildWindow::tellName() {
    const Text name = accessibleName();
    if (name.empty() || name == toldName_) return;
    toldName_ = name;
    ComPtr<IAccPropServices> services;
    if (FAILED(CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER, IID_IAccPropServices,
                                services.putVoid())))
        return;
    services->SetHwndPropStr(hwnd(), static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, PROPID_ACC_NAME,
                             toWide(name).c_str());
}

LRESULT ChildWindow::handle(const Message& message) {
    Message received = message;
    if (message.code == WM_GETOBJECT) tellName();
    if (message.code == WM_LBUTTONDOWN) {
        const auto surface = surface_.lock();
        if (surface && surface->endsDoubleClick()) received.code = WM_LBUTTONDBLCLK;
    }
    const LRESULT result = ClientWindow::handle(received);
    const bool released =
        message.code == WM_LBUTTONUP || message.code == WM_RBUTTONUP || message.code == WM_MBUTTONUP;
    const auto surface = released ? surface_.lock() : nullptr;
    if (surface) surface->childReleasedCapture();
    return result;
}

}  // namespace obk::win32
