// How what a thing says comes to UI Automation: as variants and texts of the system's.
#pragma once

#include "base/text.h"
#include "platform/win32/text_conversion.h"

#include <windows.h>

#include <oleauto.h>

#include <new>

namespace obk::win32 {

inline void put(VARIANT* result, bool value) {
    result->vt = VT_BOOL;
    result->boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
}

inline void put(VARIANT* result, int value) {
    result->vt = VT_I4;
    result->lVal = value;
}

inline void put(VARIANT* result, double value) {
    result->vt = VT_R8;
    result->dblVal = value;
}

inline void put(BSTR* result, TextView text) {
    *result = SysAllocStringLen(asWide(text).data(), static_cast<UINT>(text.size()));
    if (!*result) throw std::bad_alloc();
}

inline void put(VARIANT* result, TextView text) {
    put(&result->bstrVal, text);
    result->vt = VT_BSTR;
}

}  // namespace obk::win32
