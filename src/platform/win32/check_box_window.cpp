#include "platform/win32/check_box_window.h"

#include "platform/win32/surface_window.h"

namespace obk::win32 {

CheckBoxWindow::CheckBoxWindow(const std::shared_ptr<Environment>& environment,
                               const std::shared_ptr<SurfaceWindow>& surface, CheckBoxClient& client,
                               const ChildPlacement& placement)
    : ChildWindow(environment, surface, client, placement), checkBoxClient_(client) {}

std::shared_ptr<CheckBoxWindow> CheckBoxWindow::create(const std::shared_ptr<Environment>& environment,
                                                       const std::shared_ptr<SurfaceWindow>& surface,
                                                       CheckBoxClient& client,
                                                       const ChildPlacement& placement) {
    const HWND parent = surface->hwnd();
    if (!parent) return nullptr;
    std::shared_ptr<CheckBoxWindow> self(new CheckBoxWindow(environment, surface, client, placement));
    const Environment::ActivationScope scope(*environment);
    const HWND window =
        self->makeWindow(L"BUTTON", {}, self->styleAtFirst(placement.enabled) | BS_CHECKBOX, 0, parent);
    if (!window) return nullptr;
    self->adopt(window);
    surface->add(self);
    self->cut(false);
    return self;
}

void CheckBoxWindow::setBackground(Rgb background) {
    background_ = background;
    if (hwnd()) InvalidateRect(hwnd(), nullptr, TRUE);
}

HBRUSH CheckBoxWindow::prepareColours(HDC dc) const {
    SetBkColor(dc, background_.value);
    SetDCBrushColor(dc, background_.value);
    return static_cast<HBRUSH>(GetStockObject(DC_BRUSH));
}

void CheckBoxWindow::notified(WORD code) {
    if (code != BN_CLICKED) return;
    const Hold hold(*this);
    if (listening()) checkBoxClient_.checkPressed();
}

}  // namespace obk::win32
