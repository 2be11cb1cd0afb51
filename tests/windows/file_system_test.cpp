#include "platform/win32/file_system.h"

#include "../support/from_environment.h"
#include "base/scoped_value.h"
#include "ended_saver.h"
#include "platform/win32/handles.h"
#include "refused_import.h"
#include "server_support.h"

#include <windows.h>

#include <process.h>
#include <sddl.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cwctype>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace obk::win32 {
namespace {

using namespace testing_support;

class SystemFilesTest : public testing::Test {
protected:
    SystemFilesTest() { CreateDirectoryW(folder.c_str(), nullptr); }
    ~SystemFilesTest() override {
        for (const std::wstring& name : besides()) DeleteFileW(wide(name).c_str());
        DeleteFileW(wide(L"a.txt").c_str());
        RemoveDirectoryW(folder.c_str());
    }

    std::wstring wide(const std::wstring& name) const { return folder + L'\\' + name; }
    Text path(const std::wstring& name) const {
        const std::wstring whole = wide(name);
        return {whole.begin(), whole.end()};
    }
    // What is there beside a.txt.
    std::vector<std::wstring> besides() const {
        std::vector<std::wstring> found;
        for (const auto& entry : std::filesystem::directory_iterator(folder)) {
            if (entry.path().filename() != L"a.txt") found.push_back(entry.path().filename().wstring());
        }
        return found;
    }
    // Somebody else reads it, and lets others do so much.
    UniqueFile reader(DWORD sharing) const {
        return UniqueFile(
            CreateFileW(wide(L"a.txt").c_str(), GENERIC_READ, sharing, nullptr, OPEN_EXISTING, 0, nullptr));
    }
    std::optional<std::string> bytes(const std::wstring& name) {
        const auto file = files.openForReading(path(name));
        if (!file) return std::nullopt;
        std::string all;
        std::array<char, 7> piece{};
        while (const size_t count = file->read(piece)) all.append(piece.data(), count);
        return all;
    }
    bool write(const std::wstring& name, std::string_view content) {
        const auto file = files.openForWriting(path(name));
        return file && file->write(content) && file->commit();
    }

    // In two steps, with something happening before them.
    bool writeInTwo(TextView where, const std::function<void()>& meanwhile = {}) {
        const auto file = files.openForWriting(where);
        if (meanwhile) meanwhile();
        return file && file->write("new, ") && file->write("whole") && file->commit();
    }

