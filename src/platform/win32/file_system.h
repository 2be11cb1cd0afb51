// Files on the system's disks and devices, and the system's code page.
#pragma once

#include "widgets/file_system.h"

#include <memory>

namespace obk::win32 {

class SystemFiles final : public FileSystem {
public:
    std::unique_ptr<InputFile> openForReading(TextView path) override;
    std::unique_ptr<OutputFile> openForWriting(TextView path) override;
    // The system's own where it has one byte for a character, else the western one.
    const CodePage& codePage() override;

private:
    std::unique_ptr<CodePage> codePage_;  // made on first use
};

}  // namespace obk::win32
