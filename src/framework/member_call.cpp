#include "framework/member_call.h"

#include "base/attempt.h"

namespace obk {

CallStatus getProperty(Control& control, const Member& member, Value& value) {
    if (!member.get) return CallStatus::noSuchMember;
    attempt([&] { member.get(control, value); });
    return CallStatus::done;
}

CallStatus putProperty(Control& control, const Member& member, const Value& value) {
    if (!member.put) return CallStatus::noSuchMember;
    if (typeOf(value) == member.type) {
        attempt([&] { member.put(control, value); });
        return CallStatus::done;
    }
    std::optional<Value> own;
    attempt([&] { own = converted(value, member.type); });
    if (!own) return CallStatus::wrongArgumentType;
    attempt([&] { member.put(control, *own); });
    return CallStatus::done;
}

CallStatus callMethod(Control& control, const Member& member, std::span<Value> arguments, Value& result) {
    if (!member.call) return CallStatus::noSuchMember;
    if (arguments.size() != member.parameters.size()) return CallStatus::wrongArgumentCount;
    CallStatus status = CallStatus::done;
    const bool answered = attempt([&] {
        for (size_t at = 0; at < arguments.size(); ++at) {
            const Parameter& parameter = member.parameters[at];
            Value& own = arguments[at];
            if (typeOf(own) == ValueType::empty && parameter.mayBeLeftOut())
                own = valueOf(parameter.defaultValue);
            if (typeOf(own) == parameter.type) continue;
            std::optional<Value> fitting = converted(own, parameter.type);
            if (!fitting) {
                status = CallStatus::wrongArgumentType;
                return;
            }
            own = std::move(*fitting);
        }
        member.call(control, arguments, result);
    });
    // What a failing call answers.
    if (!answered) attempt([&] { result = *converted(Value(), member.type); });
    return status;
}

}  // namespace obk
