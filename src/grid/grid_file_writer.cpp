#include "grid/grid_file_writer.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>

namespace obk {

namespace {

constexpr std::string_view lineStart = "\"";
constexpr std::string_view lineEnd = "\"\r\n";

}  // namespace

GridFileWriter::GridFileWriter(FileSystem& files, TextView path, WaitCursor& waitCursor)
    : page_(files.codePage()),
      waitCursor_(waitCursor),
      buffer_(bufferSize),
      file_(files.openForWriting(path)) {}

void GridFileWriter::writeHeader(int32_t cols, TextView caption) noexcept {
    std::array<char, 12> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), cols).ptr;
    append(lineStart);
    append(std::string_view(digits.data(), static_cast<size_t>(end - digits.data())));
    append(std::string_view("|"));
    append(caption);
    append(lineEnd);
}

void GridFileWriter::writeValue(TextView text) noexcept {
    if (text.size() + lineStart.size() + lineEnd.size() > bufferSize - used_) {
        append(lineStart);
        append(text);
        append(lineEnd);
        return;
    }
    // The same, for all values but one in some thousand.
    char* const line = buffer_.data() + used_;
    line[0] = lineStart[0];
    page_.encode(text, line + 1);
    std::memcpy(line + 1 + text.size(), lineEnd.data(), lineEnd.size());
    used_ += lineStart.size() + text.size() + lineEnd.size();
}

bool GridFileWriter::close() {
    flush();
    const bool whole = file_ && file_->commit();
    file_.reset();
    return whole;
}

void GridFileWriter::append(TextView text) {
    while (!text.empty()) {
        if (used_ == bufferSize) flush();
        const TextView part = text.substr(0, bufferSize - used_);
        page_.encode(part, buffer_.data() + used_);
        used_ += part.size();
        text.remove_prefix(part.size());
    }
}

void GridFileWriter::append(std::string_view bytes) {
    if (used_ + bytes.size() > bufferSize) flush();
    used_ = static_cast<size_t>(
        std::copy(bytes.begin(), bytes.end(), buffer_.begin() + static_cast<ptrdiff_t>(used_)) -
        buffer_.begin());
}

void GridFileWriter::flush() {
    waitCursor_.progress();
    if (file_ && !file_->write({buffer_.data(), used_})) file_.reset();
    used_ = 0;
}

}  // namespace obk
