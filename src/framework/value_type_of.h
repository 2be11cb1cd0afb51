// Which automation type a C++ type has.
#pragma once

#include "framework/value.h"

#include <cstdint>
#include <type_traits>

namespace obk::detail {

// Enumerations of hosts are 32-bit numbers.
template <typename T>
constexpr ValueType valueTypeOf() {
    using Bare = std::remove_cvref_t<T>;
    if constexpr (std::is_void_v<Bare>)
        return ValueType::empty;
    else if constexpr (std::is_same_v<Bare, bool>)
        return ValueType::boolean;
    else if constexpr (std::is_same_v<Bare, uint8_t>)
        return ValueType::byte;
    else if constexpr (std::is_same_v<Bare, int16_t>)
        return ValueType::integer;
    else if constexpr (std::is_same_v<Bare, int32_t>)
        return ValueType::longInteger;
    else if constexpr (std::is_same_v<Bare, float>)
        return ValueType::single;
    else if constexpr (std::is_same_v<Bare, double>)
        return ValueType::doubleFloat;
    else if constexpr (std::is_same_v<Bare, Text>)
        return ValueType::text;
    else if constexpr (std::is_same_v<Bare, OleColour>)
        return ValueType::colour;
    else if constexpr (std::is_same_v<Bare, FontRef>)
        return ValueType::font;
    else if constexpr (std::is_same_v<Bare, ObjectRef>)
        return ValueType::object;
    else {
        static_assert(std::is_same_v<Bare, PictureRef>, "this type does not cross the boundary");
        return ValueType::picture;
    }
}

}  // namespace obk::detail
