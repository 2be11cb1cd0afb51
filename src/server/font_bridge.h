// Between the system's font objects and the library's shared fonts.
#pragma once

#include "base/font.h"

#include "com/com_ptr.h"

#include <windows.h>

#include <oaidl.h>

namespace obk::server {

// The library's side of a host's font object; whoever changes one side changes the other. Null when the
// object is no font.
FontRef fontFromObject(IUnknown* object);

// The host's very object if the font came from one, else one of the system's that stays with the font from
// now on. Null for no font, and when the system refuses.
ComPtr<IDispatch> objectFromFont(const FontRef& font);

}  // namespace obk::server
