#include "server/client_site.h"

#include "server/font_bridge.h"
#include "server/system_text.h"
#include "server/variant_value.h"

#include <olectl.h>

namespace obk::server {

namespace {

HRESULT readProperty(const ComPtr<IDispatch>& object, DISPID id, VARIANT& value) {
    if (!object) return E_FAIL;
    DISPPARAMS none{};
    return object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none, &value, nullptr,
                          nullptr);
}

Text readText(const ComPtr<IDispatch>& object, DISPID id) {
    OwnedVariant read;
    const bool found = SUCCEEDED(readProperty(object, id, read)) && V_VT(&read) == VT_BSTR;
    return found ? Text(viewOfBstr(V_BSTR(&read))) : Text();
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
    if (FAILED(readProperty(ambient_, DISPID_AMBIENT_FONT, read))) return nullptr;
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
    if (FAILED(readProperty(ambient_, id, read)) || V_VT(&read) != VT_BOOL) return otherwise;
    return V_BOOL(&read) != VARIANT_FALSE;
}

Text ClientSite::name() const {
    ComPtr<IDispatch> extender;
    if (const auto site = as<IOleControlSite>(); site && FAILED(site->GetExtendedControl(extender.put())))
        extender.reset();
    wchar_t property[] = L"Name";
    LPOLESTR names[] = {property};
    DISPID id = DISPID_UNKNOWN;
    Text name;
    if (extender && SUCCEEDED(extender->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id)))
        name = readText(extender, id);
    return name.empty() ? readText(ambient_, DISPID_AMBIENT_DISPLAYNAME) : name;
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
