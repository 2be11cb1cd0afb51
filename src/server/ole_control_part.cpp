#include "server/ole_control_part.h"

#include "framework/control.h"
#include "platform/win32/key_router.h"

#include "server/control_object.h"

#include <olectl.h>

#include <vector>

namespace obk::server {

HRESULT OleControlPart::GetControlInfo(CONTROLINFO* info) {
    if (!info) return E_POINTER;
    info->hAccel = nullptr;
    info->cAccel = 0;
    info->dwFlags = 0;
    return perform([&] {
        std::vector<ACCEL> keys;
        for (const char16_t key : object_.control().accessKeys()) {
            const SHORT typedBy = VkKeyScanW(static_cast<WCHAR>(key));
            if (typedBy != -1) keys.push_back({FVIRTKEY | FALT, LOBYTE(typedBy), 0});
        }
        for (const KeyEvent& key : object_.control().formKeys()) {
            const BYTE held = static_cast<BYTE>((key.shift & shift::shift ? FSHIFT : 0) |
                                                (key.shift & shift::control ? FCONTROL : 0) |
                                                (key.shift & shift::alt ? FALT : 0));
            keys.push_back({static_cast<BYTE>(FVIRTKEY | held), static_cast<WORD>(key.code), 0});
        }
        accessKeys_.reset(keys.empty() ? nullptr
                                       : CreateAcceleratorTableW(keys.data(), static_cast<int>(keys.size())));
        if (!accessKeys_) return S_OK;
        info->hAccel = accessKeys_.get();
        info->cAccel = static_cast<USHORT>(keys.size());
        return S_OK;
    });
}

HRESULT OleControlPart::OnMnemonic(LPMSG message) {
    if (!message) return E_POINTER;
    return perform([&] {
        if (!object_.live()) return S_OK;
        if (message->message == WM_KEYDOWN) {
            object_.control().useFormKey(win32::keyEvent(message->wParam, message->lParam));
            return S_OK;
        }
        const bool character = message->message == WM_SYSCHAR || message->message == WM_CHAR;
        const auto code = static_cast<UINT>(message->wParam);
        const UINT key = character ? code : MapVirtualKeyW(code, MAPVK_VK_TO_CHAR);
        object_.control().useAccessKey(static_cast<char16_t>(key));
        return S_OK;
    });
}

HRESULT OleControlPart::OnAmbientPropertyChange(DISPID id) {
    return perform([&] {
        if (id == DISPID_AMBIENT_FONT || id == DISPID_UNKNOWN) object_.followAmbientFont();
        if (id == DISPID_AMBIENT_UIDEAD || id == DISPID_AMBIENT_USERMODE || id == DISPID_UNKNOWN)
            object_.applyLive();
        if (id == DISPID_AMBIENT_RIGHTTOLEFT || id == DISPID_UNKNOWN) {
            // Laid out anew at the same size, it asks which way the container reads.
            Control& control = object_.control();
            control.setSize(control.width(), control.height());
        }
        object_.viewChanged();
        return S_OK;
    });
}

HRESULT OleControlPart::FreezeEvents(BOOL freeze) {
    object_.freezeEvents(freeze != FALSE);
    return S_OK;
}

}  // namespace obk::server
