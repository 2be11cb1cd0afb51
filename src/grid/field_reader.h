// The fields of a text file, one after the other, whatever the file holds.
#pragma once

#include "grid/wait_cursor.h"
#include "widgets/file_system.h"

#include <memory>
#include <string_view>
#include <vector>

namespace obk {

// Commas and line ends part fields; a line ends with a carriage return, a line feed or both. Blanks before a
// field are skipped. A field that begins with a quotation mark runs to the next one, over commas and line
// ends, or to the end of the file; what follows it up to the next comma or line end is dropped. Any other
// field loses the blanks at its end. Holds a fixed piece of the file at a time.
class FieldReader {
public:
    // Null for a file that could not be opened, which is at its end. Both others are borrowed.
    FieldReader(std::unique_ptr<InputFile> file, const CodePage& page, WaitCursor& waitCursor);

    // Whether no byte is left. A comma or line end at the end of the file begins no further field.
    bool atEnd() { return at_ == end_ && !fill(); }
    // Appends the next field. False, and nothing appended, at the end of the file.
    bool read(Text& onto);

private:
    static constexpr size_t bufferSize = 65536;

    bool fill();
    std::string_view buffered() const { return {buffer_.data() + at_, end_ - at_}; }
    void readQuoted(Text& onto);
    void readPlain(Text& onto);
    // To the next comma or line end, and behind it.
    void finishField();

    std::unique_ptr<InputFile> file_;
    const CodePage& page_;
    WaitCursor& waitCursor_;
    std::vector<char> buffer_;
    size_t at_ = 0, end_ = 0;
};

}  // namespace obk
