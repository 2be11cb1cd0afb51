// Prints what registering both servers writes, as a table for the installers.
#pragma once

#include "library/library.h"

#include <string>

namespace obk {

// A line for each value: "x64" or "x86" where each architecture has keys of its own, else "shared"; key, name
// and text, with tabs between, in UTF-8. "[x64]" and "[x86]" stand for the servers' folders, with a backslash
// at their ends.
std::string writeRegistry(const Library& library);

}  // namespace obk
