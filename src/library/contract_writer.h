// Prints what a release promises to its hosts for ever, one promise a line.
#pragma once

#include "library/library.h"

#include <string>

namespace obk {

// Identities, names, numbers, types, keys and defaults, in UTF-8; no help texts, which may be put better.
std::string writeContract(const Library& library);

}  // namespace obk
