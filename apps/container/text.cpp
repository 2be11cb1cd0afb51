#include "container/text.h"

#include <windows.h>

#include <algorithm>
#include <charconv>

namespace obk::container {

namespace {

template <typename Number>
std::wstring shortest(Number value) {
    char buffer[64];
    const auto written = std::to_chars(std::begin(buffer), std::end(buffer), value);
    return {buffer, written.ptr};
}

// Plain characters only: what a number may hold. Empty for anything else.
std::string narrow(std::wstring_view text) {
    std::string result;
    for (const wchar_t character : text) {
        if (character <= 0 || character > 126) return {};
        result += static_cast<char>(character);
    }
    return result;
}

template <typename Number>
std::optional<Number> wholeNumber(std::wstring_view text) {
    const std::string plain = narrow(text);
    Number value = 0;
    const auto read = std::from_chars(plain.data(), plain.data() + plain.size(), value);
    if (plain.empty() || read.ec != std::errc() || read.ptr != plain.data() + plain.size())
        return std::nullopt;
    return value;
}

struct FileHandle {
    HANDLE handle;
    ~FileHandle() {
        if (valid()) CloseHandle(handle);
    }
    bool valid() const { return handle != INVALID_HANDLE_VALUE; }
};

}  // namespace

bool sameName(std::wstring_view first, std::wstring_view second) {
    return CompareStringOrdinal(first.data(), static_cast<int>(first.size()), second.data(),
                                static_cast<int>(second.size()), TRUE) == CSTR_EQUAL;
}

std::wstring_view trimmed(std::wstring_view text) {
    const auto first = text.find_first_not_of(L" \t\r");
    if (first == std::wstring_view::npos) return {};
    return text.substr(first, text.find_last_not_of(L" \t\r") - first + 1);
}

std::wstring withoutAccessKey(std::wstring_view caption) {
    std::wstring plain;
    for (size_t at = 0; at < caption.size(); ++at) {
        if (caption[at] == L'&' && ++at == caption.size()) break;
        plain += caption[at];
    }
    return plain;
}

std::string toUtf8(std::wstring_view text) {
    const int length = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string result(static_cast<size_t>(std::max(size, 0)), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, result.data(), size, nullptr, nullptr);
    return result;
}

std::wstring fromUtf8(std::string_view bytes) {
    const int length = static_cast<int>(bytes.size());
    const int size = MultiByteToWideChar(CP_UTF8, 0, bytes.data(), length, nullptr, 0);
    std::wstring result(static_cast<size_t>(std::max(size, 0)), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, bytes.data(), length, result.data(), size);
    return result;
}

std::wstring numberText(double value) {
    return shortest(value);
}

std::wstring numberText(float value) {
    return shortest(value);
}

std::optional<double> readNumber(std::wstring_view text) {
    return wholeNumber<double>(text);
}

std::optional<float> readSingle(std::wstring_view text) {
    return wholeNumber<float>(text);
}

std::wstring currencyText(long long tenThousandths) {
    const bool negative = tenThousandths < 0;
    // The magnitude of the lowest value has no place in a signed number.
    const auto magnitude = negative ? 0 - static_cast<unsigned long long>(tenThousandths)
                                    : static_cast<unsigned long long>(tenThousandths);
    std::wstring fraction = std::to_wstring(magnitude % 10000);
    fraction.insert(0, 4 - fraction.size(), L'0');
    return (negative ? L"-" : L"") + std::to_wstring(magnitude / 10000) + L'.' + fraction;
}

std::optional<long long> readCurrency(std::wstring_view text) {
    // "-12.5" is read as the whole number -125000.
    std::wstring digits(text);
    const auto point = digits.find(L'.');
    const size_t places = point == std::wstring::npos ? 0 : digits.size() - point - 1;
    if (places > 4 || point == 0 || text.starts_with(L"&") || text.starts_with(L"0x")) return std::nullopt;
    if (point != std::wstring::npos) digits.erase(point, 1);
    return readWhole(digits + std::wstring(4 - places, L'0'));
}

std::optional<long long> readWhole(std::wstring_view text) {
    const std::string plain = narrow(text);
    const bool hexadecimal = plain.size() > 2 && (plain.starts_with("&H") || plain.starts_with("&h") ||
                                                  plain.starts_with("0x") || plain.starts_with("0X"));
    const char* first = plain.data() + (hexadecimal ? 2 : 0);
    const char* last = plain.data() + plain.size();
    if (first == last || (hexadecimal && *first == '-')) return std::nullopt;
    long long value = 0;
    const auto read = std::from_chars(first, last, value, hexadecimal ? 16 : 10);
    if (read.ec != std::errc() || read.ptr != last) return std::nullopt;
    return value;
}

std::optional<std::string> readFile(const std::wstring& path) {
    const FileHandle file{CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                      FILE_ATTRIBUTE_NORMAL, nullptr)};
    if (!file.valid()) return std::nullopt;
    std::string bytes;
    char buffer[16384];
    DWORD count = 0;
    while (ReadFile(file.handle, buffer, sizeof buffer, &count, nullptr)) {
        if (count == 0) return bytes;
        bytes.append(buffer, count);
    }
    return std::nullopt;
}

bool writeFile(const std::wstring& path, std::string_view bytes) {
    const FileHandle file{
        CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr)};
    DWORD written = 0;
    return file.valid() &&
           WriteFile(file.handle, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) &&
           written == bytes.size();
}

}  // namespace obk::container
