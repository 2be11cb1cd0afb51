// Values to put into any property.
#pragma once

#include "framework/member.h"

#include <memory>
#include <vector>

namespace obk::test {

// Of a property's own type, more than one wherever the type has more.
inline std::vector<Value> valuesOf(const Member& member) {
    if (member.enumeration) {
        std::vector<Value> values;
        for (const EnumerationValue& value : member.enumeration->values) values.emplace_back(value.value);
        return values;
    }
    switch (member.type) {
        case ValueType::boolean:
            return {true, false};
        case ValueType::byte:
            return {uint8_t{7}, uint8_t{1}};
        case ValueType::integer:
            return {int16_t{-7}, int16_t{1}, int16_t{0}};
        case ValueType::longInteger:
            return {-123456, 123456, 1, 0};
        case ValueType::single:
            return {-2.5f};
        case ValueType::doubleFloat:
            return {-2.125, 2.5};
        case ValueType::text:
            return {Text(u"37 \x00C9\xD83D\xDE00"), Text(u"12, a text that needs memory")};
        case ValueType::colour:
            return {OleColour(0x8000000Du), OleColour(0x123456u)};
        case ValueType::font:
            return {std::make_shared<SharedFont>(FontDescription{u"Arial", 12.75, 700, 0, true, false, true}),
                    std::make_shared<SharedFont>(FontDescription{u"A font with a long name", 14})};
        case ValueType::picture:
            return {std::make_shared<SharedPicture>(PixelSize{1, 1}, std::vector<uint32_t>{0xFF123456u})};
        case ValueType::object:
            return {std::make_shared<OpaqueObject>()};
        case ValueType::empty:
            break;
    }
    return {};
}

}  // namespace obk::test
