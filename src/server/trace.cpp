#include "server/trace.h"

#include "framework/trace_line.h"
#include "platform/win32/handles.h"

#include "server/system_text.h"

#include <windows.h>

#include <cstdio>
#include <string>

namespace obk::server {

namespace {

// Never freed: lines may be written as long as the server is loaded.
const std::wstring& target() {
    static const auto* const path = [] {
        constexpr wchar_t name[] = L"OBKCTRLS_TRACE";
        auto* const value = new std::wstring(GetEnvironmentVariableW(name, nullptr, 0), L'\0');
        value->resize(GetEnvironmentVariableW(name, value->data(), static_cast<DWORD>(value->size())));
        return value;
    }();
    return *path;
}

Text now() {
    SYSTEMTIME time{};
    GetLocalTime(&time);
    char text[32];
    const int length =
        std::snprintf(text, sizeof text, "%04u-%02u-%02u %02u:%02u:%02u.%03u", time.wYear, time.wMonth,
                      time.wDay, time.wHour, time.wMinute, time.wSecond, time.wMilliseconds);
    return fromUtf8({text, static_cast<size_t>(length)});
}

// Opened for each line, so that the file can be read, moved and deleted meanwhile, and written by several
// programs.
void append(const std::string& line) {
    constexpr DWORD sharing = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const HANDLE opened = CreateFileW(target().c_str(), FILE_APPEND_DATA, sharing, nullptr, OPEN_ALWAYS,
                                      FILE_ATTRIBUTE_NORMAL, nullptr);
    if (opened == INVALID_HANDLE_VALUE) return;
    const win32::UniqueFile file(opened);
    DWORD written = 0;
    WriteFile(file.get(), line.data(), static_cast<DWORD>(line.size()), &written, nullptr);
}

void write(const LeftUndone& undone) noexcept {
    // Whoever asks afterwards why a call failed is to learn that and not what writing has left.
    const DWORD error = GetLastError();
    try {
        const Text line = traceLine(now(), undone) + u"\r\n";
        if (target() == L"debugger")
            OutputDebugStringW(toWide(line).c_str());
        else
            append(toUtf8(line));
    } catch (...) {
        // Without memory there is nothing to write it with.
    }
    SetLastError(error);
}

}  // namespace

void startTrace() {
    static const bool started = [] {
        if (target().empty()) return false;
        observeSkipped(tellSkippedAsUndone);
        observeUndone(write);
        return true;
    }();
    static_cast<void>(started);
}

}  // namespace obk::server
