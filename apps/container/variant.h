// The owner of an automation value.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <cstring>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "com/automation.h"
#include "com/com_ptr.h"

namespace obk::container {

// Owns a VARIANT. The constructors convert implicitly, so that argument lists read naturally:
// `control.call(L"KeyLock", {46L, true, L"12.5"})`.
class Variant {
public:
    Variant() { VariantInit(&value_); }
    Variant(bool value) : Variant(VT_BOOL, value ? VARIANT_TRUE : VARIANT_FALSE) {}
    Variant(unsigned char value) : Variant(VT_UI1, value) {}
    Variant(short value) : Variant(VT_I2, value) {}
    Variant(int value) : Variant(VT_I4, value) {}
    Variant(long value) : Variant(VT_I4, value) {}
    Variant(long long value) : Variant(VT_I8, value) {}
    Variant(float value) : Variant(VT_R4, value) {}
    Variant(double value) : Variant(VT_R8, value) {}
    Variant(const wchar_t* text) : Variant(std::wstring_view(text)) {}
    Variant(const std::wstring& text) : Variant(std::wstring_view(text)) {}
    Variant(std::wstring_view text) : Variant(VT_BSTR, Bstr(text).detach()) {}
    Variant(IDispatch* object) : Variant(VT_DISPATCH, ComPtr<IDispatch>(object).detach()) {}
    Variant(IUnknown* object) : Variant(VT_UNKNOWN, ComPtr<IUnknown>(object).detach()) {}
    // Copies, by-reference variants as references.
    Variant(const VARIANT& other);
    Variant(const Variant& other) : Variant(other.value_) {}
    Variant(Variant&& other) noexcept : Variant() { std::swap(value_, other.value_); }
    ~Variant() { VariantClear(&value_); }
    Variant& operator=(Variant other) noexcept {
        std::swap(value_, other.value_);
        return *this;
    }

    // By-reference variants; the referenced value must outlive the variant and its copies.
    static Variant reference(short& value) { return {VT_I2 | VT_BYREF, &value}; }
    static Variant reference(long& value) { return {VT_I4 | VT_BYREF, &value}; }
    static Variant reference(float& value) { return {VT_R4 | VT_BYREF, &value}; }
    static Variant reference(double& value) { return {VT_R8 | VT_BYREF, &value}; }
    static Variant reference(BSTR& value) { return {VT_BSTR | VT_BYREF, &value}; }
    static Variant reference(VARIANT& value) { return {VT_VARIANT | VT_BYREF, &value}; }
    // By-reference Boolean; a Boolean of the host is a 16-bit number, so it needs its own name.
    static Variant booleanReference(VARIANT_BOOL& value) { return {VT_BOOL | VT_BYREF, &value}; }
    // An argument left out of a call.
    static Variant missing() { return {VT_ERROR, DISP_E_PARAMNOTFOUND}; }
    // A copy of the value, with any reference resolved.
    static Variant resolved(const VARIANT& value);

    VARTYPE type() const { return value_.vt; }
    bool empty() const { return value_.vt == VT_EMPTY; }
    const VARIANT& get() const { return value_; }
    VARIANT* put();
    // Gives the value to the caller, leaving this one empty.
    VARIANT detach();

    // Conversions by the platform's rules for the invariant locale; nothing when they do not exist.
    std::optional<Variant> converted(VARTYPE type) const;
    std::optional<long> toLong() const;
    std::optional<double> toDouble() const;
    std::optional<bool> toBool() const;
    // Empty for a value without a text form.
    std::wstring toText() const;
    ComPtr<IUnknown> toObject() const;

private:
    template <typename Content>
    Variant(int type, const Content& content) : Variant() {
        value_.vt = static_cast<VARTYPE>(type);
        const auto bytes = std::as_bytes(std::span(&content, 1));
        std::memcpy(&V_NONE(&value_), bytes.data(), bytes.size());
    }

    VARIANT value_;
};

using Arguments = std::vector<Variant>;

// Writes `value` through the by-reference variant `target`, converted to the type that it refers
// to. False, with nothing changed, when `target` is by value or the conversion does not exist.
bool writeThrough(const VARIANT& target, const Variant& value);

}  // namespace obk::container
