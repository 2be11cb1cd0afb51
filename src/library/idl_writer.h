// Prints the interface definition of the library: the contract with every host, made from the member tables.
#pragma once

#include "library/library.h"

#include <string>

namespace obk {

// In UTF-8, with line ends of one character.
std::string writeIdl(const Library& library);

}  // namespace obk
