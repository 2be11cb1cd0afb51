// Files as the port offers them: read from the start to the end, written whole or not at all.
#pragma once

#include "base/code_page.h"
#include "base/text.h"

#include <cstddef>
#include <memory>
#include <span>
#include <string_view>

namespace obk {

// Closed when it goes.
class InputFile {
public:
    virtual ~InputFile() = default;
    // The next bytes: how many there were room and bytes for. 0 at the end of the file, and when it cannot be
    // read any further.
    virtual size_t read(std::span<char> into) = 0;
};

// What is written appears under its path with commit() and not before, unless the file had to be written in
// place. Without commit() what was there stays, and nothing is left beside it.
class OutputFile {
public:
    virtual ~OutputFile() = default;
    // Whether everything was written; after a failure nothing more is.
    virtual bool write(std::string_view bytes) = 0;
    // The last call. False when the file is not whole under its path now.
    virtual bool commit() = 0;
};

// Functions answer failures and throw std::bad_alloc at most.
class FileSystem {
public:
    virtual ~FileSystem() = default;
    // Null for a path that cannot be opened.
    virtual std::unique_ptr<InputFile> openForReading(TextView path) = 0;
    // Written beside the path and put in its place at the end. In place from the start where nothing can be
    // made beside it, and for a device. Null, and nothing changed, for a path that cannot be written to.
    virtual std::unique_ptr<OutputFile> openForWriting(TextView path) = 0;
    // What the texts in the system's files are written in; lives as long as the platform.
    virtual const CodePage& codePage() = 0;
};

}  // namespace obk
