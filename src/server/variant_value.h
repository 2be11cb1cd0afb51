// Between automation variants and the library's values, in both directions.
#pragma once

#include "framework/value.h"

#include <windows.h>

#include <oaidl.h>

#include <optional>

namespace obk::server {

// A variant that is cleared when it goes.
class OwnedVariant : public VARIANT {
public:
    OwnedVariant() { VariantInit(this); }
    OwnedVariant(const OwnedVariant&) = delete;
    OwnedVariant& operator=(const OwnedVariant&) = delete;
    ~OwnedVariant() { VariantClear(this); }
};

// Of a variant by reference, or of an error's number.
bool namesNothing(const VARIANT& variant);
// Whether a caller names a parameter only to say that it leaves it out.
inline bool isLeftOut(const VARIANT& variant) {
    return (V_VT(&variant) == VT_ERROR || V_ISBYREF(&variant)) && namesNothing(variant);
}

// Any automation type, by value or by reference, as a value of the type `wanted`; ValueType::empty takes the
// nearest type. What is left out becomes an empty value. An object is read through its default property where
// a plain value is wanted. DISP_E_OVERFLOW for a number that is too large, DISP_E_TYPEMISMATCH for all other
// refusals: Null, arrays and foreign objects among them.
HRESULT valueFromVariant(const VARIANT& variant, ValueType wanted, Value& value);

// As hosts expect a value: a colour as a Long, a font or picture as its dispatch interface, any other object
// as it is (all of which may be null). `variant` is overwritten, not cleared. E_OUTOFMEMORY leaves it empty.
HRESULT variantFromValue(const Value& value, VARIANT& variant);

// Stores a changed argument where a by-reference variant points, in the type that stands there. A variant by
// value stays as it is.
void writeBack(const Value& value, const VARIANT& reference);

}  // namespace obk::server
