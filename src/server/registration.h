// Writes and removes what makes the controls known to the system.
#pragma once

#include "server/registry_entries.h"

#include <windows.h>

namespace obk::server {

// Every public class, its programmatic identifiers and the type library. What a failure leaves half done is
// removed.
HRESULT registerServer(RegistrationScope scope);
// Removes what registering writes, and nothing else: keys that hold anything of others stay.
HRESULT unregisterServer(RegistrationScope scope);

}  // namespace obk::server
