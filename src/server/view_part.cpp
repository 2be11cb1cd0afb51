#include "server/view_part.h"

#include "framework/control.h"
#include "platform/win32/gdi_canvas.h"

#include "server/control_object.h"

#include <algorithm>
#include <cmath>

namespace obk::server {

namespace {

constexpr DWORD freezeKey = 1;

// Restores a device context, mapping and clip included.
class SavedContext {
public:
    explicit SavedContext(HDC context) : context_(context), state_(SaveDC(context)) {}
    SavedContext(const SavedContext&) = delete;
    SavedContext& operator=(const SavedContext&) = delete;
    ~SavedContext() { RestoreDC(context_, state_); }

private:
    HDC context_;
    int state_;
};

RECT ordered(const RECTL& bounds) {
    return {std::min(bounds.left, bounds.right), std::min(bounds.top, bounds.bottom),
            std::max(bounds.left, bounds.right), std::max(bounds.top, bounds.bottom)};
}

// Turns the bounds into pixels and the context into one that counts in them. An old metafile cannot say where
// its units end up; there the control is drawn in the units themselves.
RECT inPixels(HDC context, const RECTL& bounds) {
    RECT pixels{bounds.left, bounds.top, bounds.right, bounds.bottom};
    if (GetObjectType(context) != OBJ_METADC && LPtoDP(context, reinterpret_cast<POINT*>(&pixels), 2)) {
        SetGraphicsMode(context, GM_ADVANCED);
        ModifyWorldTransform(context, nullptr, MWT_IDENTITY);
        SetMapMode(context, MM_TEXT);
        SetWindowOrgEx(context, 0, 0, nullptr);
        SetViewportOrgEx(context, 0, 0, nullptr);
    }
    return ordered({pixels.left, pixels.top, pixels.right, pixels.bottom});
}

}  // namespace

ViewPart::~ViewPart() {
    if (frozen_) DeleteEnhMetaFile(frozen_);
}

void ViewPart::paint(HDC context, const RECT& bounds) {
    Control& control = object_.control();
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
    win32::GdiCanvas canvas(context, dpi, &object_.platform().fonts());
    control.draw(canvas, area);
}

HRESULT ViewPart::Draw(DWORD aspect, LONG, void*, DVTARGETDEVICE*, HDC, HDC context, LPCRECTL bounds,
                       LPCRECTL, BOOL(STDMETHODCALLTYPE*)(ULONG_PTR), ULONG_PTR) {
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    if (!context) return E_INVALIDARG;
    return perform([&]() -> HRESULT {
        RECTL all{};
        if (bounds) {
            all = *bounds;
        } else if (const HWND window = object_.session().window()) {
            RECT client{};
            GetClientRect(window, &client);
            all = {client.left, client.top, client.right, client.bottom};
        } else {
            return E_INVALIDARG;
        }
        const SavedContext saved(context);
        const RECT target = inPixels(context, all);
        if (IsRectEmpty(&target)) return S_OK;
        if (frozen_) {
            PlayEnhMetaFile(context, frozen_, &target);
        } else {
            paint(context, target);
        }
        return S_OK;
    });
}

HRESULT ViewPart::GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC, LOGPALETTE** palette) {
    if (palette) *palette = nullptr;
    return S_FALSE;  // any colours
}

HRESULT ViewPart::Freeze(DWORD aspect, LONG, void*, DWORD* key) {
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    if (!key) return E_POINTER;
    return perform([&]() -> HRESULT {
        if (frozen_) {
            *key = freezeKey;
            return VIEW_S_ALREADY_FROZEN;
        }
        const SIZEL extent = extentOf(object_);
        const RECT frame{0, 0, extent.cx, extent.cy};
        const HDC context = CreateEnhMetaFileW(nullptr, nullptr, &frame, nullptr);
        if (!context) return E_OUTOFMEMORY;
        const Dpi dpi = object_.control().root().dpi();
        paint(context,
              {0, 0, dpi.toPixels(object_.control().width()), dpi.toPixels(object_.control().height())});
        frozen_ = CloseEnhMetaFile(context);
        *key = freezeKey;
        return frozen_ ? S_OK : E_OUTOFMEMORY;
    });
}

HRESULT ViewPart::Unfreeze(DWORD key) {
    if (!frozen_ || key != freezeKey) return OLE_E_NOCONNECTION;
    DeleteEnhMetaFile(std::exchange(frozen_, nullptr));
    return S_OK;
}

HRESULT ViewPart::SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) {
    return perform([&] { return object_.advisers().setViewAdvise(aspects, flags, sink); });
}

HRESULT ViewPart::GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) {
    object_.advisers().viewAdvise(aspects, flags, sink);
    return S_OK;
}

HRESULT ViewPart::GetExtent(DWORD aspect, LONG, DVTARGETDEVICE*, LPSIZEL size) {
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    if (!size) return E_POINTER;
    *size = extentOf(object_);
    return S_OK;
}

}  // namespace obk::server
