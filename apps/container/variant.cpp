#include "container/variant.h"

namespace obk::container {

namespace {

// The platform's headers do not say that copying leaves the source alone.
VARIANT* source(const VARIANT& value) {
    return const_cast<VARIANT*>(&value);
}

}  // namespace

Variant::Variant(const VARIANT& other) : Variant() {
    VariantCopy(&value_, source(other));
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
    if (FAILED(VariantChangeTypeEx(&result.value_, source(value_), neutralLocale, VARIANT_ALPHABOOL, type)))
        return std::nullopt;
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
    if (!result) return {};
    const BSTR text = result->value_.bstrVal;
    return {text ? text : L"", SysStringLen(text)};
}

ComPtr<IUnknown> Variant::toObject() const {
    const Variant plain = resolved(value_);
    const bool object = plain.value_.vt == VT_DISPATCH || plain.value_.vt == VT_UNKNOWN;
    return object ? ComPtr<IUnknown>(plain.value_.punkVal) : nullptr;
}

bool writeThrough(const VARIANT& target, const Variant& value) {
    if (!(target.vt & VT_BYREF) || !target.byref) return false;
    const auto type = static_cast<VARTYPE>(target.vt & ~VT_BYREF);
    if (type == VT_VARIANT) return SUCCEEDED(VariantCopyInd(target.pvarVal, source(value.get())));
    auto converted = value.converted(type);
    if (!converted) return false;
    VARIANT plain = converted->detach();
    const bool written = exchangeContent(target, plain);
    VariantClear(&plain);  // with what stood there
    return written;
}

}  // namespace obk::container
