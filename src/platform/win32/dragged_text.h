// A text that is dragged to other windows.
#pragma once

#include "base/text.h"

#include <cstdint>
#include <memory>

namespace obk::win32 {

// See Platform::dragText. `moduleLock` is held by what a target keeps.
int32_t dragText(TextView text, std::shared_ptr<void> moduleLock);

}  // namespace obk::win32
