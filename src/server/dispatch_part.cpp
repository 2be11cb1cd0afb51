#include "server/dispatch_part.h"

#include "server/control_object.h"
#include "server/late_binding.h"

namespace obk::server {

HRESULT DispatchPart::GetTypeInfoCount(UINT* count) {
    if (!count) return E_POINTER;
    *count = 1;
    return S_OK;
}

HRESULT DispatchPart::GetTypeInfo(UINT index, LCID, ITypeInfo** info) {
    if (!info) return E_POINTER;
    *info = nullptr;
    if (index != 0) return DISP_E_BADINDEX;
    return perform([&] {
        *info = module::typeInfo(systemGuid(object_.table().interfaceId)).detach();
        return *info ? S_OK : TYPE_E_ELEMENTNOTFOUND;
    });
}

HRESULT DispatchPart::GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    return entryPoint([&] { return idsOfNames(object_.table(), names, count, ids); });
}

HRESULT DispatchPart::Invoke(DISPID id, REFIID reserved, LCID, WORD flags, DISPPARAMS* parameters,
                             VARIANT* result, EXCEPINFO*, UINT* wrongArgument) {
    if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    if (!parameters) return E_POINTER;
    return perform([&] {
        if (!object_.inUse()) object_.beginUse();
        const HRESULT called =
            invokeMember(object_.table(), object_.control(), id, flags, *parameters, result, wrongArgument);
        if ((flags & DISPATCH_METHOD) && called == S_OK) object_.viewChanged();
        return called;
    });
}

}  // namespace obk::server
