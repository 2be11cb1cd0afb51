// Between the system's picture objects and the library's shared pictures.
#pragma once

#include "base/picture.h"

#include "com/com_ptr.h"

#include <windows.h>

#include <oaidl.h>

namespace obk::server {

// The library's side of a host's picture object, with its pixels at the system's resolution. Null when the
// object is no picture; without pixels when it shows nothing.
PictureRef pictureFromObject(IUnknown* object);

// The host's very object if the picture came from one, else one of the system's that stays with the picture
// from now on. Null for no picture, and when the system refuses.
ComPtr<IDispatch> objectFromPicture(const PictureRef& picture);

}  // namespace obk::server
