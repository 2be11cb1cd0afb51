// The clipboard, which all programs of a desktop share.
#pragma once

#include "base/text.h"

#include <windows.h>

#include <optional>

namespace obk::win32 {

// For `owner`, which may be null. Only one program has the clipboard open at a time; for one that looks at it
// for a moment both wait up to a quarter of a second. False, and nothing, when it stays open or memory is
// short.
bool putOnClipboard(HWND owner, TextView text);
std::optional<Text> textOnClipboard(HWND owner);

}  // namespace obk::win32
