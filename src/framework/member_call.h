// Late-bound calls of one member, as any host makes them.
#pragma once

#include "framework/member.h"

namespace obk {

// How a call ended. The control itself never reports an error; these tell a caller that it called wrongly.
enum class CallStatus : uint8_t { done, noSuchMember, wrongArgumentCount, wrongArgumentType };

// Arguments come in the declared order and are converted by the rules of Value; one that is an empty value
// counts as left out and takes its default value, or its type's zero. Never throws.
CallStatus getProperty(Control& control, const Member& member, Value& value);
CallStatus putProperty(Control& control, const Member& member, const Value& value);
CallStatus callMethod(Control& control, const Member& member, std::span<Value> arguments, Value& result);

}  // namespace obk