    SystemFiles files;
    const std::wstring folder = temporaryFile(L"obk-files-" + std::to_wstring(GetCurrentProcessId()));
};

TEST_F(SystemFilesTest, AFileIsNewOrReplacedOnlyWhenItIsWhole) {
    EXPECT_EQ(bytes(L"a.txt"), std::nullopt);
    ASSERT_TRUE(write(L"a.txt", "first"));
    EXPECT_EQ(bytes(L"a.txt"), "first");
    {
        const auto file = files.openForWriting(path(L"a.txt"));
        ASSERT_TRUE(file && file->write("second"));
        EXPECT_EQ(bytes(L"a.txt"), "first");
        EXPECT_EQ(besides().size(), 1u);
    }
    EXPECT_EQ(bytes(L"a.txt"), "first");
    ASSERT_TRUE(write(L"a.txt", "third, longer than the others"));
    EXPECT_EQ(bytes(L"a.txt"), "third, longer than the others");
    EXPECT_TRUE(besides().empty());
}

TEST_F(SystemFilesTest, WhatCannotBeWrittenToIsLeftAlone) {
    ASSERT_TRUE(write(L"a.txt", "kept"));
    {
        const UniqueFile held = reader(0);
        EXPECT_FALSE(files.openForWriting(path(L"a.txt"))) << "somebody has it for himself";
    }
    for (const Text& nowhere :
         {Text(), path(L""), path(L"a.txt") + Text(u"\0b", 2), path(L"no such folder\\a.txt"), path(L"*"),
          path(L"a<b"), path(std::wstring(32'000, L'x')), path(std::wstring(300, L'y')),
          Text(u"\\\\no-such-machine\\share\\a.txt"), Text(u"Q:\\a.txt"), Text(u"\\\\?\\UNC\\x")}) {
        EXPECT_FALSE(files.openForWriting(nowhere)) << toUtf8(nowhere);
        EXPECT_FALSE(files.openForReading(nowhere)) << toUtf8(nowhere);
    }
    EXPECT_EQ(bytes(L"a.txt"), "kept");
    EXPECT_TRUE(besides().empty());
}

TEST_F(SystemFilesTest, AFileThatSomebodyReadsIsReplacedAllTheSame) {
    ASSERT_TRUE(write(L"a.txt", "old"));
    {
        const UniqueFile held = reader(FILE_SHARE_READ | FILE_SHARE_WRITE);
        EXPECT_TRUE(write(L"a.txt", "new"));
    }
    EXPECT_EQ(bytes(L"a.txt"), "new");
    // Wine leaves a file of its own in such a case; ours is gone.
    for (const std::wstring& name : besides()) EXPECT_FALSE(name.starts_with(L"a.txt."));
}

TEST_F(SystemFilesTest, ADeviceIsWrittenInPlace) {
    EXPECT_TRUE(writeInTwo(u"NUL"));
}

// Each call of the system fails once in turn, as on a full disk or a network that goes away.
TEST_F(SystemFilesTest, AnOperationThatFailsLeavesTheOldFileOrTheNewOne) {
    const std::pair<Refusable, int> operations[] = {
        {refusable<struct Open>("CreateFileW", CreateFileW, INVALID_HANDLE_VALUE), 2},
        {refusable<struct Write>("WriteFile", WriteFile, FALSE), 2},
        {refusable<struct Flush>("FlushFileBuffers", FlushFileBuffers, FALSE), 1},
        {refusable<struct About>("SetFileInformationByHandle", SetFileInformationByHandle, FALSE), 2},
        {refusable<struct Replace>("ReplaceFileW", ReplaceFileW, FALSE), 0},
        {refusable<struct Path>("GetFinalPathNameByHandleW", GetFinalPathNameByHandleW, DWORD{}), 2},
        {refusable<struct Move>("MoveFileExW", MoveFileExW, FALSE), 1},
        {refusable<struct Copy>("CopyFileW", CopyFileW, FALSE), 0},
    };
    for (const bool present : {true, false}) {
        const auto old = present ? std::optional<std::string>("old") : std::nullopt;
        for (const auto& [operation, least] : operations) {
            int refusals = 0;
            for (bool refused = true; refused; refusals += refused) {
                SCOPED_TRACE(testing::Message() << operation.name << ' ' << refusals << ", old: " << present);
                DeleteFileW(wide(L"a.txt").c_str());
                EXPECT_EQ(present && write(L"a.txt", "old"), present);
                bool saved = false;
                {
                    const RefusedImport import(GetModuleHandleW(nullptr), operation);
                    ASSERT_TRUE(import.found());
                    callNumber = 0;
                    refusedCall = static_cast<unsigned long>(refusals);
                    saved = writeInTwo(path(L"a.txt"));
                    refused = callNumber > refusedCall;
                }
                EXPECT_EQ(bytes(L"a.txt"), saved ? std::optional<std::string>("new, whole") : old);
                EXPECT_TRUE(besides().empty());
            }
            EXPECT_GE(refusals, present ? least : 0) << operation.name;
        }
    }
}

// By the system, or by the person who has lost patience; then somebody looks at what is there.
class EndedSaverTest : public SystemFilesTest, public testing::WithParamInterface<Saver::By> {};
INSTANTIATE_TEST_SUITE_P(Each, EndedSaverTest, testing::Values(Saver::By::files, Saver::By::gridSave),
                         [](const auto& by) { return by.index == 0 ? "Files" : "GridSave"; });

TEST_P(EndedSaverTest, AProcessThatIsEndedWhileItSavesLeavesTheOldFileOrTheNewOne) {
    const std::string before = contentOf('o'), after = contentOf('n');
    int leftBeside = 0;
    const auto look = [&] {
        const auto found = bytes(L"a.txt");
        EXPECT_TRUE(found == before || found == after) << (found ? static_cast<long>(found->size()) : -1);
        for (const std::wstring& name : besides()) {
            ++leftBeside;
            const auto beside = bytes(name);
            EXPECT_TRUE(beside == "" || beside == before || beside == after)
                << "half a file stays: " << (beside ? beside->size() : 0);
            DeleteFileW(wide(name).c_str());
        }
    };
    DWORD result = endedAtCall;
    int calls = 0;
    for (; result == endedAtCall; ++calls) {
        SCOPED_TRACE(calls);
        ASSERT_TRUE(write(L"a.txt", before));
        result = Saver(GetParam(), wide(L"a.txt"), calls).result();
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
        Saver saver(GetParam(), wide(L"a.txt"), Saver::forEver);
        // Not by reading: who has the file open keeps it from being replaced on some systems.
        for (int turn = 0; turn < 2000 && besides().empty(); ++turn) Sleep(1);
        Sleep(static_cast<DWORD>(time % 40));
        saver.end();
        look();
    }
}

// A copy that ends the old file, and is not done.
BOOL WINAPI halfACopy(LPCWSTR, LPCWSTR to, BOOL) {
    const UniqueFile file(CreateFileW(to, GENERIC_WRITE, 0, nullptr, TRUNCATE_EXISTING, 0, nullptr));
    DWORD count = 0;
    WriteFile(file.get(), "ne", 2, &count, nullptr);
    SetLastError(ERROR_DISK_FULL);
    return FALSE;
}

TEST_F(SystemFilesTest, ACopyThatEndsTheOldFileHalfWayLeavesTheNewOneBesideIt) {
    const ScopedFlag all(refusesAll);
    const HMODULE program = GetModuleHandleW(nullptr);
    const RefusedImport replaced(program, refusable<struct Replace>("ReplaceFileW", ReplaceFileW, FALSE));
    const RefusedImport moved(program, refusable<struct Move>("MoveFileExW", MoveFileExW, FALSE));
    ASSERT_TRUE(write(L"a.txt", "old"));
    EXPECT_TRUE(write(L"a.txt", "new")) << "written over";
    EXPECT_EQ(bytes(L"a.txt"), "new");
    {
        const RefusedImport copied(program, refusable<struct Copy>("CopyFileW", CopyFileW, FALSE));
        EXPECT_FALSE(write(L"a.txt", "newer"));
        EXPECT_EQ(bytes(L"a.txt"), "new");
        EXPECT_TRUE(besides().empty());
    }
    const RefusedImport copied(program, {"CopyFileW", reinterpret_cast<void*>(&halfACopy)});
    EXPECT_FALSE(write(L"a.txt", "newest"));
    ASSERT_EQ(besides().size(), 1u);
    EXPECT_EQ(bytes(besides()[0]), "newest");
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
    const auto made = [&] { return GetFileAttributesW(link.c_str()) != INVALID_FILE_ATTRIBUTES; };
    CreateSymbolicLinkW(link.c_str(), target.c_str(), 0);
    if (made()) return true;
    std::wstring below = link;
    std::replace(below.begin(), below.end(), L'\\', L'/');
    below[0] = static_cast<wchar_t>(towlower(below[0]));
    const std::wstring command = L"\"ln -s '" + target + L"' \\\"$WINEPREFIX/dosdevices/" + below + L"\\\"\"";
    _wspawnlp(_P_NOWAIT, L"start.exe", L"start.exe", L"/unix", L"/bin/sh", L"-c", command.c_str(), nullptr);
    for (int turn = 0; turn < 500 && !made(); ++turn) Sleep(10);
    return made();
}

TEST_F(SystemFilesTest, ALinkIsSavedThroughAndBecomesAFileWhenItLeadsNowhere) {
    ASSERT_TRUE(write(L"a.txt", "old"));
    ASSERT_TRUE(makeLink(wide(L"link.txt"), L"a.txt"));
    EXPECT_EQ(bytes(L"link.txt"), "old");
    EXPECT_TRUE(write(L"link.txt", "new"));
    EXPECT_EQ(bytes(L"a.txt"), "new");
    EXPECT_EQ(bytes(L"link.txt"), "new");
    // What it leads to goes away before the new file is whole.
    EXPECT_TRUE(writeInTwo(path(L"link.txt"),
                           [&] { EXPECT_TRUE(MoveFileW(wide(L"a.txt").c_str(), wide(L"b.txt").c_str())); }));
    EXPECT_EQ(bytes(L"a.txt"), "new, whole") << "where it led";
    EXPECT_EQ(bytes(L"b.txt"), "new");
    DeleteFileW(wide(L"a.txt").c_str());
    EXPECT_EQ(bytes(L"link.txt"), std::nullopt);
    EXPECT_TRUE(write(L"link.txt", "newest"));
    EXPECT_EQ(bytes(L"link.txt"), "newest");
}

// Who may do what with a file.
std::string rightsOf(const std::wstring& path) {
    std::string rights(4096, '\0');
    DWORD size = 0;
    EXPECT_TRUE(GetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, rights.data(), 4096, &size));
    rights.resize(size);
    return rights;
}

TEST_F(SystemFilesTest, AFileStaysHiddenAndKeepsItsRights) {
    ASSERT_TRUE(write(L"a.txt", "old"));
    const std::wstring file = wide(L"a.txt");
    const auto before = rightsOf(file);
    PSECURITY_DESCRIPTOR everyone = nullptr;
    ASSERT_TRUE(ConvertStringSecurityDescriptorToSecurityDescriptorW(L"D:P(A;;FA;;;WD)", SDDL_REVISION_1,
                                                                     &everyone, nullptr));
    EXPECT_TRUE(SetFileSecurityW(file.c_str(), DACL_SECURITY_INFORMATION, everyone));
    LocalFree(everyone);
    const auto given = rightsOf(file);
    EXPECT_NE(given, before);
    ASSERT_TRUE(SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_HIDDEN));
    ASSERT_TRUE(write(L"a.txt", "new"));
    EXPECT_EQ(bytes(L"a.txt"), "new");
    EXPECT_TRUE(GetFileAttributesW(file.c_str()) & FILE_ATTRIBUTE_HIDDEN);
    EXPECT_EQ(rightsOf(file), given);
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
    EXPECT_TRUE(besides().empty());
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
