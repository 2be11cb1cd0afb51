#include "framework/value.h"

#include "framework/decimal_digits.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <type_traits>

namespace obk {

NoValue::NoValue(const NoValue&) noexcept = default;

namespace {

template <typename T>
constexpr bool isNumber = std::is_same_v<T, uint8_t> || std::is_same_v<T, int16_t> ||
                          std::is_same_v<T, int32_t> || std::is_same_v<T, float> || std::is_same_v<T, double>;

// Objects are only ever what they are, or none.
template <typename Ref>
std::optional<Ref> toReference(const Value& value) {
    if (const auto* held = std::get_if<Ref>(&value)) return *held;
    return std::holds_alternative<NoValue>(value) ? std::optional<Ref>(Ref()) : std::nullopt;
}

constexpr bool isDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

constexpr bool isBlank(char16_t unit) {
    return unit == u' ' || unit == u'\t' || unit == 0xA0;
}

// Reads "&H1F" and "&O17"; the bits of up to 32, as the platform reads them into a signed number.
std::optional<double> prefixedNumber(TextView text) {
    const char16_t kind = text.size() > 2 ? upperAscii(text[1]) : u'\0';
    const int base = kind == u'H' ? 16 : kind == u'O' ? 8 : 0;
    if (base == 0) return std::nullopt;
    uint64_t bits = 0;
    for (const char16_t unit : text.substr(2)) {
        const char16_t upper = upperAscii(unit);
        const int digit = isDigit(upper)                   ? upper - u'0'
                          : upper >= u'A' && upper <= u'F' ? upper - u'A' + 10
                                                           : 99;
        if (digit >= base) return std::nullopt;
        bits = bits * static_cast<uint64_t>(base) + static_cast<uint64_t>(digit);
        if (bits > std::numeric_limits<uint32_t>::max()) return std::nullopt;
    }
    return static_cast<double>(static_cast<int32_t>(static_cast<uint32_t>(bits)));
}

// The whole number in the range of T that a value stands for, rounded half to even.
template <typename T>
std::optional<T> toWhole(const Value& value) {
    const std::optional<double> number = toDouble(value);
    if (!number || std::isnan(*number)) return std::nullopt;
    const double rounded = std::nearbyint(*number);
    if (rounded < static_cast<double>(std::numeric_limits<T>::min()) ||
        rounded > static_cast<double>(std::numeric_limits<T>::max()))
        return std::nullopt;
    return static_cast<T>(rounded);
}

// `digits` significant ones, plain while the exponent allows it.
Text numberText(double number, int digits) {
    if (std::isnan(number)) return u"-1.#IND";
    if (std::isinf(number)) return number > 0 ? u"1.#INF" : u"-1.#INF";
    if (number == 0) return u"0";
    auto [mantissa, exponent] = decimalDigits(number, digits);
    mantissa.erase(mantissa.find_last_not_of('0') + 1);

    std::string text = number < 0 ? "-" : "";
    const auto count = static_cast<int>(mantissa.size());
    if (exponent >= digits || exponent < -digits || (exponent < 0 && count - exponent - 1 > digits)) {
        text += mantissa.substr(0, 1);
        if (count > 1) text += "." + mantissa.substr(1);
        text += exponent < 0 ? "E-" : "E+";
        const std::string power = std::to_string(std::abs(exponent));
        text += power.size() < 2 ? "0" + power : power;
    } else if (exponent < 0) {
        text += "0." + std::string(static_cast<size_t>(-exponent - 1), '0') + mantissa;
    } else if (count <= exponent + 1) {
        text += mantissa + std::string(static_cast<size_t>(exponent + 1 - count), '0');
    } else {
        const int digitsBefore = exponent + 1;
        const auto whole = static_cast<size_t>(digitsBefore);
        text += mantissa.substr(0, whole) + "." + mantissa.substr(whole);
    }
    return fromUtf8(text);
}

}  // namespace

std::optional<double> numberFromText(TextView text) {
    while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
    if (!text.empty() && text.front() == u'&') return prefixedNumber(text);

    bool negative = false;
    if (!text.empty() && (text.front() == u'-' || text.front() == u'+')) {
        negative = text.front() == u'-';
        text.remove_prefix(1);
        while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
    }
    // What the conversion below understands: digits, a point, an exponent.
    std::string plain;
    size_t at = 0;
    size_t digits = 0;
    for (; at < text.size() && (isDigit(text[at]) || (text[at] == u',' && digits > 0)); ++at) {
        if (text[at] != u',') {
            plain.push_back(static_cast<char>(text[at]));
            ++digits;
        }
    }
    if (at < text.size() && text[at] == u'.') {
        plain.push_back('.');
        for (++at; at < text.size() && isDigit(text[at]); ++at, ++digits)
            plain.push_back(static_cast<char>(text[at]));
    }
    if (digits == 0) return std::nullopt;
    if (at < text.size() && (text[at] == u'e' || text[at] == u'E' || text[at] == u'd' || text[at] == u'D')) {
        plain.push_back('e');
        ++at;
        if (at < text.size() && (text[at] == u'-' || text[at] == u'+'))
            plain.push_back(static_cast<char>(text[at++]));
        const size_t exponentStart = at;
        for (; at < text.size() && isDigit(text[at]); ++at) plain.push_back(static_cast<char>(text[at]));
        if (at == exponentStart) return std::nullopt;
    }
    if (at != text.size()) return std::nullopt;
    // The standard conversion refuses a plus sign before the exponent's digits in some libraries: drop it.
    if (const size_t plus = plain.find('+'); plus != std::string::npos) plain.erase(plus, 1);
    if (plain.front() == '.') plain.insert(plain.begin(), '0');
    double number = 0;
    const auto parsed = std::from_chars(plain.data(), plain.data() + plain.size(), number);
    if (parsed.ec == std::errc::result_out_of_range) {
        // Too small is zero, too large is refused: the place of the first significant digit tells them apart.
        const size_t first = plain.find_first_of("123456789");
        const size_t point = std::min(plain.find_first_of(".e"), plain.size());
        const auto place = static_cast<int64_t>(point) - static_cast<int64_t>(first);
        int64_t exponent = 0;
        if (const size_t mark = plain.find('e'); mark != std::string::npos) {
            const auto power =
                std::from_chars(plain.data() + mark + 1, plain.data() + plain.size(), exponent);
            if (power.ec != std::errc())
                exponent = plain[mark + 1] == '-' ? std::numeric_limits<int32_t>::min()
                                                  : std::numeric_limits<int32_t>::max();
        }
        if (place + std::clamp<int64_t>(exponent, INT32_MIN, INT32_MAX) > 0) return std::nullopt;
        number = 0;
    } else if (parsed.ec != std::errc()) {
        return std::nullopt;
    }
    return negative ? -number : number;
}

Text textFromNumber(double number) {
    return numberText(number, 15);
}

Text textFromNumber(float number) {
    return numberText(static_cast<double>(number), 7);
}

double leadingNumber(TextView text) {
    double number = 0;
    double place = 1;
    bool afterPoint = false;
    for (const char16_t unit : text) {
        if (isDigit(unit)) {
            // Decimals beyond all precision would make both sides infinite.
            if (place > 1e20) continue;
            number = number * 10 + (unit - u'0');
            if (afterPoint) place *= 10;
        } else if (unit == u'.' && !afterPoint) {
            afterPoint = true;
        } else {
            break;
        }
    }
    return number / place;
}

std::optional<int32_t> roundedLong(double number) {
    return toWhole<int32_t>(Value(number));
}

std::optional<double> toDouble(const Value& value) {
    return std::visit(
        [](const auto& held) -> std::optional<double> {
            using T = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<T, NoValue>)
                return 0.0;
            else if constexpr (std::is_same_v<T, bool>)
                return held ? -1.0 : 0.0;
            else if constexpr (isNumber<T>)
                return static_cast<double>(held);
            else if constexpr (std::is_same_v<T, Text>)
                return numberFromText(held);
            else if constexpr (std::is_same_v<T, OleColour>)
                return static_cast<double>(static_cast<int32_t>(held.value));
            else
                return std::nullopt;
        },
        value);
}

