#include "ended_saver.h"

#include "platform/win32/file_system.h"
#include "refused_import.h"
#include "server_support.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <deque>
#include <functional>
#include <string_view>

namespace obk::testing_support {

namespace {

constexpr const char* saverArgument = "--save-until-ended";

std::wstring wide(const char* text) {
    std::wstring result(MAX_PATH * 2, L'\0');
    result.resize(static_cast<size_t>(std::max(
        MultiByteToWideChar(CP_ACP, 0, text, -1, result.data(), static_cast<int>(result.size())) - 1, 0)));
    return result;
}

template <typename Unit>
std::basic_string<Unit> cellOf(char letter) {
    return std::basic_string<Unit>(100'000 + static_cast<unsigned char>(letter), static_cast<Unit>(letter));
}

// Who saves, and the module whose calls of the system are counted then.
struct Saving {
    HMODULE module;
    std::function<bool(const std::wstring& path, char letter)> save;
};

Saving savingFiles() {
    return {GetModuleHandleW(nullptr), [](const std::wstring& path, char letter) {
                win32::SystemFiles files;
                const std::string content = contentOf(letter);
                const auto file = files.openForWriting(Text(path.begin(), path.end()));
                const size_t half = content.size() / 2;
                return file && file->write({content.data(), half}) &&
                       file->write(std::string_view(content).substr(half)) && file->commit();
            }};
}

Saving savingGrid() {
    static const LoadedServer server;
    static const container::Dispatch grid(server.create(L"GridEdit").get());
    return {server.module(), [](const std::wstring& path, char letter) {
                grid.call(L"RowsSet", {1});
                grid.call(L"ColsSet", {1});
                grid.call(L"CellTextSet", {0, 0, cellOf<wchar_t>(letter)});
                return grid.call(L"GridSave", {path, L"Kept"}) == S_OK;
            }};
}

}  // namespace

std::string contentOf(char letter) {
    return "\"1|Kept\"\r\n\"" + cellOf<char>(letter) + "\"\r\n";
}

Saver::Saver(By by, const std::wstring& path, int lastCall) {
    wchar_t program[MAX_PATH]{};
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    std::wstring line = L'"' + std::wstring(program) + L"\" " + wide(saverArgument) + L" \"" + path + L"\" " +
                        std::to_wstring(lastCall) + L' ' + std::to_wstring(static_cast<int>(by));
    STARTUPINFOW start{};
    start.cb = sizeof start;
    EXPECT_TRUE(CreateProcessW(program, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                               &process_));
}

Saver::~Saver() {
    end();
    CloseHandle(process_.hThread);
    CloseHandle(process_.hProcess);
}

void Saver::end() {
    TerminateProcess(process_.hProcess, endedAtCall);
    result();
}

DWORD Saver::result() {
    DWORD code = 0;
    EXPECT_EQ(WaitForSingleObject(process_.hProcess, 100'000), WAIT_OBJECT_0);
    GetExitCodeProcess(process_.hProcess, &code);
    return code;
}

bool isSaver(int count, char** arguments) {
    return count == 5 && std::string_view(arguments[1]) == saverArgument;
}

int saveUntilEnded(char** arguments) {
    const std::wstring path = wide(arguments[2]);
    const int lastCall = std::atoi(arguments[3]);
    const bool byGrid = std::atoi(arguments[4]) == static_cast<int>(Saver::By::gridSave);
    const Saving saving = byGrid ? savingGrid() : savingFiles();
    while (lastCall == Saver::forEver) {
        saving.save(path, 'n');
        saving.save(path, 'o');
    }
    std::deque<RefusedImport> imports;
    for (const Refusable& function : {
             refusable<struct EndedOpen>("CreateFileW", CreateFileW, INVALID_HANDLE_VALUE),
             refusable<struct EndedType>("GetFileType", GetFileType, DWORD{}),
             refusable<struct EndedPath>("GetFinalPathNameByHandleW", GetFinalPathNameByHandleW, DWORD{}),
             refusable<struct EndedAbout>("SetFileInformationByHandle", SetFileInformationByHandle, FALSE),
             refusable<struct EndedWrite>("WriteFile", WriteFile, FALSE),
             refusable<struct EndedFlush>("FlushFileBuffers", FlushFileBuffers, FALSE),
             refusable<struct EndedClose>("CloseHandle", CloseHandle, FALSE),
             refusable<struct EndedLooks>("GetFileAttributesExW", GetFileAttributesExW, FALSE),
             refusable<struct EndedRights>("SetFileSecurityW", SetFileSecurityW, FALSE),
             refusable<struct EndedReplace>("ReplaceFileW", ReplaceFileW, FALSE),
             refusable<struct EndedMove>("MoveFileExW", MoveFileExW, FALSE),
             refusable<struct EndedCopy>("CopyFileW", CopyFileW, FALSE),
             refusable<struct EndedDelete>("DeleteFileW", DeleteFileW, FALSE),
         })
        imports.emplace_back(saving.module, function);
    endsAtCall = true;
    callNumber = 0;
    refusedCall = static_cast<unsigned long>(lastCall);
    const bool saved = saving.save(path, 'n');
    imports.clear();
    return saved ? 0 : 1;
}

}  // namespace obk::testing_support
