#include "server/control_picture.h"

#include "framework/control.h"
#include "platform/win32/gdi_canvas.h"

#include "server/control_object.h"

#include <algorithm>
#include <cmath>

namespace obk::server {

namespace {

RECT pixelsOf(ControlObject& object) {
    const Control& control = object.control();
    const Dpi dpi = control.root().dpi();
    return {0, 0, dpi.toPixels(control.width()), dpi.toPixels(control.height())};
}

}  // namespace

void paintControl(ControlObject& object, HDC context, const RECT& bounds) {
    Control& control = object.control();
    // The resolution at which the control's own size comes nearest to the bounds: lines and text come out
    // sharp at any scale, instead of being stretched.
    const SIZE wanted{bounds.right - bounds.left, bounds.bottom - bounds.top};
    const double across = control.width().value > 0 ? wanted.cx * 1440 / control.width().value : 0;
    const double down = control.height().value > 0 ? wanted.cy * 1440 / control.height().value : 0;
    const Dpi dpi(static_cast<int32_t>(std::lround(std::min({across, down, 1e5}))));
    const PixelSize own{std::max(dpi.toPixels(control.width()), 1),
                        std::max(dpi.toPixels(control.height()), 1)};
    PixelRect area{bounds.left, bounds.top, bounds.right, bounds.bottom};
    // What is left is a scale near 1, or a container that distorts. An old metafile has no room for it.
    if ((own.width != wanted.cx || own.height != wanted.cy) && GetObjectType(context) != OBJ_METADC) {
        SetMapMode(context, MM_ANISOTROPIC);
        SetWindowOrgEx(context, 0, 0, nullptr);
        SetWindowExtEx(context, own.width, own.height, nullptr);
        SetViewportOrgEx(context, bounds.left, bounds.top, nullptr);
        SetViewportExtEx(context, wanted.cx, wanted.cy, nullptr);
        area = {0, 0, own.width, own.height};
    }
    win32::GdiCanvas canvas(context, dpi, &object.platform().fonts());
    control.draw(canvas, area);
}

HENHMETAFILE recordPicture(ControlObject& object) {
    const SIZEL extent = extentOf(object);
    const RECT frame{0, 0, extent.cx, extent.cy};
    const HDC context = CreateEnhMetaFileW(nullptr, nullptr, &frame, nullptr);
    if (!context) return nullptr;
    paintControl(object, context, pixelsOf(object));
    return CloseEnhMetaFile(context);
}

HMETAFILE recordOldPicture(ControlObject& object) {
    const HDC context = CreateMetaFileW(nullptr);
    if (!context) return nullptr;
    const RECT pixels = pixelsOf(object);
    SetMapMode(context, MM_ANISOTROPIC);
    SetWindowOrgEx(context, 0, 0, nullptr);
    SetWindowExtEx(context, pixels.right, pixels.bottom, nullptr);
    paintControl(object, context, pixels);
    return CloseMetaFile(context);
}

}  // namespace obk::server
