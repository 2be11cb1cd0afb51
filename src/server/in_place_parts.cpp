#include "server/in_place_parts.h"

#include "framework/control.h"

#include "server/control_object.h"

namespace obk::server {

namespace {

HRESULT windowOf(ControlObject& object, HWND* window) {
    if (!window) return E_POINTER;
    *window = object.session().window();
    return *window ? S_OK : E_FAIL;
}

bool isKeyDown(const MSG& message) {
    return message.message == WM_KEYDOWN || message.message == WM_SYSKEYDOWN;
}

}  // namespace

HRESULT InPlaceObjectPart::GetWindow(HWND* window) {
    return perform([&] { return windowOf(object_, window); });
}

HRESULT InPlaceObjectPart::ContextSensitiveHelp(BOOL) {
    return E_NOTIMPL;
}

HRESULT InPlaceObjectPart::InPlaceDeactivate() {
    return perform([&] {
        object_.session().deactivate();
        return S_OK;
    });
}

HRESULT InPlaceObjectPart::UIDeactivate() {
    return perform([&] {
        object_.session().deactivateUi();
        return S_OK;
    });
}

HRESULT InPlaceObjectPart::SetObjectRects(LPCRECT position, LPCRECT clip) {
    if (!position) return E_POINTER;
    return perform([&] {
        object_.session().place(*position, clip ? *clip : *position);
        return S_OK;
    });
}

HRESULT InPlaceObjectPart::ReactivateAndUndo() {
    return INPLACE_E_NOTUNDOABLE;
}

HRESULT ActiveObjectPart::GetWindow(HWND* window) {
    return perform([&] { return windowOf(object_, window); });
}

HRESULT ActiveObjectPart::ContextSensitiveHelp(BOOL) {
    return E_NOTIMPL;
}

HRESULT ActiveObjectPart::TranslateAccelerator(LPMSG message) {
    if (!message) return E_POINTER;
    return perform([&]() -> HRESULT {
        const HWND window = object_.session().window();
        if (!window || !isKeyDown(*message) || !object_.live()) return S_FALSE;
        if (message->hwnd != window && !IsChild(window, message->hwnd)) return S_FALSE;
        const KeyRoute route = object_.platform().keys().routeFromHost(
            *message, [this](const KeyEvent& event) { return object_.control().preTranslate(event); });
        switch (route) {
            case KeyRoute::handled:
                return S_OK;
            case KeyRoute::child:
                // Neither the container's accelerators nor its dialog keys get what the child wants.
                TranslateMessage(message);
                DispatchMessageW(message);
                return S_OK;
            case KeyRoute::container:
                return object_.site().offerToContainer(*message) ? S_OK : S_FALSE;
        }
        return S_FALSE;
    });
}

HRESULT ActiveObjectPart::OnFrameWindowActivate(BOOL) {
    return S_OK;
}

HRESULT ActiveObjectPart::OnDocWindowActivate(BOOL) {
    return S_OK;
}

HRESULT ActiveObjectPart::ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) {
    return S_OK;
}

HRESULT ActiveObjectPart::EnableModeless(BOOL) {
    return S_OK;
}

}  // namespace obk::server
