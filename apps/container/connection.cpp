#include "container/connection.h"

#include <olectl.h>

#include <utility>

namespace obk::container {

HRESULT Connection::open(IUnknown* control, REFIID interfaceId, IUnknown* sink) {
    close();
    const auto container = query<IConnectionPointContainer>(control);
    if (!container) return CONNECT_E_NOCONNECTION;
    ComPtr<IConnectionPoint> point;
    HRESULT done = container->FindConnectionPoint(interfaceId, point.put());
    if (SUCCEEDED(done)) done = point->Advise(sink, &cookie_);
    if (SUCCEEDED(done)) point_ = point;
    return done;
}

void Connection::close() {
    // Taking leave may release the sink, and with it this object.
    if (const ComPtr<IConnectionPoint> point = std::exchange(point_, nullptr)) point->Unadvise(cookie_);
}

}  // namespace obk::container
