#include "platform/win32/file_system.h"

#include "refused_import.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace obk::win32 {
namespace {

class SystemFilesTest : public testing::Test {
protected:
    SystemFilesTest() {
        std::array<wchar_t, MAX_PATH> temporary{};
        GetTempPathW(static_cast<DWORD>(temporary.size()), temporary.data());
        folder_ = std::wstring(temporary.data()) + L"obk-files-" + std::to_wstring(GetCurrentProcessId());
        CreateDirectoryW(folder_.c_str(), nullptr);
    }
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
    std::wstring folder_;
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
        {refusable<struct Replace>("ReplaceFileW", ReplaceFileW, FALSE), 1},
        {refusable<struct Path>("GetFinalPathNameByHandleW", GetFinalPathNameByHandleW, DWORD{}), 2},
        {refusable<struct Move>("MoveFileExW", MoveFileExW, FALSE), 0},
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
