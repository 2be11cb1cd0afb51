#include "server/view_part.h"

#include "framework/control.h"
#include "platform/win32/gdi_canvas.h"

#include "server/control_object.h"

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

// Turns the bounds into pixels and the context into one that counts in them. An old metafile cannot say where its
// units end up; there the control is drawn in the units themselves.
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
    // The resolution at which the control's own size is the size of the bounds: lines and text come out sharp at any
    // scale, instead of being stretched.
    const int width = bounds.right - bounds.left;
    const double inches = control.width().value / 1440;
    const Dpi dpi(inches > 0 ? static_cast<int32_t>(std::lround(width / inches)) : 0);
    win32::GdiCanvas canvas(context, dpi, &object_.platform().fonts());
    control.draw(canvas, {bounds.left, bounds.top, bounds.right, bounds.bottom});
}

HRESULT ViewPart::Draw(DWORD aspect, LONG, void*, DVTARGETDEVICE*, HDC, HDC context, LPCRECTL bounds, LPCRECTL,
                       BOOL(STDMETHODCALLTYPE*)(ULONG_PTR), ULONG_PTR) {
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
    return S_FALSE; // any colours
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
        paint(context, {0, 0, dpi.toPixels(object_.control().width()), dpi.toPixels(object_.control().height())});
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
