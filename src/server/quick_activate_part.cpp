#include "server/quick_activate_part.h"

#include "library/class_facts.h"

#include "server/control_object.h"

namespace obk::server {

namespace {

// The sink's number at the connection point; 0 when there is none or it refuses.
DWORD connected(IUnknown* object, const IID& point, IUnknown* sink) {
    const auto points = query<IConnectionPointContainer>(object);
    ComPtr<IConnectionPoint> found;
    DWORD cookie = 0;
    if (sink && points && SUCCEEDED(points->FindConnectionPoint(point, found.put())))
        found->Advise(sink, &cookie);
    return cookie;
}

}  // namespace

HRESULT QuickActivatePart::QuickActivate(QACONTAINER* container, QACONTROL* control) {
    if (!container || !control) return E_POINTER;
    if (container->cbSize < sizeof *container || control->cbSize < sizeof *control) return E_INVALIDARG;
    return perform([&] {
        // The rest of what the container says about itself it says as ambient properties, too.
        object_.setSite(container->pClientSite);
        if (container->pAdviseSink)
            object_.advisers().setViewAdvise(DVASPECT_CONTENT, 0, container->pAdviseSink);
        control->dwMiscStatus = miscellaneousStatus(object_.table());
        control->dwViewStatus = wholeView;
        control->dwEventCookie = connected(identity_.outer(), systemGuid(object_.table().eventInterfaceId),
                                           container->pUnkEventSink);
        control->dwPropNotifyCookie =
            connected(identity_.outer(), __uuidof(IPropertyNotifySink), container->pPropertyNotifySink);
        control->dwPointerActivationPolicy = 0;  // asked about pointers only while it has a window
        return S_OK;
    });
}

HRESULT QuickActivatePart::SetContentExtent(LPSIZEL size) {
    const auto object = query<IOleObject>(identity_.outer());
    return object ? object->SetExtent(DVASPECT_CONTENT, size) : E_UNEXPECTED;
}

HRESULT QuickActivatePart::GetContentExtent(LPSIZEL size) {
    const auto object = query<IOleObject>(identity_.outer());
    return object ? object->GetExtent(DVASPECT_CONTENT, size) : E_UNEXPECTED;
}

}  // namespace obk::server
