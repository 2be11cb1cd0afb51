// All that a container tells a control, and asks of it, before showing it: in one call.
#pragma once

#include "server/part.h"

#include <ocidl.h>

namespace obk::server {

class QuickActivatePart final : public Part<IQuickActivate> {
public:
    using Part::Part;

    HRESULT STDMETHODCALLTYPE QuickActivate(QACONTAINER* container, QACONTROL* control) override;
    HRESULT STDMETHODCALLTYPE SetContentExtent(LPSIZEL size) override;
    HRESULT STDMETHODCALLTYPE GetContentExtent(LPSIZEL size) override;
};

}  // namespace obk::server
