#include "server/class_info_part.h"

#include "server/control_object.h"

namespace obk::server {

HRESULT ClassInfoPart::GetClassInfo(ITypeInfo** info) {
    if (!info) return E_POINTER;
    return perform([&] {
        *info = module::typeInfo(object_.classId()).detach();
        return *info ? S_OK : TYPE_E_ELEMENTNOTFOUND;
    });
}

HRESULT ClassInfoPart::GetGUID(DWORD kind, GUID* id) {
    if (!id) return E_POINTER;
    *id = GUID{};
    if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID) return E_INVALIDARG;
    *id = systemGuid(object_.table().eventInterfaceId);
    return S_OK;
}

}  // namespace obk::server
