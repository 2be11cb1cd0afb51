// A single-byte code page: what each byte means, and which byte says a character.
#pragma once

#include "base/text.h"

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

namespace obk {

class CodePage {
public:
    using Meanings = std::array<char16_t, 256>;

    // `meanings` has every byte's character; where two bytes mean the same, the lower one writes it.
    explicit CodePage(const Meanings& meanings);
    // The western code page of Windows. Its five bytes without a character mean control characters, so that
    // every byte comes back as it was.
    static const CodePage& windows1252();

    char16_t character(char byte) const { return meanings_[static_cast<uint8_t>(byte)]; }
    // "?" for what the code page lacks; each half of a character beyond 16 bits is such a unit.
    char byte(char16_t unit) const { return bytes_[unit]; }

    void decode(std::string_view bytes, Text& onto) const;
    // `into` has room for as many bytes as `text` has units.
    void encode(TextView text, char* into) const;

private:
    Meanings meanings_;
    std::vector<char> bytes_;
    bool plainAscii_ = false;  // the first half is the usual one, and units can be taken several at a time
};

}  // namespace obk
