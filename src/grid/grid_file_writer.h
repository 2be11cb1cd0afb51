// A grid's text file on its way out: one quoted value a line, nothing escaped.
#pragma once

#include "grid/wait_cursor.h"
#include "widgets/file_system.h"

#include <memory>
#include <vector>

namespace obk {

class GridFileWriter {
public:
    // Takes all its memory before it touches the file; nothing after that throws. `waitCursor` is borrowed,
    // and so is the code page of `files`.
    GridFileWriter(FileSystem& files, TextView path, WaitCursor& waitCursor);

    // Whether there is a file and everything has gone into it so far; what is written afterwards is lost.
    bool good() const { return file_ != nullptr; }
    // The first line.
    void writeHeader(int32_t cols, TextView caption) noexcept;
    // One cell.
    void writeValue(TextView text) noexcept;
    // The file is under its path when the answer is true. A writer that goes without leaves what was there.
    bool close();

private:
    static constexpr size_t bufferSize = 65536;

    void append(TextView text);
    void append(std::string_view bytes);
    void flush();

    const CodePage& page_;
    WaitCursor& waitCursor_;
    std::vector<char> buffer_;
    size_t used_ = 0;
    std::unique_ptr<OutputFile> file_;
};

}  // namespace obk
