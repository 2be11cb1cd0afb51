// The control as part of a form: keys it owns, ambient properties, freezing of its events.
#pragma once

#include "server/part.h"

#include <ocidl.h>

namespace obk::server {

class OleControlPart final : public Part<IOleControl> {
public:
    using Part::Part;

    HRESULT STDMETHODCALLTYPE GetControlInfo(CONTROLINFO* info) override;
    HRESULT STDMETHODCALLTYPE OnMnemonic(LPMSG message) override;
    HRESULT STDMETHODCALLTYPE OnAmbientPropertyChange(DISPID id) override;
    HRESULT STDMETHODCALLTYPE FreezeEvents(BOOL freeze) override;
};

}  // namespace obk::server
