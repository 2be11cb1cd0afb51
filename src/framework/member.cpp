#include "framework/member.h"

namespace obk {

Value valueOf(const ArgumentDefault& value) {
    if (const auto* held = std::get_if<bool>(&value)) return *held;
    if (const auto* held = std::get_if<OleColour>(&value)) return *held;
    if (const auto* held = std::get_if<TextView>(&value)) return Text(*held);
    return {};
}

}  // namespace obk
