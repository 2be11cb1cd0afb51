// Prints the manifest with which an application uses the controls without any registration.
#pragma once

#include "library/library.h"

#include <string>

namespace obk {

// The assembly's manifest, in UTF-8; it lies beside the server's file under the library's name.
std::string writeManifest(const Library& library);

}  // namespace obk
