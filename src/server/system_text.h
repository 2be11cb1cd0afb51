// Between the library's texts and identifiers and COM's.
#pragma once

#include "base/guid.h"
#include "base/text.h"
#include "platform/win32/text_conversion.h"

#include <windows.h>

#include <oleauto.h>

#include <cstring>

namespace obk::server {

static_assert(sizeof(wchar_t) == sizeof(char16_t) && sizeof(GUID) == sizeof(Guid));

// The system's characters seen as ours. Built without strict aliasing.
inline TextView viewOf(const wchar_t* text, size_t length) {
    return {reinterpret_cast<const char16_t*>(text), length};
}
inline TextView viewOf(const wchar_t* text) {
    return text ? viewOf(text, std::wcslen(text)) : TextView();
}

// A null BSTR is the empty text.
inline TextView viewOfBstr(BSTR text) {
    return text ? viewOf(text, SysStringLen(text)) : TextView();
}

using win32::toWide;

// The caller owns the result; null when memory is short.
inline BSTR newBstr(TextView text) {
    return SysAllocStringLen(reinterpret_cast<const wchar_t*>(text.data()), static_cast<UINT>(text.size()));
}
// In the task allocator's memory, for the caller to free; null when memory is short.
LPOLESTR newTaskText(TextView text);

inline GUID systemGuid(const Guid& guid) {
    GUID result;
    std::memcpy(&result, &guid, sizeof result);
    return result;
}

}  // namespace obk::server
