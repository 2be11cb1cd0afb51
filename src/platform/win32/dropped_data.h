// What is dropped, as hosts and scripts ask for it.
#pragma once

#include "com/com_ptr.h"

#include <objidl.h>

#include <memory>

namespace obk::win32 {

// The data object of the source, which it passes all calls on to, with members for scripts beside it:
// GetFormat(format) says whether there is data of a clipboard format; GetData(format) answers it, a text for
// the formats of texts, bytes for others; Files are the paths of dropped files, as a collection.
ComPtr<IUnknown> createDroppedData(ComPtr<IDataObject> data, std::shared_ptr<void> moduleLock);

}  // namespace obk::win32
