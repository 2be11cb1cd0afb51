#include "server/variant_value.h"

#include "com/automation.h"
#include "com/com_ptr.h"
#include "platform/win32/native_object.h"
#include "server/font_bridge.h"
#include "server/picture_bridge.h"
#include "server/system_text.h"

#include <cstring>

namespace obk::server {

namespace {

// Default properties may name further objects; a circle of them ends here.
constexpr int deepestDefault = 8;

// A by-value view of a variant: what it refers to, without a copy of texts or objects.
bool dereferenced(const VARIANT& variant, VARIANT& plain) {
    const VARIANT* source = &variant;
    if (V_VT(source) == (VT_BYREF | VT_VARIANT)) {
        source = V_VARIANTREF(source);
        if (!source || V_VT(source) == (VT_BYREF | VT_VARIANT)) return false;
    }
    plain = *source;
    if (!V_ISBYREF(source)) return true;
    if (!V_BYREF(source)) return false;
    V_VT(&plain) = static_cast<VARTYPE>(V_VT(source) & ~VT_BYREF);
    if (V_VT(&plain) == VT_DECIMAL) {
        V_DECIMAL(&plain) = *V_DECIMALREF(source);
        V_VT(&plain) = VT_DECIMAL;  // the structures overlap
        return true;
    }
    const size_t size = contentSize(V_VT(&plain));
    std::memcpy(&V_NONE(&plain), V_BYREF(source), size);
    return size > 0;
}

// Types that the library has no counterpart of: read as what is nearest to what is wanted.
HRESULT readThroughSystem(const VARIANT& plain, ValueType wanted, Value& value) {
    OwnedVariant converted;
    const bool asText = wanted == ValueType::text || wanted == ValueType::empty;
    const HRESULT result = VariantChangeTypeEx(&converted, const_cast<VARIANT*>(&plain), neutralLocale,
                                               VARIANT_NOUSEROVERRIDE, asText ? VT_BSTR : VT_R8);
    if (FAILED(result)) return result == DISP_E_OVERFLOW ? result : DISP_E_TYPEMISMATCH;
    if (asText) {
        value = Text(viewOfBstr(V_BSTR(&converted)));
    } else {
        value = V_R8(&converted);
    }
    return S_OK;
}

// Whole numbers beyond 32 bits are exact in a double as far as hosts use them.
template <typename Whole>
Value wholeNumber(Whole number) {
    if (number >= static_cast<Whole>(INT32_MIN) && number <= static_cast<Whole>(INT32_MAX))
        return static_cast<int32_t>(number);
    return static_cast<double>(number);
}

HRESULT fromPlain(const VARIANT& plain, ValueType wanted, int depth, Value& value);

HRESULT fromObject(IUnknown* object, ValueType wanted, int depth, Value& value) {
    if (wanted == ValueType::font) {
        if (!object) return value = FontRef(), S_OK;
        FontRef font = fontFromObject(object);
        if (!font) return DISP_E_TYPEMISMATCH;
        value = std::move(font);
        return S_OK;
    }
    if (wanted == ValueType::picture) {
        if (!object) return value = PictureRef(), S_OK;
        PictureRef picture = pictureFromObject(object);
        if (!picture) return DISP_E_TYPEMISMATCH;
        value = std::move(picture);
        return S_OK;
    }
    if (wanted == ValueType::object) {
        value = object ? std::make_shared<win32::NativeObject>(object) : ObjectRef();
        return S_OK;
    }
    if (wanted == ValueType::empty) {
        // A bag that was asked for nothing in particular: fonts and pictures keep what they are.
        if (FontRef font = fontFromObject(object)) return value = std::move(font), S_OK;
        if (PictureRef picture = pictureFromObject(object)) return value = std::move(picture), S_OK;
    }
    const auto dispatch = query<IDispatch>(object);
    if (!dispatch || depth >= deepestDefault) return DISP_E_TYPEMISMATCH;
    DISPPARAMS none{};
    OwnedVariant read;
    if (FAILED(dispatch->Invoke(DISPID_VALUE, IID_NULL, neutralLocale, DISPATCH_PROPERTYGET | DISPATCH_METHOD,
                                &none, &read, nullptr, nullptr)))
        return DISP_E_TYPEMISMATCH;
    VARIANT inner;
    if (!dereferenced(read, inner)) return DISP_E_TYPEMISMATCH;
    return fromPlain(inner, wanted, depth + 1, value);
}

HRESULT fromPlain(const VARIANT& plain, ValueType wanted, int depth, Value& value) {
    switch (V_VT(&plain)) {
        case VT_EMPTY:
            value = NoValue();
            break;
        case VT_ERROR:
            if (V_ERROR(&plain) != DISP_E_PARAMNOTFOUND) return DISP_E_TYPEMISMATCH;
            value = NoValue();
            return S_OK;  // left out stays distinct from an empty value that was given
        case VT_BOOL:
            value = V_BOOL(&plain) != VARIANT_FALSE;
            break;
        case VT_UI1:
            value = static_cast<uint8_t>(V_UI1(&plain));
            break;
        case VT_I1:
            value = static_cast<int16_t>(static_cast<signed char>(V_I1(&plain)));
            break;
        case VT_I2:
            value = static_cast<int16_t>(V_I2(&plain));
            break;
        case VT_UI2:
            value = static_cast<int32_t>(V_UI2(&plain));
            break;
        case VT_I4:
        case VT_INT:
            value = static_cast<int32_t>(V_I4(&plain));
            break;
        case VT_UI4:
        case VT_UINT:
            value = wholeNumber<int64_t>(V_UI4(&plain));
            break;
        case VT_R4:
            value = V_R4(&plain);
            break;
        case VT_R8:
            value = V_R8(&plain);
            break;
        case VT_BSTR:
            value = Text(viewOfBstr(V_BSTR(&plain)));
            break;
        case VT_DISPATCH:
        case VT_UNKNOWN:
            return fromObject(V_UNKNOWN(&plain), wanted, depth, value);
        case VT_I8:
            if (wanted == ValueType::text) {
                if (const HRESULT result = readThroughSystem(plain, wanted, value); FAILED(result))
                    return result;
                break;
            }
            value = wholeNumber<int64_t>(V_I8(&plain));
            break;
        case VT_UI8:
        case VT_CY:
        case VT_DATE:
        case VT_DECIMAL:
            if (const HRESULT result = readThroughSystem(plain, wanted, value); FAILED(result)) return result;
            break;
        default:
            return DISP_E_TYPEMISMATCH;
    }
    if (wanted == ValueType::empty || typeOf(value) == wanted) return S_OK;
    auto fitting = converted(value, wanted);
    if (!fitting) return toDouble(value) ? DISP_E_OVERFLOW : DISP_E_TYPEMISMATCH;
    value = std::move(*fitting);
    return S_OK;
}

// With a reference for the caller; null for no object.
IUnknown* objectOf(const ObjectRef& value) {
    // The only kind of object that there is in a process with this platform.
    const auto* native = static_cast<const win32::NativeObject*>(value.get());
    return native ? native->object().share() : nullptr;
}

bool isNumber(ValueType type) {
    return type >= ValueType::boolean && type <= ValueType::doubleFloat;
}

}  // namespace

bool namesNothing(const VARIANT& variant) {
    VARIANT plain;
    return dereferenced(variant, plain) && V_VT(&plain) == VT_ERROR &&
           V_ERROR(&plain) == DISP_E_PARAMNOTFOUND;
}

HRESULT valueFromVariant(const VARIANT& variant, ValueType wanted, Value& value) {
    // What most calls bring, without a detour.
    if (V_VT(&variant) == VT_R8 && wanted == ValueType::doubleFloat) {
        store(value, double{V_R8(&variant)});
        return S_OK;
    }
    if (V_VT(&variant) == VT_I4 && wanted == ValueType::longInteger) {
        store(value, static_cast<int32_t>(V_I4(&variant)));
        return S_OK;
    }
    if (V_VT(&variant) == VT_I4 && wanted == ValueType::colour) {
        store(value, OleColour(static_cast<uint32_t>(V_I4(&variant))));
        return S_OK;
    }
    if (V_VT(&variant) == VT_BSTR && wanted == ValueType::text) {
        value.emplace<Text>(viewOfBstr(V_BSTR(&variant)));
        return S_OK;
    }
    VARIANT plain;
    if (!dereferenced(variant, plain)) return DISP_E_TYPEMISMATCH;
    const HRESULT result = fromPlain(plain, wanted, 0, value);
    // An overflow is one only where a number was wanted.
    if (result == DISP_E_OVERFLOW && !isNumber(wanted) && wanted != ValueType::colour)
        return DISP_E_TYPEMISMATCH;
    return result;
}

HRESULT variantFromValue(const Value& value, VARIANT& variant) {
    V_VT(&variant) = VT_EMPTY;
    switch (typeOf(value)) {
        case ValueType::empty:
            return S_OK;
        case ValueType::boolean:
            V_BOOL(&variant) = std::get<bool>(value) ? VARIANT_TRUE : VARIANT_FALSE;
            V_VT(&variant) = VT_BOOL;
            return S_OK;
        case ValueType::byte:
            V_UI1(&variant) = std::get<uint8_t>(value);
            V_VT(&variant) = VT_UI1;
            return S_OK;
        case ValueType::integer:
            V_I2(&variant) = std::get<int16_t>(value);
            V_VT(&variant) = VT_I2;
            return S_OK;
        case ValueType::longInteger:
            V_I4(&variant) = std::get<int32_t>(value);
            V_VT(&variant) = VT_I4;
            return S_OK;
        case ValueType::single:
            V_R4(&variant) = std::get<float>(value);
            V_VT(&variant) = VT_R4;
            return S_OK;
        case ValueType::doubleFloat:
            V_R8(&variant) = std::get<double>(value);
            V_VT(&variant) = VT_R8;
            return S_OK;
        case ValueType::text:
            V_BSTR(&variant) = newBstr(std::get<Text>(value));
            if (!V_BSTR(&variant)) return E_OUTOFMEMORY;
            V_VT(&variant) = VT_BSTR;
            return S_OK;
        case ValueType::colour:
            V_I4(&variant) = static_cast<LONG>(std::get<OleColour>(value).value);
            V_VT(&variant) = VT_I4;
            return S_OK;
        case ValueType::font:
            V_DISPATCH(&variant) = objectFromFont(std::get<FontRef>(value)).detach();
            V_VT(&variant) = VT_DISPATCH;
            return S_OK;
        case ValueType::picture:
            V_DISPATCH(&variant) = objectFromPicture(std::get<PictureRef>(value)).detach();
            V_VT(&variant) = VT_DISPATCH;
            return S_OK;
        case ValueType::object:
            V_UNKNOWN(&variant) = objectOf(std::get<ObjectRef>(value));
            V_VT(&variant) = VT_UNKNOWN;
            return S_OK;
    }
    return E_UNEXPECTED;
}

void writeBack(const Value& value, const VARIANT& reference) {
    if (!V_ISBYREF(&reference) || !V_BYREF(&reference)) return;
    OwnedVariant changed;
    if (FAILED(variantFromValue(value, changed))) return;
    if (V_VT(&reference) == (VT_BYREF | VT_VARIANT)) {
        VARIANT& target = *V_VARIANTREF(&reference);
        if (V_ISBYREF(&target)) return writeBack(value, target);
        VariantCopy(&target, &changed);
        return;
    }
    const auto type = static_cast<VARTYPE>(V_VT(&reference) & ~VT_BYREF);
    if (FAILED(VariantChangeTypeEx(&changed, &changed, neutralLocale, VARIANT_NOUSEROVERRIDE, type))) return;
    if (type == VT_DECIMAL) {
        const auto keptReserved = V_DECIMALREF(&reference)->wReserved;
        *V_DECIMALREF(&reference) = V_DECIMAL(&changed);
        V_DECIMALREF(&reference)->wReserved = keptReserved;
    } else {
        exchangeContent(reference, changed);  // what stood there goes with `changed`
    }
}

}  // namespace obk::server
