// Names for the values of plain numbers, which people choose by at a property browser.
#pragma once

#include "framework/member.h"

#include <span>

namespace obk {

inline std::span<const EnumerationValue> borderChoices() {
    static constexpr EnumerationValue values[] = {{u"None", 0, u"No border"}, {u"Single", 1, u"A border"}};
    return values;
}

inline std::span<const EnumerationValue> alignmentChoices() {
    static constexpr EnumerationValue values[] = {
        {u"Left", 0, u"At the left"}, {u"Right", 1, u"At the right"}, {u"Centre", 2, u"In the middle"}};
    return values;
}

inline std::span<const EnumerationValue> sideChoices() {
    static constexpr EnumerationValue values[] = {{u"Right", 0, u"At the right"},
                                                  {u"Left", 1, u"At the left"}};
    return values;
}

}  // namespace obk
