#include "base/text.h"

namespace obk {

namespace {

constexpr char32_t replacementCharacter = 0xFFFD;

void append(Text& text, char32_t point) {
    if (point < 0x10000) {
        text.push_back(static_cast<char16_t>(point));
    } else {
        point -= 0x10000;
        text.push_back(static_cast<char16_t>(0xD800 + (point >> 10)));
        text.push_back(static_cast<char16_t>(0xDC00 + (point & 0x3FF)));
    }
}

void append(std::string& utf8, char32_t point) {
    const auto unit = [&utf8](char32_t bits) {
        utf8.push_back(static_cast<char>(static_cast<unsigned char>(bits)));
    };
    if (point < 0x80) {
        unit(point);
    } else if (point < 0x800) {
        unit(0xC0 | (point >> 6));
        unit(0x80 | (point & 0x3F));
    } else if (point < 0x10000) {
        unit(0xE0 | (point >> 12));
        unit(0x80 | ((point >> 6) & 0x3F));
        unit(0x80 | (point & 0x3F));
    } else {
        unit(0xF0 | (point >> 18));
        unit(0x80 | ((point >> 12) & 0x3F));
        unit(0x80 | ((point >> 6) & 0x3F));
        unit(0x80 | (point & 0x3F));
    }
}

}  // namespace

Text fromUtf8(std::string_view utf8) {
    Text text;
    text.reserve(utf8.size());
    for (size_t at = 0; at < utf8.size();) {
        const auto lead = static_cast<unsigned char>(utf8[at]);
        const int following = lead < 0x80 ? 0 : lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : lead >= 0xC2 ? 1 : -1;
        char32_t point = following <= 0 ? lead : lead & (0x3Fu >> following);
        size_t next = at + 1;
        bool valid = following >= 0 && lead <= 0xF4;
        for (int left = following; valid && left > 0; --left, ++next) {
            valid = next < utf8.size() && (static_cast<unsigned char>(utf8[next]) & 0xC0) == 0x80;
            if (valid) point = (point << 6) | (static_cast<unsigned char>(utf8[next]) & 0x3Fu);
        }
        const bool overlong = (following == 2 && point < 0x800) || (following == 3 && point < 0x10000);
        const bool outside = point > 0x10FFFF || (point >= 0xD800 && point <= 0xDFFF);
        if (valid && !overlong && !outside) {
            append(text, point);
            at = next;
        } else {
            append(text, replacementCharacter);
            ++at;
        }
    }
    return text;
}

std::string toUtf8(TextView text) {
    std::string utf8;
    utf8.reserve(text.size());
    for (size_t at = 0; at < text.size(); ++at) {
        char32_t point = text[at];
        if (point >= 0xD800 && point <= 0xDFFF) {
            const bool pair = point < 0xDC00 && at + 1 < text.size() && (text[at + 1] & 0xFC00) == 0xDC00;
            point = pair ? 0x10000 + ((point - 0xD800) << 10) + (text[++at] - 0xDC00u) : replacementCharacter;
        }
        append(utf8, point);
    }
    return utf8;
}

char16_t upperAscii(char16_t unit) {
    return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - u'a' + u'A') : unit;
}

bool equalIgnoringCase(TextView left, TextView right) {
    if (left.size() != right.size()) return false;
    for (size_t at = 0; at < left.size(); ++at) {
        if (upperAscii(left[at]) != upperAscii(right[at])) return false;
    }
    return true;
}

Text upperAscii(TextView text) {
    Text upper(text);
    for (char16_t& unit : upper) unit = upperAscii(unit);
    return upper;
}

TextView trimmed(TextView text) {
    const size_t first = text.find_first_not_of(u' ');
    if (first == TextView::npos) return {};
    return text.substr(first, text.find_last_not_of(u' ') - first + 1);
}

Text decimalText(int64_t value) {
    return fromUtf8(std::to_string(value));
}

}  // namespace obk
