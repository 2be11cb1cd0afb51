// Between the library's UTF-16 text and the system's: the one place that knows both character types.
#pragma once

#include "base/text.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace obk::win32 {

std::wstring toWide(TextView text);
Text fromWide(std::wstring_view text);
// The decimal digits of a number. The C++ library's own way brings the C library's whole formatting along.
std::wstring wideNumber(uint64_t number);
// Borrowed, the same units; not terminated by a zero.
std::wstring_view asWide(TextView text);
// In the system's single-byte code page; a zero inside ends the text, what the code page lacks becomes "?".
std::string toSystemCodePage(TextView text);
std::wstring fromSystemCodePage(std::string_view bytes);
// What the system says of an error of its own or of an HRESULT, after its number.
Text systemReason(uint32_t error);

}  // namespace obk::win32
