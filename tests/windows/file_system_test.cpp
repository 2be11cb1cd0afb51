#include "platform/win32/file_system.h"

#include "../support/from_environment.h"
#include "ended_saver.h"
#include "refused_import.h"
#include "server_support.h"

#include <windows.h>

#include <sddl.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cwctype>
#include <optional>
#include <string>
#include <vector>

namespace obk::win32 {
namespace {

using testing_support::contentOf;

class SystemFilesTest : public testing::Test {
protected:
    SystemFilesTest() { CreateDirectoryW(folder_.c_str(), nullptr); }
    ~SystemFilesTest() override {
        for (const std::wstring& name : names()) {
            SetFileAttributesW((folder_ + L'\\' + name).c_str(), FILE_ATTRIBUTE_NORMAL);
            DeleteFileW((folder_ + L'\\' + name).c_str());
        }
        RemoveDirectoryW(folder_.c_str());
    }

    std::wstring wide(const wchar_t* name) const { return folder_ + L'\\' + name; }
    Text path(const wchar_t* name) const {
        const std::wstring whole = wide(name);
        return {whole.begin(), whole.end()};
    }
    std::vector<std::wstring> names() const {
        std::vector<std::wstring> found;
        WIN32_FIND_DATAW data{};
        const HANDLE search = FindFirstFileW((folder_ + L"\\*").c_str(), &data);
        if (search == INVALID_HANDLE_VALUE) return found;
        do {
            if ((data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) found.emplace_back(data.cFileName);
        } while (FindNextFileW(search, &data));
        FindClose(search);
        return found;
    }
    std::optional<std::string> bytes(const wchar_t* name) {
        const auto file = files.openForReading(path(name));
        if (!file) return std::nullopt;
        std::string all;
        std::array<char, 7> piece{};
        while (const size_t count = file->read(piece)) all.append(piece.data(), count);
        return all;
    }
    bool write(const wchar_t* name, std::string_view content) {
        const auto file = files.openForWriting(path(name));
        return file && file->write(content) && file->commit();
    }

    SystemFiles files;

private:
    const std::wstring folder_ =
        testing_support::temporaryFile(L"obk-files-" + std::to_wstring(GetCurrentProcessId()));
};

TEST_F(SystemFilesTest, AFileIsNewOrReplacedOnlyWhenItIsWhole) {
    EXPECT_EQ(bytes(L"a.txt"), std::nullopt);
    ASSERT_TRUE(write(L"a.txt", "first"));
    EXPECT_EQ(bytes(L"a.txt"), "first");
    {
        const auto file = files.openForWriting(path(L"a.txt"));
        ASSERT_TRUE(file && file->write("second"));
        EXPECT_EQ(bytes(L"a.txt"), "first");
        EXPECT_EQ(names().size(), 2u);
    }
    EXPECT_EQ(bytes(L"a.txt"), "first");
    ASSERT_TRUE(write(L"a.txt", "third, longer than the others"));
    EXPECT_EQ(bytes(L"a.txt"), "third, longer than the others");
    EXPECT_EQ(names(), std::vector<std::wstring>{L"a.txt"});
}

TEST_F(SystemFilesTest, WhatCannotBeWrittenToIsLeftAlone) {
    ASSERT_TRUE(write(L"a.txt", "kept"));
    const HANDLE holder = CreateFileW(wide(L"a.txt").c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                                      FILE_ATTRIBUTE_NORMAL, nullptr);
    ASSERT_NE(holder, INVALID_HANDLE_VALUE);
    EXPECT_FALSE(files.openForWriting(path(L"a.txt"))) << "somebody has it for himself";
    CloseHandle(holder);
    EXPECT_FALSE(files.openForWriting(path(L"")));
    EXPECT_FALSE(files.openForWriting(path(L"no such folder\\a.txt")));
    EXPECT_FALSE(files.openForWriting(u""));
    EXPECT_FALSE(files.openForReading(u""));
    EXPECT_FALSE(files.openForReading(path(L"a.txt") + Text(u"\0b", 2)));
    EXPECT_EQ(bytes(L"a.txt"), "kept");
    EXPECT_EQ(names().size(), 1u);
}

TEST_F(SystemFilesTest, AFileThatSomebodyReadsIsReplacedAllTheSame) {
    ASSERT_TRUE(write(L"a.txt", "old"));
    const HANDLE reader =
        CreateFileW(wide(L"a.txt").c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    ASSERT_NE(reader, INVALID_HANDLE_VALUE);
    EXPECT_TRUE(write(L"a.txt", "new"));
    CloseHandle(reader);
    EXPECT_EQ(bytes(L"a.txt"), "new");
    // Wine leaves a file of its own in such a case; ours is gone.
    for (const std::wstring& name : names()) EXPECT_NE(name.rfind(L"a.txt.", 0), 0u);
}

TEST_F(SystemFilesTest, ADeviceIsWrittenInPlace) {
    const auto file = files.openForWriting(u"NUL");
    ASSERT_TRUE(file);
    EXPECT_TRUE(file->write("swallowed"));
    EXPECT_TRUE(file->commit());
}

// Each call of the system fails once in turn, as on a full disk or a network that goes away.
TEST_F(SystemFilesTest, AnOperationThatFailsLeavesTheOldFileOrTheNewOne) {
    using testing_support::refusable;
    const std::pair<testing_support::Refusable, int> operations[] = {
        {refusable<struct Open>("CreateFileW", CreateFileW, INVALID_HANDLE_VALUE), 2},
        {refusable<struct Write>("WriteFile", WriteFile, FALSE), 2},
        {refusable<struct Flush>("FlushFileBuffers", FlushFileBuffers, FALSE), 1},
        {refusable<struct About>("SetFileInformationByHandle", SetFileInformationByHandle, FALSE), 2},
        {refusable<struct Replace>("ReplaceFileW", ReplaceFileW, FALSE), 0},
        {refusable<struct Path>("GetFinalPathNameByHandleW", GetFinalPathNameByHandleW, DWORD{}), 2},
        {refusable<struct Move>("MoveFileExW", MoveFileExW, FALSE), 1},
        {refusable<struct Copy>("CopyFileW", CopyFileW, FALSE), 0},
    };
    for (const auto& [operation, least] : operations) {
        int refusals = 0;
        for (unsigned long number = 0;; ++number) {
            SCOPED_TRACE(std::string(operation.name) + " " + std::to_string(number));
            ASSERT_TRUE(write(L"a.txt", "old"));
            bool saved = false, refused = false;
            {
                const testing_support::RefusedImport import(GetModuleHandleW(nullptr), operation);
                ASSERT_TRUE(import.found());
                testing_support::callNumber = 0;
                testing_support::refusedCall = number;
                {
                    const auto file = files.openForWriting(path(L"a.txt"));
                    saved = file && file->write("new, ") && file->write("whole") && file->commit();
                }
                refused = testing_support::callNumber > number;
            }
            EXPECT_EQ(bytes(L"a.txt"), saved ? "new, whole" : "old");
            EXPECT_EQ(names(), std::vector<std::wstring>{L"a.txt"});
            if (!refused) break;
            ++refusals;
        }
        EXPECT_GE(refusals, least) << operation.name;
    }
}

// By the system, or by the person who has lost patience; then somebody looks at what is there.
class EndedSaverTest : public SystemFilesTest,
                       public testing::WithParamInterface<testing_support::Saver::By> {};
INSTANTIATE_TEST_SUITE_P(Each, EndedSaverTest,
                         testing::Values(testing_support::Saver::By::files,
                                         testing_support::Saver::By::gridSave),
                         [](const auto& by) { return by.index == 0 ? "Files" : "GridSave"; });

TEST_P(EndedSaverTest, AProcessThatIsEndedWhileItSavesLeavesTheOldFileOrTheNewOne) {
    const std::string before = contentOf('o'), after = contentOf('n');
    int leftBeside = 0;
    const auto look = [&] {
        const auto found = bytes(L"a.txt");
        EXPECT_TRUE(found == before || found == after) << (found ? static_cast<long>(found->size()) : -1);
        for (const std::wstring& name : names()) {
            if (name == L"a.txt") continue;
            ++leftBeside;
            const auto beside = bytes(name.c_str());
            EXPECT_TRUE(beside == "" || beside == before || beside == after)
                << "half a file stays: " << (beside ? beside->size() : 0);
            DeleteFileW(wide(name.c_str()).c_str());
        }
    };
    DWORD result = testing_support::endedAtCall;
    int calls = 0;
    for (; result == testing_support::endedAtCall; ++calls) {
        SCOPED_TRACE(calls);
        ASSERT_TRUE(write(L"a.txt", before));
        result = testing_support::Saver(GetParam(), wide(L"a.txt"), calls).result();
        look();
    }
    EXPECT_EQ(result, 0u);
    EXPECT_EQ(bytes(L"a.txt"), after);
    EXPECT_GT(calls, 10);
    EXPECT_LE(leftBeside, 5) << "only where the new file has just been made or is about to get its name";
    const int times = test::fromEnvironment("OBK_ENDINGS", 4);
    for (int time = 0; time < times; ++time) {
        SCOPED_TRACE(time);
        ASSERT_TRUE(write(L"a.txt", before));
        testing_support::Saver saver(GetParam(), wide(L"a.txt"), testing_support::Saver::forEver);
        // Not by reading: who has the file open keeps it from being replaced on some systems.
        for (int turn = 0; turn < 2000 && names().size() == 1; ++turn) Sleep(1);
        Sleep(static_cast<DWORD>(time % 40));
        saver.end();
        look();
    }
}

// What keeps the new file from its name, and the old one's content from being written over.
BOOL WINAPI halfACopy(LPCWSTR, LPCWSTR to, BOOL) {
    const HANDLE file =
        CreateFileW(to, GENERIC_WRITE, 0, nullptr, TRUNCATE_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    DWORD count = 0;
    WriteFile(file, "ne", 2, &count, nullptr);
    CloseHandle(file);
    SetLastError(ERROR_DISK_FULL);
    return FALSE;
}
BOOL WINAPI notReplaced(LPCWSTR, LPCWSTR, LPCWSTR, DWORD, LPVOID, LPVOID) {
    return FALSE;
}
BOOL WINAPI notMoved(LPCWSTR, LPCWSTR, DWORD) {
    return FALSE;
}
BOOL WINAPI notCopied(LPCWSTR, LPCWSTR, BOOL) {
    return FALSE;
}

TEST_F(SystemFilesTest, ACopyThatEndsTheOldFileHalfWayLeavesTheNewOneBesideIt) {
    const HMODULE program = GetModuleHandleW(nullptr);
    const testing_support::RefusedImport replaced(program,
                                                  {"ReplaceFileW", reinterpret_cast<void*>(&notReplaced)});
    const testing_support::RefusedImport moved(program, {"MoveFileExW", reinterpret_cast<void*>(&notMoved)});
    ASSERT_TRUE(write(L"a.txt", "old"));
    EXPECT_TRUE(write(L"a.txt", "new")) << "written over";
    EXPECT_EQ(bytes(L"a.txt"), "new");
    EXPECT_EQ(names().size(), 1u);
    {
        const testing_support::RefusedImport copied(program,
                                                    {"CopyFileW", reinterpret_cast<void*>(&notCopied)});
        EXPECT_FALSE(write(L"a.txt", "newer"));
        EXPECT_EQ(bytes(L"a.txt"), "new");
        EXPECT_EQ(names().size(), 1u);
    }
    const testing_support::RefusedImport copied(program, {"CopyFileW", reinterpret_cast<void*>(&halfACopy)});
    EXPECT_FALSE(write(L"a.txt", "newest"));
    ASSERT_EQ(names().size(), 2u);
    for (const std::wstring& name : names()) {
        if (name != L"a.txt") {
            EXPECT_EQ(bytes(name.c_str()), "newest");
        }
    }
}

// A share that cannot be reached, and a drive that is disconnected between the first byte and the last.
TEST_F(SystemFilesTest, AShareThatGoesAwayLeavesTheOldFileOrTheNewOne) {
    for (const TextView nowhere : {u"\\\\no-such-machine\\share\\a.txt", u"Q:\\a.txt", u"\\\\?\\UNC\\x"}) {
        EXPECT_FALSE(files.openForWriting(nowhere));
        EXPECT_FALSE(files.openForReading(nowhere));
    }
    for (const bool present : {true, false}) {
        if (present) {
            ASSERT_TRUE(write(L"a.txt", "old"));
        } else {
            DeleteFileW(wide(L"a.txt").c_str());
        }
        const std::wstring folder = wide(L"").substr(0, wide(L"").size() - 1);
        ASSERT_TRUE(DefineDosDeviceW(0, L"Q:", folder.c_str()));
        bool saved = false;
        {
            const auto file = files.openForWriting(u"Q:\\a.txt");
            EXPECT_TRUE(DefineDosDeviceW(DDD_REMOVE_DEFINITION, L"Q:", nullptr));
            saved = file && file->write("new, whole") && file->commit();
        }
        EXPECT_FALSE(files.openForReading(u"Q:\\a.txt"));
        const std::optional<std::string> old = present ? std::optional<std::string>("old") : std::nullopt;
        EXPECT_EQ(bytes(L"a.txt"), saved ? std::optional<std::string>("new, whole") : old);
        for (const std::wstring& name : names()) {
            if (name != L"a.txt") {
                EXPECT_EQ(bytes(name.c_str()), "new, whole");
            }
        }
    }
}

// The other name keeps what it had: to write through to it would be to write in place.
TEST_F(SystemFilesTest, AFileWithTwoNamesIsReplacedUnderOne) {
    ASSERT_TRUE(write(L"a.txt", "old"));
    ASSERT_TRUE(CreateHardLinkW(wide(L"b.txt").c_str(), wide(L"a.txt").c_str(), nullptr));
    ASSERT_TRUE(write(L"a.txt", "new"));
    EXPECT_EQ(bytes(L"a.txt"), "new");
    EXPECT_EQ(bytes(L"b.txt"), "old");
}

// Where the system only claims to make links, the one below it does. Another process asks it: one that has
// started a program of the system below can show no more windows on every machine.
bool makeLink(const std::wstring& link, const std::wstring& target) {
    CreateSymbolicLinkW(link.c_str(), target.c_str(), 0);
    if (GetFileAttributesW(link.c_str()) != INVALID_FILE_ATTRIBUTES) return true;
    std::wstring below = link;
    std::replace(below.begin(), below.end(), L'\\', L'/');
    below[0] = static_cast<wchar_t>(towlower(below[0]));
    std::wstring line = L"start.exe /unix /bin/sh -c \"ln -s '" + target + L"' \\\"$WINEPREFIX/dosdevices/" +
                        below + L"\\\"\"";
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &process))
        return false;
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    for (int turn = 0; turn < 500 && GetFileAttributesW(link.c_str()) == INVALID_FILE_ATTRIBUTES; ++turn)
        Sleep(10);
    return GetFileAttributesW(link.c_str()) != INVALID_FILE_ATTRIBUTES;
}

TEST_F(SystemFilesTest, ALinkIsSavedThroughAndBecomesAFileWhenItLeadsNowhere) {
    ASSERT_TRUE(write(L"a.txt", "old"));
    ASSERT_TRUE(makeLink(wide(L"link.txt"), L"a.txt"));
    EXPECT_EQ(bytes(L"link.txt"), "old");
    EXPECT_TRUE(write(L"link.txt", "new"));
    EXPECT_EQ(bytes(L"a.txt"), "new");
    EXPECT_EQ(bytes(L"link.txt"), "new");
    {
        // What it leads to goes away between the first byte and the last.
        const auto file = files.openForWriting(path(L"link.txt"));
        ASSERT_TRUE(file && file->write("newer"));
        ASSERT_TRUE(MoveFileW(wide(L"a.txt").c_str(), wide(L"b.txt").c_str()));
        EXPECT_TRUE(file->commit());
    }
    EXPECT_EQ(bytes(L"a.txt"), "newer") << "where it led";
    EXPECT_EQ(bytes(L"b.txt"), "new");
    DeleteFileW(wide(L"a.txt").c_str());
    EXPECT_EQ(bytes(L"link.txt"), std::nullopt);
    EXPECT_TRUE(write(L"link.txt", "newest"));
    EXPECT_EQ(bytes(L"link.txt"), "newest");
}

TEST_F(SystemFilesTest, AHiddenFileStaysHidden) {
    ASSERT_TRUE(write(L"a.txt", "old"));
    ASSERT_TRUE(SetFileAttributesW(wide(L"a.txt").c_str(), FILE_ATTRIBUTE_HIDDEN));
    ASSERT_TRUE(write(L"a.txt", "new"));
    EXPECT_EQ(bytes(L"a.txt"), "new");
    EXPECT_TRUE(GetFileAttributesW(wide(L"a.txt").c_str()) & FILE_ATTRIBUTE_HIDDEN);
}

// Who may do what with a file, in the system's own words.
std::wstring rightsOf(const std::wstring& path) {
    std::array<std::byte, 4096> rights{};
    DWORD size = 0;
    wchar_t* words = nullptr;
    if (!GetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, rights.data(),
                          static_cast<DWORD>(rights.size()), &size) ||
        !ConvertSecurityDescriptorToStringSecurityDescriptorW(rights.data(), SDDL_REVISION_1,
                                                              DACL_SECURITY_INFORMATION, &words, nullptr))
        return {};
    std::wstring result = words;
    LocalFree(words);
    return result;
}

TEST_F(SystemFilesTest, AFileKeepsItsRights) {
    ASSERT_TRUE(write(L"a.txt", "old"));
    const std::wstring before = rightsOf(wide(L"a.txt"));
    PSECURITY_DESCRIPTOR everyone = nullptr;
    ASSERT_TRUE(ConvertStringSecurityDescriptorToSecurityDescriptorW(L"D:P(A;;FA;;;WD)", SDDL_REVISION_1,
                                                                     &everyone, nullptr));
    EXPECT_TRUE(SetFileSecurityW(wide(L"a.txt").c_str(), DACL_SECURITY_INFORMATION, everyone));
    LocalFree(everyone);
    const std::wstring given = rightsOf(wide(L"a.txt"));
    EXPECT_NE(given, before);
    ASSERT_TRUE(write(L"a.txt", "new"));
    EXPECT_EQ(bytes(L"a.txt"), "new");
    EXPECT_EQ(rightsOf(wide(L"a.txt")), given);
}

TEST_F(SystemFilesTest, TwoSavesAtOnceLeaveOneOfThem) {
    ASSERT_TRUE(write(L"a.txt", "old"));
    {
        const auto first = files.openForWriting(path(L"a.txt"));
        const auto second = files.openForWriting(path(L"a.txt"));
        ASSERT_TRUE(first && first->write("first"));
        const bool both = second && second->write("second");
        EXPECT_TRUE(first->commit());
        EXPECT_EQ(bytes(L"a.txt"), "first");
        const bool replaced = both && second->commit();
        EXPECT_EQ(bytes(L"a.txt"), replaced ? "second" : "first");
    }
    EXPECT_EQ(names(), std::vector<std::wstring>{L"a.txt"});
}

TEST_F(SystemFilesTest, PathsThatNoFileCanHaveAreRefused) {
    const Text folder = path(L"");
    for (const Text& name : {Text(32'000, u'x'), Text(300, u'y'), Text(u"a<b"), Text(u"*")}) {
        EXPECT_FALSE(files.openForWriting(folder + name));
        EXPECT_FALSE(files.openForReading(folder + name));
    }
    EXPECT_EQ(names().size(), 0u);
}

TEST_F(SystemFilesTest, EveryByteOfTheCodePageComesBack) {
    const CodePage& page = files.codePage();
    for (int byte = 0; byte < 256; ++byte) {
        const auto one = static_cast<char>(byte);
        EXPECT_EQ(page.character(page.byte(page.character(one))), page.character(one)) << byte;
    }
    EXPECT_EQ(page.byte(u'\u6F22'), '?');
}

}  // namespace
}  // namespace obk::win32
