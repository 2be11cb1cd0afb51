#include <algorithm>
#include <iterator>

#include "container/stored_value.h"
#include "container/text.h"

namespace obk::container {

namespace {

struct Tag {
    const wchar_t* name;
    VARTYPE type;
};

constexpr Tag tags[] = {
    {L"Boolean", VT_BOOL},    {L"SByte", VT_I1},    {L"Byte", VT_UI1},    {L"Integer", VT_I2},
    {L"UShort", VT_UI2},      {L"Long", VT_I4},     {L"ULong", VT_UI4},   {L"LongLong", VT_I8},
    {L"Single", VT_R4},       {L"Double", VT_R8},   {L"Currency", VT_CY}, {L"Date", VT_DATE},
    {L"Decimal", VT_DECIMAL}, {L"String", VT_BSTR},
};

struct Escape {
    wchar_t letter;
    wchar_t meaning;
};
constexpr Escape escapes[] = {{L'"', L'"'}, {L'\\', L'\\'}, {L'n', L'\n'}, {L'r', L'\r'}, {L't', L'\t'}};

const Escape* escapeBy(wchar_t Escape::*part, wchar_t character) {
    const auto* const found = std::find_if(std::begin(escapes), std::end(escapes),
                                           [&](const Escape& each) { return each.*part == character; });
    return found == std::end(escapes) ? nullptr : found;
}

std::wstring quoted(std::wstring_view text) {
    std::wstring result = L"\"";
    for (const wchar_t character : text) {
        // Control characters and halves of surrogate pairs would not survive UTF-8 or an editor; pairs are
        // written as two halves, which read back as the same text.
        const bool coded =
            character < 32 || (character >= 0xD800 && character < 0xE000) || character == 0xFFFD;
        if (const Escape* escape = escapeBy(&Escape::meaning, character)) {
            result += {L'\\', escape->letter};
        } else if (coded) {
            wchar_t buffer[8];
            swprintf(buffer, 8, L"\\u%04X", static_cast<unsigned>(character));
            result += buffer;
        } else {
            result += character;
        }
    }
    return result + L'"';
}

// Reads a quoted text from the start of `rest` and leaves what follows it.
std::optional<std::wstring> takeQuoted(std::wstring_view& rest) {
    if (rest.empty() || rest.front() != L'"') return std::nullopt;
    std::wstring result;
    for (size_t index = 1; index < rest.size(); ++index) {
        if (rest[index] == L'"') {
            rest.remove_prefix(index + 1);
            return result;
        }
        if (rest[index] != L'\\') {
            result += rest[index];
            continue;
        }
        if (++index == rest.size()) return std::nullopt;
        if (const Escape* escape = escapeBy(&Escape::letter, rest[index])) {
            result += escape->meaning;
            continue;
        }
        if (rest[index] != L'u' || rest.size() - index < 5) return std::nullopt;
        const auto code = readWhole(L"&H" + std::wstring(rest.substr(index + 1, 4)));
        if (!code) return std::nullopt;
        result += static_cast<wchar_t>(*code);
        index += 4;
    }
    return std::nullopt;
}

constexpr char base64Digits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

std::wstring base64(std::string_view bytes) {
    std::wstring result;
    for (size_t index = 0; index < bytes.size(); index += 3) {
        unsigned group = 0;
        for (size_t place = 0; place < 3; ++place) {
            group = group << 8 |
                    (index + place < bytes.size() ? static_cast<unsigned char>(bytes[index + place]) : 0u);
        }
        for (size_t place = 0; place < 4; ++place) {
            const bool used = index + place <= bytes.size();
            result += used ? static_cast<wchar_t>(base64Digits[group >> (18 - 6 * place) & 63]) : L'=';
        }
    }
    return result;
}

std::optional<std::string> readBase64(std::wstring_view text) {
    if (text.size() % 4 != 0) return std::nullopt;
    std::string result;
    unsigned group = 0;
    for (size_t index = 0; index < text.size(); ++index) {
        const std::string_view digits(base64Digits, 64);
        const std::wstring_view rest = text.substr(index);
        const bool padding = rest == L"==" || rest == L"=";
        const auto digit =
            text[index] < 128 ? digits.find(static_cast<char>(text[index])) : std::string_view::npos;
        if (!padding && digit == std::string_view::npos) return std::nullopt;
        group = group << 6 | (padding ? 0u : static_cast<unsigned>(digit));
        if (index % 4 == 3) {
            result += static_cast<char>(group >> 16 & 255);
            result += static_cast<char>(group >> 8 & 255);
            result += static_cast<char>(group & 255);
            group = 0;
        }
    }
    if (text.ends_with(L"==")) {
        result.resize(result.size() - 2);
    } else if (text.ends_with(L"=")) {
        result.resize(result.size() - 1);
    }
    return result;
}

std::wstring writePlain(const Variant& value) {
    const VARIANT& raw = value.get();
    switch (raw.vt) {
        case VT_BSTR:
            return quoted(value.toText());
        case VT_R4:
            return numberText(raw.fltVal);
        case VT_CY:
            return currencyText(raw.cyVal.int64);
        case VT_R8:
        case VT_DATE:
            return numberText(raw.vt == VT_DATE ? raw.date : raw.dblVal);
        case VT_I4:
            // System colours read better in the notation in which they are documented.
            if ((static_cast<unsigned>(raw.lVal) & 0xFFFFFF00u) == 0x80000000u) {
                wchar_t buffer[16];
                swprintf(buffer, 16, L"&H%08X", static_cast<unsigned>(raw.lVal));
                return buffer;
            }
            return value.toText();
        default:
            return value.toText();
    }
}

std::optional<Variant> readPlain(VARTYPE type, std::wstring_view text) {
    switch (type) {
        case VT_BSTR: {
            auto content = takeQuoted(text);
            return content && trimmed(text).empty() ? std::optional<Variant>(*content) : std::nullopt;
        }
        case VT_BOOL:
            if (sameName(text, L"True")) return true;
            return sameName(text, L"False") ? std::optional<Variant>(false) : std::nullopt;
        case VT_R4: {
            const auto number = readSingle(text);
            return number ? std::optional<Variant>(*number) : std::nullopt;
        }
        case VT_R8:
        case VT_DATE: {
            const auto number = readNumber(text);
            return number ? Variant(*number).converted(type) : std::nullopt;
        }
        case VT_CY: {
            VARIANT amount = {};
            const auto number = readCurrency(text);
            amount.vt = VT_CY;
            amount.cyVal.int64 = number.value_or(0);
            return number ? std::optional<Variant>(amount) : std::nullopt;
        }
        case VT_DECIMAL:
            return readNumber(text) ? Variant(text).converted(type) : std::nullopt;
        default: {
            const auto number = readWhole(text);
            if (!number) return std::nullopt;
            const bool hexadecimal =
                text.front() == L'&' || text.substr(0, 2) == L"0x" || text.substr(0, 2) == L"0X";
            if (type == VT_I4 && hexadecimal && *number <= 0xFFFFFFFFll) return static_cast<long>(*number);
            return Variant(*number).converted(type);
        }
    }
}

// What follows a font's name.
std::wstring sizeAndStyle(const StoredFont& font) {
    std::wstring text = numberText(font.size);
    if (font.weight == FW_BOLD) {
        text += L", bold";
    } else if (font.weight != FW_NORMAL) {
        text += L", weight " + std::to_wstring(font.weight);
    }
    text += font.italic ? L", italic" : L"";
    text += font.underline ? L", underline" : L"";
    return text + (font.strikethrough ? L", strikethrough" : L"");
}

std::wstring writeFont(const StoredFont& font) {
    const std::wstring text = quoted(font.name) + L", " + sizeAndStyle(font);
    return font.characterSet == DEFAULT_CHARSET ? text
                                                : text + L", charset " + std::to_wstring(font.characterSet);
}

// "weight 600" gives 600 for the word "weight".
std::optional<short> numberAfter(std::wstring_view word, std::wstring_view part) {
    if (part.size() <= word.size() || !sameName(part.substr(0, word.size()), word)) return std::nullopt;
    const auto number = readWhole(trimmed(part.substr(word.size())));
    return number && *number >= 0 && *number <= 1000 ? std::optional(static_cast<short>(*number))
                                                     : std::nullopt;
}

std::optional<StoredFont> readFont(std::wstring_view text) {
    StoredFont font;
    const auto name = takeQuoted(text);
    if (!name || name->empty()) return std::nullopt;
    font.name = *name;
    text = trimmed(text);
    bool sized = false;
    while (!text.empty()) {
        if (text.front() != L',') return std::nullopt;
        text.remove_prefix(1);
        const auto end = std::min(text.find(L','), text.size());
        const std::wstring_view part = trimmed(text.substr(0, end));
        text = trimmed(text.substr(end));
        const auto size = readNumber(part);
        if (size && !sized && *size > 0 && *size < 1000) {
            font.size = *size;
            sized = true;
        } else if (sameName(part, L"bold")) {
            font.weight = FW_BOLD;
        } else if (sameName(part, L"italic")) {
            font.italic = true;
        } else if (sameName(part, L"underline")) {
            font.underline = true;
        } else if (sameName(part, L"strikethrough")) {
            font.strikethrough = true;
        } else if (const auto weight = numberAfter(L"weight ", part)) {
            font.weight = *weight;
        } else if (const auto characterSet = numberAfter(L"charset ", part)) {
            font.characterSet = *characterSet;
        } else {
            return std::nullopt;
        }
    }
    return sized ? std::optional(font) : std::nullopt;
}

std::optional<StoredObject> readObject(std::wstring_view text) {
    const auto end = text.find(L'}');
    StoredObject object;
    if (end == std::wstring_view::npos ||
        FAILED(CLSIDFromString(std::wstring(text.substr(0, end + 1)).c_str(), &object.classId)))
        return std::nullopt;
    auto bytes = readBase64(trimmed(text.substr(end + 1)));
    if (!bytes) return std::nullopt;
    object.bytes = std::move(*bytes);
    return object;
}

std::wstring classText(REFCLSID classId) {
    wchar_t buffer[48] = {};
    StringFromGUID2(classId, buffer, 48);
    return buffer;
}

}  // namespace

std::wstring fontText(const StoredFont& font) {
    return font.name + L' ' + sizeAndStyle(font);
}

std::wstring writeValue(const StoredValue& stored) {
    if (const auto* font = std::get_if<StoredFont>(&stored)) return L"Font " + writeFont(*font);
    if (const auto* object = std::get_if<StoredObject>(&stored))
        return L"Object " + classText(object->classId) + L' ' + base64(object->bytes);
    if (const auto* bytes = std::get_if<StoredBytes>(&stored)) return L"Bytes " + base64(bytes->bytes);
    const auto& value = std::get<Variant>(stored);
    for (const Tag& tag : tags) {
        if (tag.type == value.type()) return tag.name + (L' ' + writePlain(value));
    }
    return L"Empty";
}

std::optional<StoredValue> readValue(std::wstring_view text, std::wstring& problem) {
    text = trimmed(text);
    const auto space = std::min(text.find(L' '), text.size());
    const std::wstring_view word = text.substr(0, space);
    const std::wstring_view rest = trimmed(text.substr(space));
    std::optional<StoredValue> result;
    bool known = true;
    if (sameName(word, L"Empty")) {
        result = rest.empty() ? std::optional<StoredValue>(Variant()) : std::nullopt;
    } else if (sameName(word, L"Font")) {
        result = readFont(rest);
    } else if (sameName(word, L"Object")) {
        result = readObject(rest);
    } else if (sameName(word, L"Bytes")) {
        if (auto bytes = readBase64(rest)) result = StoredBytes{std::move(*bytes)};
    } else {
        known = false;
        for (const Tag& tag : tags) {
            if (sameName(word, tag.name)) {
                known = true;
                result = readPlain(tag.type, rest);
            }
        }
    }
    if (!result) {
        problem = known ? L"not a value of type " + std::wstring(word)
                        : L"unknown type \"" + std::wstring(word) + L'"';
    }
    return result;
}

}  // namespace obk::container
