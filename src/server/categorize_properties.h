// The interface by which property browsers group what they list; the system's headers at hand lack it.
#pragma once

#include <windows.h>

#include <oaidl.h>

namespace obk::server {

// The groups that every browser knows and names itself.
enum class PropertyCategory : int {
    misc = -2,
    font = -3,
    position = -4,
    appearance = -5,
    behaviour = -6,
    data = -7,
    list = -8,
    text = -9,
};

MIDL_INTERFACE("4D07FC10-F931-11CE-B001-00AA006884E5")
ICategorizeProperties : public IUnknown {
public:
    virtual HRESULT STDMETHODCALLTYPE MapPropertyToCategory(DISPID id, PropertyCategory * category) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetCategoryName(PropertyCategory category, LCID locale,
                                                      BSTR * name) = 0;
};

}  // namespace obk::server

__CRT_UUID_DECL(obk::server::ICategorizeProperties, 0x4D07FC10, 0xF931, 0x11CE, 0xB0, 0x01, 0x00, 0xAA, 0x00,
                0x68, 0x84, 0xE5)
