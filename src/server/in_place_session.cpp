#include "server/in_place_session.h"

#include "framework/control.h"

#include "server/control_object.h"

#include <algorithm>

namespace obk::server {

namespace {

PixelRect pixelRect(const RECT& rect) {
    return {rect.left, rect.top, rect.right, rect.bottom};
}

bool sameRect(const RECT& left, const RECT& right) {
    return EqualRect(&left, &right) != FALSE;
}

}  // namespace

HRESULT InPlaceSession::activate(IOleClientSite& clientSite, HWND parent, const RECT* position) {
    if (active()) {
        show();
        return S_OK;
    }
    const auto site = query<IOleInPlaceSite>(&clientSite);
    if (!site) return E_FAIL;
    if (site->CanInPlaceActivate() != S_OK) return E_FAIL;
    object_.beginUse();
    site->OnInPlaceActivate();
    site_ = site;

    HWND window = nullptr;
    if (FAILED(site->GetWindow(&window)) || !window) window = parent;
    RECT at{}, clip{};
    OLEINPLACEFRAMEINFO info{};
    info.cb = sizeof info;
    if (FAILED(site->GetWindowContext(frame_.put(), document_.put(), &at, &clip, &info))) {
        if (position) at = *position;
        clip = at;
    }
    const bool shown = window && active() &&
                       object_.control().activate(reinterpret_cast<NativeWindow>(window), pixelRect(at));
    if (!shown) {
        deactivate();
        return E_FAIL;
    }
    place(at, clip);
    object_.applyLive();
    clientSite.ShowObject();
    return S_OK;
}

HRESULT InPlaceSession::activateUi() {
    if (!active()) return E_FAIL;
    if (!object_.table().takesFocus) return S_OK;
    madeLive_ = true;
    object_.applyLive();
    if (!object_.control().hasFocus()) object_.control().focus();
    // The focus may be refused where nothing inside can take it; the container still deals with this control
    // now.
    if (active() && !uiActive_) becomeUiActive();
    return S_OK;
}

void InPlaceSession::focusEntered() {
    if (active() && !uiActive_) becomeUiActive();
}

void InPlaceSession::becomeUiActive() {
    uiActive_ = true;
    const ComPtr<IOleInPlaceSite> site = site_;
    const ComPtr<IOleInPlaceFrame> frame = frame_;
    const ComPtr<IOleInPlaceUIWindow> document = document_;
    site->OnUIActivate();
    if (!uiActive_) return;
    const std::wstring name = toWide(object_.table().name);
    if (frame) {
        frame->SetActiveObject(object_.activeObject(), name.c_str());
        frame->SetBorderSpace(nullptr);  // the frame keeps its own tools
    }
    if (document) {
        document->SetActiveObject(object_.activeObject(), name.c_str());
        document->SetBorderSpace(nullptr);
    }
}

void InPlaceSession::deactivateUi() {
    if (std::exchange(madeLive_, false)) object_.applyLive();
    if (!uiActive_) return;
    uiActive_ = false;
    const ComPtr<IOleInPlaceSite> site = site_;
    const ComPtr<IOleInPlaceUIWindow> document = document_;
    const ComPtr<IOleInPlaceFrame> frame = frame_;
    if (document) document->SetActiveObject(nullptr, nullptr);
    if (frame) frame->SetActiveObject(nullptr, nullptr);
    if (site) site->OnUIDeactivate(FALSE);
}

void InPlaceSession::deactivate() {
    if (!active()) return;
    deactivateUi();
    // Out of the member first, so that a container that ends us again finds nothing to end.
    const ComPtr<IOleInPlaceSite> site = std::move(site_);
    frame_.reset();
    document_.reset();
    clipped_ = false;
    object_.control().deactivate();
    object_.takeExtent();
    if (site) site->OnInPlaceDeactivate();
}

void InPlaceSession::show() {
    ShowWindow(window(), SW_SHOWNA);
}

void InPlaceSession::hide() {
    deactivateUi();
    if (active()) ShowWindow(window(), SW_HIDE);
}

void InPlaceSession::place(const RECT& position, const RECT& clip) {
    if (!active()) return;
    position_ = position;
    object_.control().setBounds(pixelRect(position));
    if (!active()) return;
    RECT visible{};
    IntersectRect(&visible, &position, &clip);
    if (sameRect(visible, position)) {
        if (clipped_) SetWindowRgn(window(), nullptr, TRUE);
        clipped_ = false;
        return;
    }
    OffsetRect(&visible, -position.left, -position.top);
    SetWindowRgn(window(), CreateRectRgnIndirect(&visible), TRUE);  // the window owns the region
    clipped_ = true;
}

void InPlaceSession::requestSize(PixelSize size) {
    if (!active() || asking_) return;
    RECT wished = position_;
    wished.right = wished.left + size.width;
    wished.bottom = wished.top + size.height;
    if (sameRect(wished, position_)) return;
    asking_ = true;
    const ComPtr<IOleInPlaceSite> site = site_;
    site->OnPosRectChange(&wished);
    asking_ = false;
}

HWND InPlaceSession::window() const {
    return active() ? reinterpret_cast<HWND>(object_.control().window()) : nullptr;
}

}  // namespace obk::server
