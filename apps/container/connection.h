// A sink's connection to a control.
#pragma once

#include <ocidl.h>

#include "com/com_ptr.h"

namespace obk::container {

// Ended by `close`; the control keeps the sink alive until then.
class Connection {
public:
    // CONNECT_E_NOCONNECTION when the control has no such outgoing interface.
    HRESULT open(IUnknown* control, REFIID interfaceId, IUnknown* sink);
    void close();
    bool isOpen() const { return static_cast<bool>(point_); }

private:
    ComPtr<IConnectionPoint> point_;
    DWORD cookie_ = 0;
};

}  // namespace obk::container
