#include "platform/win32/file_system.h"

#include "base/left_undone.h"
#include "platform/win32/handles.h"
#include "platform/win32/text_conversion.h"

#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace obk::win32 {

namespace {

// The most that one call transfers; the system counts in 32 bits.
constexpr size_t mostBytes = 1 << 20;

UniqueFile open(const std::wstring& path, DWORD access, DWORD disposition, DWORD flags = 0) {
    // Others may read a file meanwhile, and put another one in its place.
    constexpr DWORD reading = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    constexpr DWORD writing = FILE_SHARE_READ;
    const HANDLE file = CreateFileW(path.c_str(), access, access == GENERIC_READ ? reading : writing, nullptr,
                                    disposition, FILE_ATTRIBUTE_NORMAL | flags, nullptr);
    return UniqueFile(file == INVALID_HANDLE_VALUE ? nullptr : file);
}

// As the system's functions take it; empty for what they would take for another path, and for a folder's.
std::wstring usablePath(TextView path) {
    const bool another = path.find(u'\0') != TextView::npos;
    const bool folder = !path.empty() && (path.back() == u'\\' || path.back() == u'/');
    return another || folder ? std::wstring() : toWide(path);
}

// Where an open file really is, behind links; the path itself where the system does not tell.
std::wstring finalPath(HANDLE file, const std::wstring& path) {
    const DWORD size = GetFinalPathNameByHandleW(file, nullptr, 0, FILE_NAME_NORMALIZED);
    std::wstring found(size, L'\0');
    const DWORD length =
        size == 0 ? 0 : GetFinalPathNameByHandleW(file, found.data(), size, FILE_NAME_NORMALIZED);
    if (length == 0 || length >= size) return path;
    found.resize(length);
    return found;
}

// Whether the file goes when its handle is closed, by us or by the end of this process.
bool setTemporary(HANDLE file, bool temporary) {
    FILE_DISPOSITION_INFO about{.DeleteFile = temporary};
    return SetFileInformationByHandle(file, FileDispositionInfo, &about, sizeof about) != FALSE;
}

// What tells whether a file has been written to; all zero for none.
WIN32_FILE_ATTRIBUTE_DATA looks(const std::wstring& path) {
    WIN32_FILE_ATTRIBUTE_DATA found{};
    if (!GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &found)) found = {};
    return found;
}
bool sameLooks(const WIN32_FILE_ATTRIBUTE_DATA& one, const WIN32_FILE_ATTRIBUTE_DATA& other) {
    return one.nFileSizeHigh == other.nFileSizeHigh && one.nFileSizeLow == other.nFileSizeLow &&
           CompareFileTime(&one.ftLastWriteTime, &other.ftLastWriteTime) == 0;
}

bool writeAll(HANDLE file, std::string_view bytes) {
    while (!bytes.empty()) {
        DWORD written = 0;
        const auto count = static_cast<DWORD>(std::min(bytes.size(), mostBytes));
        if (!WriteFile(file, bytes.data(), count, &written, nullptr) || written == 0) return false;
        bytes.remove_prefix(written);
    }
    return true;
}

class Reading final : public InputFile {
public:
    explicit Reading(UniqueFile file) : file_(std::move(file)) {}

    size_t read(std::span<char> into) override {
        DWORD count = 0;
        const auto room = static_cast<DWORD>(std::min(into.size(), mostBytes));
        return ReadFile(file_.get(), into.data(), room, &count, nullptr) ? count : 0;
    }

private:
    UniqueFile file_;
};

class WritingInPlace final : public OutputFile {
public:
    explicit WritingInPlace(UniqueFile file) : file_(std::move(file)) {}

    bool write(std::string_view bytes) override {
        whole_ = whole_ && writeAll(file_.get(), bytes);
        return whole_;
    }
    bool commit() override {
        file_.reset();
        return whole_;
    }

private:
    UniqueFile file_;
    bool whole_ = true;
};

class WritingBeside final : public OutputFile {
public:
    WritingBeside(UniqueFile file, std::wstring beside, std::wstring path)
        : file_(std::move(file)), beside_(std::move(beside)), path_(std::move(path)) {
        // So that a process that is ended meanwhile leaves nothing. Where the system refuses, it leaves this.
        setTemporary(file_.get(), true);
    }
    WritingBeside(const WritingBeside&) = delete;
    WritingBeside& operator=(const WritingBeside&) = delete;
    ~WritingBeside() override {
        file_.reset();
        if (!placed_ && !kept_) DeleteFileW(beside_.c_str());
    }

