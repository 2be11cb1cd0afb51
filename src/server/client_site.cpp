#include "server/client_site.h"

#include "server/font_bridge.h"
#include "server/variant_value.h"

#include <olectl.h>

namespace obk::server {

namespace {

HRESULT readAmbient(const ComPtr<IDispatch>& ambient, DISPID id, VARIANT& value) {
    if (!ambient) return E_FAIL;
    DISPPARAMS none{};
    return ambient->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none, &value, nullptr,
                           nullptr);
}

}  // namespace

void ClientSite::set(IOleClientSite* site) {
    const ComPtr<IDispatch> ambient = query<IDispatch>(site);
    site_ = ComPtr<IOleClientSite>(site);
    ambient_ = ambient;
    ambientFontObject_.reset();
    ambientFont_.reset();
}

FontRef ClientSite::ambientFont() {
    OwnedVariant read;
    if (FAILED(readAmbient(ambient_, DISPID_AMBIENT_FONT, read))) return nullptr;
    if (V_VT(&read) != VT_DISPATCH && V_VT(&read) != VT_UNKNOWN) return nullptr;
    const auto identity = query<IUnknown>(V_UNKNOWN(&read));
    if (!identity) return nullptr;
    if (identity.get() != ambientFontObject_.get()) {
        ambientFont_ = fontFromObject(identity.get());
        ambientFontObject_ = ambientFont_ ? identity : nullptr;
    }
    return ambientFont_;
}

bool ClientSite::ambientFlag(DISPID id, bool otherwise) const {
    OwnedVariant read;
    if (FAILED(readAmbient(ambient_, id, read)) || V_VT(&read) != VT_BOOL) return otherwise;
    return V_BOOL(&read) != VARIANT_FALSE;
}

void ClientSite::focusChanged(bool inside) const {
    if (const auto site = as<IOleControlSite>()) site->OnFocus(inside ? TRUE : FALSE);
}

bool ClientSite::offerToContainer(const MSG& message) const {
    const auto site = as<IOleControlSite>();
    MSG offered = message;
    return site && site->TranslateAccelerator(&offered, keyModifiers()) == S_OK;
}

DWORD keyModifiers() {
    const auto held = [](int key) { return GetKeyState(key) < 0; };
    // KEYMOD_SHIFT, KEYMOD_CONTROL and KEYMOD_ALT.
    return (held(VK_SHIFT) ? 1u : 0u) | (held(VK_CONTROL) ? 2u : 0u) | (held(VK_MENU) ? 4u : 0u);
}

}  // namespace obk::server
