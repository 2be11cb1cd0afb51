#include "base/code_page.h"

#include <bit>
#include <cstring>
#include <iterator>

namespace obk {

namespace {

constexpr size_t plainStep = sizeof(uint64_t) / sizeof(char16_t);

// That many units at once; false, and nothing written, when one of them is beyond ASCII.
bool encodePlain(const char16_t* from, char* into) {
    constexpr uint64_t beyondAscii = 0xFF80FF80FF80FF80u;
    uint64_t units = 0;
    std::memcpy(&units, from, sizeof units);
    if ((units & beyondAscii) != 0) return false;
    units = (units | units >> 8) & 0x0000FFFF0000FFFFu;
    const auto bytes = static_cast<uint32_t>(units | units >> 16);
    std::memcpy(into, &bytes, sizeof bytes);
    return true;
}

}  // namespace

CodePage::CodePage(const Meanings& meanings) : meanings_(meanings), bytes_(0x10000, '?') {
    for (size_t byte = meanings.size(); byte-- > 0;) bytes_[meanings[byte]] = static_cast<char>(byte);
    constexpr size_t asciiCount = 0x80;
    plainAscii_ = std::endian::native == std::endian::little;
    for (size_t byte = 0; byte < asciiCount; ++byte) plainAscii_ = plainAscii_ && meanings[byte] == byte;
}

const CodePage& CodePage::windows1252() {
    static const CodePage page([] {
        constexpr size_t first = 0x80;
        constexpr char16_t special[] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                        0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                        0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                        0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
        Meanings meanings{};
        for (size_t byte = 0; byte < meanings.size(); ++byte) meanings[byte] = static_cast<char16_t>(byte);
        for (size_t at = 0; at < std::size(special); ++at) meanings[first + at] = special[at];
        return meanings;
    }());
    return page;
}

void CodePage::decode(std::string_view bytes, Text& onto) const {
    const size_t before = onto.size();
    onto.resize(before + bytes.size());
    char16_t* to = onto.data() + before;
    for (const char byte : bytes) *to++ = character(byte);
}

void CodePage::encode(TextView text, char* into) const {
    // Nearly every text is of plain letters only. The last ones are taken together with some that went
    // before.
    size_t at = 0;
    if (plainAscii_ && text.size() >= plainStep) {
        const size_t last = text.size() - plainStep;
        while (at < last && encodePlain(text.data() + at, into + at)) at += plainStep;
        if (at >= last && encodePlain(text.data() + last, into + last)) return;
    }
    for (; at < text.size(); ++at) into[at] = byte(text[at]);
}

}  // namespace obk
