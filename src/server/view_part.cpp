#include "server/view_part.h"

#include "server/control_object.h"
#include "server/control_picture.h"

#include <algorithm>

namespace obk::server {

namespace {

constexpr DWORD freezeKey = 1;

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
            paintControl(object_, context, target);
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
        frozen_ = recordPicture(object_);
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

HRESULT ViewPart::GetRect(DWORD aspect, LPRECTL rect) {
    if (!rect) return E_POINTER;
    *rect = {};
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    const SIZEL extent = extentOf(object_);
    *rect = {0, 0, extent.cx, extent.cy};
    return S_OK;
}

HRESULT ViewPart::GetViewStatus(DWORD* status) {
    if (!status) return E_POINTER;
    *status = wholeView;
    return S_OK;
}

HRESULT ViewPart::QueryHitPoint(DWORD aspect, LPCRECT bounds, POINT point, LONG closeHint, DWORD* result) {
    const RECT place{point.x, point.y, point.x + 1, point.y + 1};
    return QueryHitRect(aspect, bounds, &place, closeHint, result);
}

HRESULT ViewPart::QueryHitRect(DWORD aspect, LPCRECT bounds, LPCRECT place, LONG closeHint, DWORD* result) {
    if (!bounds || !place || !result) return E_POINTER;
    *result = HITRESULT_OUTSIDE;
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    RECT common{};
    if (IntersectRect(&common, bounds, place)) {
        *result = HITRESULT_HIT;
        return S_OK;
    }
    const SIZEL extent = extentOf(object_);
    if (closeHint <= 0 || extent.cx <= 0) return S_OK;
    // The hint is a distance on the control itself; here it is as many pixels as the bounds make of it.
    const int reach = MulDiv(closeHint, bounds->right - bounds->left, extent.cx);
    RECT wide = *bounds;
    InflateRect(&wide, reach, reach);
    if (IntersectRect(&common, &wide, place)) *result = HITRESULT_CLOSE;
    return S_OK;
}

HRESULT ViewPart::GetNaturalExtent(DWORD aspect, LONG, DVTARGETDEVICE*, HDC, DVEXTENTINFO* info,
                                   LPSIZEL size) {
    if (!info || !size) return E_POINTER;
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    if (info->dwExtentMode != DVEXTENT_CONTENT) return E_NOTIMPL;
    *size = extentOf(object_);
    return S_OK;
}

}  // namespace obk::server
