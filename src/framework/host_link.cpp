#include "framework/host_link.h"

#include "base/attempt.h"
#include "framework/control_table.h"

namespace obk {

void HostLink::requestSize(Twips width, Twips height) {
    if (host_) attempt([&] { host_->requestSize(width, height); });
}

void HostLink::accessKeysChanged() {
    if (host_ && !loading_) attempt([&] { host_->accessKeysChanged(); });
}

void HostLink::propertyChanged(const void* token) {
    // A value without a property is told as unknown: the container's document has changed all the same.
    if (host_ && !loading_ && ownTable_)
        attempt([&] { host_->propertyChanged(ownTable_->notifiedByToken(token)); });
}

}  // namespace obk
