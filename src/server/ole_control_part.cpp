#include "server/ole_control_part.h"

#include "framework/control.h"

#include "server/control_object.h"

#include <olectl.h>

namespace obk::server {

HRESULT OleControlPart::GetControlInfo(CONTROLINFO* info) {
    if (!info) return E_POINTER;
    // No control has an access key of its own.
    info->hAccel = nullptr;
    info->cAccel = 0;
    info->dwFlags = 0;
    return S_OK;
}

HRESULT OleControlPart::OnMnemonic(LPMSG) {
    return S_OK;
}

HRESULT OleControlPart::OnAmbientPropertyChange(DISPID id) {
    return perform([&] {
        if (id == DISPID_AMBIENT_FONT || id == DISPID_UNKNOWN) object_.control().ambientFontChanged();
        if (id == DISPID_AMBIENT_UIDEAD || id == DISPID_UNKNOWN) object_.applyUiDead();
        object_.viewChanged();
        return S_OK;
    });
}

HRESULT OleControlPart::FreezeEvents(BOOL freeze) {
    object_.freezeEvents(freeze != FALSE);
    return S_OK;
}

}  // namespace obk::server
