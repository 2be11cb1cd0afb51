#include "platform/win32/text_conversion.h"

#include <windows.h>

#include <algorithm>
#include <iterator>

namespace obk::win32 {

static_assert(sizeof(wchar_t) == sizeof(char16_t));

std::wstring toWide(TextView text) {
    return {text.begin(), text.end()};
}

Text fromWide(std::wstring_view text) {
    return {text.begin(), text.end()};
}

std::wstring wideNumber(uint64_t number) {
    const std::string digits = std::to_string(number);
    return {digits.begin(), digits.end()};
}

std::wstring_view asWide(TextView text) {
    return {reinterpret_cast<const wchar_t*>(text.data()), text.size()};
}

std::string toSystemCodePage(TextView text) {
    const std::wstring wide = toWide(text.substr(0, text.find(u'\0')));
    if (wide.empty() || wide.size() > 0x7FFF) return {};
    const auto units = static_cast<int>(wide.size());
    const int size = WideCharToMultiByte(CP_ACP, 0, wide.data(), units, nullptr, 0, nullptr, nullptr);
    if (size <= 0) return {};
    std::string bytes(static_cast<size_t>(size), '\0');
    WideCharToMultiByte(CP_ACP, 0, wide.data(), units, bytes.data(), size, nullptr, nullptr);
    return bytes;
}

std::wstring fromSystemCodePage(std::string_view bytes) {
    constexpr size_t most = 0x7FFFFFFF;
    const auto length = static_cast<int>(std::min(bytes.size(), most));
    // No byte means more than one unit.
    std::wstring text(static_cast<size_t>(length), L'\0');
    text.resize(
        static_cast<size_t>(MultiByteToWideChar(CP_ACP, 0, bytes.data(), length, text.data(), length)));
    return text;
}

Text systemReason(uint32_t error) {
    wchar_t words[256];
    constexpr DWORD flags =
        FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK;
    const DWORD length = FormatMessageW(flags, nullptr, error, 0, words, std::size(words), nullptr);
    Text reason = u"error 0x";
    for (int shift = 28; shift >= 0; shift -= 4) reason += u"0123456789ABCDEF"[error >> shift & 0xF];
    if (length > 0) reason += u": " + Text(trimmed(fromWide({words, length})));
    return reason;
}

}  // namespace obk::win32
