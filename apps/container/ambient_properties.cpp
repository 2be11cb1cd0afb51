#include "container/ambient_properties.h"

#include <olectl.h>

#include <cstdlib>

#include "container/stored_value.h"
#include "container/window_metrics.h"

namespace obk::container {

ComPtr<IDispatch> messageFont(int percent) {
    const int dpi = systemDpi();
    const LOGFONTW logical = messageLogFont(dpi);
    StoredFont font;
    font.name = logical.lfFaceName;
    font.size = std::abs(logical.lfHeight) * 72.0 * percent / 100 / dpi;
    font.weight = static_cast<short>(logical.lfWeight);
    font.characterSet = logical.lfCharSet;
    return makeFont(font);
}

AmbientProperties::AmbientProperties() {
    constexpr auto systemColour = [](int index) {
        return static_cast<long>(0x80000000u | static_cast<unsigned>(index));
    };
    set(DISPID_AMBIENT_BACKCOLOR, systemColour(COLOR_BTNFACE));
    set(DISPID_AMBIENT_FORECOLOR, systemColour(COLOR_BTNTEXT));
    set(DISPID_AMBIENT_DISPLAYNAME, L"");
    set(DISPID_AMBIENT_LOCALEID, static_cast<long>(GetUserDefaultLCID()));
    set(DISPID_AMBIENT_MESSAGEREFLECT, false);
    set(DISPID_AMBIENT_TEXTALIGN, short{0});
    set(DISPID_AMBIENT_USERMODE, true);
    set(DISPID_AMBIENT_UIDEAD, false);
    set(DISPID_AMBIENT_SHOWGRABHANDLES, false);
    set(DISPID_AMBIENT_SHOWHATCHING, false);
    set(DISPID_AMBIENT_DISPLAYASDEFAULT, false);
    set(DISPID_AMBIENT_SUPPORTSMNEMONICS, true);
    set(DISPID_AMBIENT_AUTOCLIP, true);
    set(DISPID_AMBIENT_APPEARANCE, short{1});
    set(DISPID_AMBIENT_RIGHTTOLEFT, false);
}

void AmbientProperties::set(DISPID number, Variant value) {
    values_[number] = std::move(value);
}

Variant AmbientProperties::value(DISPID number) const {
    const auto found = values_.find(number);
    return found == values_.end() ? Variant() : found->second;
}

HRESULT AmbientProperties::read(DISPID number, VARIANT* result) {
    const auto found = values_.find(number);
    if (found == values_.end()) return DISP_E_MEMBERNOTFOUND;
    if (result) *result = Variant(found->second).detach();
    return S_OK;
}

}  // namespace obk::container
