// Values as they cross between a control and its host: one automation-like type each, with the rules that
// convert them.
#pragma once

#include "base/colour.h"
#include "base/font.h"
#include "base/opaque_object.h"
#include "base/picture.h"
#include "base/text.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <type_traits>
#include <utility>
#include <variant>

namespace obk {

enum class ValueType : uint8_t {
    empty,  // also: no result, and an argument left out
    boolean,
    byte,
    integer,      // 16 bits
    longInteger,  // 32 bits
    single,
    doubleFloat,
    text,
    colour,
    font,
    picture,
    object,  // handed through
};

// No value. It is not trivial to copy: where every alternative is, or is of the standard library, libstdc++
// 12 takes a variant for one that always has a value, and destroys a copy that could not be made for want of
// memory.
struct NoValue {
    NoValue() = default;
    NoValue(const NoValue&) noexcept;
    NoValue& operator=(const NoValue&) = default;
    ~NoValue() = default;
    friend bool operator==(const NoValue&, const NoValue&) { return true; }
};

// The alternatives stand in the order of ValueType.
using Value = std::variant<NoValue, bool, uint8_t, int16_t, int32_t, float, double, Text, OleColour, FontRef,
                           PictureRef, ObjectRef>;

inline ValueType typeOf(const Value& value) {
    return static_cast<ValueType>(value.index());
}

// As `place = value`, but into an empty place, as most are, a number goes without a look at what was there.
template <typename T>
void store(Value& place, T&& value) {
    using Type = std::remove_cvref_t<T>;
    if constexpr (std::is_nothrow_constructible_v<Type, T&&>) {
        if (typeOf(place) == ValueType::empty) {
            std::construct_at(&place, std::in_place_type<Type>, std::forward<T>(value));
            return;
        }
    }
    place = std::forward<T>(value);
}

// As the hosts' languages call it; empty for no type.
TextView typeName(ValueType type);

// Type by type the automation rules of the platform, without any user's locale: numbers are rounded half to
// even and must fit; True is -1 (255 as a byte); texts are read as numbers in full or not at all; an empty
// value is 0, False or the empty text. Nothing when there is no conversion: a value is refused, never
// guessed.
std::optional<bool> toBoolean(const Value& value);
std::optional<uint8_t> toByte(const Value& value);
std::optional<int16_t> toInteger(const Value& value);
std::optional<int32_t> toLong(const Value& value);
std::optional<float> toSingle(const Value& value);
std::optional<double> toDouble(const Value& value);
std::optional<Text> toText(const Value& value);
// Also takes what a host without unsigned numbers writes, -2147483643 for 0x80000005, and 2147483653 alike.
std::optional<OleColour> toColour(const Value& value);
// Objects convert from nothing but themselves and the empty value.
std::optional<FontRef> toFont(const Value& value);
std::optional<PictureRef> toPicture(const Value& value);
std::optional<ObjectRef> toObject(const Value& value);

// To a type named at run time; ValueType::empty takes everything as it is.
std::optional<Value> converted(const Value& value, ValueType type);

// The number a whole text shows: blanks around it, a sign, grouping commas in the integer part, a decimal
// point, an exponent, "&H" for hexadecimal and "&O" for octal. Nothing for any other text, and beyond a
// double's range.
std::optional<double> numberFromText(TextView text);

// Up to 15 significant digits, as automation writes numbers ("0.1", "1E+20"). Texts for what is not finite
// are the platform's ("1.#INF").
Text textFromNumber(double number);
Text textFromNumber(float number);

// For the rules that read a number off the start of a text whatever follows it: leading digits with at most
// one decimal point; 0 when there are none.
double leadingNumber(TextView text);

// Half to even, nothing when it does not fit into 32 bits.
std::optional<int32_t> roundedLong(double number);

}  // namespace obk
