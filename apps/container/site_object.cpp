#include "container/site_object.h"

#include <olectl.h>

#include <cmath>

#include "container/window_metrics.h"

namespace obk::container {

void* SiteObject::otherInterface(REFIID iid) {
    if (IsEqualIID(iid, IID_IOleWindow) || IsEqualIID(iid, IID_IOleInPlaceSite))
        return static_cast<IOleInPlaceSiteEx*>(this);
    return nullptr;
}

HRESULT SiteObject::SaveObject() {
    // The container saves when a person asks for it, never because a control wants it.
    calls.emplace_back("SaveObject");
    return E_NOTIMPL;
}

HRESULT SiteObject::GetMoniker(DWORD, DWORD, IMoniker** moniker) {
    if (moniker) *moniker = nullptr;
    return E_NOTIMPL;
}

HRESULT SiteObject::GetContainer(IOleContainer** container) {
    if (!container) return E_POINTER;
    *container = nullptr;
    return E_NOINTERFACE;
}

HRESULT SiteObject::ShowObject() {
    calls.emplace_back("ShowObject");
    return S_OK;
}

HRESULT SiteObject::OnShowWindow(BOOL) {
    calls.emplace_back("OnShowWindow");
    return S_OK;
}

HRESULT SiteObject::RequestNewObjectLayout() {
    calls.emplace_back("RequestNewObjectLayout");
    return E_NOTIMPL;
}

HRESULT SiteObject::GetWindow(HWND* window) {
    if (!window) return E_POINTER;
    *window = host_ ? host_->formWindow() : nullptr;
    return *window ? S_OK : E_FAIL;
}

HRESULT SiteObject::CanInPlaceActivate() {
    return host_ ? S_OK : S_FALSE;
}

HRESULT SiteObject::OnInPlaceActivate() {
    calls.emplace_back("OnInPlaceActivate");
    if (!host_) return E_UNEXPECTED;
    host_->inPlaceActivated();
    return S_OK;
}

HRESULT SiteObject::OnUIActivate() {
    calls.emplace_back("OnUIActivate");
    if (!host_ || !host_->mayUiActivate()) return E_FAIL;
    host_->uiActivated();
    return S_OK;
}

HRESULT SiteObject::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                     LPRECT position, LPRECT clip, LPOLEINPLACEFRAMEINFO information) {
    if (!frame || !document || !position || !clip || !information) return E_POINTER;
    *frame = nullptr;
    *document = nullptr;
    if (!host_) return E_UNEXPECTED;
    *document = ComPtr<IOleInPlaceUIWindow>(host_->document()).detach();
    *frame = ComPtr<IOleInPlaceFrame>(host_->formFrame()).detach();
    *position = host_->position();
    GetClientRect(host_->formWindow(), clip);
    const UINT size = information->cb;
    *information = {};
    information->cb = size;
    information->hwndFrame = GetAncestor(host_->formWindow(), GA_ROOT);
    return S_OK;
}

HRESULT SiteObject::OnUIDeactivate(BOOL) {
    calls.emplace_back("OnUIDeactivate");
    if (host_) host_->uiDeactivated();
    return S_OK;
}

HRESULT SiteObject::OnInPlaceDeactivate() {
    calls.emplace_back("OnInPlaceDeactivate");
    if (host_) host_->inPlaceDeactivated();
    return S_OK;
}

HRESULT SiteObject::OnPosRectChange(LPCRECT position) {
    calls.emplace_back("OnPosRectChange");
    if (!position) return E_POINTER;
    return host_ ? host_->positionWanted(*position) : E_UNEXPECTED;
}

HRESULT SiteObject::OnInPlaceActivateEx(BOOL* noRedraw, DWORD) {
    if (noRedraw) *noRedraw = FALSE;
    return OnInPlaceActivate();
}

HRESULT SiteObject::OnInPlaceDeactivateEx(BOOL) {
    return OnInPlaceDeactivate();
}

HRESULT SiteObject::RequestUIActivate() {
    return host_ && host_->mayUiActivate() ? S_OK : S_FALSE;
}

HRESULT SiteObject::OnControlInfoChanged() {
    calls.emplace_back("OnControlInfoChanged");
    return S_OK;
}

HRESULT SiteObject::LockInPlaceActive(BOOL lock) {
    calls.emplace_back(lock ? "LockInPlaceActive" : "UnlockInPlaceActive");
    return S_OK;
}

HRESULT SiteObject::GetExtendedControl(IDispatch** object) {
    if (object) *object = nullptr;
    return E_NOTIMPL;
}

HRESULT SiteObject::TransformCoords(POINTL* himetric, POINTF* container, DWORD flags) {
    if (!himetric || !container) return E_POINTER;
    if (!host_) return E_UNEXPECTED;
    // The container's unit is the pixel, for positions and sizes alike.
    const float pixelsPerUnit = static_cast<float>(host_->formDpi()) / 2540.0f;
    if (flags & XFORMCOORDS_HIMETRICTOCONTAINER) {
        container->x = static_cast<float>(himetric->x) * pixelsPerUnit;
        container->y = static_cast<float>(himetric->y) * pixelsPerUnit;
    } else if (flags & XFORMCOORDS_CONTAINERTOHIMETRIC) {
        himetric->x = std::lround(container->x / pixelsPerUnit);
        himetric->y = std::lround(container->y / pixelsPerUnit);
    } else {
        return E_INVALIDARG;
    }
    return S_OK;
}

HRESULT SiteObject::TranslateAccelerator(MSG* message, DWORD modifiers) {
    calls.emplace_back("TranslateAccelerator");
    if (!message) return E_POINTER;
    return host_ ? host_->keyOffered(*message, modifiers) : S_FALSE;
}

HRESULT SiteObject::OnFocus(BOOL gained) {
    calls.emplace_back(gained ? "OnFocus" : "OnFocusLost");
    if (host_) host_->focusReported(gained);
    return S_OK;
}

HRESULT SiteObject::GetTypeInfoCount(UINT* count) {
    if (!count) return E_POINTER;
    *count = 0;
    return S_OK;
}

HRESULT SiteObject::GetIDsOfNames(REFIID, LPOLESTR*, UINT count, LCID, DISPID* numbers) {
    // Ambient properties are known by number only.
    for (UINT index = 0; numbers && index < count; ++index) numbers[index] = DISPID_UNKNOWN;
    return DISP_E_UNKNOWNNAME;
}

HRESULT SiteObject::Invoke(DISPID number, REFIID, LCID, WORD flags, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                           UINT*) {
    if (!(flags & DISPATCH_PROPERTYGET)) return DISP_E_MEMBERNOTFOUND;
    return ambients.read(number, result);
}

}  // namespace obk::container