TextView typeName(ValueType type) {
    switch (type) {
        case ValueType::empty:
            return {};
        case ValueType::boolean:
            return u"Boolean";
        case ValueType::byte:
            return u"Byte";
        case ValueType::integer:
            return u"Integer";
        case ValueType::longInteger:
            return u"Long";
        case ValueType::single:
            return u"Single";
        case ValueType::doubleFloat:
            return u"Double";
        case ValueType::text:
            return u"String";
        case ValueType::colour:
            return u"OLE_COLOR";
        case ValueType::font:
            return u"Font";
        case ValueType::picture:
            return u"Picture";
        case ValueType::object:
            return u"Object";
    }
    return {};
}

std::optional<bool> toBoolean(const Value& value) {
    if (const auto* held = std::get_if<bool>(&value)) return *held;
    if (const auto* text = std::get_if<Text>(&value)) {
        if (equalIgnoringCase(*text, u"True") || equalIgnoringCase(*text, u"#TRUE#")) return true;
        if (equalIgnoringCase(*text, u"False") || equalIgnoringCase(*text, u"#FALSE#")) return false;
    }
    const std::optional<double> number = toDouble(value);
    if (!number) return std::nullopt;
    return *number != 0;
}

std::optional<uint8_t> toByte(const Value& value) {
    if (const auto* held = std::get_if<bool>(&value)) return static_cast<uint8_t>(*held ? 255 : 0);
    return toWhole<uint8_t>(value);
}

