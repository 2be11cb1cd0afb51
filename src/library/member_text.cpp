#include "library/member_text.h"

namespace obk {

namespace {

Text colourText(OleColour colour) {
    Text text = u"0x";
    for (int shift = 28; shift >= 0; shift -= 4) text += u"0123456789ABCDEF"[colour.value >> shift & 0xF];
    return text;
}

}  // namespace

Text typeText(const Member& member) {
    return member.enumeration ? member.enumeration->name : Text(typeName(member.type));
}

Text valueText(const Value& value) {
    switch (typeOf(value)) {
        case ValueType::boolean:
            return std::get<bool>(value) ? u"True" : u"False";
        case ValueType::text:
            return u"\"" + std::get<Text>(value) + u"\"";
        case ValueType::colour:
            return colourText(std::get<OleColour>(value));
        case ValueType::empty:
        case ValueType::font:
        case ValueType::picture:
        case ValueType::object:
            return u"";
        default:
            return toText(value).value_or(u"");
    }
}

Text defaultText(const DefaultValue& value) {
    if (std::holds_alternative<AmbientFontDefault>(value)) return u"the container's font";
    if (const auto* colour = std::get_if<SystemRgbDefault>(&value))
        return u"the RGB value of " + colourText(colour->index);
    return valueText(std::get<Value>(value));
}

Text signatureText(const Member& member) {
    Text text = member.name + u"(";
    for (size_t at = 0; at < member.parameters.size(); ++at) {
        const Parameter& parameter = member.parameters[at];
        text += at == 0 ? u"" : u", ";
        text += parameter.byReference ? u"ByRef " : u"";
        text += parameter.name + u" As " + Text(typeName(parameter.type));
        if (parameter.mayBeLeftOut()) text += u" = " + valueText(valueOf(parameter.defaultValue));
    }
    return text + u")";
}

}  // namespace obk
