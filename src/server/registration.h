// Registers the server's own file in the system's registry.
#pragma once

#include "server/classes_key.h"

namespace obk::server {

// What a failure leaves half done is removed.
HRESULT registerThisServer(RegistrationScope scope);
HRESULT unregisterThisServer(RegistrationScope scope);

}  // namespace obk::server
