#include "container/variant.h"

namespace obk::container {

namespace {

/// The platform's headers do not say that copying leaves the source alone.
VARIANT* source(const VARIANT& value) {
    return const_cast<VARIANT*>(&value);
}

}  // namespace

Bstr::Bstr(std::wstring_view text) : text_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {}

BSTR* Bstr::put() {
    SysFreeString(text_);
    text_ = nullptr;
    return &text_;
}

BSTR Bstr::detach() {
    return std::exchange(text_, nullptr);
}

Variant::Variant(bool value) : Variant() {
    value_.vt = VT_BOOL;
    value_.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
}

Variant::Variant(unsigned char value) : Variant() {
    value_.vt = VT_UI1;
    value_.bVal = value;
}

Variant::Variant(short value) : Variant() {
    value_.vt = VT_I2;
    value_.iVal = value;
}

Variant::Variant(int value) : Variant(static_cast<long>(value)) {}

Variant::Variant(long value) : Variant() {
    value_.vt = VT_I4;
    value_.lVal = value;
}

Variant::Variant(long long value) : Variant() {
    value_.vt = VT_I8;
    value_.llVal = value;
}

Variant::Variant(float value) : Variant() {
    value_.vt = VT_R4;
    value_.fltVal = value;
}

Variant::Variant(double value) : Variant() {
    value_.vt = VT_R8;
    value_.dblVal = value;
}

Variant::Variant(std::wstring_view text) : Variant() {
    value_.vt = VT_BSTR;
    value_.bstrVal = Bstr(text).detach();
}

Variant::Variant(IDispatch* object) : Variant() {
    value_.vt = VT_DISPATCH;
    value_.pdispVal = ComPtr<IDispatch>(object).detach();
}

Variant::Variant(IUnknown* object) : Variant() {
    value_.vt = VT_UNKNOWN;
    value_.punkVal = ComPtr<IUnknown>(object).detach();
}

Variant::Variant(const VARIANT& other) : Variant() {
    VariantCopy(&value_, source(other));
}

Variant::Variant(Variant&& other) noexcept : Variant() {
    std::swap(value_, other.value_);
}

Variant& Variant::operator=(Variant other) noexcept {
    std::swap(value_, other.value_);
    return *this;
}

Variant Variant::reference(short& value) {
    Variant result;
    result.value_.vt = VT_I2 | VT_BYREF;
    result.value_.piVal = &value;
    return result;
}

Variant Variant::reference(long& value) {
    Variant result;
    result.value_.vt = VT_I4 | VT_BYREF;
    result.value_.plVal = &value;
    return result;
}

Variant Variant::reference(float& value) {
    Variant result;
    result.value_.vt = VT_R4 | VT_BYREF;
    result.value_.pfltVal = &value;
    return result;
}

Variant Variant::reference(double& value) {
    Variant result;
    result.value_.vt = VT_R8 | VT_BYREF;
    result.value_.pdblVal = &value;
    return result;
}

Variant Variant::reference(BSTR& value) {
    Variant result;
    result.value_.vt = VT_BSTR | VT_BYREF;
    result.value_.pbstrVal = &value;
    return result;
}

Variant Variant::reference(VARIANT& value) {
    Variant result;
    result.value_.vt = VT_VARIANT | VT_BYREF;
    result.value_.pvarVal = &value;
    return result;
}

Variant Variant::booleanReference(VARIANT_BOOL& value) {
    Variant result;
    result.value_.vt = VT_BOOL | VT_BYREF;
    result.value_.pboolVal = &value;
    return result;
}

Variant Variant::missing() {
    Variant result;
    result.value_.vt = VT_ERROR;
    result.value_.scode = DISP_E_PARAMNOTFOUND;
    return result;
}

Variant Variant::resolved(const VARIANT& value) {
    Variant result;
    VariantCopyInd(&result.value_, source(value));
    return result;
}

VARIANT* Variant::put() {
    VariantClear(&value_);
    return &value_;
}

VARIANT Variant::detach() {
    VARIANT result = value_;
    VariantInit(&value_);
    return result;
}

std::optional<Variant> Variant::converted(VARTYPE type) const {
    Variant result;
    if (FAILED(
            VariantChangeTypeEx(&result.value_, source(value_), invariantLocale, VARIANT_ALPHABOOL, type))) {
        return std::nullopt;
    }
    return result;
}

std::optional<long> Variant::toLong() const {
    const auto result = converted(VT_I4);
    return result ? std::optional(result->value_.lVal) : std::nullopt;
}

std::optional<double> Variant::toDouble() const {
    const auto result = converted(VT_R8);
    return result ? std::optional(result->value_.dblVal) : std::nullopt;
}

std::optional<bool> Variant::toBool() const {
    const auto result = converted(VT_BOOL);
    return result ? std::optional(result->value_.boolVal != VARIANT_FALSE) : std::nullopt;
}

std::wstring Variant::toText() const {
    const auto result = converted(VT_BSTR);
    if (!result) {
        return {};
    }
    const BSTR text = result->value_.bstrVal;
    return {text ? text : L"", SysStringLen(text)};
}

ComPtr<IUnknown> Variant::toObject() const {
    const Variant plain = resolved(value_);
    const bool object = plain.value_.vt == VT_DISPATCH || plain.value_.vt == VT_UNKNOWN;
    return object ? ComPtr<IUnknown>(plain.value_.punkVal) : nullptr;
}

bool writeThrough(const VARIANT& target, const Variant& value) {
    if (!(target.vt & VT_BYREF) || !target.byref) {
        return false;
    }
    const auto type = static_cast<VARTYPE>(target.vt & ~VT_BYREF);
    if (type == VT_VARIANT) {
        return SUCCEEDED(VariantCopyInd(target.pvarVal, source(value.get())));
    }
    auto converted = value.converted(type);
    if (!converted) {
        return false;
    }
    VARIANT plain = converted->detach();
    switch (type) {
        case VT_BSTR:
            SysFreeString(std::exchange(*target.pbstrVal, plain.bstrVal));
            return true;
        case VT_DISPATCH:
        case VT_UNKNOWN:
            if (IUnknown* old = std::exchange(*target.ppunkVal, plain.punkVal)) {
                old->Release();
            }
            return true;
        case VT_UI1:
        case VT_I1:
            *target.pbVal = plain.bVal;
            return true;
        case VT_I2:
        case VT_UI2:
        case VT_BOOL:
            *target.piVal = plain.iVal;
            return true;
        case VT_I4:
        case VT_UI4:
        case VT_INT:
        case VT_UINT:
        case VT_ERROR:
            *target.plVal = plain.lVal;
            return true;
        case VT_R4:
            *target.pfltVal = plain.fltVal;
            return true;
        case VT_R8:
        case VT_DATE:
            *target.pdblVal = plain.dblVal;
            return true;
        case VT_I8:
        case VT_UI8:
        case VT_CY:
            *target.pllVal = plain.llVal;
            return true;
        default:
            VariantClear(&plain);
            return false;
    }
}

}  // namespace obk::container
