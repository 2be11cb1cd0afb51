// The container's side of a control: its site, and what it says about the surroundings.
#pragma once

#include "base/font.h"
#include "base/text.h"
#include "widgets/input.h"

#include "com/com_ptr.h"

#include <windows.h>

#include <ocidl.h>
#include <oleidl.h>

namespace obk::server {

// Every function does nothing, and answers the default, without a site.
class ClientSite {
public:
    void set(IOleClientSite* site);
    const ComPtr<IOleClientSite>& get() const { return site_; }
    template <typename Interface>
    ComPtr<Interface> as() const {
        return site_.query<Interface>();
    }

    // The container's font; the same shared font as long as the container names the same object.
    FontRef ambientFont();
    bool ambientFlag(DISPID id, bool otherwise) const;
    // The name that the container's code knows the control by, else the one that it shows; or empty.
    Text name() const;

    void focusChanged(bool inside) const;
    // Whether the container used a key that the control does not want.
    bool offerToContainer(const MSG& message) const;

private:
    ComPtr<IOleClientSite> site_;
    ComPtr<IDispatch> ambient_;
    ComPtr<IUnknown> ambientFontObject_;
    FontRef ambientFont_;
};

// The shift, control and alt keys as containers want them with a key.
DWORD keyModifiers();

}  // namespace obk::server
