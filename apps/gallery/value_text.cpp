#include "value_text.h"

#include <olectl.h>

#include "container/stored_value.h"
#include "container/text.h"

namespace obk::gallery {

using container::Choice;
using container::ValueKind;
using container::Variant;

namespace {

constexpr long systemColour(int index) {
    return static_cast<long>(0x80000000u | static_cast<unsigned>(index));
}

std::wstring colourText(long colour) {
    wchar_t buffer[16];
    swprintf(buffer, 16, L"&H%08lX", static_cast<unsigned long>(colour));
    for (const Choice& choice : systemColours()) {
        if (choice.value == colour) return buffer + (L"  " + choice.name);
    }
    return buffer;
}

Variant parseArgument(std::wstring_view text) {
    if (const auto whole = container::readWhole(text)) {
        if (*whole == static_cast<long>(*whole)) return static_cast<long>(*whole);
    }
    if (const auto number = container::readNumber(text)) return *number;
    if (container::sameName(text, L"True") || container::sameName(text, L"False"))
        return container::sameName(text, L"True");
    if (text.size() >= 2 && text.front() == L'"' && text.back() == L'"')
        text = text.substr(1, text.size() - 2);
    return text;
}

}  // namespace

const std::vector<Choice>& systemColours() {
    static const std::vector<Choice> colours = {
        {L"Window", systemColour(COLOR_WINDOW)},
        {L"Window text", systemColour(COLOR_WINDOWTEXT)},
        {L"Button face", systemColour(COLOR_BTNFACE)},
        {L"Button text", systemColour(COLOR_BTNTEXT)},
        {L"Button highlight", systemColour(COLOR_BTNHIGHLIGHT)},
        {L"Button shadow", systemColour(COLOR_BTNSHADOW)},
        {L"Button dark shadow", systemColour(COLOR_3DDKSHADOW)},
        {L"Button light shadow", systemColour(COLOR_3DLIGHT)},
        {L"Highlight", systemColour(COLOR_HIGHLIGHT)},
        {L"Highlight text", systemColour(COLOR_HIGHLIGHTTEXT)},
        {L"Disabled text", systemColour(COLOR_GRAYTEXT)},
        {L"Tool tip", systemColour(COLOR_INFOBK)},
        {L"Tool tip text", systemColour(COLOR_INFOTEXT)},
        {L"Menu", systemColour(COLOR_MENU)},
        {L"Menu text", systemColour(COLOR_MENUTEXT)},
        {L"Window frame", systemColour(COLOR_WINDOWFRAME)},
        {L"Application workspace", systemColour(COLOR_APPWORKSPACE)},
        {L"Desktop", systemColour(COLOR_BACKGROUND)},
        {L"Active title bar", systemColour(COLOR_ACTIVECAPTION)},
        {L"Inactive title bar", systemColour(COLOR_INACTIVECAPTION)},
    };
    return colours;
}

COLORREF shownColour(long oleColour) {
    COLORREF colour = 0;
    return SUCCEEDED(OleTranslateColor(static_cast<OLE_COLOR>(oleColour), nullptr, &colour)) ? colour : 0;
}

std::wstring valueText(const Variant& value, ValueKind kind, const std::vector<Choice>& choices) {
    if (const auto object = value.toObject()) {
        const auto font = container::describeFont(object.get());
        return font ? container::fontText(*font) : L"(object)";
    }
    if (value.type() == VT_DISPATCH || value.type() == VT_UNKNOWN) return L"(none)";
    const auto whole = kind == ValueKind::text ? std::nullopt : value.toLong();
    if (!whole) return value.toText();
    const long number = *whole;
    if (kind == ValueKind::colour) return colourText(number);
    for (const Choice& choice : choices) {
        if (choice.value == number) {
            // Some hosts write the number into the name already.
            const std::wstring digits = std::to_wstring(number);
            return choice.name.starts_with(digits) ? choice.name : digits + L" - " + choice.name;
        }
    }
    return value.toText();
}

std::optional<Variant> parseValue(const std::wstring& text, ValueKind kind) {
    const std::wstring_view plain = container::trimmed(text);
    switch (kind) {
        case ValueKind::integer:
        case ValueKind::choice:
        case ValueKind::colour: {
            const auto whole = container::readWhole(plain);
            // Colours are written as unsigned hexadecimal numbers.
            const bool fits = whole && *whole >= -0x80000000ll && *whole <= 0xFFFFFFFFll;
            return fits ? std::optional<Variant>(static_cast<long>(*whole)) : std::nullopt;
        }
        case ValueKind::number: {
            const auto number = container::readNumber(plain);
            return number ? std::optional<Variant>(*number) : std::nullopt;
        }
        default:
            return Variant(text);
    }
}

std::vector<Variant> parseArguments(const std::wstring& text) {
    std::vector<Variant> arguments;
    std::wstring part;
    bool quoted = false;
    for (const wchar_t character : text) {
        quoted = character == L'"' ? !quoted : quoted;
        if (character == L',' && !quoted) {
            arguments.push_back(parseArgument(container::trimmed(part)));
            part.clear();
        } else {
            part += character;
        }
    }
    if (!arguments.empty() || !container::trimmed(part).empty())
        arguments.push_back(parseArgument(container::trimmed(part)));
    return arguments;
}

}  // namespace obk::gallery