std::optional<int16_t> toInteger(const Value& value) {
    return toWhole<int16_t>(value);
}

std::optional<int32_t> toLong(const Value& value) {
    if (const auto* held = std::get_if<int32_t>(&value)) return *held;
    return toWhole<int32_t>(value);
}

std::optional<float> toSingle(const Value& value) {
    if (const auto* held = std::get_if<float>(&value)) return *held;
    const std::optional<double> number = toDouble(value);
    if (!number || (std::isfinite(*number) &&
                    std::abs(*number) > static_cast<double>(std::numeric_limits<float>::max())))
        return std::nullopt;
    return static_cast<float>(*number);
}

std::optional<Text> toText(const Value& value) {
    return std::visit(
        [](const auto& held) -> std::optional<Text> {
            using T = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<T, NoValue>)
                return Text();
            else if constexpr (std::is_same_v<T, Text>)
                return held;
            else if constexpr (std::is_same_v<T, bool>)
                return held ? Text(u"-1") : Text(u"0");
            else if constexpr (std::is_same_v<T, float> || std::is_same_v<T, double>)
                return textFromNumber(held);
            else if constexpr (isNumber<T>)
                return decimalText(held);
            else if constexpr (std::is_same_v<T, OleColour>)
                return decimalText(static_cast<int32_t>(held.value));
            else
                return std::nullopt;
        },
        value);
}

std::optional<OleColour> toColour(const Value& value) {
    if (const auto* held = std::get_if<OleColour>(&value)) return *held;
    const std::optional<double> number = toDouble(value);
    if (!number || std::isnan(*number)) return std::nullopt;
    const double rounded = std::nearbyint(*number);
    if (rounded < static_cast<double>(std::numeric_limits<int32_t>::min()) ||
        rounded > static_cast<double>(std::numeric_limits<uint32_t>::max()))
        return std::nullopt;
    return OleColour(static_cast<uint32_t>(static_cast<int64_t>(rounded)));
}

std::optional<FontRef> toFont(const Value& value) {
    return toReference<FontRef>(value);
}

std::optional<PictureRef> toPicture(const Value& value) {
    return toReference<PictureRef>(value);
}

std::optional<ObjectRef> toObject(const Value& value) {
    return toReference<ObjectRef>(value);
}

std::optional<Value> converted(const Value& value, ValueType type) {
    const auto wrapped = [](auto&& result) -> std::optional<Value> {
        if (!result) return std::nullopt;
        return Value(std::move(*result));
    };
    switch (type) {
        case ValueType::empty:
            return value;
        case ValueType::boolean:
            return wrapped(toBoolean(value));
        case ValueType::byte:
            return wrapped(toByte(value));
        case ValueType::integer:
            return wrapped(toInteger(value));
        case ValueType::longInteger:
            return wrapped(toLong(value));
        case ValueType::single:
            return wrapped(toSingle(value));
        case ValueType::doubleFloat:
            return wrapped(toDouble(value));
        case ValueType::text:
            return wrapped(toText(value));
        case ValueType::colour:
            return wrapped(toColour(value));
        case ValueType::font:
            return wrapped(toFont(value));
        case ValueType::picture:
            return wrapped(toPicture(value));
        case ValueType::object:
            return wrapped(toObject(value));
    }
    return std::nullopt;
}

}  // namespace obk
