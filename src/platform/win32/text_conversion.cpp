#include "platform/win32/text_conversion.h"

#include <windows.h>

namespace obk::win32 {

static_assert(sizeof(wchar_t) == sizeof(char16_t));

std::wstring toWide(TextView text) {
    return {text.begin(), text.end()};
}

Text fromWide(std::wstring_view text) {
    return {text.begin(), text.end()};
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

}  // namespace obk::win32
