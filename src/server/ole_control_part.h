// The control as part of a form: keys it owns, ambient properties, freezing of its events.
#pragma once

#include "server/part.h"

#include <ocidl.h>

#include <memory>
#include <type_traits>

namespace obk::server {

class OleControlPart final : public Part<IOleControl> {
public:
    using Part::Part;

    HRESULT STDMETHODCALLTYPE GetControlInfo(CONTROLINFO* info) override;
    HRESULT STDMETHODCALLTYPE OnMnemonic(LPMSG message) override;
    HRESULT STDMETHODCALLTYPE OnAmbientPropertyChange(DISPID id) override;
    HRESULT STDMETHODCALLTYPE FreezeEvents(BOOL freeze) override;

private:
    struct AcceleratorDeleter {
        void operator()(HACCEL table) const { DestroyAcceleratorTable(table); }
    };
    // What a container was told last; it may look keys up in it until it asks again.
    std::unique_ptr<std::remove_pointer_t<HACCEL>, AcceleratorDeleter> accessKeys_;
};

}  // namespace obk::server
