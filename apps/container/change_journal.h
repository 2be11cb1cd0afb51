// Receives a control's property notifications.
#pragma once

#include <ocidl.h>

#include <functional>
#include <vector>

#include "com/com_object.h"
#include "container/connection.h"

namespace obk::container {

// Keeps the numbers of changed properties in the order of their arrival.
class ChangeJournal final : public ComObject<IPropertyNotifySink> {
public:
    // Subscribes; CONNECT_E_NOCONNECTION when the control does not notify.
    HRESULT connect(IUnknown* control) {
        return connection_.open(control, __uuidof(IPropertyNotifySink), this);
    }
    void disconnect() { connection_.close(); }

    const std::vector<DISPID>& changed() const { return changed_; }
    size_t countChanged(DISPID number) const;
    void clear();

    std::function<void(DISPID)> onChanged;

    HRESULT STDMETHODCALLTYPE OnChanged(DISPID number) override;
    HRESULT STDMETHODCALLTYPE OnRequestEdit(DISPID) override { return S_OK; }

private:
    Connection connection_;
    std::vector<DISPID> changed_;
};

}  // namespace obk::container
