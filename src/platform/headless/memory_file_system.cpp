#include "platform/headless/memory_file_system.h"

#include "base/attempt.h"
#include "base/left_undone.h"

#include <algorithm>

namespace obk::headless {

class MemoryFileSystem::Reading : public InputFile {
public:
    Reading(const MemoryFileSystem& files, const Text& path) : files_(files), path_(path) {}

    size_t read(std::span<char> into) override {
        const auto found = files_.files_.find(path_);
        if (found == files_.files_.end()) return 0;
        const std::string& bytes = found->second;
        const size_t from = std::min(at_, bytes.size());
        const size_t count = std::min({into.size(), bytes.size() - from, files_.longestRead_});
        std::copy_n(bytes.begin() + static_cast<ptrdiff_t>(from), count, into.begin());
        at_ = from + count;
        return count;
    }

private:
    const MemoryFileSystem& files_;
    Text path_;
    size_t at_ = 0;
};

class MemoryFileSystem::Writing : public OutputFile {
public:
    // The file that is written: the one that is wanted, or another one beside it.
    Writing(MemoryFileSystem& files, TextView path, Text written)
        : files_(files), path_(path), written_(std::move(written)) {
        files_.files_[written_].clear();
    }
    ~Writing() override {
        if (!committed_ && written_ != path_ && !files_.stopped()) files_.files_.erase(written_);
    }

    bool write(std::string_view bytes) override {
        if (failed_ || !files_.changes()) return false;
        // A disk takes what it has room for.
        const std::string_view taken = bytes.substr(0, files_.room_);
        failed_ = !attempt([&] { files_.files_[written_].append(taken); });
        if (!failed_) files_.room_ -= taken.size();
        failed_ = failed_ || taken.size() < bytes.size();
        return !failed_;
    }

    bool commit() override {
        if (failed_ || !files_.changes()) return false;
        if (written_ != path_) {
            auto node = files_.files_.extract(written_);
            files_.files_.erase(path_);
            std::swap(node.key(), path_);
            files_.files_.insert(std::move(node));
        }
        committed_ = true;
        return true;
    }

private:
    MemoryFileSystem& files_;
    Text path_, written_;
    bool failed_ = false;
    bool committed_ = false;
};

bool MemoryFileSystem::changes() {
    if (stopped()) return false;
    if (changesLeft_ != endless) --changesLeft_;
    return true;
}

std::optional<std::string> MemoryFileSystem::bytes(TextView path) const {
    const auto found = files_.find(Text(path));
    return found == files_.end() ? std::nullopt : std::optional(found->second);
}

std::unique_ptr<InputFile> MemoryFileSystem::openForReading(TextView path) {
    const Text name(path);
    if (refused_.contains(name) || !files_.contains(name)) {
        tellUndone({.kind = LeftUndone::Kind::file, .subject = path, .reason = u"there is none"});
        return nullptr;
    }
    return std::make_unique<Reading>(*this, name);
}

std::unique_ptr<OutputFile> MemoryFileSystem::openForWriting(TextView path) {
    const Text name(path);
    if (name.empty() || refused_.contains(name) || stopped()) return nullptr;
    const bool inPlace = refusesOthers_ || devices_.contains(name);
    return std::make_unique<Writing>(*this, name, inPlace ? name : name + u".tmp");
}

}  // namespace obk::headless
