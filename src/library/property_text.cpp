#include "library/property_text.h"

#include "base/font.h"

namespace obk {

namespace {

// By their numbers in the system, from 0.
constexpr TextView systemColourNames[] = {u"Scroll bar",
                                          u"Desktop",
                                          u"Active title bar",
                                          u"Inactive title bar",
                                          u"Menu bar",
                                          u"Window background",
                                          u"Window frame",
                                          u"Menu text",
                                          u"Window text",
                                          u"Title bar text",
                                          u"Active border",
                                          u"Inactive border",
                                          u"Application workspace",
                                          u"Highlight",
                                          u"Highlight text",
                                          u"Button face",
                                          u"Button shadow",
                                          u"Disabled text",
                                          u"Button text",
                                          u"Inactive title bar text",
                                          u"Button highlight",
                                          u"Button dark shadow",
                                          u"Button light shadow",
                                          u"Tip text",
                                          u"Tip background"};

constexpr uint32_t systemColourBit = 0x80000000;
constexpr TextView beforeName = u" - ";

Text hexadecimal(uint32_t number) {
    Text digits = u"&H00000000";
    for (size_t at = digits.size(); at-- > 2; number >>= 4) digits[at] = u"0123456789ABCDEF"[number & 0xF];
    return digits;
}

Text colourText(OleColour colour) {
    const uint32_t index = colour.value & ~systemColourBit;
    Text text = hexadecimal(colour.value);
    if ((colour.value & systemColourBit) != 0 && index < std::size(systemColourNames))
        text.append(beforeName).append(systemColourNames[index]);
    return text;
}

}  // namespace

std::vector<PropertyChoice> choicesOf(const Member& property) {
    if (property.type == ValueType::boolean) return {{u"False", false}, {u"True", true}};
    std::vector<PropertyChoice> choices;
    const std::span<const EnumerationValue> named =
        property.enumeration ? std::span(property.enumeration->values) : property.choices;
    for (const EnumerationValue& value : named) {
        Text text = decimalText(value.value);
        text.append(beforeName).append(value.name);
        choices.push_back({std::move(text), value.value});
    }
    return choices;
}

std::vector<PropertyChoice> systemColourChoices() {
    std::vector<PropertyChoice> choices;
    for (uint32_t index = 0; index < std::size(systemColourNames); ++index) {
        const OleColour colour{systemColourBit | index};
        choices.push_back({colourText(colour), colour});
    }
    return choices;
}

std::vector<const Member*> editableProperties(const ControlTable& table) {
    std::vector<const Member*> found;
    for (const Member& member : table.members) {
        if (member.kind == MemberKind::property && member.get && member.put) found.push_back(&member);
    }
    return found;
}

Text shownText(const Member& property, const Value& value) {
    for (const PropertyChoice& choice : choicesOf(property)) {
        if (choice.value == value) return choice.text;
    }
    if (const auto* colour = std::get_if<OleColour>(&value)) return colourText(*colour);
    if (const auto* font = std::get_if<FontRef>(&value)) {
        if (!*font) return u"(None)";
        const FontDescription& description = (*font)->description();
        return Text(description.name).append(u", ").append(textFromNumber(description.size));
    }
    if (const auto* picture = std::get_if<PictureRef>(&value)) return *picture ? u"(Picture)" : u"(None)";
    return toText(value).value_or(Text());
}

std::optional<Value> valueOfText(const Member& property, TextView text) {
    for (const PropertyChoice& choice : choicesOf(property)) {
        if (equalIgnoringCase(choice.text, text)) return choice.value;
    }
    if (property.type == ValueType::font || property.type == ValueType::picture) return std::nullopt;
    if (property.type == ValueType::text) return Value(Text(text));
    // A colour's number stands before its name.
    if (property.type == ValueType::colour) text = text.substr(0, text.find(beforeName));
    if (text.empty()) return std::nullopt;
    return converted(Value(Text(text)), property.type);
}

}  // namespace obk
