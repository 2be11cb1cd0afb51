// Owners for the automation values of COM: strings and variants.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "com/com_object.h"

namespace obk::container {

/// Owns a BSTR. A null BSTR and an empty text are the same.
class Bstr {
public:
    Bstr() = default;
    explicit Bstr(std::wstring_view text);
    Bstr(const Bstr&) = delete;
    Bstr& operator=(const Bstr&) = delete;
    ~Bstr() { SysFreeString(text_); }

    BSTR get() const { return text_; }
    BSTR* put();
    BSTR detach();
    std::wstring_view view() const { return {text_ ? text_ : L"", SysStringLen(text_)}; }
    std::wstring text() const { return std::wstring(view()); }

private:
    BSTR text_ = nullptr;
};

/// Owns a VARIANT. The constructors convert implicitly, so that argument lists read naturally:
/// `control.call(L"KeyLock", {46L, true, L"12.5"})`.
class Variant {
public:
    Variant() { VariantInit(&value_); }
    Variant(bool value);
    Variant(unsigned char value);
    Variant(short value);
    Variant(int value);
    Variant(long value);
    Variant(long long value);
    Variant(float value);
    Variant(double value);
    Variant(const wchar_t* text) : Variant(std::wstring_view(text)) {}
    Variant(const std::wstring& text) : Variant(std::wstring_view(text)) {}
    Variant(std::wstring_view text);
    Variant(IDispatch* object);
    Variant(IUnknown* object);
    /// Copies, by-reference variants as references.
    Variant(const VARIANT& other);
    Variant(const Variant& other) : Variant(other.value_) {}
    Variant(Variant&& other) noexcept;
    ~Variant() { VariantClear(&value_); }
    Variant& operator=(Variant other) noexcept;

    /// By-reference variants; the referenced value must outlive the variant and its copies.
    static Variant reference(short& value);
    static Variant reference(long& value);
    static Variant reference(float& value);
    static Variant reference(double& value);
    static Variant reference(BSTR& value);
    static Variant reference(VARIANT& value);
    /// By-reference Boolean; a Boolean of the host is a 16-bit number, so it needs its own name.
    static Variant booleanReference(VARIANT_BOOL& value);
    /// An argument left out of a call.
    static Variant missing();
    /// A copy of the value, with any reference resolved.
    static Variant resolved(const VARIANT& value);

    VARTYPE type() const { return value_.vt; }
    bool empty() const { return value_.vt == VT_EMPTY; }
    const VARIANT& get() const { return value_; }
    VARIANT* put();
    /// Gives the value to the caller, leaving this one empty.
    VARIANT detach();

    /// Conversions by the platform's rules for the invariant locale; nothing when they do not exist.
    std::optional<Variant> converted(VARTYPE type) const;
    std::optional<long> toLong() const;
    std::optional<double> toDouble() const;
    std::optional<bool> toBool() const;
    /// Empty for a value without a text form.
    std::wstring toText() const;
    ComPtr<IUnknown> toObject() const;

private:
    VARIANT value_;
};

using Arguments = std::vector<Variant>;

/// The locale of every conversion here: English, not the user's settings.
inline constexpr LCID invariantLocale = MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT);

/// Writes `value` through the by-reference variant `target`, converted to the type that it refers
/// to. False, with nothing changed, when `target` is by value or the conversion does not exist.
bool writeThrough(const VARIANT& target, const Variant& value);

}  // namespace obk::container