    bool write(std::string_view bytes) override {
        whole_ = whole_ && writeAll(file_.get(), bytes);
        return whole_;
    }
    bool commit() override {
        // A loss of power after the file has its name must not find it empty.
        whole_ = whole_ && FlushFileBuffers(file_.get());
        if (whole_) setTemporary(file_.get(), false);
        file_.reset();
        if (!whole_) return false;
        const auto before = looks(path_);
        takeAfter(before);
        placed_ = replace();
        if (placed_ || CopyFileW(beside_.c_str(), path_.c_str(), FALSE)) return true;
        // What stops half way, as a copy does on a full disk, has ended the old file; then the new one stays
        // where it is.
        kept_ = !sameLooks(before, looks(path_));
        return false;
    }

private:
    // Keeps what the old file has beside its content.
    void takeAfter(const WIN32_FILE_ATTRIBUTE_DATA& old) const {
        constexpr DWORD kept = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
        if (old.dwFileAttributes & kept)
            SetFileAttributesW(beside_.c_str(), old.dwFileAttributes & (kept | FILE_ATTRIBUTE_ARCHIVE));
        DWORD size = 0;
        GetFileSecurityW(path_.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
        std::vector<std::byte> rights(size);
        if (size > 0 &&
            GetFileSecurityW(path_.c_str(), DACL_SECURITY_INFORMATION, rights.data(), size, &size))
            SetFileSecurityW(beside_.c_str(), DACL_SECURITY_INFORMATION, rights.data());
    }
    bool replace() const {
        // At once, so that whoever looks finds the one or the other, also when this process ends meanwhile.
        if (MoveFileExW(beside_.c_str(), path_.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
            return true;
        // In two steps, which on some systems is all that is possible where somebody reads the old file. If
        // that does not share its name either, its content can be replaced all the same.
        return ReplaceFileW(path_.c_str(), beside_.c_str(), nullptr, REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr,
                            nullptr) != FALSE;
    }

    UniqueFile file_;
    std::wstring beside_, path_;
    bool whole_ = true;
    bool placed_ = false, kept_ = false;
};

// A new file beside `path`; null where none can be made.
std::unique_ptr<OutputFile> fileBeside(const std::wstring& path) {
    constexpr int mostTurns = 16;
    for (int turn = 0; turn < mostTurns; ++turn) {
        std::wstring beside = path + L'.' + wideNumber(GetCurrentProcessId()) + L'-' +
                              wideNumber(GetTickCount() + static_cast<DWORD>(turn)) + L".tmp";
        if (UniqueFile file = open(beside, GENERIC_WRITE | DELETE, CREATE_NEW))
            return std::make_unique<WritingBeside>(std::move(file), std::move(beside), path);
        if (GetLastError() != ERROR_FILE_EXISTS) break;
    }
    return nullptr;
}

std::unique_ptr<OutputFile> inPlace(UniqueFile file) {
    if (!file) return nullptr;
    // A device has no end to set.
    SetEndOfFile(file.get());
    return std::make_unique<WritingInPlace>(std::move(file));
}

bool exists(DWORD error) {
    return error != ERROR_FILE_NOT_FOUND && error != ERROR_PATH_NOT_FOUND;
}

std::unique_ptr<OutputFile> openedForWriting(const std::wstring& name) {
    UniqueFile present = open(name, GENERIC_WRITE, OPEN_EXISTING);
    if (!present) {
        if (exists(GetLastError())) return nullptr;
        if (auto file = fileBeside(name)) return file;
        return inPlace(open(name, GENERIC_WRITE, CREATE_NEW));
    }
    if (GetFileType(present.get()) != FILE_TYPE_DISK) return inPlace(std::move(present));
    const std::wstring real = finalPath(present.get(), name);
    if (auto file = fileBeside(real)) return file;
    return inPlace(std::move(present));
}

// Answers null, as what opens a file of either kind does.
std::nullptr_t notOpened(TextView path, DWORD error) {
    if (!undoneIsObserved()) return nullptr;
    const Text reason = systemReason(error);
    tellUndone({.kind = LeftUndone::Kind::file, .subject = path, .reason = reason});
    return nullptr;
}

}  // namespace

std::unique_ptr<InputFile> SystemFiles::openForReading(TextView path) {
    const std::wstring name = usablePath(path);
    if (name.empty()) return notOpened(path, ERROR_INVALID_NAME);
    UniqueFile file = open(name, GENERIC_READ, OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN);
    if (!file) return notOpened(path, GetLastError());
    return std::make_unique<Reading>(std::move(file));
}

std::unique_ptr<OutputFile> SystemFiles::openForWriting(TextView path) {
    const std::wstring name = usablePath(path);
    if (name.empty()) return notOpened(path, ERROR_INVALID_NAME);
    if (auto file = openedForWriting(name)) return file;
    return notOpened(path, GetLastError());
}

const CodePage& SystemFiles::codePage() {
    if (codePage_) return *codePage_;
    CPINFO info{};
    if (!GetCPInfo(CP_ACP, &info) || info.MaxCharSize != 1) return CodePage::windows1252();
    CodePage::Meanings meanings{};
    for (size_t byte = 0; byte < meanings.size(); ++byte) {
        const auto one = static_cast<char>(byte);
        wchar_t unit = 0;
        if (MultiByteToWideChar(CP_ACP, 0, &one, 1, &unit, 1) != 1) return CodePage::windows1252();
        meanings[byte] = static_cast<char16_t>(unit);
    }
    codePage_ = std::make_unique<CodePage>(meanings);
    return *codePage_;
}

}  // namespace obk::win32
