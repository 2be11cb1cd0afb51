// Files in memory, on a disk that fills up, refuses or loses power when a test says so.
#pragma once

#include "widgets/file_system.h"

#include <cstdint>
#include <limits>
#include <map>
#include <optional>
#include <set>
#include <string>

namespace obk::headless {

// Paths are compared as they are; there are no folders. The code page is the western one.
class MemoryFileSystem : public FileSystem {
public:
    std::unique_ptr<InputFile> openForReading(TextView path) override;
    std::unique_ptr<OutputFile> openForWriting(TextView path) override;
    const CodePage& codePage() override { return CodePage::windows1252(); }

    void put(TextView path, std::string bytes) { files_[Text(path)] = std::move(bytes); }
    // Nothing when there is no such file.
    std::optional<std::string> bytes(TextView path) const;
    size_t count() const { return files_.size(); }

    void refuse(TextView path) { refused_.insert(Text(path)); }
    // What is written there goes straight into it.
    void addDevice(TextView path) { devices_.insert(Text(path)); }
    void refuseOthersBeside() { refusesOthers_ = true; }
    // The disk takes that many bytes more.
    void setRoom(size_t bytes) { room_ = bytes; }
    // The machine stops before that write or commit, counted from 0: nothing after it has an effect.
    void stopBefore(uint64_t change) { changesLeft_ = change; }
    // A stopped machine starts again, with what was on its disk.
    void restart() { changesLeft_ = endless; }
    // Reads answer that many bytes at most, as pipes and networks do.
    void setLongestRead(size_t bytes) { longestRead_ = bytes; }

private:
    class Reading;
    class Writing;
    static constexpr uint64_t endless = std::numeric_limits<uint64_t>::max();

    bool stopped() const { return changesLeft_ == 0; }
    bool changes();

    std::map<Text, std::string> files_;
    std::set<Text> refused_, devices_;
    bool refusesOthers_ = false;
    size_t room_ = std::numeric_limits<size_t>::max();
    size_t longestRead_ = std::numeric_limits<size_t>::max();
    uint64_t changesLeft_ = endless;
};

}  // namespace obk::headless
