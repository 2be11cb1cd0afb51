// What servers and containers need for automation values: owned strings, and variants by reference.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

namespace obk {

// The locale of conversions that must not depend on a person's settings: English.
inline constexpr LCID neutralLocale = MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT);

// Owns a BSTR. A null BSTR and an empty text are the same.
class Bstr {
public:
    Bstr() = default;
    explicit Bstr(std::wstring_view text)
        : text_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {}
    Bstr(const Bstr&) = delete;
    Bstr& operator=(const Bstr&) = delete;
    ~Bstr() { SysFreeString(text_); }

    BSTR get() const { return text_; }
    BSTR* put() {
        SysFreeString(detach());
        return &text_;
    }
    BSTR detach() { return std::exchange(text_, nullptr); }
    std::wstring_view view() const { return {text_ ? text_ : L"", SysStringLen(text_)}; }
    std::wstring text() const { return std::wstring(view()); }

private:
    BSTR text_ = nullptr;
};

// The bytes of a value of this type inside a variant, and where a variant by reference points; 0 for types
// that are not held so: DECIMAL, VARIANT, arrays.
constexpr size_t contentSize(VARTYPE type) {
    switch (type) {
        case VT_I1:
        case VT_UI1:
            return 1;
        case VT_I2:
        case VT_UI2:
        case VT_BOOL:
            return 2;
        case VT_I4:
        case VT_UI4:
        case VT_INT:
        case VT_UINT:
        case VT_ERROR:
        case VT_R4:
            return 4;
        case VT_I8:
        case VT_UI8:
        case VT_CY:
        case VT_R8:
        case VT_DATE:
            return 8;
        case VT_BSTR:
        case VT_DISPATCH:
        case VT_UNKNOWN:
            return sizeof(void*);
        default:
            return 0;
    }
}

// Puts the content of a variant by value where one by reference to the same type points, and takes over what
// stood there. False, with nothing changed, for types without a content of their own.
inline bool exchangeContent(const VARIANT& reference, VARIANT& value) {
    const size_t size = contentSize(V_VT(&value));
    auto* const there = static_cast<BYTE*>(V_BYREF(&reference));
    std::swap_ranges(there, there + size, reinterpret_cast<BYTE*>(&V_NONE(&value)));
    return size > 0;
}

}  // namespace obk
